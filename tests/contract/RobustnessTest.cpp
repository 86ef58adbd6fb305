// What shows only after many calls, with several ambassadors, or on several threads.
#include "Fixture.h"
#include "Samples.h"
#include "tests/soak/ResidentMemory.h"

#include <algorithm>
#include <atomic>
#include <future>
#include <thread>

namespace contract {
namespace {

// A thread of the test's own, which it waits for.
template <class Work>
std::future<void> onThread(Work work)
{
   return std::async(std::launch::async, [work] {
      work();
      RecordingCore::instance().detachThread();
   });
}

using RobustnessTest = ContractTest;

TEST_F(RobustnessTest, CallsNeitherLeakNorTire)
{
   core.answer("deleteObjectInstance_OIH_BX_LT", Bytes("00000001 00000002 FACE"));
   core.answer("getObjectClassName_OCH", JavaException{hlaClass("InvalidObjectClassHandle"), u"why"});
   core.answer("getFederateName_FH", JavaException{hlaClass("RTIinternalError"), std::nullopt});
   long grown = 0;
   int failures = 0;
   onThread([&] {
      auto const call = [&](int rounds) {
         for (int i = 0; i < rounds; ++i) {
            rti.requestFederationSave(samples::name1);
            rti.deleteObjectInstance(samples::object, samples::tag, samples::time);
            try {
               rti.getObjectClassName(samples::objectClass);
            } catch (InvalidObjectClassHandle const&) {
               ++failures;
            }
            try {
               rti.getFederateName(samples::federate);
            } catch (RTIinternalError const&) {
               ++failures;
            }
         }
      };
      call(15'000);
      auto const before = residentMemory();
      call(50'000);
      grown = residentMemory() - before;
   }).get();
   EXPECT_EQ(failures, 130'000);
   RecordProperty("grown", std::to_string(grown));
   EXPECT_LT(grown, 1000) << "kilobytes, which a leak of even a few bytes a call is more than";
}

TEST_F(RobustnessTest, DestructionLetsGoOfTheCoresAmbassador)
{
   testing::internal::CaptureStderr();
   core.answer("disconnect", JavaException{hlaClass("FederateIsExecutionMember"), u"ignored"});
   for (int i = 0; i < 20; ++i) {
      newAmbassador(); // never connected, and yet disconnected
      Member const connected;
      core.answer("disconnect", JavaException{"java.lang.IllegalStateException", u"ignored"});
      onThread([&] { newAmbassador(); }).get();
   }
   core.answer("disconnect", nullptr);
   newAmbassador();
   auto const calls = core.calls();
   ASSERT_GE(calls.size(), 2U);
   EXPECT_EQ(calls[calls.size() - 2].method, "<init>");
   EXPECT_EQ(calls[calls.size() - 2].message, Bytes("00000000"));
   EXPECT_EQ(calls.back().method, "disconnect");
   EXPECT_EQ(calls.back().ambassador, calls[calls.size() - 2].ambassador);
   EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(RobustnessTest, AmbassadorsDoNotDisturbOneAnother)
{
   Member other;
   other.join(u"HLAinteger64Time");
   EXPECT_NE(other.token, member.token);
   core.forget();
   rti.requestFederationSave(L"mine");
   other.ambassador->requestFederationSave(L"the other's");
   rti.requestFederationSave(L"mine");
   auto const calls = core.calls();
   EXPECT_NE(calls.at(0).ambassador, calls.at(1).ambassador);
   EXPECT_EQ(calls.at(0).ambassador, calls.at(2).ambassador);

   std::string const granted = "timeAdvanceGrant_LT_Native";
   EXPECT_EQ(core.deliver({granted, other.message(Bytes("0000000000000001"))}), std::nullopt);
   EXPECT_EQ(core.deliver({granted, member.message(TestTime::encoded(2))}), std::nullopt);
   EXPECT_EQ(member.federate.takeCalled(), std::vector<std::wstring>{L"timeAdvanceGrant(Test<2>)"});
   EXPECT_EQ(other.federate.takeCalled(),
             std::vector<std::wstring>{L"timeAdvanceGrant(HLAinteger64Time<1>)"});

   other.ambassador.reset();
   EXPECT_EQ(core.deliver({granted, member.message(TestTime::encoded(3))}), std::nullopt);
   rti.requestFederationSave(L"mine");
}

// The federate's own object outlives the ambassador, as it must.
TEST_F(RobustnessTest, CallbacksRaceWithJoinsAndTheEndOfTheirAmbassador)
{
   auto const factories = TestTimeFactory::count.load();
   for (int round = 0; round < 100; ++round) {
      Member leaving;
      leaving.join(u"TestTime");
      std::atomic<int> delivered = 0;
      std::string refusedWith;
      auto callbacks = onThread([&] {
         while (refusedWith.empty()) {
            auto const pending =
               core.deliver({"timeAdvanceGrant_LT_Native", leaving.message(TestTime::encoded(1))});
            if (pending) {
               refusedWith = pending->className;
            } else {
               ++delivered;
            }
         }
      });
      while (delivered < 50) {
         leaving.join(u"TestTime");
      }
      leaving.ambassador.reset();
      callbacks.get();
      EXPECT_EQ(refusedWith, hlaClass("FederateInternalError"));
      auto const called = leaving.federate.takeCalled();
      EXPECT_EQ(called.size(), static_cast<std::size_t>(delivered));
      EXPECT_EQ(std::count(called.begin(), called.end(), L"timeAdvanceGrant(Test<1>)"), delivered);
   }
   EXPECT_EQ(TestTimeFactory::count, factories);
}

TEST_F(RobustnessTest, AnyThreadMayCall)
{
   core.answer("getObjectInstanceHandle_S", jint{7});
   core.answer("getObjectInstanceName_OIH", JavaException{hlaClass("ObjectInstanceNotKnown"), u"why"});
   std::atomic<int> right = 0;
   std::vector<std::future<void>> threads;
   for (int thread = 0; thread < 4; ++thread) {
      threads.push_back(onThread([&] {
         for (int i = 0; i < 2000; ++i) {
            bool const found = shown(rti.getObjectInstanceHandle(L"any")) == L"#00000007";
            auto const caught = caughtFrom([&] { rti.getObjectInstanceName(samples::object); });
            right += found && caught == Caught{"ObjectInstanceNotKnown", L"why"} ? 1 : 0;
         }
      }));
   }
   for (auto& thread : threads) {
      thread.get();
   }
   EXPECT_EQ(right, 8000);
}

} // namespace
} // namespace contract
