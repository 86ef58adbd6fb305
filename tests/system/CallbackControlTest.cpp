#include "FederationTest.h"

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <thread>

namespace {

using namespace system_tests;
using namespace std::chrono_literals;

// Asks for so many callbacks, which are all alike.
void askFor(int callbacks, Federate& federate)
{
   for (int i = 0; i < callbacks; ++i) {
      federate->queryFederationSaveStatus();
   }
}

class CallbackControl : public FederationTest
{};
IN_BOTH_CALLBACK_MODELS(CallbackControl);

TEST_P(CallbackControl, CallsAFederateBackOnOneThreadAtATime)
{
   Federate& alpha = joined("alpha");
   std::atomic<int> inside{0};
   std::atomic<int> together{0};
   alpha.onCallback = [&](std::string const&) {
      if (++inside > 1) {
         ++together;
      }
      std::this_thread::yield();
      --inside;
   };
   std::thread other([&] { askFor(200, alpha); });
   askFor(200, alpha);
   other.join();
   EXPECT_EQ(alpha.callbacks(400).size(), 400u);
   EXPECT_EQ(together, 0);
}

TEST_P(CallbackControl, GoesOnAfterACallbackThatThrows)
{
   Federate& alpha = joined("alpha");
   Federate& beta = joined("beta");
   std::atomic<int> count{0};
   alpha.onCallback = [&](std::string const&) {
      if (++count <= 3) {
         throw NotConnected(L"thrown on purpose");
      }
      if (count <= 5) {
         throw std::runtime_error("thrown on purpose");
      }
   };
   for (int i = 0; i < 3; ++i) {
      beta->registerFederationSynchronizationPoint(L"point " + std::to_wstring(i), bytes(""));
   }
   askFor(4, alpha);
   EXPECT_EQ(alpha.callbacks(7).size(), 7u);
   EXPECT_EQ(beta.callbacks(6).size(), 6u);
}

TEST_P(CallbackControl, IsOverWhenTheFederateIsDisconnected)
{
   for (int round = 0; round < 20; ++round) {
      Federate& alpha = connected("alpha");
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
      std::thread evoking([&] {
         if (GetParam() == HLA_EVOKED) {
            refusal([&] { alpha->evokeMultipleCallbacks(1.0, 1.0); });
         }
      });
      while (!inside) {
         std::this_thread::yield();
      }
      alpha->disconnect();
      disconnected = true;
      evoking.join();
      EXPECT_FALSE(late);
      forget("alpha");
   }
}

class EvokedCallbacks : public FederationTest
{};
INSTANTIATE_TEST_SUITE_P(, EvokedCallbacks, testing::Values(HLA_EVOKED), modelName);

using Seconds = std::chrono::duration<double>;

template <class Call>
Seconds durationOf(Call&& call)
{
   auto const start = std::chrono::steady_clock::now();
   call();
   return std::chrono::steady_clock::now() - start;
}

TEST_P(EvokedCallbacks, ComeOneByOneOrAllTogether)
{
   Federate& alpha = joined("alpha");
   askFor(3, alpha);
   EXPECT_EQ(alpha.waiting(), 0u);
   EXPECT_TRUE(alpha->evokeCallback(0.0));
   EXPECT_EQ(alpha.waiting(), 1u);
   EXPECT_TRUE(alpha->evokeCallback(10.0));
   EXPECT_EQ(alpha.waiting(), 2u);
   EXPECT_FALSE(alpha->evokeCallback(0.0));
   EXPECT_EQ(alpha.waiting(), 3u);
   EXPECT_FALSE(alpha->evokeCallback(0.0));
   EXPECT_EQ(alpha.waiting(), 3u);

   askFor(3, alpha);
   EXPECT_FALSE(alpha->evokeMultipleCallbacks(0.0, 10.0));
   EXPECT_EQ(alpha.waiting(), 6u);
}

TEST_P(EvokedCallbacks, AreWaitedForAsLongAsAsked)
{
   Federate& alpha = joined("alpha");
   EXPECT_GE(durationOf([&] { EXPECT_FALSE(alpha->evokeCallback(0.2)); }), Seconds(0.15));
   EXPECT_GE(durationOf([&] { EXPECT_FALSE(alpha->evokeMultipleCallbacks(0.2, 1.0)); }), Seconds(0.15));

   std::thread other([&] {
      std::this_thread::sleep_for(100ms);
      askFor(1, alpha);
   });
   EXPECT_LT(durationOf([&] { alpha->evokeCallback(8.0); }), Seconds(6.0));
   other.join();
   EXPECT_EQ(alpha.waiting(), 1u);
}

TEST_P(EvokedCallbacks, EndInTimeThoughMoreAndMoreArise)
{
   Federate& alpha = joined("alpha");
   alpha.onCallback = [&](std::string const&) { askFor(1, alpha); };
   askFor(2, alpha);
   Seconds const duration = durationOf([&] { EXPECT_TRUE(alpha->evokeMultipleCallbacks(0.0, 0.2)); });
   EXPECT_GE(duration, Seconds(0.1));
   EXPECT_LT(duration, Seconds(5.0));
}

} // namespace
