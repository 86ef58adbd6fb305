// Delivers well-formed messages with any arguments to the natives, in a process without a Java VM. An input
// is the number of a native, what the federate does when it is called, and the octets that the arguments are
// made of. The federate must see what was sent, and nothing may be left pinned or referenced.
#include "tests/support/Calls.h"
#include "tests/support/FakeJava.h"
#include "tests/support/RandomValue.h"
#include "tests/support/RecordingFederate.h"

#include <RTI/RTI1516.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>

namespace {

using namespace rti1516e;
using contract::Bytes;
using contract::Octets;

void require(bool condition, std::string const& what)
{
   if (!condition) {
      std::fprintf(stderr, "%s\n", what.c_str());
      std::abort();
   }
}

// A member of a federation. It is made anew now and then, because the VM that is none keeps what it has made.
struct Member
{
   Member()
   {
      fake::reset();
      ambassador.reset(RTIambassadorFactory().createRTIambassador().release());
      ambassador->connect(federate, HLA_EVOKED);
      token = Bytes(fake::account().lastMessage).leadingInt();
      fake::core().text = u"TestTime";
      ambassador->joinFederationExecution(L"type", L"federation");
   }

   contract::RecordingFederate federate;
   std::unique_ptr<RTIambassador> ambassador;
   std::uint32_t token = 0;
};

// A text as JNI takes it: no zero, and no sequence that is cut off.
bool isJniText(std::string const& text)
{
   for (std::size_t i = 0; i < text.size(); ++i) {
      auto const lead = static_cast<unsigned char>(text[i]);
      int const trailing = lead < 0x80 ? 0 : (lead & 0xE0) == 0xC0 ? 1 : (lead & 0xF0) == 0xE0 ? 2 : -1;
      if (lead == 0 || trailing < 0) {
         return false;
      }
      for (int left = trailing; left > 0; --left) {
         if (++i >= text.size() || (text[i] & 0xC0) != 0x80) {
            return false;
         }
      }
   }
   return true;
}

// What the federate does when it is called, and whether that is to throw.
std::function<void()> reactionOf(Octets& octets)
{
   switch (octets.below(4)) {
   case 1:
      return [text = contract::randomValue<std::wstring>(octets)] { throw NameNotFound(text); };
   case 2: {
      Bytes const bytes = octets.bytes();
      return [text = std::string(bytes.begin(), bytes.end())] { throw text; };
   }
   default:
      return nullptr;
   }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
   static std::unique_ptr<Member> member;
   static int inputs = 0;
   if (inputs++ % 1000 == 0) {
      member.reset();
      member = std::make_unique<Member>();
   }

   Octets octets(data, size);
   auto const& callback =
      contract::callbacks()[octets.below(static_cast<unsigned int>(contract::callbacks().size()))];
   member->federate.inCallback = reactionOf(octets);
   Bytes const arguments = callback.makeArguments(octets);
   Bytes const message = Bytes("63626160").int32(member->token).append(arguments).append(Bytes("59585756"));
   std::string const pending = fake::callNative(callback.native, message);
   contract::RecordingFederate::Calls const sent{{callback.member, arguments}};
   require(member->federate.takeCalled() == sent, callback.native + " has not brought what was sent");
   if (member->federate.inCallback) {
      std::string const thrown = "hla/rti1516e/exceptions/FederateInternalError: ";
      require(pending.compare(0, thrown.size(), thrown) == 0, "thrown in vain: " + pending);
      require(isJniText(pending.substr(thrown.size())), "a text that JNI does not take");
   } else {
      require(pending == "none", "thrown by nobody: " + pending);
   }
   auto const& account = fake::account();
   require(account.localReferences == 0 && account.pins == 0 && !fake::isExceptionPending() &&
              account.globalReferences == 1,
           "something is still held");
   require(account.offences.empty(), "something forbidden was done");
   return 0;
}
