#include "FederationTest.h"

#include <atomic>
#include <chrono>
#include <future>
#include <set>
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
            expect(federate, {"federationSynchronized " + narrow(label)});
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
   expect(beta, {"federationSynchronized ready"});
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

TEST_P(Ambassadors, AreToldOfSynchronizationPointsWhileTheyAreMembers)
{
   Federate& alpha = joined("alpha");
   for (int point = 0; point < 20; ++point) {
      alpha->registerFederationSynchronizationPoint(std::to_wstring(point), bytes("tag"));
   }
   Federate& late = connected("late");
   std::set<std::string> answers;
   late.onCallback = [&](std::string const&) {
      answers.insert(refusal([&] { late->getAutomaticResignDirective(); }));
   };
   for (int visit = 0; visit < 10; ++visit) {
      late.join(federation());
      EXPECT_EQ(late.callbacks(20).size(), 20U);
      EXPECT_EQ(answers, std::set<std::string>{"nothing"});
      late->resignFederationExecution(NO_ACTION);
   }
}

TEST_P(Ambassadors, MaySaveAndRestoreInGreatNumbers)
{
   std::vector<Federate*> all;
   for (int i = 0; i < 200; ++i) {
      all.push_back(&joined("crowd-" + std::to_string(i)));
   }
   ObjectClassHandle const vehicle = (*all[0])->getObjectClassHandle(L"Vehicle");
   AttributeHandleSet const attributes{(*all[0])->getAttributeHandle(vehicle, L"Position")};
   for (Federate* const federate : all) {
      (*federate)->publishObjectClassAttributes(vehicle, attributes);
      (*federate)->subscribeObjectClassAttributes(vehicle, attributes);
      (*federate)->registerObjectInstance(vehicle);
   }
   for (Federate* const federate : all) {
      EXPECT_EQ(federate->callbacks(all.size() - 1).size(), all.size() - 1);
   }
   (*all[0])->requestFederationSave(L"noon");
   expectEach(all, {"initiateFederateSave noon"});
   for (Federate* const federate : all) {
      (*federate)->federateSaveBegun();
      (*federate)->federateSaveComplete();
   }
   expectEach(all, {"federationSaved"});
   (*all[0])->requestFederationRestore(L"noon");
   expect(*all[0], {"requestFederationRestoreSucceeded noon", "federationRestoreBegun",
                    "initiateFederateRestore noon crowd-0 crowd-0"});
   (*all[0])->federateRestoreComplete();
   for (auto federate = all.begin() + 1; federate != all.end(); ++federate) {
      std::string const& name = (*federate)->name();
      expect(**federate, {"federationRestoreBegun", "initiateFederateRestore noon " + name + " " + name});
      (**federate)->federateRestoreComplete();
   }
   expectEach(all, {"federationRestored"});
}

TEST_P(Ambassadors, AreOnTheDimensionsOfTheManagementObjectModel)
{
   Federate& alpha = joined("alpha");
   Federate& beta = joined("beta");
   auto const bound = [&](wchar_t const* name) {
      return alpha->getDimensionUpperBound(alpha->getDimensionHandle(name));
   };
   unsigned long const one = alpha->normalizeFederateHandle(alpha.handle());
   EXPECT_LT(one, bound(L"HLAfederate"));
   EXPECT_EQ(beta->normalizeFederateHandle(alpha.handle()), one);
   EXPECT_NE(beta->normalizeFederateHandle(beta.handle()), one);
   std::set<unsigned long> groups;
   for (int group = FEDERATION_MANAGEMENT; group <= SUPPORT_SERVICES; ++group) {
      groups.insert(alpha->normalizeServiceGroup(static_cast<ServiceGroup>(group)));
   }
   EXPECT_EQ(groups.size(), 7u);
   EXPECT_LT(*groups.rbegin(), bound(L"HLAserviceGroup"));
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
