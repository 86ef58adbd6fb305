// Delivers well-formed messages with any arguments to the natives, in a process without a Java VM. An input
// is the number of a native, what the federate does when it is called, and the octets that the arguments are
// made of. The federate must see what was sent, and nothing may be left pinned or referenced.
#include "tests/support/Calls.h"
#include "tests/support/Member.h"
#include "tests/support/RandomValue.h"

#include <cstdio>
#include <cstdlib>
#include <functional>

using namespace contract;

namespace {

void require(bool condition, std::string const& what)
{
   if (!condition) {
      std::fprintf(stderr, "%s\n", what.c_str());
      std::abort();
   }
}

// What the federate does when it is called, and whether that is to throw.
std::function<void()> reactionOf(Octets& octets)
{
   switch (octets.below(4)) {
   case 1:
      return [text = randomValue<std::wstring>(octets)] { throw NameNotFound(text); };
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
   static Member member;
   static int inputs = 0;
   if (inputs++ % 1000 == 0) { // because the VM that is none keeps what it has made
      member.start();
   }
   Octets octets(data, size);
   auto const& callback = callbacks()[octets.below(static_cast<unsigned int>(callbacks().size()))];
   member.federate.inCallback = reactionOf(octets);
   Bytes const arguments = callback.makeArguments(octets);
   std::string const pending = member.deliver(callback.native, arguments);
   RecordingFederate::Calls const sent{{callback.member, arguments}};
   require(member.federate.takeCalled() == sent, callback.native + " has not brought what was sent");
   require(member.federate.inCallback ? pending.rfind(federateInternalError, 0) == 0 : pending == "none",
           "pending: " + pending);
   require(Member::remains() == "0 local, 1 global, 0 pinned", Member::remains());
   return 0;
}
