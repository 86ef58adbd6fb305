#include "FederationTest.h"

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

namespace {

using namespace system_tests;
using namespace std::chrono_literals;

class Ambassadors : public FederationTest
{
protected:
   // The federation's last federate is gone when it can be destroyed.
   bool canBeDestroyed()
   {
      Federate& destroyer = connected("destroyer");
      auto const destroy = [&] { destroyer->destroyFederationExecution(federationName()); };
      return destroyer.await([&] { return refusal(destroy) == "nothing"; });
   }
};
IN_BOTH_CALLBACK_MODELS(Ambassadors);

TEST_P(Ambassadors, DoNotDisturbOneAnother)
{
   Federate& here = joined("alpha");
   Federate& there = connected("alpha of the other federation");
   std::wstring const other = wide(uniqueName());
   there->createFederationExecution(other, fom("Road.xml"), L"HLAinteger64Time");
   there->joinFederationExecution(L"alpha", L"test", other);

   here->registerFederationSynchronizationPoint(L"ready", bytes("here"));
   there->registerFederationSynchronizationPoint(L"ready", bytes("there"));
   expectInAnyOrder(here, {"synchronizationPointRegistrationSucceeded(ready)",
                           "announceSynchronizationPoint(ready, here)"});
   expectInAnyOrder(there, {"synchronizationPointRegistrationSucceeded(ready)",
                            "announceSynchronizationPoint(ready, there)"});
   here->synchronizationPointAchieved(L"ready");
   expect(here, {"federationSynchronized(ready, {})"});
   expectNothing(there);
   here->requestFederationSave(L"noon");
   expect(here, {"initiateFederateSave(noon)"});
   there->synchronizationPointAchieved(L"ready");
   expect(there, {"federationSynchronized(ready, {})"});
   EXPECT_EQ(here->getTimeFactory()->getName(), L"HLAfloat64Time");
   EXPECT_EQ(there->getTimeFactory()->getName(), L"HLAinteger64Time");
   there->resignFederationExecution(NO_ACTION);
   there->destroyFederationExecution(other);
}

TEST_P(Ambassadors, MayTakeTheirFederationsThroughLifeOnThreadsOfTheirOwn)
{
   std::atomic<int> done{0};
   std::vector<std::thread> threads;
   for (int i = 0; i < 4; ++i) {
      threads.emplace_back([&, i] {
         Names names;
         for (int round = 0; round < 3; ++round) {
            Federate federate("alpha", GetParam(), names);
            std::wstring const own = wide(uniqueName());
            federate.connect();
            federate->createFederationExecution(own, fom("Road.xml"));
            federate->joinFederationExecution(L"alpha", L"test", own);
            std::wstring const label = std::to_wstring(i);
            federate->registerFederationSynchronizationPoint(label, bytes("tag"));
            federate.callbacks(2);
            federate->synchronizationPointAchieved(label);
            expect(federate, {"federationSynchronized(" + narrow(label) + ", {})"});
            federate->resignFederationExecution(NO_ACTION);
            federate->destroyFederationExecution(own);
            ++done;
         }
      });
   }
   for (auto& thread : threads) {
      thread.join();
   }
   EXPECT_EQ(done, 12);
}

TEST_P(Ambassadors, ThatGoWhileJoinedLetTheOthersGoOn)
{
   joined("alpha");
   Federate& beta = joined("beta");
   beta->registerFederationSynchronizationPoint(L"ready", bytes("tag"));
   beta.callbacks(2);
   beta->synchronizationPointAchieved(L"ready");
   forget("alpha");
   EXPECT_TRUE(beta.await([&] { return beta.waiting() == 1; }));
   expect(beta, {"federationSynchronized(ready, {})"});
   joined("alpha"); // whose name is free again
   forget("alpha");
   forget("beta");
   EXPECT_TRUE(canBeDestroyed());
}

TEST_P(Ambassadors, MayGoWhileAnotherIsInACallback)
{
   Federate& alpha = joined("alpha");
   Federate& beta = joined("beta");
   std::atomic<bool> inside{false};
   std::atomic<bool> release{false};
   beta.onCallback = [&](std::string const&) {
      inside = true;
      while (!release) {
         std::this_thread::sleep_for(1ms);
      }
   };
   std::thread evoker([&] {
      beta->queryFederationSaveStatus();
      beta.await([&] { return release.load(); });
   });
   while (!inside) {
      std::this_thread::sleep_for(1ms);
   }
   alpha->resignFederationExecution(NO_ACTION);
   forget("alpha");
   joined("gamma");
   forget("gamma");
   release = true;
   evoker.join();
   beta.onCallback = nullptr;
   EXPECT_EQ(beta.callbacks(1).size(), 1u);
   beta->registerFederationSynchronizationPoint(L"ready", bytes("tag"));
   EXPECT_EQ(beta.callbacks(2).size(), 2u);
   beta->resignFederationExecution(NO_ACTION);
   EXPECT_TRUE(canBeDestroyed());
}

TEST_P(Ambassadors, MayGoWithCallbacksStillUnderWay)
{
   for (int round = 0; round < 20; ++round) {
      Federate& alpha = joined("alpha");
      Federate& beta = joined("beta");
      for (int i = 0; i < 20; ++i) {
         beta->registerFederationSynchronizationPoint(std::to_wstring(round * 20 + i), bytes("tag"));
      }
      alpha->resignFederationExecution(NO_ACTION);
      forget("alpha");
   }
}

TEST(AmbassadorsOfEvokers, MayGoWhileAThreadWaitsForCallbacks)
{
   Names names;
   Federate alpha("alpha", HLA_EVOKED, names);
   alpha.connect();
   alpha->listFederationExecutions();
   std::promise<void> called;
   alpha.onCallback = [&](std::string const&) { called.set_value(); };
   auto const start = std::chrono::steady_clock::now();
   auto waiting = std::async(std::launch::async, [&] { return alpha->evokeMultipleCallbacks(60.0, 60.0); });
   called.get_future().wait();
   alpha.destroyAmbassador();
   EXPECT_FALSE(waiting.get());
   EXPECT_LT(std::chrono::steady_clock::now() - start, 30s);
}

} // namespace
