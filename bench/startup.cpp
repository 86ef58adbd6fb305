// What it takes to get the first ambassador: with and without a Java VM in the process, by the library and by
// hand. A process starts its VM once, so each measurement is a process of its own.
#include "src/services/Services.h"

#include <RTI/RTI1516.h>

#include <jni.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr char const* classPath = NULL_CORE_JAR;

template <class Action>
double microseconds(Action action)
{
   auto const start = std::chrono::steady_clock::now();
   action();
   return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

void require(bool holds, char const* what)
{
   if (!holds) {
      throw std::runtime_error(what);
   }
}

JNIEnv* startVM()
{
   std::string path = std::string("-Djava.class.path=") + classPath;
   char stack[] = "-Xss1024k";
   JavaVMOption options[] = {{path.data(), nullptr}, {stack, nullptr}};
   JavaVMInitArgs arguments{JNI_VERSION_1_2, 2, options, JNI_TRUE};
   JavaVM* vm = nullptr;
   void* env = nullptr;
   require(JNI_CreateJavaVM(&vm, &env, &arguments) == JNI_OK, "no VM");
   return static_cast<JNIEnv*>(env);
}

void JNICALL nothing(JNIEnv*, jobject, jbyteArray) {}

// The classes, methods and natives that core and library know each other by, and the core's ambassador.
void findCore(JNIEnv* env)
{
   require(env->FindClass("morva/tovu1516e/RtiFactoryImpl") != nullptr, "no core");
   jclass const ambassador = env->FindClass("morva/tovu1516e/RTIambassadorC2007");
   for (tovu1516e::Method const* method : {
#define SERVICE(name, ...) static_cast<tovu1516e::Method const*>(&tovu1516e::services::name),
#include "src/services/Services.def"
        }) {
      require(env->GetMethodID(ambassador, method->name, method->signature) != nullptr, method->name);
   }
   jclass const federate = env->FindClass("morva/tovu1516e/FederateAmbassadorC2007");
   static char signature[] = "([B)V";
   JNINativeMethod const natives[] = {
#define CALLBACK(name, ...) \
   {const_cast<char*>(#name "_Native"), signature, reinterpret_cast<void*>(&nothing)},
#include "src/callbacks/Callbacks.def"
   };
   require(env->RegisterNatives(federate, natives, static_cast<jint>(std::size(natives))) == JNI_OK,
           "no natives");
   jmethodID const constructor = env->GetMethodID(ambassador, "<init>", "([B)V");
   require(env->NewGlobalRef(env->NewObject(ambassador, constructor, env->NewByteArray(4))) != nullptr,
           "no ambassador");
}

std::unique_ptr<rti1516e::RTIambassador> createAmbassador()
{
   return std::unique_ptr<rti1516e::RTIambassador>(
      rti1516e::RTIambassadorFactory().createRTIambassador().release());
}

struct Case
{
   char const* name;
   double (*measure)();
};

constexpr Case cases[] = {
   {"no VM yet: library", [] { return microseconds([] { createAmbassador().release(); }); }},
   {"no VM yet: by hand", [] { return microseconds([] { findCore(startVM()); }); }},
   {"no VM yet: JNI_CreateJavaVM alone", [] { return microseconds([] { startVM(); }); }},
   {"existing VM: library",
    [] {
       startVM();
       return microseconds([] { createAmbassador().release(); });
    }},
   {"existing VM: by hand",
    [] {
       JNIEnv* const env = startVM();
       return microseconds([env] { findCore(env); });
    }},
   {"second ambassador: library",
    [] {
       createAmbassador().release();
       return microseconds([] { createAmbassador().release(); });
    }},
   {"second ambassador: by hand",
    [] {
       JNIEnv* const env = startVM();
       findCore(env);
       return microseconds([env] { findCore(env); });
    }},
};

double runInProcess(char const* program, std::size_t index)
{
   std::string const command = std::string(program) + " " + std::to_string(index);
   std::unique_ptr<FILE, int (*)(FILE*)> const output(popen(command.c_str(), "r"), &pclose);
   double time = 0;
   require(output != nullptr && std::fscanf(output.get(), "%lf", &time) == 1, "a measurement failed");
   return time;
}

} // namespace

int main(int argc, char** argv)
{
   setenv("CLASSPATH", classPath, 1);
   if (argc == 2 && std::isdigit(static_cast<unsigned char>(*argv[1])) != 0) {
      std::printf("%f\n", cases[std::strtoul(argv[1], nullptr, 10)].measure());
      return 0;
   }
   constexpr int repetitions = 21;
   std::vector<double> times[std::size(cases)];
   for (int i = 0; i < repetitions; ++i) {
      for (std::size_t c = 0; c < std::size(cases); ++c) {
         times[c].push_back(runInProcess(argv[0], c));
      }
   }
   std::printf("\n| %-36s | %12s |\n|:--|--:|\n", "until the ambassador is there", "us");
   for (std::size_t c = 0; c < std::size(cases); ++c) {
      std::nth_element(times[c].begin(), times[c].begin() + repetitions / 2, times[c].end());
      std::printf("| %-36s | %12.0f |\n", cases[c].name, times[c][repetitions / 2]);
   }
}
