// How logical times cross: encoded by themselves, decoded by the ambassador's factory.
#include "Fixture.h"
#include "Samples.h"

#include <RTI/time/HLAfloat64Interval.h>
#include <RTI/time/HLAfloat64Time.h>
#include <RTI/time/HLAinteger64Time.h>

#include <stdexcept>

namespace contract {
namespace {

class LogicalTimeTest : public ContractTest
{
protected:
   ~LogicalTimeTest() override
   {
      TestTimeFactory::decodesNothing = false;
      TestTimeFactory::hasNoFinal = false;
   }

   // What the ambassador's factory makes of a returned time, which tells which factory it is.
   std::wstring decodedByAmbassador(Bytes const& bytes)
   {
      core.answer("queryLogicalTime", bytes);
      return shown(rti.queryLogicalTime());
   }

   // Delivers a time to an ambassador that has just joined, whose factory has not been asked anything yet.
   std::optional<JavaException> grant(Bytes const& time)
   {
      member.join(u"TestTime");
      return core.deliver({"timeAdvanceGrant_LT_Native", member.message(time)});
   }
};

TEST_F(LogicalTimeTest, StandardTimesCross)
{
   member.join(u"HLAinteger64Time");
   EXPECT_EQ(decodedByAmbassador(Bytes("000000000000000A")), L"HLAinteger64Time<10>");
   EXPECT_EQ(core.deliver({"timeAdvanceGrant_LT_Native", member.message(Bytes("FFFFFFFFFFFFFFFE"))}),
             std::nullopt);
   EXPECT_EQ(member.federate.takeCalled(),
             std::vector<std::wstring>{L"timeAdvanceGrant(HLAinteger64Time<-2>)"});

   core.forget();
   rti.enableTimeRegulation(HLAfloat64Interval(2.5));
   EXPECT_EQ(core.calls().at(0).message, Bytes("4004000000000000"));
   core.forget();
   rti.timeAdvanceRequest(HLAinteger64Time(-2));
   EXPECT_EQ(core.calls().at(0).message, Bytes("FFFFFFFFFFFFFFFE"));
}

TEST_F(LogicalTimeTest, BytesThatAreNoTimeAreTheFactorysToRefuse)
{
   EXPECT_EQ(caughtFrom([&] { decodedByAmbassador(Bytes("7A0000 00")); }),
             (Caught{"CouldNotDecode", L"not the bytes of a TestTime"}));
   core.answer("queryLookahead", TestInterval::encoded(1).byte(0));
   EXPECT_THROW(rti.queryLookahead(), CouldNotDecode);
   core.answer("queryGALT", Bytes());
   EXPECT_THROW(rti.queryGALT(), CouldNotDecode);
   member.join(u"HLAinteger64Time");
   EXPECT_EQ(caughtFrom([&] { decodedByAmbassador(Bytes("00000000000000")); }),
             (Caught{"CouldNotDecode", L"Buffer to small!"}));
}

TEST_F(LogicalTimeTest, WithoutFactoryReturnedTimesAreEmpty)
{
   Member const newcomer;
   auto& ambassador = *newcomer.ambassador;
   core.answer("queryLogicalTime", TestTime::encoded(1));
   core.answer("queryLookahead", TestInterval::encoded(1));
   core.answer("queryGALT", TestTime::encoded(1));
   EXPECT_EQ(shown(ambassador.queryLogicalTime()), L"none");
   EXPECT_EQ(shown(ambassador.queryLookahead()), L"none");
   EXPECT_EQ(shown(ambassador.queryGALT()), L"valid none");
   EXPECT_EQ(shown(ambassador.queryLITS()), L"invalid none");
}

TEST_F(LogicalTimeTest, SuccessfulJoinReplacesTheFactory)
{
   auto const before = TestTimeFactory::count.load();
   member.join(u"TestTime");
   EXPECT_EQ(TestTimeFactory::count, before);
   core.answer("getTimeFactory", u"HLAfloat64Time");
   rti.joinFederationExecution(L"name", L"type", L"federation");
   EXPECT_EQ(TestTimeFactory::count, before - 1);
   EXPECT_EQ(decodedByAmbassador(Bytes("3FF0000000000000")).find(L"HLAfloat64Time<"), 0U);

   // A time implementation that the time library does not know leaves the ambassador without a factory.
   member.join(u"unheard of");
   EXPECT_EQ(decodedByAmbassador(TestTime::encoded(1)), L"none");
}

TEST_F(LogicalTimeTest, FailedJoinLeavesTheFactory)
{
   core.answer("getTimeFactory", u"HLAfloat64Time");
   core.answer("joinFederationExecution_S_S_URLX", JavaException{hlaClass("SaveInProgress"), u"why"});
   EXPECT_THROW(rti.joinFederationExecution(L"type", L"federation"), SaveInProgress);
   EXPECT_EQ(decodedByAmbassador(TestTime::encoded(1)), L"Test<1>");

   // The join itself has succeeded, but not what belongs to it.
   core.forget();
   core.answer("getTimeFactory", JavaException{hlaClass("NotConnected"), u"why"});
   testing::internal::CaptureStderr();
   EXPECT_EQ(caughtFrom([&] { rti.joinFederationExecution(L"type", L"federation"); }),
             (Caught{"RTIinternalError", widened(hlaClass("NotConnected")) + L": why"}));
   EXPECT_EQ(testing::internal::GetCapturedStderr().find("Unhandled exception\n"), 0U);
   EXPECT_EQ(decodedByAmbassador(TestTime::encoded(2)), L"Test<2>");

   core.forget();
   Faults::set("makeLogicalTimeFactory", [] { throw std::runtime_error("fault"); });
   EXPECT_THROW(rti.joinFederationExecution(L"type", L"federation"), std::runtime_error);
   EXPECT_EQ(decodedByAmbassador(TestTime::encoded(3)), L"Test<3>");
}

TEST_F(LogicalTimeTest, FactoryGoesWithItsAmbassador)
{
   auto const before = TestTimeFactory::count.load();
   {
      Member other;
      other.join(u"TestTime");
      EXPECT_EQ(TestTimeFactory::count, before + 1);
      // Neither of these lets go of it.
      other.ambassador->resignFederationExecution(NO_ACTION);
      other.ambassador->disconnect();
      EXPECT_EQ(TestTimeFactory::count, before + 1);
   }
   EXPECT_EQ(TestTimeFactory::count, before);
}

TEST_F(LogicalTimeTest, GetTimeFactoryMakesANewOneForItsCaller)
{
   auto const before = TestTimeFactory::count.load();
   core.answer("getTimeFactory", u"TestTime");
   {
      auto const first = rti.getTimeFactory();
      auto const second = rti.getTimeFactory();
      EXPECT_NE(first.get(), second.get());
      EXPECT_EQ(TestTimeFactory::count, before + 2);
   }
   EXPECT_EQ(TestTimeFactory::count, before);
   EXPECT_EQ(decodedByAmbassador(TestTime::encoded(1)), L"Test<1>");
}

TEST_F(LogicalTimeTest, NobodyIsCalledWithATimeThatTheFactoryDoesNotGive)
{
   for (auto* const nothing : {&TestTimeFactory::decodesNothing, &TestTimeFactory::hasNoFinal}) {
      *nothing = true;
      auto const pending = grant(TestTime::encoded(1));
      EXPECT_EQ(pending ? pending->className : "nothing", hlaClass("FederateInternalError"));
      *nothing = false;
   }
   EXPECT_TRUE(member.federate.takeCalled().empty());
}

// Foreign code runs while nothing is pinned: it may call services, that is, use JNI.
TEST_F(LogicalTimeTest, DecodingMayCallServices)
{
   for (auto const* operation : {"decode", "makeFinal", "encodedLength"}) {
      Faults::set(operation, [&] { rti.requestFederationSave(L"inside"); });
      EXPECT_EQ(grant(TestTime::encoded(1)), std::nullopt) << operation;
      EXPECT_FALSE(core.calls().empty());
      Faults::clear();
   }
   core.forget();
   Faults::set("encode", [&] { rti.requestFederationSave(L"inside"); });
   rti.timeAdvanceRequest(samples::time);
   EXPECT_EQ(core.calls().size(), 2U);
}

} // namespace
} // namespace contract
