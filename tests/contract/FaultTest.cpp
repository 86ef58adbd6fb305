// Every failure that Java or the memory can have in each service, each callback and the making of an
// ambassador, one after the other. Each must end in an exception that tells of it, with nothing referenced,
// pinned or pending left behind, and the ambassador must go on working.
#include "tests/support/ContractTest.h"
#include "tests/support/CountedMemory.h"

#include <new>
#include <string_view>

namespace contract {
namespace {

struct Outcome
{
   std::string_view exception; // empty if there was none
   Bytes result;
};

// Tells a failure by its class; an RTIinternalError must have a text.
template <class Call>
Outcome outcomeOf(Call call)
{
   try {
      return {"", call()};
   } catch (NotConnected const&) {
      return {"NotConnected", {}};
   } catch (RTIinternalError const& error) {
      memory::failAllocation(0); // the text is a copy
      return {error.what().empty() ? "RTIinternalError without a text" : "RTIinternalError", {}};
   } catch (std::bad_alloc const&) {
      return {"bad_alloc", {}};
   }
}

// Something that can be made to fail at its n-th step, whether it then has, how many steps of it everything
// takes at least, and what a service throws then.
struct Steps
{
   void (*fail)(int n);
   bool (*hasFailed)();
   int atLeast;
   std::string_view exception;
};
Steps const ofJava{fake::failCall, fake::hasFailed, 1, "RTIinternalError"};
Steps const ofMemory{memory::failAllocation, memory::hasFailed, 0, "bad_alloc"};

class StepFaults : public ContractTest
{
protected:
   StepFaults() { memory::isExempt = fake::isInside; } // what the VM needs it has

   // Does something with the n-th step failing, for every n until no step is left to fail, and lets expect
   // judge what came of it; nothing may be left but the ambassador.
   template <class Do, class Expect>
   static void failOneAfterTheOther(Steps const& steps, Do something, Expect expect)
   {
      for (int n = 1;; ++n) {
         SCOPED_TRACE("failure " + std::to_string(n));
         steps.fail(n);
         auto const outcome = something();
         bool const failed = steps.hasFailed();
         steps.fail(0);
         expect(outcome, failed);
         expectClean(1);
         if (!failed || HasFailure()) {
            EXPECT_GT(n, steps.atLeast);
            return;
         }
      }
   }
};

class ServiceFaults : public StepFaults, public testing::WithParamInterface<Service>
{};

INSTANTIATE_TEST_SUITE_P(Each, ServiceFaults, testing::ValuesIn(services()),
                         [](auto const& each) { return each.param.method; });

TEST_P(ServiceFaults, EndInAnException)
{
   std::string const& name = GetParam().method;
   fake::Core& core = fake::core;
   core.result = name == "queryLookahead"      ? TestInterval::encoded(7)
                 : name.rfind("query", 0) == 0 ? someTime
                 : name == "getTimeFactory"    ? Bytes().units(u"TestTime")
                                            // a handle, true, and an enumerator of each kind
                                            : Bytes("00000001 00000002 0102 010203040506");
   std::string const some("Some octets that make a message of every kind of argument");
   Octets octets(reinterpret_cast<std::uint8_t const*>(some.data()), some.size());
   auto const made = GetParam().make(octets);
   auto const call = [&] { return outcomeOf([&] { return made.call(*ambassador); }); };
   auto const expected = call();
   EXPECT_EQ(expected.exception, "");
   for (auto const& steps : {ofJava, ofMemory}) {
      failOneAfterTheOther(steps, call, [&](Outcome const& outcome, bool failed) {
         EXPECT_EQ(outcome.exception, failed ? steps.exception : "");
         EXPECT_EQ(outcome.result, failed ? Bytes() : expected.result);
      });
   }
   // While an exception is translated, at most its class is lost.
   core.raises = {exceptionPath + "NotConnected"};
   auto const translated = call().exception;
   failOneAfterTheOther(ofJava, call, [&](Outcome const& outcome, bool failed) {
      EXPECT_TRUE(outcome.exception == translated || (failed && outcome.exception == ofJava.exception));
   });
   failOneAfterTheOther(ofMemory, call, [&](Outcome const& outcome, bool failed) {
      EXPECT_EQ(outcome.exception, failed ? ofMemory.exception : translated);
   });
}

TEST_F(StepFaults, OfSizeAreToldBeforeAnythingIsMade)
{
   char byte = 0; // and nothing behind it, so that none of it may be looked at
   int const before = fake::account.arraysMade;
   for (auto const& sizes : std::vector<std::vector<unsigned int>>{
           {0x7FFFFFFF}, // with what stands before it just too much
           {0xFFFFFFFF},
           {0x60000000, 0x60000000, 0x40000008}, // small once it has lost its upper half
        }) {
      AttributeHandleValueMap values;
      for (auto const size : sizes) {
         auto const number = static_cast<std::uint32_t>(values.size());
         values[handle<AttributeHandle>(number)].setDataPointer(&byte, size);
      }
      EXPECT_THROW(ambassador->updateAttributeValues({}, values, {}), RTIinternalError);
   }
   EXPECT_EQ(fake::account.arraysMade, before);
}

class CallbackFaults : public StepFaults, public testing::WithParamInterface<Callback>
{};

INSTANTIATE_TEST_SUITE_P(Each, CallbackFaults, testing::ValuesIn(callbacks()),
                         [](auto const& each) { return each.param.native; });

TEST_P(CallbackFaults, BecomeAJavaException)
{
   std::string const some("Some octets that make a callback of every kind");
   Octets octets(reinterpret_cast<std::uint8_t const*>(some.data()), some.size());
   auto const message = envelope(GetParam().makeArguments(octets));
   std::string const text(40, 'x'); // longer than any small string
   for (bool const throws : {false, true}) {
      federate.inCallback = [&] {
         if (throws) {
            throw InvalidRegion({text.begin(), text.end()});
         }
      };
      std::string const unhindered = throws ? federateInternalError + text : "none";
      for (auto const& steps : {ofJava, ofMemory}) {
         failOneAfterTheOther(
            steps, [&] { return fake::callNative(GetParam().native, message); },
            [&](std::string const& pending, bool failed) {
               EXPECT_TRUE(failed ? pending != "none" : pending == unhindered) << pending;
               auto const called = federate.takeCalled().size();
               EXPECT_TRUE(called == 1 || (called == 0 && failed));
            });
      }
   }
}

TEST_F(StepFaults, OfConstructionLeaveNothing)
{
   auto const create = [] {
      return outcomeOf([] {
         newAmbassador();
         return Bytes();
      });
   };
   failOneAfterTheOther(ofJava, create, [&](Outcome const& outcome, bool failed) {
      // Natives that cannot be registered are only told of, and what a destructor meets is nobody's concern.
      EXPECT_TRUE(outcome.exception == "" || (failed && outcome.exception == ofJava.exception));
      if (fake::account.globalReferences == 2) {
         // Nobody can let go of the core's ambassador on a thread that cannot be attached.
         --fake::account.globalReferences;
      }
   });
   failOneAfterTheOther(ofMemory, create, [&](Outcome const& outcome, bool failed) {
      EXPECT_EQ(outcome.exception, failed ? ofMemory.exception : "");
   });
}

} // namespace
} // namespace contract
