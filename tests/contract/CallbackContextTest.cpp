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
   ~CountedFactory() override
   {
      alive = 0;
      --livingFactories;
   }

   int alive = 0x600D;
};

TEST(CallbackContexts, DoNotRepeatATokenSoonAndTellWhenTheyAreTooMany)
{
   std::set<std::uint32_t> tokens;
   for (int i = 0; i < 10000; ++i) {
      EXPECT_TRUE(tokens.insert(CallbackContext().token().value).second);
   }
   std::deque<CallbackContext> many;
   for (int i = 0; i < 4096; ++i) {
      many.emplace_back();
   }
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

TEST(CallbackContexts, MayBeGivenTimeFactoriesByTwoThreads)
{
   {
      CallbackContext context;
      auto const join = [&context] {
         for (int i = 0; i < 20000; ++i) {
            context.setTimeFactory(std::make_unique<CountedFactory>());
         }
      };
      std::thread other(join);
      join();
      other.join();
   }
   EXPECT_EQ(livingFactories, 0);
}

TEST(CallbackContexts, GoOnlyWhenNoOtherThreadIsInACallback)
{
   auto context = std::make_unique<CallbackContext>();
   std::atomic<bool> inside{false};
   std::atomic<bool> left{false};
   std::thread callback([&inside, &left, token = context->token()] {
      CallbackContextReference const reference(token);
      inside = true;
      while (CallbackContextReference(token)) { // until the ambassador begins to go
      }
      left = true;
   });
   while (!inside) {
      std::this_thread::yield();
   }
   CallbackContextReference const own(context->token());
   context.reset();
   EXPECT_TRUE(left);
   callback.join();
}

// The next ambassador in the slot would have what is left behind.
TEST(CallbackContexts, ThatAreAbandonedAsCallbacksEndLeaveNothing)
{
   std::atomic<std::uint32_t> token{0};
   std::atomic<bool> stop{false};
   std::vector<std::thread> callbacks;
   for (int i = 0; i < 4; ++i) {
      callbacks.emplace_back([&] {
         while (!stop) {
            CallbackContextReference const callback({token.load()});
         }
      });
   }
   for (int round = 0; round < 200000 && livingFactories < 9; ++round) {
      CallbackContext context;
      context.setTimeFactory(std::make_unique<CountedFactory>());
      context.abandonCallbacks();
      token = context.token().value;
   }
   stop = true;
   for (auto& callback : callbacks) {
      callback.join();
   }
   EXPECT_EQ(livingFactories, 0);
}

// A destructor that a cancellation left half-way would end the process.
TEST(CallbackContexts, GoBeforeTheThreadThatIsCancelledMeanwhile)
{
   struct Shared
   {
      CallbackContext* context = new CallbackContext;
      std::atomic<bool> gone{false};
   } shared;
   auto callback = std::make_unique<CallbackContextReference>(shared.context->token());
   CallbackToken const token = shared.context->token();
   pthread_t destroyer{};
   pthread_create(
      &destroyer, nullptr,
      [](void* argument) -> void* {
         auto* const with = static_cast<Shared*>(argument);
         delete with->context;
         with->gone = true;
         pthread_testcancel();
         return nullptr;
      },
      &shared);
   while (CallbackContextReference(token)) { // until it begins to go
      std::this_thread::yield();
   }
   pthread_cancel(destroyer);
   std::this_thread::sleep_for(std::chrono::milliseconds(5));
   EXPECT_FALSE(shared.gone);
   callback.reset();
   void* result = nullptr;
   pthread_join(destroyer, &result);
   EXPECT_TRUE(shared.gone);
   EXPECT_EQ(result, PTHREAD_CANCELED);
}

TEST(CallbackContexts, StandManyThreads)
{
   constexpr int ambassadors = 4;
   constexpr int rounds = 1000;
   constexpr long enough = 10000;
   std::array<std::atomic<std::uint32_t>, ambassadors> tokens{};
   std::atomic<bool> stop{false};
   std::atomic<long> delivered{0};
   rti1516e::NullFederateAmbassador federate;

   std::vector<std::thread> callbacks;
   for (int i = 0; i < 4; ++i) {
      callbacks.emplace_back([&, i] {
         for (unsigned turn = static_cast<unsigned>(i); !stop; ++turn) {
            CallbackContextReference const context({tokens[turn % ambassadors].load()});
            if (!context) {
               continue;
            }
            if (TimeFactory const* const factory = context.timeFactory(); factory != nullptr) {
               EXPECT_EQ(static_cast<CountedFactory&>(factory->factory()).alive, 0x600D);
            }
            EXPECT_TRUE(context.federateAmbassador() == nullptr || context.federateAmbassador() == &federate);
            delivered.fetch_add(1, std::memory_order_relaxed);
         }
      });
   }
   std::vector<std::thread> owners;
   for (auto& token : tokens) {
      owners.emplace_back([&] {
         for (int round = 0; round < rounds || delivered < enough; ++round) {
            CallbackContext context;
            token = context.token().value;
            context.setFederateAmbassador(federate);
            for (int join = 0; join < 20; ++join) {
               context.setTimeFactory(std::make_unique<CountedFactory>());
            }
         }
      });
   }
   for (auto& owner : owners) {
      owner.join();
   }
   stop = true;
   for (auto& callback : callbacks) {
      callback.join();
   }
   EXPECT_GE(delivered, enough);
   EXPECT_EQ(livingFactories, 0);
}

} // namespace
