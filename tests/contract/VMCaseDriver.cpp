// Does one thing in a process with a Java VM of its own, which may well be the end of it, and writes down
// what a federate sees, into the file "seen", for the VM prints to all streams. VMCaseTest runs it. The time
// library is the default one.
#include "Caught.h"
#include "Fixture.h"
#include "Samples.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <future>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace contract {
namespace {

std::ofstream seen;

RecordingCore& core() { return RecordingCore::instance(); }

Delivery saved(Member const& member) { return {"federationSaved_Native", member.message(Bytes())}; }

void write(Caught const& caught)
{
   seen << (caught.type.empty() ? "nothing" : caught.type) << ": "
        << std::string(caught.text.begin(), caught.text.end()) << '\n';
}

void printProperty(char const* name)
{
   auto const value = core().property(name);
   seen << name << '=' << (value ? std::string(value->begin(), value->end()) : "(not set)") << '\n';
}

JavaVM& createdVM()
{
   JavaVM* vm = nullptr;
   jsize count = 0;
   JNI_GetCreatedJavaVMs(&vm, 1, &count);
   return *vm;
}

// What one finds who uses an ambassador, makes another and destroys the first.
void useAndDestroy(std::unique_ptr<RTIambassador>& ambassador)
{
   write(caughtFrom([&] { ambassador->listFederationExecutions(); }));
   write(caughtFrom([] { newAmbassador(); }));
   ambassador.reset();
   seen << "destroyed" << std::endl;
}

// An ambassador that goes with the static objects of the process.
struct LateMember
{
   ~LateMember()
   {
      if (member) {
         useAndDestroy(member->ambassador);
      }
   }
   std::unique_ptr<Member> member;
} late;

// A thread that never leaves its callback. It is never joined.
void enterCallbackForGood(Member& member)
{
   auto const entered = std::make_shared<std::promise<void>>();
   member.federate.inCallback = [entered] {
      entered->set_value();
      std::this_thread::sleep_for(std::chrono::hours(1));
   };
   std::thread([&member] { core().deliver(saved(member)); }).detach();
   entered->get_future().wait();
}

void callSystem(char const* method, char const* signature)
{
   JNIEnv* env = nullptr;
   createdVM().GetEnv(reinterpret_cast<void**>(&env), JNI_VERSION_1_8);
   jclass const system = env->FindClass("java/lang/System");
   jvalue const zero{};
   env->CallStaticVoidMethodA(system, env->GetStaticMethodID(system, method, signature), &zero);
   env->ExceptionClear();
}

void exitByJava() { callSystem("exit", "(I)V"); }
void collectGarbage() { callSystem("gc", "()V"); }

// The child's end is told by its status, since both processes write to the same file.
void forkAndUse(Member& member)
{
   seen.flush();
   pid_t const child = fork();
   if (child == 0) {
      alarm(60);
      useAndDestroy(member.ambassador);
      _exit(0);
   }
   int status = -1;
   waitpid(child, &status, 0);
   seen << "child: " << status << std::endl;
}

std::map<std::string, std::function<void()>> const drivers = {
   {"create", [] { write(caughtFrom([] { newAmbassador(); })); }},
   {"call",
    [] {
       Member const member;
       core().answer("getFederateName_FH", u"the name");
       auto const name = member.ambassador->getFederateName(samples::federate);
       seen << std::string(name.begin(), name.end()) << '\n';
    }},
   {"exception that follows one without class",
    [] {
       Member const member;
       core().answer("listFederationExecutions", JavaException{hlaClass("RTIinternalError"), u"why"});
       write(caughtFrom([&] { member.ambassador->listFederationExecutions(); }));
    }},
   {"properties",
    [] {
       newAmbassador();
       for (auto const* name : {"from.environment", "from.file", "Tovu.libraryName", "singlethread"}) {
          printProperty(name);
       }
    }},
   {"VM of the application",
    [] {
       std::string classPath = std::string("-Djava.class.path=") + std::getenv("APPLICATION_CLASSPATH");
       JavaVMOption option{classPath.data(), nullptr};
       JavaVMInitArgs arguments{JNI_VERSION_1_8, 1, &option, JNI_FALSE};
       JavaVM* vm = nullptr;
       void* env = nullptr;
       seen << "created: " << JNI_CreateJavaVM(&vm, &env, &arguments) << '\n';
       newAmbassador();
       printProperty("from.environment");
       printProperty("from.file");
    }},
   {"VM that is destroyed",
    [] {
       Member member;
       std::thread([&] { member.ambassador->listFederationExecutions(); }).join(); // and is no more attached
       seen << "destroyed VM: " << createdVM().DestroyJavaVM() << '\n';
       useAndDestroy(member.ambassador);
    }},
   {"static ambassador", [] { late.member = std::make_unique<Member>(); }},
   {"static ambassador when Java exits",
    [] {
       late.member = std::make_unique<Member>();
       exitByJava();
    }},
   {"static ambassador in a callback when Java exits",
    [] {
       late.member = std::make_unique<Member>();
       enterCallbackForGood(*late.member);
       exitByJava();
    }},
   {"fork while in a callback",
    [] {
       Member member;
       member.federate.inCallback = [&] { forkAndUse(member); };
       seen << (core().deliver(saved(member)) ? "exception" : "nothing") << '\n';
       useAndDestroy(member.ambassador);
    }},
   {"thread that is cancelled while it evokes",
    [] {
       Member member;
       member.federate.inCallback = [] {
          pthread_cancel(pthread_self());
          pthread_testcancel();
          seen << "left the callback" << std::endl;
       };
       core().answer("evokeCallback_D", saved(member));
       pthread_t thread{};
       pthread_create(
          &thread, nullptr,
          [](void* ambassador) -> void* {
             static_cast<RTIambassador*>(ambassador)->evokeCallback(0);
             pthread_testcancel();
             return nullptr;
          },
          member.ambassador.get());
       void* result = nullptr;
       pthread_join(thread, &result);
       seen << (result == PTHREAD_CANCELED ? "cancelled" : "not cancelled") << std::endl;
       collectGarbage(); // visits the frames of every thread that is in Java
       useAndDestroy(member.ambassador);
    }},
   {"callback throws an int",
    [] {
       Member member;
       member.federate.inCallback = [] { throw 42; };
       core().deliver(saved(member));
    }},
};

} // namespace
} // namespace contract

int main(int argc, char** argv)
{
   auto const driver = contract::drivers.find(argc == 2 ? argv[1] : "");
   if (driver == contract::drivers.end()) {
      std::cerr << "usage: contract_vm_driver CASE\n";
      return 2;
   }
   contract::seen.open("seen");
   driver->second();
   return 0;
}
