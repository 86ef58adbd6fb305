// How logical times cross: encoded by themselves, decoded by the ambassador's factory, and never while
// something is pinned, which the fixture watches.
#include "tests/support/ContractTest.h"

#include <functional>
#include <stdexcept>

namespace contract {
namespace {

class LogicalTimeTest : public ContractTest
{
protected:
   // What the ambassador's factory makes of a returned time, as a text that tells which factory it is.
   std::wstring returned(Bytes const& bytes)
   {
      fake::core.result = bytes;
      auto const time = ambassador->queryLogicalTime();
      return time.get() == nullptr ? L"none" : time->implementationName() + time->toString();
   }
   std::wstring const one = L"TestTimeHLAinteger64Time<1>";
   Bytes const encodedOne = TestTime::encoded(1);
};

TEST_F(LogicalTimeTest, BytesThatAreNoTimeAreTheFactorysToRefuse)
{
   Caught const refusal{"CouldNotDecode", L"not the bytes of a TestTime"};
   EXPECT_EQ(caughtFrom([&] { returned(Bytes("7A000000")); }), refusal);
   EXPECT_EQ(caughtFrom([&] { ambassador->queryLookahead(); }), refusal);
   EXPECT_EQ(caughtFrom([&] { ambassador->queryGALT(); }), refusal);
   EXPECT_EQ(caughtFrom([&] { returned(Bytes()); }), refusal);
}

TEST_F(LogicalTimeTest, WithoutFactoryReturnedTimesAreEmptyAndCallbacksFail)
{
   ambassador = newAmbassador();
   connect(*ambassador);
   for (bool const joined : {false, true}) {
      if (joined) {
         join(u"unheard of");
      }
      EXPECT_EQ(returned(encodedOne), L"none");
      EXPECT_EQ(ambassador->queryLookahead().get(), nullptr);
      EXPECT_EQ(encoded(ambassador->queryGALT()), Bytes("00000001"));
   }
   EXPECT_EQ(deliver(granted),
             federateInternalError + "There is no logical time factory that could decode the time");
}

TEST_F(LogicalTimeTest, OnlyASuccessfulJoinReplacesTheFactory)
{
   auto const watched = inTime;
   auto const fails = [&](auto const& exception) {
      fake::core.result = Bytes().units(u"HLAfloat64Time");
      EXPECT_NE(caughtFrom([&] { ambassador->joinFederationExecution(L"type", L"federation"); }).type, "");
      fake::core.raises.clear();
      inTime = watched;
      EXPECT_EQ(returned(encodedOne), one) << exception;
   };
   fake::core.raises = {exceptionPath + "SaveInProgress"};
   fails("of the join");
   fake::core.meanwhile = [] {
      fake::core.meanwhile = [] { fake::core.raises = {exceptionPath + "NotConnected"}; };
   };
   fails("of what belongs to it");
   inTime = [](std::string const&) { throw std::runtime_error("fault"); };
   fails("of the time library");

   int const before = TestTimeFactory::count;
   join(u"TestTime");
   ambassador->resignFederationExecution(NO_ACTION);
   ambassador->disconnect();
   EXPECT_EQ(TestTimeFactory::count, before) << "neither lets go of it";
   join(u"HLAfloat64Time");
   EXPECT_EQ(TestTimeFactory::count, before - 1);
}

TEST_F(LogicalTimeTest, ATimeLibraryMayGiveTheSameFactoryAgain)
{
   TestTimeFactory::toBeGiven = new TestTimeFactory;
   join(u"TestTime");
   join(u"TestTime");
   TestTimeFactory::toBeGiven = nullptr;
   EXPECT_NE(ambassador->getTimeFactory().get(), ambassador->getTimeFactory().get()) << "the caller's own";
   EXPECT_EQ(TestTimeFactory::count, 1);
   EXPECT_EQ(returned(encodedOne), one);
   ambassador.reset();
   EXPECT_EQ(TestTimeFactory::count, 0);
}

TEST_F(LogicalTimeTest, NobodyIsCalledWithATimeThatTheFactoryDoesNotGive)
{
   for (auto* const nothing : {&TestTimeFactory::decodesNothing, &TestTimeFactory::hasNoFinal}) {
      join(u"TestTime"); // a factory that was asked nothing yet
      *nothing = true;
      EXPECT_EQ(deliver(granted, encodedOne).find(federateInternalError), 0U);
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
   fake::core.result = someTime;
   for (auto const& fault : std::vector<Fault>{
           {[] { throw InvalidLogicalTime(L"fault"); }, {"InvalidLogicalTime", L"fault"}, "fault"},
           {[] { throw std::runtime_error("fault"); }, {"std::exception", L"fault"}, "fault"},
           {[] { throw 42; }, {"unknown", L""}, "Unknown C++ exception"}}) {
      auto const in = [&fault](std::string const& faulty) {
         return [&fault, faulty](std::string const& operation) {
            EXPECT_EQ(fake::account.pins, 0);
            if (operation == faulty || (faulty.empty() && operation != "destroy")) {
               fault.thrown();
            }
         };
      };
      for (auto const& service : std::vector<std::function<void()>>{
              [&] { rti.timeAdvanceRequest(TestTime(1)); },
              [&] { rti.enableTimeRegulation(TestInterval(1)); }, [&] { rti.queryLogicalTime(); },
              [&] { rti.queryLookahead(); }, [&] { rti.queryLITS(); }, [&] { rti.getTimeFactory(); }}) {
         inTime = in("");
         EXPECT_EQ(caughtFrom(service), fault.caught);
      }
      for (auto const* operation : {"decode", "makeFinal", "encodedLength"}) {
         join(u"TestTime");
         inTime = in(operation);
         EXPECT_EQ(deliver(granted, someTime), federateInternalError + fault.arriving) << operation;
         expectClean(1);
      }
   }
   EXPECT_TRUE(federate.takeCalled().empty());
   EXPECT_EQ(TestTime::count + TestInterval::count, living);
   join(u"TestTime");
   inTime = [&](std::string const&) { rti.requestFederationSave(L"inside"); }; // for they may call services
   EXPECT_EQ(deliver(granted, someTime), "none");
   inTime = [](auto const&) {};
}

} // namespace
} // namespace contract
