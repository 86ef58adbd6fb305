// What federates may do on several threads, and what takes exceptions or a clock to show.
#include "Services.h"

#include <atomic>
#include <chrono>
#include <future>
#include <gtest/gtest.h>
#include <thread>

namespace {

using namespace system_tests;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

template <class Call>
std::chrono::duration<double> durationOf(Call&& call)
{
   auto const start = Clock::now();
   call();
   return Clock::now() - start;
}

// Asks for so many callbacks, which are all alike.
void askFor(int callbacks, Federate& federate)
{
   for (int i = 0; i < callbacks; ++i) {
      federate->queryFederationSaveStatus();
   }
}

class Ambassadors : public testing::TestWithParam<CallbackModel>
{
protected:
   Ambassadors() { _stage.createFederation("Road.xml", ""); }

   void TearDown() override { _stage.end(); }

   Federate& joined(std::string const& name)
   {
      Federate& federate = _stage.federate(name);
      steps(federate, "join");
      return federate;
   }
   void steps(Federate& federate, std::string const& text)
   {
      for (auto const& step : split(text, ';')) {
         EXPECT_EQ(serve(_stage, federate, wordsOf(step)).exception, "nothing") << step;
      }
   }

   Stage _stage{GetParam(), true};
};
INSTANTIATE_TEST_SUITE_P(, Ambassadors, testing::Values(HLA_EVOKED, HLA_IMMEDIATE),
                         [](auto const& each) { return each.param == HLA_EVOKED ? "Evoked" : "Immediate"; });

// While one is in a callback, another goes, and one that has callbacks under way to it.
TEST_P(Ambassadors, MayGoWhileAnotherIsInACallback)
{
   Federate& alpha = joined("alpha");
   Federate& beta = joined("beta");
   std::promise<void> inside;
   std::promise<void> release;
   beta.onCallback = [&](std::string const&) {
      inside.set_value();
      release.get_future().wait();
   };
   std::thread evoker([&] {
      askFor(1, beta);
      beta.await([&] { return beta.waiting() > 0; });
   });
   inside.get_future().wait();
   askFor(20, alpha);
   steps(alpha, "resignFederationExecution NO_ACTION");
   _stage.forget("alpha");
   askFor(20, joined("gamma"));
   _stage.forget("gamma");
   beta.onCallback = nullptr;
   release.set_value();
   evoker.join();
   EXPECT_EQ(beta.callbacks(1).size(), 1U);
   steps(beta, "registerFederationSynchronizationPoint ready");
   EXPECT_EQ(beta.callbacks(2).size(), 2U);
}

TEST_P(Ambassadors, MaySaveAndRestoreInGreatNumbers)
{
   std::vector<Federate*> all;
   for (int i = 0; i < 200; ++i) {
      all.push_back(&joined("crowd-" + std::to_string(i)));
   }
   auto const each = [&](std::string const& text, Federate::Callbacks const& callbacks) {
      for (Federate* const federate : all) {
         steps(*federate, text);
      }
      for (Federate* const federate : all) {
         EXPECT_EQ(federate->callbacks(1), callbacks) << federate->name();
      }
   };
   steps(*all[0], "requestFederationSave noon");
   each("", {"initiateFederateSave noon"});
   each("federateSaveBegun; federateSaveComplete", {"federationSaved"});
   steps(*all[0], "requestFederationRestore noon");
   for (Federate* const federate : all) {
      federate->callbacks(2);
   }
   each("federateRestoreComplete", {"federationRestored"});
}

// And on, after callbacks that throw.
TEST_P(Ambassadors, AreCalledBackOnOneThreadAtATime)
{
   Federate& alpha = joined("alpha");
   std::atomic<int> inside{0};
   std::atomic<int> together{0};
   std::atomic<int> count{0};
   alpha.onCallback = [&](std::string const&) {
      together += ++inside > 1 ? 1 : 0;
      std::this_thread::yield();
      --inside;
      if (++count <= 3) {
         throw NotConnected(L"thrown on purpose");
      }
      if (count <= 5) {
         throw std::runtime_error("thrown on purpose");
      }
   };
   std::thread other([&] { askFor(200, alpha); });
   askFor(200, alpha);
   other.join();
   EXPECT_EQ(alpha.callbacks(400).size(), 400U);
   EXPECT_EQ(together, 0);
}

TEST_P(Ambassadors, AreCalledBackNoMoreOnceDisconnected)
{
   for (int round = 0; round < 20; ++round) {
      Federate& alpha = _stage.federate("alpha");
      alpha.connect();
      std::atomic<bool> inside{false};
      std::atomic<bool> disconnected{false};
      std::atomic<bool> late{false};
      alpha.onCallback = [&](std::string const&) {
         inside = true;
         std::this_thread::sleep_for(1ms);
         refusal([&] { alpha->listFederationExecutions(); }); // nothing that a callback may do is in the way
         late = late || disconnected;
      };
      for (int i = 0; i < 5; ++i) {
         alpha->listFederationExecutions();
      }
      std::thread evoking([&] { refusal([&] { alpha->evokeMultipleCallbacks(1.0, 1.0); }); });
      while (!inside) {
         std::this_thread::yield();
      }
      alpha->disconnect();
      disconnected = true;
      evoking.join();
      EXPECT_FALSE(late);
      _stage.forget("alpha");
   }
}

class Evokers : public Ambassadors
{};
INSTANTIATE_TEST_SUITE_P(, Evokers, testing::Values(HLA_EVOKED));

TEST_P(Evokers, MayGoWhileAThreadWaitsForCallbacks)
{
   Federate& alpha = _stage.federate("alpha");
   alpha.connect();
   alpha->listFederationExecutions();
   std::promise<void> called;
   alpha.onCallback = [&](std::string const&) { called.set_value(); };
   auto const start = Clock::now();
   auto waiting = std::async(std::launch::async, [&] { return alpha->evokeMultipleCallbacks(60.0, 60.0); });
   called.get_future().wait();
   alpha.destroyAmbassador();
   EXPECT_FALSE(waiting.get());
   EXPECT_LT(Clock::now() - start, 30s);
   _stage.forget("alpha");
}

TEST_P(Evokers, TakeCallbacksOneByOneOrAllTogether)
{
   Federate& alpha = joined("alpha");
   askFor(3, alpha);
   EXPECT_EQ(alpha.waiting(), 0U);
   EXPECT_TRUE(alpha->evokeCallback(0.0));
   EXPECT_TRUE(alpha->evokeCallback(10.0));
   EXPECT_EQ(alpha.waiting(), 2U);
   EXPECT_FALSE(alpha->evokeCallback(0.0));
   EXPECT_FALSE(alpha->evokeCallback(0.0));
   EXPECT_EQ(alpha.waiting(), 3U);
   askFor(3, alpha);
   EXPECT_FALSE(alpha->evokeMultipleCallbacks(0.0, 10.0));
   EXPECT_EQ(alpha.waiting(), 6U);
}

TEST_P(Evokers, WaitAsLongAsTheyAsk)
{
   Federate& alpha = joined("alpha");
   EXPECT_GE(durationOf([&] { EXPECT_FALSE(alpha->evokeCallback(0.2)); }), 150ms);
   EXPECT_GE(durationOf([&] { EXPECT_FALSE(alpha->evokeMultipleCallbacks(0.2, 1.0)); }), 150ms);
   std::thread other([&] {
      std::this_thread::sleep_for(100ms);
      askFor(1, alpha);
   });
   EXPECT_LT(durationOf([&] { alpha->evokeCallback(8.0); }), 6s);
   other.join();
   EXPECT_EQ(alpha.waiting(), 1U);
   alpha.onCallback = [&](std::string const&) { askFor(1, alpha); }; // more and more arise
   askFor(2, alpha);
   auto const duration = durationOf([&] { EXPECT_TRUE(alpha->evokeMultipleCallbacks(0.0, 0.2)); });
   EXPECT_GE(duration, 100ms);
   EXPECT_LT(duration, 5s);
}

} // namespace
