// Lets pairs of federates live and go on many threads until so many services and callbacks have been, half of
// the callbacks throwing, and looks every now and then, while all rest, at the memory of the process and at
// the references that native code holds. It fails if either grows in the second half.
//
// Usage: soak [operations [growth]], the growth in percent of the resident memory. CLASSPATH names the core's
// jar.
#include <RTI/RTI1516.h>
#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>

#include <jni.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <jvmti.h>
#include <memory>
#include <pthread.h>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using namespace rti1516e;

constexpr int threadCount = 8;
constexpr int looks = 10;
constexpr long ofTheVM = 8; // references that the VM itself and its own threads have now and then

std::atomic<long> services{0};
std::atomic<long> callbacks{0};

struct Federate : FederateAmbassador
{
   explicit Federate(CallbackModel model) { _ambassador->connect(*this, model); }

   // For one service.
   RTIambassador* operator->()
   {
      ++services;
      return _ambassador.get();
   }

   void evoke()
   {
      while ((*this)->evokeMultipleCallbacks(0.0, 1.0)) {
      }
   }

   // Throws every other time.
   template <class... Arguments>
   void called(Arguments const&...)
   {
      long const turn = ++callbacks;
      if (turn % 4 == 1) {
         throw FederateInternalError(L"thrown every other time");
      }
      if (turn % 4 == 3) {
         throw turn;
      }
   }

#define CALLBACK(name, parameters, arguments) \
   void name parameters override { called arguments; }
#include "tests/support/Callbacks.def"

private:
   std::unique_ptr<RTIambassador> _ambassador{RTIambassadorFactory().createRTIambassador().release()};
};

// Two federates lead a whole life in a federation of their own: they find each other, send and receive, fail,
// and go.
void leadALife(std::wstring const& federation, int rounds)
{
   std::string const path = SOAK_FOM;
   Federate sender(HLA_EVOKED);
   Federate receiver(rounds % 2 == 0 ? HLA_EVOKED : HLA_IMMEDIATE);
   sender->createFederationExecution(federation, std::wstring(path.begin(), path.end()), L"HLAinteger64Time");
   sender->joinFederationExecution(L"soaked", federation);
   receiver->joinFederationExecution(L"soaked", federation);
   auto const vehicle = sender->getObjectClassHandle(L"Vehicle");
   auto const message = sender->getInteractionClassHandle(L"Message");
   auto const words = sender->getParameterHandle(message, L"Words");
   auto const position = sender->getAttributeHandle(vehicle, L"Position");
   receiver->subscribeObjectClassAttributes(vehicle, {position});
   receiver->subscribeInteractionClass(message);
   receiver->enableTimeConstrained();
   sender->publishObjectClassAttributes(vehicle, {position});
   sender->publishInteractionClass(message);
   sender->enableTimeRegulation(HLAinteger64Interval(1));
   sender.evoke();
   receiver.evoke();
   auto const object = sender->registerObjectInstance(vehicle);

   VariableLengthData const tag("12345678", 8);
   for (int round = 1; round <= rounds; ++round) {
      std::string const value(static_cast<std::size_t>(round % 300), 'v');
      AttributeHandleValueMap const values = {
         {position, VariableLengthData(value.data(), static_cast<unsigned int>(value.size()))}};
      sender->updateAttributeValues(object, values, tag);
      sender->updateAttributeValues(object, values, tag, HLAinteger64Time(round + 10));
      sender->sendInteraction(message, {{words, tag}}, tag);
      sender->getObjectInstanceName(object);
      sender->queryLogicalTime();
      sender->queryLookahead();
      for (Federate* const federate : {&sender, &receiver}) {
         try {
            (*federate)->timeAdvanceRequest(HLAinteger64Time(round));
            (*federate)->timeAdvanceRequest(HLAinteger64Time(round));
         } catch (InTimeAdvancingState const&) { // the sender's second one always
         } catch (RequestForTimeConstrainedPending const&) {
         }
         federate->evoke();
      }
   }
   sender->resignFederationExecution(DELETE_OBJECTS_THEN_DIVEST);
   receiver->resignFederationExecution(NO_ACTION);
   sender->destroyFederationExecution(federation);
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
      threads.emplace_back([&, number] {
         for (int look = 1; look <= looks; ++look) {
            for (int life = 0; life == 0 || services + callbacks < operations / looks * look; ++life) {
               leadALife(L"soak " + std::to_wstring(number), 100 + life % 2);
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
