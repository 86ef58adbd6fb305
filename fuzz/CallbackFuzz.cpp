// Delivers well-formed messages with any arguments to the natives, in a process without a Java VM. An input
// is the number of a native, what the federate does when it is called, and the octets that the arguments are
// made of. The federate must see what was sent, and nothing may be left pinned or referenced.
#include "tests/support/FakeJava.h"
#include "tests/support/RandomCallback.h"
#include "tests/support/RecordingFederate.h"

#include <RTI/RTI1516.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <memory>
#include <string>

namespace {

using namespace rti1516e;
using contract::Bytes;
using contract::Octets;

[[noreturn]] void fail(std::string const& what)
{
   std::fprintf(stderr, "%s\n", what.c_str());
   std::abort();
}

constexpr char const* natives[] = {
#define CALLBACK(name, ...) #name "_Native",
#include "src/callbacks/Callbacks.def"
};

// A member of a federation. It is made anew now and then, because the VM that is none keeps what it has made.
struct Member
{
   Member()
   {
      fake::reset();
      ambassador.reset(RTIambassadorFactory().createRTIambassador().release());
      ambassador->connect(federate, HLA_EVOKED);
      token = Bytes(fake::lastMessage().data(), 4).leadingInt();
      fake::core().text = u"TestTime";
      ambassador->joinFederationExecution(L"type", L"federation");
   }

   contract::RecordingFederate federate;
   std::unique_ptr<RTIambassador> ambassador;
   std::uint32_t token = 0;
};

// A text as JNI takes it: no zero, and no sequence that is cut off.
void requireJniText(std::string const& text)
{
   auto const isTrailing = [&](std::size_t i) { return i < text.size() && (text[i] & 0xC0) == 0x80; };
   for (std::size_t i = 0; i < text.size(); ++i) {
      auto const lead = static_cast<unsigned char>(text[i]);
      int const trailing = lead < 0x80 ? 0 : (lead & 0xE0) == 0xC0 ? 1 : (lead & 0xF0) == 0xE0 ? 2 : -1;
      if (lead == 0 || trailing < 0) {
         fail("a text that JNI does not take");
      }
      for (int left = trailing; left > 0; --left) {
         if (!isTrailing(++i)) {
            fail("a text that is cut off");
         }
      }
   }
}

void expectClean()
{
   auto const held = fake::holdings();
   if (held.localReferences != 0 || held.pins != 0 || held.pending || held.globalReferences != 1) {
      fail("something is still held");
   }
   if (!fake::offences().empty()) {
      fail(fake::offences().front());
   }
}

// What the federate does when it is called, and whether that is to throw.
std::function<void()> reactionOf(Octets& octets)
{
   switch (octets.below(4)) {
   case 1:
      return [text = contract::randomText(octets)] { throw NameNotFound(text); };
   case 2: {
      Bytes const bytes = octets.bytes();
      std::string const text(reinterpret_cast<char const*>(bytes.data()), bytes.size());
      return [text] { throw text; };
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
   std::string const native = natives[octets.below(std::size(natives))];
   member->federate.inCallback = reactionOf(octets);
   contract::RandomCallback const callback(native, octets);
   Bytes const message =
      Bytes("63626160").int32(member->token).append(callback.arguments).append(Bytes("59585756"));
   std::string const pending = fake::callNative(native, {message.data(), message.data() + message.size()});
   auto const called = member->federate.takeCalled();
   if (called.size() != 1 || called.front() != callback.called) {
      fail(native + " has not brought what was sent");
   }
   std::string const thrown = "hla/rti1516e/exceptions/FederateInternalError: ";
   if (member->federate.inCallback) {
      if (pending.compare(0, thrown.size(), thrown) != 0) {
         fail("thrown in vain: " + pending);
      }
      requireJniText(pending.substr(thrown.size()));
   } else if (pending != "none") {
      fail("thrown by nobody: " + pending);
   }
   expectClean();
   return 0;
}
