// Every failure that Java or the memory can have in each service, each callback and the making of an
// ambassador, one after the other. Each must end in an exception that tells of it, with nothing referenced,
// pinned or pending left behind, and the ambassador must go on working.
#include "tests/support/ContractTest.h"
#include "tests/support/CountedMemory.h"

#include <algorithm>
#include <functional>
#include <new>
#include <ostream>
#include <stdexcept>
#include <string_view>

namespace contract {
namespace {

struct Outcome
{
   std::string_view exception; // empty if there was none
   std::wstring result;
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

// Something that can be made to fail at its n-th step, and whether it then has.
struct Steps
{
   void (*fail)(int n);
   bool (*hasFailed)();
};
constexpr Steps ofJava{fake::failCall, fake::hasFailed};
Steps const ofMemory{[](int n) {
                        memory::isExempt = fake::isInside; // what the VM needs it has
                        memory::failAllocation(n);
                     },
                     memory::hasFailed};

class StepFaults : public ContractTest
{
protected:
   // Does something with the n-th step failing, for every n until no step is left to fail, and lets expect
   // judge what came of it; nothing may be left but the ambassador. Tells how many failures there were.
   template <class Do, class Expect>
   int failOneAfterTheOther(Steps steps, Do something, Expect expect)
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
            return n - 1;
         }
      }
   }
};

class ServiceFaults : public StepFaults, public testing::WithParamInterface<Service>
{
protected:
   void SetUp() override
   {
      ContractTest::SetUp();
      fake::Core& core = fake::core();
      core.number = 1; // a handle, true, and an enumerator of each kind
      std::string const& name = method.name;
      core.bytes = octetsOf(name == "queryLookahead"           ? TestInterval::encoded(7)
                            : name.compare(0, 5, "query") == 0 ? TestTime::encoded(7)
                                                               : Bytes("00000009 00000002 0102"));
      core.ints = {3, 1, 2, 3};
      core.longs = {5, 10};
      core.text = name == "getTimeFactory" ? u"TestTime" : u"a name that is longer than any small string";
   }

   Outcome call() const
   {
      return outcomeOf([this] { return GetParam().call(*ambassador); });
   }

   template <class Expect>
   int failEach(Steps steps, Expect expect)
   {
      return failOneAfterTheOther(
         steps, [this] { return call(); }, expect);
   }

   JavaMethod const& method = GetParam().method;
};

INSTANTIATE_TEST_SUITE_P(Each, ServiceFaults, testing::ValuesIn(services()),
                         [](auto const& each) { return each.param.method.name; });

TEST_P(ServiceFaults, OfJavaEndInRTIinternalError)
{
   auto const expected = call();
   EXPECT_EQ(expected.exception, "");
   int const failures = failEach(ofJava, [&](Outcome const& outcome, bool failed) {
      EXPECT_EQ(outcome.exception, failed ? "RTIinternalError" : "");
      EXPECT_EQ(outcome.result, failed ? L"" : expected.result);
   });
   EXPECT_GE(failures, method.takesMessage() ? 4 : 2); // attaching, the array, the pin and the call
}

TEST_P(ServiceFaults, WhileAnExceptionIsTranslatedLoseAtMostItsClass)
{
   fake::core().raises = {"hla/rti1516e/exceptions/NotConnected"};
   auto const& classes = method.exceptions;
   std::string const translated = std::find(classes.begin(), classes.end(), "NotConnected") != classes.end()
                                     ? "NotConnected"
                                     : "RTIinternalError";
   int const failures = failEach(ofJava, [&](Outcome const& outcome, bool failed) {
      EXPECT_TRUE(outcome.exception == translated || (failed && outcome.exception == "RTIinternalError"))
         << outcome.exception;
   });
   EXPECT_GE(failures, 4); // attaching, the class, and what gives the message
}

TEST_P(ServiceFaults, OfMemoryEndInBadAlloc)
{
   auto const expected = call();
   int const failures = failEach(ofMemory, [&](Outcome const& outcome, bool failed) {
      EXPECT_EQ(outcome.exception, failed ? "bad_alloc" : "");
      EXPECT_EQ(outcome.result, failed ? L"" : expected.result);
   });
   fake::core().raises = {"hla/rti1516e/exceptions/NotConnected"};
   int const failuresOfTranslation = failEach(ofMemory, [&](Outcome const& outcome, bool failed) {
      EXPECT_EQ(outcome.exception == "bad_alloc", failed);
   });
   EXPECT_GE(failures + failuresOfTranslation, 1);
}

using ServiceFaultsOfSize = ContractTest;

TEST_F(ServiceFaultsOfSize, AreToldBeforeAnythingIsMade)
{
   char byte = 0; // and nothing behind it, so that none of it may be looked at
   int const before = fake::arraysMade();
   for (auto const& sizes : std::vector<std::vector<unsigned int>>{
           {0x7FFFFFFF}, // with what stands before it just too much
           {0x80000000},
           {0xFFFFFFFF},
           {0x60000000, 0x60000000},
           {0x60000000, 0x60000000, 0x40000008}, // small once it has lost its upper half
        }) {
      AttributeHandleValueMap values;
      for (auto const size : sizes) {
         auto const number = static_cast<std::uint32_t>(values.size());
         values[handle<AttributeHandle>(number)].setDataPointer(&byte, size);
      }
      EXPECT_THROW(ambassador->updateAttributeValues({}, values, {}), RTIinternalError);
   }
   EXPECT_EQ(fake::arraysMade(), before);
   expectClean(1);
}

class CallbackFaults : public StepFaults, public testing::WithParamInterface<std::string>
{
protected:
   // Fails each step of a callback to a federate that throws, or not, and expects the Java exception that the
   // federate is called, or not called, with.
   int failEach(Steps steps, bool throws)
   {
      federate.inCallback = [throws] {
         if (throws) {
            throw InvalidRegion(L"a text that is longer than any small string");
         }
      };
      std::string const made("Some octets that make a callback of every kind");
      Octets octets(reinterpret_cast<std::uint8_t const*>(made.data()), made.size());
      auto const message = envelope(RandomCallback(GetParam(), octets).arguments);
      return failOneAfterTheOther(
         steps, [&] { return fake::callNative(GetParam(), message); },
         [&](std::string const& pending, bool failed) {
            std::size_t const called = federate.takeCalled().size();
            EXPECT_EQ(pending == "none", !failed && !throws) << pending;
            EXPECT_TRUE(called == 1 || (called == 0 && failed));
            if (!failed && throws) {
               EXPECT_EQ(pending, federateInternalError + "a text that is longer than any small string");
            }
         });
   }
};

INSTANTIATE_TEST_SUITE_P(Each, CallbackFaults, testing::ValuesIn(nativeNames()),
                         [](auto const& each) { return each.param; });

TEST_P(CallbackFaults, BecomeAJavaException)
{
   for (bool const throws : {false, true}) {
      EXPECT_GE(failEach(ofJava, throws), throws ? 3 : 1); // pinning, and the exception's class and itself
      EXPECT_GE(failEach(ofMemory, throws), throws ? 1 : 0);
   }
}

using ConstructionFaults = StepFaults;

TEST_F(ConstructionFaults, LeaveNothing)
{
   auto const create = [] {
      return outcomeOf([] {
         newAmbassador();
         return std::wstring();
      });
   };
   int const failures = failOneAfterTheOther(ofJava, create, [&](Outcome const& outcome, bool failed) {
      // Natives that cannot be registered are only told of, and what a destructor meets is nobody's concern.
      EXPECT_TRUE(outcome.exception == "" || (failed && outcome.exception == "RTIinternalError"))
         << outcome.exception;
      if (fake::holdings().globalReferences == 2) {
         // Nobody can let go of the core's ambassador on a thread that cannot be attached.
         fake::forgetGlobalReference();
      }
   });
   EXPECT_GE(failures, 10);
   int const ofMemoryFailures =
      failOneAfterTheOther(ofMemory, create, [&](Outcome const& outcome, bool failed) {
         EXPECT_EQ(outcome.exception, failed ? "bad_alloc" : "");
      });
   EXPECT_GE(ofMemoryFailures, 1);
}

TEST_F(ConstructionFaults, OfAConstructorThatGivesNothingAreTold)
{
   fake::core().makesNothing = true;
   EXPECT_THROW(newAmbassador(), RTIinternalError);
   expectClean(1);
}

} // namespace
} // namespace contract
