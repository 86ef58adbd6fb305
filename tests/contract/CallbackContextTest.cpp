// The table of callback contexts under many threads: callbacks that come while ambassadors are made and
// destroyed and time factories replaced. Run under ThreadSanitizer, it shows that no lock is missing.
#include "src/callbacks/CallbackContext.h"

#include <RTI/Exception.h>
#include <RTI/NullFederateAmbassador.h>
#include <RTI/time/HLAinteger64TimeFactory.h>

#include <array>
#include <atomic>
#include <chrono>
#include <deque>
#include <future>
#include <gtest/gtest.h>
#include <memory>
#include <pthread.h>
#include <set>
#include <thread>
#include <vector>

namespace {

using namespace tovu1516e;

std::atomic<int> livingFactories{0};

struct CountedFactory : rti1516e::HLAinteger64TimeFactory
{
   CountedFactory() { ++livingFactories; }
   ~CountedFactory() override { --livingFactories, alive = 0; }

   int alive = 0x600D;
};

TEST(CallbackContexts, DoNotRepeatATokenSoonAndTellWhenTheyAreTooMany)
{
   std::set<std::uint32_t> tokens;
   for (int i = 0; i < 10000; ++i) {
      EXPECT_TRUE(tokens.insert(CallbackContext().token().value).second);
   }
   std::deque<CallbackContext> many(4096);
   EXPECT_THROW(CallbackContext(), rti1516e::RTIinternalError);
   many.pop_back();
   EXPECT_NE(CallbackContext().token().value, 0U);
}

TEST(CallbackContexts, KeepAReplacedTimeFactoryWhileItIsUsed)
{
   CallbackContext context;
   context.setTimeFactory(std::make_unique<CountedFactory>());
   context.setTimeFactory(std::make_unique<CountedFactory>());
   EXPECT_EQ(livingFactories, 1); // nobody used the first one
   {
      CallbackContextReference const callback(context.token());
      TimeFactory const* const used = callback.timeFactory();
      context.setTimeFactory(nullptr);
      EXPECT_EQ(callback.timeFactory(), nullptr);
      EXPECT_EQ(dynamic_cast<CountedFactory&>(used->factory()).alive, 0x600D);
   }
   EXPECT_EQ(livingFactories, 0);
}

// It goes only when no other thread is in a callback, and before a thread that is cancelled meanwhile: a
// destructor that a cancellation left half-way would end the process.
TEST(CallbackContexts, WaitForCallbacksAsTheyGo)
{
   auto context = std::make_unique<CallbackContext>();
   CallbackToken const token = context->token();
   std::promise<void> inside;
   std::atomic<bool> left{false};
   auto const callback = std::async(std::launch::async, [&] {
      CallbackContextReference const reference(token);
      inside.set_value();
      while (CallbackContextReference(token)) { // until it begins to go
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
      left = true;
   });
   inside.get_future().wait();
   bool isGone = false, isCancelled = true;
   std::thread([&] {
      CallbackContextReference const ownCallback(token);
      pthread_cancel(pthread_self());
      context.reset();
      isGone = left;
      pthread_testcancel();
      isCancelled = false;
   }).join();
   EXPECT_TRUE(isGone && isCancelled);
}

// Those that are abandoned leave nothing to the next ones in their slots.
TEST(CallbackContexts, StandManyThreads)
{
   constexpr int rounds = 1000;
   constexpr long enough = 10000;
   std::array<std::atomic<std::uint32_t>, 4> tokens{};
   std::atomic<bool> stop{false};
   std::atomic<long> delivered{0};
   rti1516e::NullFederateAmbassador federate;

   std::vector<std::future<void>> callbacks, owners;
   for (auto& token : tokens) {
      callbacks.push_back(std::async(std::launch::async, [&] {
         for (unsigned turn = 0; !stop; ++turn) {
            CallbackContextReference const context({tokens[turn % tokens.size()].load()});
            if (!context) {
               continue;
            }
            if (TimeFactory const* const factory = context.timeFactory(); factory != nullptr) {
               EXPECT_EQ(static_cast<CountedFactory&>(factory->factory()).alive, 0x600D);
            }
            EXPECT_TRUE(context.federateAmbassador() == nullptr || context.federateAmbassador() == &federate);
            delivered.fetch_add(1, std::memory_order_relaxed);
         }
      }));
      owners.push_back(std::async(std::launch::async, [&] {
         for (int round = 0; round < rounds || delivered < enough; ++round) {
            CallbackContext context;
            token = context.token().value;
            context.setFederateAmbassador(federate);
            auto const join = [&context] {
               for (int n = 0; n < 20; ++n) {
                  context.setTimeFactory(std::make_unique<CountedFactory>());
               }
            };
            auto const other = std::async(std::launch::async, join);
            join();
            if (round % 2 == 0) {
               context.abandonCallbacks();
            }
         }
      }));
   }
   owners.clear(); // which waits for them
   stop = true;
   callbacks.clear();
   EXPECT_GE(delivered, enough);
   EXPECT_EQ(livingFactories, 0);
}

} // namespace
