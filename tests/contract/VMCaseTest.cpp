// What only a real Java VM shows: who starts it and who ends it, and threads and processes that end with it
// inside. Each case is a process of its own, which tells on the standard error stream what it finds.
#include "tests/support/Caught.h"

#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>

#include <jni.h>

#include <chrono>
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
   void synchronizationPointRegistrationSucceeded(std::wstring const&) override { inCallback(); }

   // What one finds who uses the ambassador, makes another and destroys the first.
   void useAndDestroy()
   {
      std::cerr << caughtFrom([&] { ambassador->listFederationExecutions(); }) << "\n"
                << caughtFrom([] { RTIambassadorFactory().createRTIambassador(); }) << std::endl;
      ambassador.reset();
      std::cerr << "destroyed" << std::endl;
   }

   void evoke() const { ambassador->evokeMultipleCallbacks(0, 1); }

   std::function<void()> inCallback = [] {};
   std::unique_ptr<RTIambassador> ambassador{RTIambassadorFactory().createRTIambassador().release()};
};

// Goes with the static objects of the process, and the last of them.
struct Late
{
   ~Late() { member != nullptr ? member->useAndDestroy() : void(); }
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

void startVMAndUseIt()
{
   setenv("CLASSPATH", "/nowhere", 1);
   std::string classPath = "-Djava.class.path=" VM_CASE_CORE;
   JavaVMOption option{classPath.data(), nullptr};
   JavaVMInitArgs arguments{JNI_VERSION_1_8, 1, &option, JNI_FALSE};
   JavaVM* vm = nullptr;
   void* env = nullptr;
   std::cerr << JNI_CreateJavaVM(&vm, &env, &arguments) << std::endl;
   Member().useAndDestroy();
}

void destroyVMAndUseIt()
{
   Member member;
   std::thread([&] { member.ambassador->listFederationExecutions(); }).join(); // and is no more attached
   std::cerr << createdVM().DestroyJavaVM() << std::endl;
   member.useAndDestroy();
}

void exitWithinACallback()
{
   late.member = std::make_unique<Member>();
   Member& member = *late.member;
   auto const entered = std::make_shared<std::promise<void>>();
   member.inCallback = [entered] {
      entered->set_value();
      std::this_thread::sleep_for(std::chrono::hours(1));
   };
   std::thread([&member] { member.evoke(); }).detach();
   entered->get_future().wait();
   callSystem("exit", "(I)V");
}

void cancelAThreadThatEvokes()
{
   Member member;
   member.inCallback = [] {
      pthread_cancel(pthread_self());
      pthread_testcancel();
      std::cerr << "left the callback" << std::endl;
   };
   bool isCancelled = true;
   std::thread([&] {
      member.ambassador->evokeCallback(1);
      pthread_testcancel();
      isCancelled = false;
   }).join();
   std::cerr << (isCancelled ? "cancelled" : "not cancelled") << std::endl;
   callSystem("gc", "()V"); // visits the frames of every thread that is in Java
   member.useAndDestroy();
}

TEST(VMCases, TellWhatTheyShould)
{
   GTEST_FLAG_SET(death_test_style, "threadsafe");
   std::string const working = "nothing: L\"\"\nnothing: L\"\"\ndestroyed\n";
   std::string const gone =
      "RTIinternalError: L\"Cannot attach the thread to the Java VM: Unknown error \\(-1\\).*\n";
   std::string const destroyed = gone + gone + ".*destroyed\n";
   for (auto const& [work, told] : std::vector<std::pair<std::function<void()>, std::string>>{
           {startVMAndUseIt, "0\n" + working},
           {destroyVMAndUseIt, "0\n" + destroyed},
           {[] { late.member = std::make_unique<Member>(); }, working},
           {exitWithinACallback, destroyed},
           {cancelAThreadThatEvokes, "left the callback\ncancelled\n" + working}}) {
      EXPECT_EXIT((work(), std::exit(0)), testing::ExitedWithCode(0), told);
   }
}

} // namespace
} // namespace contract
