// Lets pairs of federates live and go on many threads until so many services and callbacks have been, half of
// the callbacks throwing, and looks every now and then, while all rest, at the memory of the process and at
// the references that native code holds. It fails if either grows in the second half.
//
// Usage: soak [operations [growth]], the growth in percent of the resident memory. CLASSPATH names the core's
// jar.
#include "tests/system/Services.h"

#include <jni.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <jvmti.h>
#include <pthread.h>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using namespace system_tests;

constexpr int threadCount = 8;
constexpr int looks = 10;
constexpr long ofTheVM = 8; // references that the VM itself and its own threads have now and then

std::atomic<long> services{0};
std::atomic<long> callbacks{0};

// Two federates lead a whole life in a federation of their own: they find each other, send and receive, fail,
// and go. Every other callback throws.
void leadALife(int rounds)
{
   Stage stage(rounds % 2 == 0 ? HLA_EVOKED : HLA_IMMEDIATE, true);
   stage.createFederation("Road.xml", "integer");
   auto const have = [&stage](std::string const& name, std::string const& text) {
      for (auto const& step : split(text, ';')) {
         std::string const refused = serve(stage, stage.federate(name), wordsOf(step)).exception;
         if (refused != "nothing" && refused != "InTimeAdvancingState" &&
             refused != "RequestForTimeConstrainedPending") {
            std::printf("%s: %s\n", step.c_str(), refused.c_str());
            std::abort();
         }
         ++services;
      }
   };
   for (auto const& name : {"sender", "receiver"}) {
      stage.federate(name).onCallback = [](std::string const&) {
         long const turn = ++callbacks;
         if (turn % 4 == 1) {
            throw FederateInternalError(L"thrown every other time");
         }
         if (turn % 4 == 3) {
            throw turn;
         }
      };
   }
   have("sender", "join; publish Vehicle Position; publish Message; enableTimeRegulation 1");
   have("receiver", "join; subscribe Vehicle Position; subscribe Message; enableTimeConstrained");
   stage.federate("sender").callbacks();
   have("sender", "car = register Vehicle");
   for (int round = 1; round <= rounds; ++round) {
      std::string const value(static_cast<std::size_t>(round), 'v');
      std::string const now = std::to_string(round);
      have("sender", "update car Position=" + value + "; update car Position=" + value + " at " +
                        std::to_string(round + 10));
      have("sender", "send Message Words=12345678 tag=12345678; getObjectInstanceName car; queryLogicalTime");
      for (auto const& name : {"sender", "receiver"}) {
         have(name, "timeAdvanceRequest " + now + "; timeAdvanceRequest " + now);
         stage.federate(name).callbacks();
      }
   }
   stage.end();
}

// What is seen at one time. The references are those that the VM itself counts; local ones those of threads
// outside Java: what threads inside have, they give back when they leave.
struct Look
{
   double memory = 0; // resident, in MB
   long globals = 0;
   long locals = 0;
};

// Called for each root of the heap; what hangs on it is of no interest.
jint JNICALL visitRoot(jvmtiHeapReferenceKind kind, jvmtiHeapReferenceInfo const* info, jlong, jlong, jlong,
                       jlong*, jlong*, jint, void* found)
{
   auto& look = *static_cast<Look*>(found);
   look.globals += kind == JVMTI_HEAP_REFERENCE_JNI_GLOBAL ? 1 : 0;
   look.locals += kind == JVMTI_HEAP_REFERENCE_JNI_LOCAL && info->jni_local.depth == 0 ? 1 : 0;
   return 0;
}

// After a collection, so that what is only waiting for one is not taken for something lost.
Look lookAround(jvmtiEnv* tools)
{
   tools->ForceGarbageCollection();
   Look found;
   jvmtiHeapCallbacks callbacksOfVM{};
   callbacksOfVM.heap_reference_callback = &visitRoot;
   tools->FollowReferences(0, nullptr, nullptr, &callbacksOfVM, &found);
   std::ifstream statm("/proc/self/statm");
   statm >> found.memory >> found.memory;
   found.memory *= static_cast<double>(sysconf(_SC_PAGESIZE)) / (1 << 20);
   std::printf("%10ld %10ld %8.1f %8ld %8ld\n", services.load(), callbacks.load(), found.memory,
               found.globals, found.locals);
   std::fflush(stdout);
   return found;
}

jvmtiEnv* toolsOfVM()
{
   RTIambassadorFactory().createRTIambassador();
   JavaVM* vm = nullptr;
   jsize count = 0;
   JNI_GetCreatedJavaVMs(&vm, 1, &count);
   jvmtiEnv* tools = nullptr;
   vm->GetEnv(reinterpret_cast<void**>(&tools), JVMTI_VERSION_11);
   jvmtiCapabilities capabilities{};
   capabilities.can_tag_objects = 1;
   tools->AddCapabilities(&capabilities);
   return tools;
}

int run(long operations, double allowedGrowth)
{
   jvmtiEnv* const tools = toolsOfVM();
   pthread_barrier_t barrier; // all threads and the one that looks come to it before and after each look
   pthread_barrier_init(&barrier, nullptr, threadCount + 1);
   // A thread that a Java VM has seen is never forgotten by it: there must not be more and more of them.
   std::vector<std::thread> threads;
   for (int number = 0; number < threadCount; ++number) {
      threads.emplace_back([&] {
         for (int look = 1; look <= looks; ++look) {
            for (int life = 0; life == 0 || services + callbacks < operations / looks * look; ++life) {
               leadALife(100 + life % 2);
            }
            pthread_barrier_wait(&barrier);
            pthread_barrier_wait(&barrier);
         }
      });
   }
   std::vector<Look> seen;
   std::printf("  services  callbacks       MB  globals   locals\n");
   while (seen.size() < looks) {
      pthread_barrier_wait(&barrier);
      seen.push_back(lookAround(tools));
      pthread_barrier_wait(&barrier);
   }
   for (auto& thread : threads) {
      thread.join();
   }
   Look const& middle = seen[looks / 2 - 1];
   Look const& last = seen.back();
   double const growth = 100 * (last.memory - middle.memory) / middle.memory;
   std::printf("In the second half: memory %+.2f %%\n", growth);
   bool const rests = last.globals - middle.globals < ofTheVM && last.locals - middle.locals < ofTheVM;
   return growth < allowedGrowth && rests && callbacks * 5 > services ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
   // A heap that is there from the beginning: what grows is not the Java heap. The core tells of each
   // callback that throws on the standard error stream.
   int number = 0;
   for (auto const* option :
        {"-Xms128m", "-Xmx128m", "-XX:+AlwaysPreTouch", "-XX:+UseSerialGC", "-XX:TieredStopAtLevel=1"}) {
      setenv(("TOVU1516_OPTION" + std::to_string(++number)).c_str(), option, 1);
   }
   setenv("CLASSPATH", SOAK_CORE, 0);
   if (std::freopen("/dev/null", "w", stderr) == nullptr) {
      return 2;
   }
   return run(argc > 1 ? std::atol(argv[1]) : 10'000'000, argc > 2 ? std::atof(argv[2]) : 1.0);
}
