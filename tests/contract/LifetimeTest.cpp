// Ambassadors that go, and threads and processes that end or split, at awkward times.
#include "tests/support/ContractTest.h"

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

   // On a thread of the federate's that does not leave its callback until the future is there.
   std::thread stayInCallback(std::shared_future<void> const& leave)
   {
      std::promise<void> entered;
      federate.inCallback = [&entered, leave] {
         entered.set_value();
         leave.wait();
      };
      std::thread thread([this] { EXPECT_EQ(deliver(saved), "none"); });
      entered.get_future().wait();
      return thread;
   }
};

// The service that evokes the callback comes back to an ambassador that is no more, whose token nobody has.
// The arguments of the callback go before what made them.
TEST_F(LifetimeTest, OfAnAmbassadorMayEndInItsOwnCallback)
{
   for (auto const& service : std::vector<std::function<void(RTIambassador&)>>{
           [](auto& rti) { EXPECT_TRUE(rti.evokeCallback(0.5)); },
           [](auto& rti) { EXPECT_TRUE(rti.evokeMultipleCallbacks(0.5, 1.0)); },
           [](auto& rti) { EXPECT_EQ(rti.queryLogicalTime().get(), nullptr); },
           [](auto& rti) { rti.enableCallbacks(); }}) {
      inTime = [](auto const& operation) {
         EXPECT_TRUE(operation != "destroy" || TestTimeFactory::count == 1);
      };
      fake::core.meanwhile = [this] { EXPECT_EQ(deliver(granted, someTime), "none"); };
      fake::core.result = someTime;
      federate.inCallback = [this] { ambassador.reset(); };
      service(*ambassador);
      EXPECT_EQ(ambassador, nullptr);
      EXPECT_EQ(TestTimeFactory::count, 0);
      EXPECT_EQ(deliver(saved), gone);
      expectClean(0);
      federate.inCallback = [] {};
      auto const stale = envelope({});
      SetUp();
      federate.takeCalled();
      EXPECT_EQ(fake::callNative(saved, stale), gone);
      EXPECT_TRUE(federate.takeCalled().empty());
   }
}

TEST_F(LifetimeTest, OfTheVMMayEndFirst)
{
   std::promise<void> leave;
   auto callback = stayInCallback(leave.get_future());
   fake::runtime.alreadyRunning = false;
   fake::runtime.attachStatus = JNI_ERR;
   EXPECT_THROW(ambassador->enableCallbacks(), RTIinternalError);
   EXPECT_THROW(newAmbassador(), RTIinternalError);
   ambassador.reset(); // waits for no callback, and has nothing to let go of the reference through
   fake::runtime.attachStatus = JNI_OK;
   --fake::account.globalReferences;
   leave.set_value();
   callback.join();
}

// Which does not mean that the VM is gone, with nobody left to wait for.
TEST_F(LifetimeTest, OfAThreadMayEndUpWithoutMemoryToAttach)
{
   std::promise<void> leave;
   auto callback = stayInCallback(leave.get_future());
   fake::runtime.attachStatus = JNI_ENOMEM;
   auto const going = std::async(std::launch::async, [&] { ambassador.reset(); });
   EXPECT_EQ(going.wait_for(std::chrono::milliseconds(20)), std::future_status::timeout);
   leave.set_value();
   callback.join();
   going.wait();
   fake::runtime.attachStatus = JNI_OK;
   --fake::account.globalReferences;
}

TEST_F(LifetimeTest, OfAThreadEndsAttachedOnlyIfSomebodyElseAttachedIt)
{
   auto const use = [this] { ambassador->enableCallbacks(); };
   std::thread(use).join();
   EXPECT_EQ(fake::runtime.detachments, 1);
   std::thread([&] {
      void* env = nullptr;
      fake::vm.AttachCurrentThread(&env, nullptr);
      use();
   }).join();
   EXPECT_EQ(fake::runtime.detachments, 1);

   // An object of the thread's that goes before it is detached, and one that attaches it once more.
   struct Late
   {
      ~Late() { use(); }
      std::function<void()> use;
   };
   std::thread([&] {
      thread_local Late const late{use};
      use();
      fake::vm.DetachCurrentThread();
   }).join();
   EXPECT_EQ(fake::runtime.detachments, 3);

   std::thread([&] {
      use();
      fake::runtime.alreadyRunning = false;
   }).join();
   EXPECT_EQ(fake::runtime.detachments, 3);
   fake::runtime.alreadyRunning = true;
}

TEST_F(LifetimeTest, OfTheVMDoesNotReachIntoAFork)
{
   auto const expectNoVM = [](auto call) {
      EXPECT_EQ(
         caughtFrom(call).text.find(L"The Java VM of a process does not live on in the child of a fork"), 0U);
   };
   auto const expectNoneInChild = [&] {
      pid_t const child = fork();
      if (child == 0) {
         alarm(20); // one that waits for what never comes
         int const calls = fake::account.calls;
         expectNoVM([&] { ambassador->enableCallbacks(); });
         expectNoVM([&] { ambassador->getObjectInstanceName({}); });
         expectNoVM([] { newAmbassador(); });
         ambassador.reset();
         EXPECT_EQ(fake::account.calls, calls);
         _exit(HasFailure() ? 1 : 0);
      }
      int status = -1;
      waitpid(child, &status, 0);
      EXPECT_EQ(status, 0);
   };
   expectNoneInChild();
   std::promise<void> leave; // but in the child there is no thread that could
   auto callback = stayInCallback(leave.get_future());
   expectNoneInChild();
   leave.set_value();
   callback.join();
   federate.inCallback = expectNoneInChild;
   EXPECT_EQ(deliver(saved), "none");
   ambassador->enableCallbacks();
   expectClean(1);
}

TEST_F(LifetimeTest, OfAThreadMayEndInACallbackWhereNoJavaIsBelowIt)
{
   bool hasReturned = false;
   federate.inCallback = [] {
      pthread_cancel(pthread_self());
      pthread_testcancel();
   };
   std::thread([&] {
      deliver(saved);
      hasReturned = true;
   }).join();
   EXPECT_FALSE(hasReturned);
   expectClean(1);
   ambassador.reset(); // and does not wait for it
}

TEST_F(LifetimeTest, OfAnExceptionIsTheFederatesWhereItIsNotToBeCaught)
{
   setenv("TOVU1516_DONTCATCHALL", "", 1);
   newAmbassador(); // the setting is read for each, and holds for all
   unsetenv("TOVU1516_DONTCATCHALL");
   federate.inCallback = [] { throw InvalidRegion(L"known"); };
   EXPECT_EQ(deliver(saved), federateInternalError + "known");
   federate.inCallback = [] { throw 42; };
   EXPECT_THROW(deliver(saved), int);
   expectClean(1);
   newAmbassador();
   EXPECT_EQ(deliver(saved), federateInternalError + "Unknown C++ exception");
   ambassador.reset(); // waits for none of the callbacks
}

} // namespace
} // namespace contract
