// Ambassadors that go, and threads and processes that end or split, at awkward times.
#include "tests/support/ContractTest.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <future>
#include <pthread.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace contract {
namespace {

class LifetimeTest : public ContractTest
{
protected:
   std::string const gone = federateInternalError + "The RTI ambassador of this callback is gone";
};

TEST_F(LifetimeTest, OfAnAmbassadorMayEndInItsOwnCallback)
{
   federate.inCallback = [this] { ambassador.reset(); };
   inTime = [](std::string const& operation) {
      EXPECT_TRUE(operation != "destroy" || TestTimeFactory::count == 1);
   };
   EXPECT_EQ(deliver(granted, someTime), "none");
   inTime = nullptr;
   EXPECT_EQ(ambassador, nullptr);
   EXPECT_EQ(TestTimeFactory::count, 0);
}

// The service that evokes the callback comes back to an ambassador that is no more.
TEST_F(LifetimeTest, OfAnAmbassadorMayEndInACallbackThatItEvoked)
{
   auto const evoking = [&](auto service) {
      fake::core().meanwhile = [this] { EXPECT_EQ(deliver(saved), "none"); };
      fake::core().bytes = someTime;
      fake::core().number = 1;
      federate.inCallback = [this] { ambassador.reset(); };
      service(*ambassador);
      EXPECT_EQ(ambassador, nullptr);
      EXPECT_EQ(deliver(saved), gone);
      expectClean(0);
      federate.inCallback = nullptr;
      SetUp();
   };
   evoking([](RTIambassador& rti) { EXPECT_TRUE(rti.evokeCallback(0.5)); });
   evoking([](RTIambassador& rti) { EXPECT_TRUE(rti.evokeMultipleCallbacks(0.5, 1.0)); });
   evoking([](RTIambassador& rti) { EXPECT_EQ(rti.queryLogicalTime().get(), nullptr); });
   evoking([](RTIambassador& rti) { rti.enableCallbacks(); });
}

TEST_F(LifetimeTest, OfTokensEndsWithTheirAmbassador)
{
   auto const stale = envelope(Bytes());
   ambassador.reset();
   EXPECT_EQ(fake::callNative(saved, stale), gone);
   SetUp();
   EXPECT_EQ(fake::callNative(saved, stale), gone);
   token = 0;
   EXPECT_EQ(deliver(saved), gone);
   EXPECT_EQ(federate.takeCalled().size(), 0U);
}

TEST_F(LifetimeTest, OfTheVMMayEndFirst)
{
   fake::runtime().alreadyRunning = false;
   fake::runtime().attachStatus = JNI_ERR;
   EXPECT_THROW(ambassador->enableCallbacks(), RTIinternalError);
   EXPECT_THROW(newAmbassador(), RTIinternalError);
   ambassador.reset(); // nothing to let go of the reference through
   fake::reset();
}

// A thread of the federate's that never leaves its callback, as it were: it waits for this object.
class CallbackUnderWay
{
public:
   template <class Deliver>
   CallbackUnderWay(RecordingFederate& federate, Deliver deliver)
   {
      federate.inCallback = [this] {
         _entered.set_value();
         _left.get_future().wait();
      };
      _thread = std::thread(deliver);
      _entered.get_future().wait();
   }
   ~CallbackUnderWay()
   {
      _left.set_value();
      _thread.join();
   }
   CallbackUnderWay(CallbackUnderWay const&) = delete;
   CallbackUnderWay& operator=(CallbackUnderWay const&) = delete;

private:
   std::promise<void> _entered;
   std::promise<void> _left;
   std::thread _thread;
};

TEST_F(LifetimeTest, OfOthersGoesOnAndEndsWhileACallbackRuns)
{
   auto other = newAmbassador();
   CallbackUnderWay const callback(federate, [this] { EXPECT_EQ(deliver(saved), "none"); });
   other->enableCallbacks();
   other.reset();
   newAmbassador()->enableCallbacks();
}

TEST_F(LifetimeTest, OfTheVMMayEndWhileACallbackNeverDoes)
{
   CallbackUnderWay const callback(federate, [this] { EXPECT_EQ(deliver(saved), "none"); });
   fake::runtime().alreadyRunning = false;
   fake::runtime().attachStatus = JNI_ERR;
   ambassador.reset();
   fake::runtime().attachStatus = JNI_OK;
   --fake::account().globalReferences;
}

// Which does not mean that the VM is gone, with nobody left to wait for.
TEST_F(LifetimeTest, OfAThreadMayEndUpWithoutMemoryToAttach)
{
   std::atomic<bool> isGone{false};
   std::thread destroyer;
   {
      CallbackUnderWay const callback(federate, [this] { EXPECT_EQ(deliver(saved), "none"); });
      fake::runtime().attachStatus = JNI_ENOMEM;
      destroyer = std::thread([&] {
         ambassador.reset();
         isGone = true;
      });
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      EXPECT_FALSE(isGone);
   }
   destroyer.join();
   fake::runtime().attachStatus = JNI_OK;
   --fake::account().globalReferences;
}

TEST_F(LifetimeTest, OfAThreadEndsAttachedOnlyIfSomebodyElseAttachedIt)
{
   JavaVM* vm = nullptr;
   jsize count = 0;
   JNI_GetCreatedJavaVMs(&vm, 1, &count);
   int& detachments = fake::runtime().detachments;
   auto const use = [this] { ambassador->enableCallbacks(); };
   std::thread(use).join();
   EXPECT_EQ(detachments, 1);
   std::thread([&] {
      void* env = nullptr;
      vm->AttachCurrentThread(&env, nullptr);
      use();
   }).join();
   EXPECT_EQ(detachments, 1);

   // An object of the thread's that goes before it is detached, and one that attaches it once more.
   struct Late
   {
      ~Late() { use(); }
      std::function<void()> use;
   };
   std::thread([&] {
      thread_local Late const late{use};
      use();
      vm->DetachCurrentThread();
   }).join();
   EXPECT_EQ(detachments, 3);

   std::thread([&] {
      use();
      fake::runtime().alreadyRunning = false;
   }).join();
   EXPECT_EQ(detachments, 3);
   fake::runtime().alreadyRunning = true;
}

// Does something in the child of a fork, which is to end by itself, and soon.
template <class Work>
int statusOfChild(Work work)
{
   pid_t const child = fork();
   if (child == 0) {
      alarm(20); // one that waits for what never comes
      work();
      _exit(testing::Test::HasFailure() ? 1 : 0);
   }
   int status = -1;
   waitpid(child, &status, 0);
   return status;
}

TEST_F(LifetimeTest, OfTheVMDoesNotReachIntoAFork)
{
   std::wstring const text = L"The Java VM of a process does not live on in the child of a fork";
   auto const expectNoVM = [&](auto call) {
      try {
         call();
         ADD_FAILURE() << "worked";
      } catch (RTIinternalError const& error) {
         EXPECT_EQ(error.what().substr(0, text.size()), text);
      }
   };
   auto const child = [&] {
      int const calls = fake::account().calls;
      expectNoVM([&] { ambassador->enableCallbacks(); });
      expectNoVM([&] { ambassador->getObjectInstanceName(ObjectInstanceHandle()); });
      expectNoVM([] { newAmbassador(); });
      ambassador.reset();
      EXPECT_EQ(fake::account().calls, calls);
   };
   EXPECT_EQ(statusOfChild(child), 0);
   {
      // In the child there is no thread that could end this callback.
      CallbackUnderWay const callback(federate, [this] { deliver(saved); });
      EXPECT_EQ(statusOfChild(child), 0);
   }
   federate.inCallback = [&] { EXPECT_EQ(statusOfChild(child), 0); };
   EXPECT_EQ(deliver(saved), "none");
   ambassador->enableCallbacks();
   expectClean(1);
}

// Runs a callback on a thread of its own, which ends in it. Returns what the thread returns.
template <class Deliver>
void* resultOfThread(Deliver deliver)
{
   pthread_t thread{};
   auto const start = [](void* argument) -> void* {
      (*static_cast<Deliver*>(argument))();
      return nullptr;
   };
   EXPECT_EQ(pthread_create(&thread, nullptr, start, &deliver), 0);
   void* result = nullptr;
   EXPECT_EQ(pthread_join(thread, &result), 0);
   return result;
}

TEST_F(LifetimeTest, OfAThreadMayEndInACallbackWhereNoJavaIsBelowIt)
{
   int value = 0;
   federate.inCallback = [&value] { pthread_exit(&value); };
   EXPECT_EQ(resultOfThread([this] { deliver(saved); }), &value);
   federate.inCallback = [] {
      pthread_cancel(pthread_self());
      pthread_testcancel();
   };
   EXPECT_EQ(resultOfThread([this] { deliver(saved); }), PTHREAD_CANCELED);
   expectClean(1);
   federate.inCallback = nullptr;
   EXPECT_EQ(deliver(saved), "none");
   ambassador.reset(); // and waits for none of them
}

TEST_F(LifetimeTest, OfAnExceptionIsTheFederatesWhereItIsNotToBeCaught)
{
   struct Own
   {};
   federate.inCallback = [] { throw Own(); };
   for (bool const caught : {false, true, false}) {
      if (caught) {
         unsetenv("TOVU1516_DONTCATCHALL");
      } else {
         setenv("TOVU1516_DONTCATCHALL", "", 1);
      }
      newAmbassador(); // the setting is read for each, and holds for all
      if (caught) {
         EXPECT_EQ(deliver(saved), federateInternalError + "Unknown C++ exception");
      } else {
         EXPECT_THROW(deliver(saved), Own);
         federate.inCallback = [] { throw std::string("known"); };
         EXPECT_EQ(deliver(saved), federateInternalError + "known");
         federate.inCallback = [] { throw InvalidRegion(L"known"); };
         EXPECT_EQ(deliver(saved), federateInternalError + "known");
         federate.inCallback = [] { throw Own(); };
      }
      expectClean(1);
   }
   unsetenv("TOVU1516_DONTCATCHALL");
   newAmbassador();
   ambassador.reset(); // waits for none of the callbacks
}

} // namespace
} // namespace contract
