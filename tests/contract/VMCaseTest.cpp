// What only a real Java VM shows: who starts it and who ends it, and threads and processes that end with it
// inside. Each case is a process of its own, which tells on the standard error stream what it finds.
#include "tests/support/Caught.h"

#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>

#include <jni.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <future>
#include <gtest/gtest.h>
#include <iostream>
#include <memory>
#include <string>
#include <thread>

namespace contract {
namespace {

using namespace rti1516e;
using testing::ExitedWithCode;

void tell(Caught const& caught) { std::cerr << caught << std::endl; }

// Has asked for a callback that it gets when it evokes.
struct Member : NullFederateAmbassador
{
   Member()
   {
      ambassador->connect(*this, HLA_EVOKED);
      std::string const module = VM_CASE_FOM;
      ambassador->createFederationExecution(L"one", std::wstring(module.begin(), module.end()));
      ambassador->joinFederationExecution(L"type", L"one");
      ambassador->registerFederationSynchronizationPoint(L"point", VariableLengthData());
   }
   void synchronizationPointRegistrationSucceeded(std::wstring const&) override
   {
      if (inCallback) {
         inCallback();
      }
   }

   // What one finds who uses the ambassador, makes another and destroys the first.
   void useAndDestroy()
   {
      tell(caughtFrom([&] { ambassador->listFederationExecutions(); }));
      tell(caughtFrom([] { RTIambassadorFactory().createRTIambassador(); }));
      ambassador.reset();
      std::cerr << "destroyed" << std::endl;
   }

   void evoke() const { ambassador->evokeMultipleCallbacks(0, 1); }

   std::function<void()> inCallback;
   std::unique_ptr<RTIambassador> ambassador{RTIambassadorFactory().createRTIambassador().release()};
};

// Goes with the static objects of the process.
struct LateMember
{
   ~LateMember()
   {
      if (member) {
         member->useAndDestroy();
      }
   }
   std::unique_ptr<Member> member;
} late;

JavaVM& createdVM()
{
   JavaVM* vm = nullptr;
   jsize count = 0;
   JNI_GetCreatedJavaVMs(&vm, 1, &count);
   return *vm;
}

// System.exit(0) or System.gc().
void callSystem(char const* method, char const* signature)
{
   JNIEnv* env = nullptr;
   createdVM().GetEnv(reinterpret_cast<void**>(&env), JNI_VERSION_1_8);
   jclass const system = env->FindClass("java/lang/System");
   jvalue const zero{};
   env->CallStaticVoidMethodA(system, env->GetStaticMethodID(system, method, signature), &zero);
   env->ExceptionClear();
}

// A thread that never leaves its callback. It is never joined.
void enterCallbackForGood(Member& member)
{
   auto const entered = std::make_shared<std::promise<void>>();
   member.inCallback = [entered] {
      entered->set_value();
      std::this_thread::sleep_for(std::chrono::hours(1));
   };
   std::thread([&member] { member.evoke(); }).detach();
   entered->get_future().wait();
}

[[noreturn]] void doAndExit(std::function<void()> const& work)
{
   work();
   std::exit(0);
}

#define EXPECT_TOLD(text, ...) EXPECT_EXIT(doAndExit([] __VA_ARGS__), ExitedWithCode(0), text)

class VMCaseTest : public testing::Test
{
protected:
   VMCaseTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

std::string const working = "nothing: \nnothing: \ndestroyed\n";
std::string const gone =
   "RTIinternalError: Cannot attach the thread to the Java VM: Unknown error \\(-1\\).*\n";

TEST_F(VMCaseTest, VMOfTheApplication)
{
   EXPECT_TOLD("created: 0\n" + working, {
      setenv("CLASSPATH", "/nowhere", 1);
      std::string classPath = "-Djava.class.path=" VM_CASE_CORE;
      JavaVMOption option{classPath.data(), nullptr};
      JavaVMInitArgs arguments{JNI_VERSION_1_8, 1, &option, JNI_FALSE};
      JavaVM* vm = nullptr;
      void* env = nullptr;
      std::cerr << "created: " << JNI_CreateJavaVM(&vm, &env, &arguments) << std::endl;
      Member().useAndDestroy();
   });
}

TEST_F(VMCaseTest, VMThatIsGone)
{
   std::string const destroyed = gone + gone + ".*destroyed\n";
   EXPECT_TOLD("destroyed VM: 0\n" + destroyed, {
      Member member;
      std::thread([&] { member.ambassador->listFederationExecutions(); }).join(); // and is no more attached
      std::cerr << "destroyed VM: " << createdVM().DestroyJavaVM() << std::endl;
      member.useAndDestroy();
   });
   EXPECT_TOLD(destroyed, {
      late.member = std::make_unique<Member>();
      callSystem("exit", "(I)V");
   });
   EXPECT_TOLD(destroyed, {
      late.member = std::make_unique<Member>();
      enterCallbackForGood(*late.member);
      callSystem("exit", "(I)V");
   });
   EXPECT_TOLD(working, { late.member = std::make_unique<Member>(); });
}

TEST_F(VMCaseTest, ThreadThatIsCancelledWhileItEvokes)
{
   EXPECT_TOLD("left the callback\ncancelled\n" + working, {
      Member member;
      member.inCallback = [] {
         pthread_cancel(pthread_self());
         pthread_testcancel();
         std::cerr << "left the callback" << std::endl;
      };
      pthread_t thread{};
      pthread_create(
         &thread, nullptr,
         [](void* evoking) -> void* {
            static_cast<Member*>(evoking)->ambassador->evokeCallback(1);
            pthread_testcancel();
            return nullptr;
         },
         &member);
      void* result = nullptr;
      pthread_join(thread, &result);
      std::cerr << (result == PTHREAD_CANCELED ? "cancelled" : "not cancelled") << std::endl;
      callSystem("gc", "()V"); // visits the frames of every thread that is in Java
      member.useAndDestroy();
   });
}

TEST_F(VMCaseTest, UnknownExceptionsOfCallbacksEndTheProcessWhereJavaBegins)
{
   setenv("TOVU1516_DONTCATCHALL", "", 1);
   EXPECT_EXIT(
      {
         Member member;
         member.inCallback = [] { throw 42; };
         member.evoke();
      },
      testing::KilledBySignal(SIGABRT), "terminate called after throwing an instance of 'int'");
   unsetenv("TOVU1516_DONTCATCHALL");
}

} // namespace
} // namespace contract
