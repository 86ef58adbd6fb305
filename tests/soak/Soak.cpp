// Lets federates live and go on many threads until so many services and callbacks have been, half of the
// callbacks throwing, and looks every now and then, while all rest, at the memory of the process and at the
// references that native code holds. It fails if either grows in the second half.
//
// Usage: soak [operations [growth]], the growth in percent of the resident memory. CLASSPATH names the core's
// jar.
#include "tests/soak/Federates.h"

#include <jni.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <jvmti.h>
#include <pthread.h>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

constexpr int threadCount = 8;
constexpr int looks = 10;
constexpr long ofTheVM = 8; // global references that the VM itself has now and then

// In kilobytes.
long residentMemory()
{
   std::ifstream statm("/proc/self/statm");
   long total = 0;
   long resident = 0;
   statm >> total >> resident;
   return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

struct Look
{
   long memory = 0;
   // As the VM itself counts them. The local references are those of threads outside Java: what threads
   // inside have, they give back when they leave.
   long globals = 0;
   long locals = 0;
};

jvmtiEnv* toolsOfVM()
{
   rti1516e::RTIambassadorFactory().createRTIambassador();
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
   jvmtiHeapCallbacks callbacks{};
   callbacks.heap_reference_callback = &visitRoot;
   tools->FollowReferences(0, nullptr, nullptr, &callbacks, &found);
   found.memory = residentMemory();
   return found;
}

int run(long operations, double allowedGrowth)
{
   jvmtiEnv* const tools = toolsOfVM();
   std::string const path = SOAK_FOM;
   std::wstring const fomModule(path.begin(), path.end());
   soak::Tally tally;
   pthread_barrier_t barrier; // all threads and the one that looks come to it before and after each look
   pthread_barrier_init(&barrier, nullptr, threadCount + 1);
   auto const work = [&](int number) {
      for (int look = 1; look <= looks; ++look) {
         for (int life = 0; life == 0 || tally.operations() < operations / looks * look; ++life) {
            soak::leadALife(L"soak " + std::to_wstring(number), fomModule, 100 + life % 2, tally);
         }
         pthread_barrier_wait(&barrier);
         pthread_barrier_wait(&barrier);
      }
   };
   // A thread that a Java VM has seen is never forgotten by it, so that there must not be more and more of
   // them.
   std::vector<std::thread> threads;
   for (int number = 0; number < threadCount; ++number) {
      threads.emplace_back([&work, number] {
         try {
            work(number);
         } catch (rti1516e::Exception const& exception) {
            std::printf("%ls\n", exception.what().c_str());
            std::_Exit(1);
         }
      });
   }
   std::vector<Look> seen;
   std::printf("  services    refused  callbacks   throwing       MB  globals   locals\n");
   while (seen.size() < looks) {
      pthread_barrier_wait(&barrier);
      seen.push_back(lookAround(tools));
      std::printf("%10ld %10ld %10ld %10ld %8.1f %8ld %8ld\n", tally.services.load(), tally.refusals.load(),
                  tally.callbacks.load(), tally.throws.load(), static_cast<double>(seen.back().memory) / 1024,
                  seen.back().globals, seen.back().locals);
      std::fflush(stdout);
      pthread_barrier_wait(&barrier);
   }
   for (auto& thread : threads) {
      thread.join();
   }
   Look const& middle = seen[looks / 2 - 1];
   Look const& last = seen.back();
   double const growth =
      100.0 * static_cast<double>(last.memory - middle.memory) / static_cast<double>(middle.memory);
   long const globals = last.globals - middle.globals;
   long const locals = last.locals - middle.locals;
   std::printf("In the second half: memory %+.2f %%, global references %+ld, local ones %+ld\n", growth,
               globals, locals);
   bool const mixed = tally.callbacks * 5 > tally.services && tally.throws * 2 >= tally.callbacks - 1;
   return growth < allowedGrowth && globals < ofTheVM && locals <= 0 && mixed ? 0 : 1;
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
