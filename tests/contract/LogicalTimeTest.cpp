// How logical times cross: encoded by themselves, decoded by the ambassador's factory, and never while
// something is pinned, which the fixture watches.
#include "tests/support/ContractTest.h"
#include "tests/support/Shown.h"

#include <RTI/time/HLAfloat64Interval.h>
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
   std::wstring returned(Bytes const& bytes)
   {
      fake::core().bytes = octetsOf(bytes);
      return shown(ambassador->queryLogicalTime());
   }

   std::string grant(Bytes const& time) { return deliver("timeAdvanceGrant_LT_Native", time); }
};

TEST_F(LogicalTimeTest, StandardTimesCross)
{
   join(u"HLAinteger64Time");
   EXPECT_EQ(returned(Bytes("000000000000000A")), L"HLAinteger64Time<10>");
   EXPECT_EQ(grant(Bytes("FFFFFFFFFFFFFFFE")), "none");
   EXPECT_EQ(federate.takeCalled(), std::vector<std::wstring>{L"timeAdvanceGrant(HLAinteger64Time<-2>)"});
   ambassador->enableTimeRegulation(HLAfloat64Interval(2.5));
   EXPECT_EQ(fake::lastMessage(), octetsOf(Bytes("4004000000000000")));
   ambassador->timeAdvanceRequest(HLAinteger64Time(-2));
   EXPECT_EQ(fake::lastMessage(), octetsOf(Bytes("FFFFFFFFFFFFFFFE")));
}

TEST_F(LogicalTimeTest, BytesThatAreNoTimeAreTheFactorysToRefuse)
{
   Caught const refusal{"CouldNotDecode", L"not the bytes of a TestTime"};
   EXPECT_EQ(caughtFrom([&] { returned(Bytes("7A0000 00")); }), refusal);
   EXPECT_EQ(caughtFrom([&] { ambassador->queryLookahead(); }), refusal);
   EXPECT_EQ(caughtFrom([&] { ambassador->queryGALT(); }), refusal);
   EXPECT_EQ(caughtFrom([&] { returned(Bytes()); }), refusal);
}

TEST_F(LogicalTimeTest, WithoutFactoryReturnedTimesAreEmptyAndCallbacksFail)
{
   ambassador = newAmbassador();
   connect(*ambassador);
   EXPECT_EQ(returned(TestTime::encoded(1)), L"none");
   EXPECT_EQ(shown(ambassador->queryLookahead()), L"none");
   EXPECT_EQ(shown(ambassador->queryGALT()), L"valid none");
   join(u"unheard of");
   EXPECT_EQ(returned(TestTime::encoded(1)), L"none");
   EXPECT_EQ(deliver("timeAdvanceGrant_LT_Native"),
             federateInternalError + "There is no logical time factory that could decode the time");
}

TEST_F(LogicalTimeTest, OnlyASuccessfulJoinReplacesTheFactory)
{
   auto const fails = [&](auto const& exception) {
      EXPECT_NE(caughtFrom([&] { join(u"HLAfloat64Time"); }).type, "") << exception;
      fake::core().raises.clear();
      Faults::clear();
      EXPECT_EQ(returned(TestTime::encoded(1)), L"Test<1>") << exception;
   };
   fake::core().raises = {"hla/rti1516e/exceptions/SaveInProgress"};
   fails("of the join");
   fake::core().meanwhile = [] { fake::core().raiseNext = {"hla/rti1516e/exceptions/NotConnected"}; };
   fails("of what belongs to it");
   Faults::set("makeLogicalTimeFactory", [] { throw std::runtime_error("fault"); });
   fails("of the time library");

   auto const before = TestTimeFactory::count.load();
   join(u"TestTime");
   EXPECT_EQ(TestTimeFactory::count, before);
   ambassador->resignFederationExecution(NO_ACTION);
   ambassador->disconnect();
   EXPECT_EQ(TestTimeFactory::count, before) << "neither lets go of it";
   join(u"HLAfloat64Time");
   EXPECT_EQ(TestTimeFactory::count, before - 1);
   EXPECT_EQ(returned(Bytes("3FF0000000000000")), L"HLAfloat64Time<1>");
}

TEST_F(LogicalTimeTest, ATimeLibraryMayGiveTheSameFactoryAgain)
{
   TestTimeFactory::toBeGiven = new TestTimeFactory;
   join(u"TestTime");
   join(u"TestTime");
   TestTimeFactory::toBeGiven = nullptr;
   EXPECT_EQ(TestTimeFactory::count, 1);
   EXPECT_EQ(returned(TestTime::encoded(1)), L"Test<1>");
   ambassador.reset();
   EXPECT_EQ(TestTimeFactory::count, 0);
}

TEST_F(LogicalTimeTest, GetTimeFactoryMakesANewOneForItsCaller)
{
   auto const before = TestTimeFactory::count.load();
   {
      auto const first = ambassador->getTimeFactory();
      auto const second = ambassador->getTimeFactory();
      EXPECT_NE(first.get(), second.get());
      EXPECT_EQ(TestTimeFactory::count, before + 2);
   }
   EXPECT_EQ(TestTimeFactory::count, before);
   EXPECT_EQ(returned(TestTime::encoded(1)), L"Test<1>");
}

TEST_F(LogicalTimeTest, NobodyIsCalledWithATimeThatTheFactoryDoesNotGive)
{
   for (auto* const nothing : {&TestTimeFactory::decodesNothing, &TestTimeFactory::hasNoFinal}) {
      join(u"TestTime"); // a factory that was asked nothing yet
      *nothing = true;
      EXPECT_EQ(grant(TestTime::encoded(1)).find(federateInternalError), 0U);
      *nothing = false;
   }
   EXPECT_TRUE(federate.takeCalled().empty());
}

// What the federation's own times throw reaches the caller of a service, and the core.
TEST_F(LogicalTimeTest, FaultsAreTold)
{
   struct Fault
   {
      std::function<void()> thrown;
      Caught caught;
      std::string arriving;
   };
   int const living = TestTime::count + TestInterval::count;
   RTIambassador& rti = *ambassador;
   Bytes const seven = TestTime::encoded(7);
   fake::core().bytes = octetsOf(seven);
   for (auto const& fault : std::vector<Fault>{
           {[] { throw InvalidLogicalTime(L"fault"); }, {"InvalidLogicalTime", L"fault"}, "fault"},
           {[] { throw std::runtime_error("fault"); }, {"std::exception", L"fault"}, "fault"},
           {[] { throw 42; }, {"unknown", L""}, "Unknown C++ exception"}}) {
      watchForeignCode(fault.thrown);
      EXPECT_EQ(caughtFrom([&] { rti.timeAdvanceRequest(samples::time); }), fault.caught);
      EXPECT_EQ(caughtFrom([&] { rti.enableTimeRegulation(samples::interval); }), fault.caught);
      EXPECT_EQ(caughtFrom([&] { rti.queryLogicalTime(); }), fault.caught);
      EXPECT_EQ(caughtFrom([&] { rti.queryLookahead(); }), fault.caught);
      EXPECT_EQ(caughtFrom([&] { rti.queryLITS(); }), fault.caught);
      EXPECT_EQ(caughtFrom([&] { rti.getTimeFactory(); }), fault.caught);
      for (auto const* operation : {"decode", "makeFinal", "encodedLength"}) {
         watchForeignCode();
         join(u"TestTime");
         watchForeignCode(fault.thrown, {operation});
         EXPECT_EQ(grant(seven), federateInternalError + fault.arriving) << operation;
         expectClean(1);
      }
   }
   EXPECT_TRUE(federate.takeCalled().empty());
   watchForeignCode([&] { rti.requestFederationSave(L"inside"); }); // for they may call services
   join(u"TestTime");
   EXPECT_EQ(grant(seven), "none");
   EXPECT_EQ(federate.takeCalled().size(), 1U);
   EXPECT_EQ(TestTime::count + TestInterval::count, living);
}

} // namespace
} // namespace contract
