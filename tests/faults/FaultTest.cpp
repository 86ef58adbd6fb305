// Every failure that Java can have in a service, a callback or the making of an ambassador, one after the
// other. Each must end in an exception that tells of it, with nothing referenced, pinned or pending left
// behind.
#include "tests/faults/FakeJava.h"
#include "tests/faults/MemoryFaults.h"

#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>
#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>
#include <RTI/time/HLAinteger64TimeFactory.h>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <ostream>
#include <stdexcept>

namespace {

using namespace rti1516e;

bool foreignCodeRanPinned = false;
bool timesThrow = false;

void foreignCode()
{
   foreignCodeRanPinned = foreignCodeRanPinned || fake::holdings().pins != 0;
   if (timesThrow) {
      throw InvalidLogicalTime(L"thrown by the time");
   }
}

// Times as a federation might define them itself: they notice when they run.
class OwnTime : public HLAinteger64Time
{
public:
   using HLAinteger64Time::encode;
   using HLAinteger64Time::HLAinteger64Time;
   VariableLengthData encode() const override
   {
      foreignCode();
      return HLAinteger64Time::encode();
   }
};

class OwnTimeFactory : public HLAinteger64TimeFactory
{
public:
   using HLAinteger64TimeFactory::decodeLogicalTime;
   using HLAinteger64TimeFactory::decodeLogicalTimeInterval;
   std::auto_ptr<LogicalTime> makeFinal() override
   {
      foreignCode();
      return HLAinteger64TimeFactory::makeFinal();
   }
   std::auto_ptr<LogicalTime> decodeLogicalTime(void* buffer, size_t size) override
   {
      foreignCode();
      return HLAinteger64TimeFactory::decodeLogicalTime(buffer, size);
   }
   std::auto_ptr<LogicalTimeInterval> decodeLogicalTimeInterval(void* buffer, size_t size) override
   {
      foreignCode();
      return HLAinteger64TimeFactory::decodeLogicalTimeInterval(buffer, size);
   }
};

class CountingFederate : public NullFederateAmbassador
{
public:
   int called = 0;
   std::function<void()> reaction = [] {};

   void timeAdvanceGrant(LogicalTime const&) override { react(); }
   void federationSaved() override { react(); }
   void reflectAttributeValues(ObjectInstanceHandle, AttributeHandleValueMap const&,
                               VariableLengthData const&, OrderType, TransportationType, LogicalTime const&,
                               OrderType, MessageRetractionHandle, SupplementalReflectInfo) override
   {
      react();
   }

private:
   void react()
   {
      ++called;
      reaction();
   }
};

using Bytes = std::vector<std::uint8_t>;

Bytes eightByteTime(std::uint8_t value) { return {0, 0, 0, 0, 0, 0, 0, value}; }

AttributeHandleValueMap someValues(RTIambassador const& ambassador)
{
   AttributeHandleValueMap values;
   for (char id = 1; id <= 3; ++id) {
      char const encoded[] = {0, 0, 0, id};
      values[ambassador.decodeAttributeHandle(VariableLengthData(encoded, 4))] =
         VariableLengthData("a value that is longer than any small buffer", 44);
   }
   return values;
}

// Checks that nothing is held but the given number of global references, and nothing forbidden was done.
void expectClean(int globalReferences)
{
   auto const held = fake::holdings();
   EXPECT_EQ(held.localReferences, 0);
   EXPECT_EQ(held.globalReferences, globalReferences);
   EXPECT_EQ(held.pins, 0);
   EXPECT_FALSE(held.pending);
   EXPECT_EQ(fake::offences(), std::vector<std::string>());
   EXPECT_FALSE(foreignCodeRanPinned);
}

class Faults : public testing::Test
{
protected:
   void SetUp() override
   {
      fake::reset();
      foreignCodeRanPinned = false;
      timesThrow = false;
      ambassador.reset(RTIambassadorFactory().createRTIambassador().release());
      ambassador->connect(federate, HLA_EVOKED);
      auto const& message = fake::lastMessage();
      token.assign(message.begin(), message.begin() + 4);
      ambassador->joinFederationExecution(L"type", L"federation");
   }

   void TearDown() override
   {
      ambassador.reset();
      expectClean(0);
   }

   Bytes envelope(Bytes const& arguments) const
   {
      Bytes message{0x63, 0x62, 0x61, 0x60};
      message.insert(message.end(), token.begin(), token.end());
      message.insert(message.end(), arguments.begin(), arguments.end());
      message.insert(message.end(), {0x59, 0x58, 0x57, 0x56});
      return message;
   }

   CountingFederate federate;
   std::unique_ptr<RTIambassador> ambassador;
   Bytes token;
};

// One service of each shape: with and without a message, and each kind of result.
struct Shape
{
   char const* name;
   void (*prepare)(fake::Core&);
   void (*call)(RTIambassador&);
};

std::ostream& operator<<(std::ostream& stream, Shape const& shape) { return stream << shape.name; }

void nothing(fake::Core&) {}
void aTime(fake::Core& core) { core.bytes = eightByteTime(7); }

Shape const shapes[] = {
   {"bare", nothing, [](RTIambassador& a) { a.enableCallbacks(); }},
   {"number", nothing,
    [](RTIambassador& a) { a.getObjectClassHandle(L"HLAobjectRoot.A class of a long name"); }},
   {"boolean", nothing, [](RTIambassador& a) { a.evokeCallback(0.5); }},
   {"map", nothing,
    [](RTIambassador& a) {
       static AttributeHandleValueMap const values = someValues(a);
       static VariableLengthData const tag("tag", 3);
       a.updateAttributeValues(ObjectInstanceHandle(), values, tag);
    }},
   {"text", [](fake::Core& core) { core.text = u"a name that is longer than any small string"; },
    [](RTIambassador& a) { EXPECT_EQ(a.getObjectInstanceName(ObjectInstanceHandle()).size(), 43U); }},
   {"set",
    [](fake::Core& core) {
       core.ints = {3, 1, 2, 3};
    },
    [](RTIambassador& a) {
       AttributeHandleSet divested;
       a.attributeOwnershipDivestitureIfWanted(ObjectInstanceHandle(), AttributeHandleSet(), divested);
       EXPECT_EQ(divested.size(), 3U);
    }},
   {"bounds",
    [](fake::Core& core) {
       core.longs = {5, 10};
    },
    [](RTIambassador& a) {
       EXPECT_EQ(a.getRangeBounds(RegionHandle(), DimensionHandle()).getUpperBound(), 10U);
    }},
   {"retraction", [](fake::Core& core) { core.bytes = {0, 0, 0, 9, 0, 0, 0, 2, 1, 2}; },
    [](RTIambassador& a) {
       EXPECT_TRUE(a.sendInteraction(InteractionClassHandle(), ParameterHandleValueMap(),
                                     VariableLengthData(), OwnTime(3))
                      .isValid());
    }},
   {"time", aTime, [](RTIambassador& a) { EXPECT_TRUE(*a.queryLogicalTime() == HLAinteger64Time(7)); }},
   {"query", aTime, [](RTIambassador& a) { EXPECT_TRUE(a.queryGALT().timeIsValid); }},
   {"interval", aTime, [](RTIambassador& a) { EXPECT_FALSE(a.queryLookahead()->isZero()); }},
   {"join", nothing, [](RTIambassador& a) { a.joinFederationExecution(L"type", L"federation"); }},
   {"factory", nothing, [](RTIambassador& a) { EXPECT_NE(a.getTimeFactory().get(), nullptr); }},
};

class ServiceFaults : public Faults, public testing::WithParamInterface<Shape>
{
protected:
   // Calls the service with the n-th failure, for every n until it meets none. Tells how many there were.
   template <class Fail, class Failed, class Expect>
   int failOneAfterTheOther(Fail fail, Failed failed, Expect expect)
   {
      for (int n = 1;; ++n) {
         SCOPED_TRACE("failure " + std::to_string(n));
         std::string outcome = "success";
         fail(n);
         try {
            GetParam().call(*ambassador);
         } catch (NotConnected const&) {
            outcome = "NotConnected";
         } catch (RTIinternalError const& error) {
            outcome = error.what().empty() ? "RTIinternalError without a text" : "RTIinternalError";
         } catch (InvalidLogicalTime const&) {
            outcome = "InvalidLogicalTime";
         } catch (std::bad_alloc const&) {
            outcome = "bad_alloc";
         }
         bool const hasFailed = failed();
         fail(0);
         expect(outcome, hasFailed);
         expectClean(1);
         if (!hasFailed || HasFailure()) {
            return n - 1;
         }
      }
   }
};

INSTANTIATE_TEST_SUITE_P(Shapes, ServiceFaults, testing::ValuesIn(shapes),
                         [](auto const& shape) { return shape.param.name; });

TEST_P(ServiceFaults, OfJavaEndInRTIinternalError)
{
   GetParam().prepare(fake::core());
   int const failures =
      failOneAfterTheOther(fake::failCall, fake::hasFailed, [](std::string const& outcome, bool failed) {
         EXPECT_EQ(outcome, failed ? "RTIinternalError" : "success");
      });
   EXPECT_GE(failures, 2); // attaching and the call, at the least
}

TEST_P(ServiceFaults, WhileAnExceptionIsTranslatedLoseAtMostItsClass)
{
   fake::core().raises = "hla/rti1516e/exceptions/NotConnected";
   bool const isForeseen = std::string(GetParam().name) != "bare" &&
                           std::string(GetParam().name) != "boolean" &&
                           std::string(GetParam().name) != "factory";
   failOneAfterTheOther(fake::failCall, fake::hasFailed, [&](std::string const& outcome, bool failed) {
      if (!failed && isForeseen) {
         EXPECT_EQ(outcome, "NotConnected");
      } else {
         EXPECT_TRUE(outcome == "NotConnected" || outcome == "RTIinternalError") << outcome;
      }
   });
}

TEST_P(ServiceFaults, OfMemoryEndInBadAlloc)
{
   GetParam().prepare(fake::core());
   GetParam().call(*ambassador); // makes the arguments
   failOneAfterTheOther(failAllocation, allocationHasFailed, [](std::string const& outcome, bool failed) {
      EXPECT_EQ(outcome, failed ? "bad_alloc" : "success");
   });
}

TEST_F(Faults, OfTimesReachTheCaller)
{
   aTime(fake::core());
   timesThrow = true;
   EXPECT_THROW(ambassador->timeAdvanceRequest(OwnTime(1)), InvalidLogicalTime);
   EXPECT_THROW(ambassador->queryLogicalTime(), InvalidLogicalTime);
   EXPECT_THROW(ambassador->queryLITS(), InvalidLogicalTime);
   EXPECT_THROW(ambassador->queryLookahead(), InvalidLogicalTime);
   expectClean(1);
}

TEST_F(Faults, OfSizeAreToldBeforeAnythingIsMade)
{
   char byte = 0;
   VariableLengthData tag;
   tag.setDataPointer(&byte, 0x7FFFFFFF); // with what stands before it just too much
   int const before = fake::arraysMade();
   EXPECT_THROW(ambassador->deleteObjectInstance(ObjectInstanceHandle(), tag), RTIinternalError);
   tag.setDataPointer(&byte, 0xFFFFFFFF);
   EXPECT_THROW(ambassador->deleteObjectInstance(ObjectInstanceHandle(), tag), RTIinternalError);
   EXPECT_EQ(fake::arraysMade(), before);
}

TEST_F(Faults, OfAVMThatIsGoneAreNoCrash)
{
   fake::setGone(true);
   EXPECT_THROW(ambassador->enableCallbacks(), RTIinternalError);
   ambassador.reset(); // nothing to let go of the reference through
   fake::reset();
}

TEST_F(Faults, OfConstructionLeaveNothing)
{
   for (int n = 1;; ++n) {
      SCOPED_TRACE("failure " + std::to_string(n));
      fake::failCall(n);
      std::unique_ptr<RTIambassador> made;
      try {
         made.reset(RTIambassadorFactory().createRTIambassador().release());
      } catch (RTIinternalError const& error) {
         EXPECT_NE(error.what(), L"");
      }
      bool const failed = fake::hasFailed();
      fake::failCall(0);
      EXPECT_TRUE(made != nullptr || failed);
      made.reset();
      expectClean(1);
      if (!failed || HasFailure()) {
         EXPECT_GE(n, 6);
         return;
      }
   }
}

// The arguments of a reflection with time: object 1, one attribute of one byte, a tag, the time 7, a
// retraction handle with further bytes, and a producing federate.
Bytes const reflection{0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 5, 0, 0, 0, 1, 42, 0, 0, 0, 1,
                       9, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 7,  0, 0, 0, 1,
                       0, 0, 0, 3, 0, 0, 0, 1, 8, 0, 0, 0, 1, 0, 0, 0, 0,  0, 0, 0, 2};

TEST_F(Faults, OfACallbackBecomeAJavaException)
{
   std::string const reflect = "reflectAttributeValues_OIH_AHVM_BX_OT_TTH_LT_OT_MRH_FASRI_Native";
   Bytes const message = envelope(reflection);
   bool failing = true;
   for (int n = 1; failing; ++n) {
      int const before = federate.called;
      fake::failCall(n);
      std::string const pending = fake::callNative(reflect, message);
      failing = fake::hasFailed();
      fake::failCall(0);
      EXPECT_EQ(federate.called != before, pending == "none");
      expectClean(1);
   }
   failing = true;
   for (int n = 1; failing; ++n) {
      failAllocation(n);
      std::string const pending = fake::callNative(reflect, message);
      failing = allocationHasFailed();
      failAllocation(0);
      EXPECT_EQ(pending == "none", !failing) << pending;
      expectClean(1);
   }
}

TEST_F(Faults, OfAFederateBecomeAJavaException)
{
   std::string const prefix = "hla/rti1516e/exceptions/FederateInternalError: ";
   struct Case
   {
      std::function<void()> reaction;
      std::string text;
   };
   // The texts are in the form that JNI takes.
   Case const cases[] = {
      {[] { throw FederateInternalError(L"x"); }, "x"},
      {[] { throw InvalidRegion(L"\x00e9\x20ac"); }, "\xC3\xA9\xC2\xAC"},
      {[] { throw std::runtime_error("caf\xC3\xA9"); }, "caf\xC3\xA9"},
      {[] { throw std::runtime_error("caf\xE9"); }, "caf\xC3\xA9"},
      {[] { throw std::string("\xF0\x9F\x98\x80"); }, "\xED\xA0\xBD\xED\xB8\x80"},
      {[] { throw std::string("a\0b", 3); }, "a\xC0\x80"
                                             "b"},
      {[] { throw 1; }, "Unknown C++ exception"},
   };
   for (auto const& row : cases) {
      federate.reaction = row.reaction;
      EXPECT_EQ(fake::callNative("federationSaved_Native", envelope({})), prefix + row.text);
      expectClean(1);
   }
   timesThrow = true;
   EXPECT_EQ(fake::callNative("timeAdvanceGrant_LT_Native", envelope(eightByteTime(7))),
             prefix + "thrown by the time");
}

TEST_F(Faults, OfTokensCallNobody)
{
   std::string const prefix = "hla/rti1516e/exceptions/FederateInternalError: ";
   Bytes const stale = envelope({});
   ambassador.reset();
   EXPECT_EQ(fake::callNative("federationSaved_Native", stale),
             prefix + "The RTI ambassador of this callback is gone");
   SetUp();
   EXPECT_EQ(fake::callNative("federationSaved_Native", stale),
             prefix + "The RTI ambassador of this callback is gone");
   token.assign(4, 0);
   EXPECT_EQ(fake::callNative("federationSaved_Native", envelope({})),
             prefix + "The RTI ambassador of this callback is gone");
   EXPECT_EQ(federate.called, 0);
}

TEST_F(Faults, OfLifetimeAreSafeInsideACallback)
{
   federate.reaction = [this] { ambassador.reset(); };
   EXPECT_EQ(fake::callNative("timeAdvanceGrant_LT_Native", envelope(eightByteTime(7))), "none");
   EXPECT_EQ(federate.called, 1);
   EXPECT_EQ(ambassador, nullptr);
}

#if defined(__x86_64__)

unsigned short controlWord()
{
   unsigned short word;
   __asm__ __volatile__("fnstcw %0" : "=m"(word));
   return word;
}

void setControlWord(unsigned short word) { __asm__ __volatile__("fldcw %0" : : "m"(word)); }

// 64-bit precision, all exceptions masked: what a thread begins with; and two other words.
constexpr unsigned short usual = 0x037F;
constexpr unsigned short javas = 0x027F;
constexpr unsigned short federates = 0x0F7F;

TEST_F(Faults, OfTheControlWordAreMendedWhereTheCallSucceeds)
{
   fake::core().leavesControlWord = javas;
   ambassador->enableCallbacks();
   EXPECT_EQ(controlWord(), usual);
   fake::core().raises = "hla/rti1516e/exceptions/RTIinternalError";
   EXPECT_THROW(ambassador->enableCallbacks(), RTIinternalError);
   EXPECT_EQ(controlWord(), javas);
   setControlWord(usual);
}

TEST_F(Faults, OfTheControlWordInCallbacks)
{
   setControlWord(federates);
   ambassador->connect(federate, HLA_EVOKED);
   setControlWord(usual);
   unsigned short seen = 0;
   federate.reaction = [&seen] { seen = controlWord(); };
   fake::callNative("federationSaved_Native", envelope({}));
   EXPECT_EQ(seen, federates);
   EXPECT_EQ(controlWord(), usual);
   federate.reaction = [] { throw 1; };
   fake::callNative("federationSaved_Native", envelope({}));
   EXPECT_EQ(controlWord(), federates); // a callback that throws leaves the federate's word
   setControlWord(usual);
}

#endif

} // namespace

namespace rti1516e {

std::auto_ptr<LogicalTimeFactory> LogicalTimeFactoryFactory::makeLogicalTimeFactory(std::wstring const&)
{
   return std::auto_ptr<LogicalTimeFactory>(new OwnTimeFactory());
}

} // namespace rti1516e
