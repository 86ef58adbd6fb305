// Lets federates live and go on many threads until so many services and callbacks have been, half of the
// callbacks throwing, and looks every now and then, while all rest, at the memory of the process and at the
// references that native code holds. It fails if either grows in the second half.
//
// Usage: soak [operations [growth]], the growth in percent of the resident memory. CLASSPATH names the core's
// jar.
#include "tests/soak/Federates.h"
#include "tests/soak/JavaReferences.h"
#include "tests/soak/ResidentMemory.h"

#include <RTI/Exception.h>
#include <RTI/RTIambassadorFactory.h>

#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr int threadCount = 8;
constexpr int looks = 10;
constexpr long ofTheVM = 8; // global references that the VM itself has now and then

// Lets threads that live on work together until a number of operations is reached, and then rest. A thread
// that a Java VM has seen is never forgotten by it, so that there must not be more and more of them.
class Workers
{
public:
   explicit Workers(soak::Tally& tally) : _tally(tally)
   {
      for (int i = 0; i < threadCount; ++i) {
         _threads.emplace_back([this, i] { work(i); });
      }
   }
   ~Workers()
   {
      {
         std::lock_guard<std::mutex> const lock(_mutex);
         _ended = true;
      }
      _changed.notify_all();
      for (auto& thread : _threads) {
         thread.join();
      }
   }
   Workers(Workers const&) = delete;
   Workers& operator=(Workers const&) = delete;

   void workUntil(long operations)
   {
      std::unique_lock<std::mutex> lock(_mutex);
      _goal = operations;
      _resting = 0;
      ++_shift;
      _changed.notify_all();
      _changed.wait(lock, [this] { return _resting == threadCount; });
      if (_failure) {
         std::rethrow_exception(_failure);
      }
   }

private:
   void work(int number)
   {
      int shift = 0;
      for (;;) {
         {
            std::unique_lock<std::mutex> lock(_mutex);
            _changed.wait(lock, [&] { return _ended || _shift != shift; });
            if (_ended) {
               return;
            }
            shift = _shift;
         }
         try {
            for (int life = 0; life == 0 || _tally.operations() < _goal; ++life) {
               soak::leadALife(L"soak " + std::to_wstring(number), fom, 100 + life % 2, _tally);
            }
         } catch (...) {
            std::lock_guard<std::mutex> const lock(_mutex);
            _failure = std::current_exception();
         }
         std::lock_guard<std::mutex> const lock(_mutex);
         ++_resting;
         _changed.notify_all();
      }
   }

   std::wstring const fom = [] {
      std::string const path = SOAK_FOM;
      return std::wstring(path.begin(), path.end());
   }();
   soak::Tally& _tally;
   std::mutex _mutex;
   std::condition_variable _changed;
   std::atomic<long> _goal{0};
   int _shift = 0;
   int _resting = 0;
   bool _ended = false;
   std::exception_ptr _failure;
   std::vector<std::thread> _threads;
};

struct Look
{
   long memory;
   soak::JavaReferences::Count references;
};

int run(long operations, double allowedGrowth)
{
   rti1516e::RTIambassadorFactory().createRTIambassador(); // the VM
   soak::JavaReferences const references;
   soak::Tally tally;
   Workers workers(tally);
   std::vector<Look> seen;
   std::printf("%10s %10s %10s %10s %8s %8s %8s\n", "services", "refused", "callbacks", "throwing", "MB",
               "globals", "locals");
   for (int look = 1; look <= looks; ++look) {
      workers.workUntil(operations / looks * look);
      auto const count = references.count();
      seen.push_back({residentMemory(), count});
      std::printf("%10ld %10ld %10ld %10ld %8.1f %8ld %8ld\n", tally.services.load(), tally.refusals.load(),
                  tally.callbacks.load(), tally.throws.load(), static_cast<double>(seen.back().memory) / 1024,
                  count.globals, count.locals);
      std::fflush(stdout);
   }
   Look const& middle = seen[looks / 2 - 1];
   Look const& last = seen.back();
   double const growth =
      100.0 * static_cast<double>(last.memory - middle.memory) / static_cast<double>(middle.memory);
   long const globals = last.references.globals - middle.references.globals;
   long const locals = last.references.locals - middle.references.locals;
   std::printf(
      "%ld ambassadors; in the second half: memory %+.2f %%, global references %+ld, local ones %+ld\n",
      tally.ambassadors.load(), growth, globals, locals);
   bool const mixed = tally.callbacks * 5 > tally.services && tally.throws * 2 >= tally.callbacks - 1;
   return growth < allowedGrowth && globals < ofTheVM && locals <= 0 && mixed ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
   // A heap that is there from the beginning: what grows is not the Java heap. The core tells of each
   // callback that throws on the standard error stream.
   setenv("TOVU1516_OPTION1", "-Xms128m", 1);
   setenv("TOVU1516_OPTION2", "-Xmx128m", 1);
   setenv("TOVU1516_OPTION3", "-XX:+AlwaysPreTouch", 1);
   setenv("TOVU1516_OPTION4", "-XX:+UseSerialGC", 1);
   setenv("TOVU1516_OPTION5", "-XX:TieredStopAtLevel=1", 1);
   setenv("CLASSPATH", SOAK_CORE, 0);
   if (std::freopen("/dev/null", "w", stderr) == nullptr) {
      return 2;
   }
   try {
      return run(argc > 1 ? std::atol(argv[1]) : 10'000'000, argc > 2 ? std::atof(argv[2]) : 1.0);
   } catch (rti1516e::Exception const& exception) {
      std::printf("%ls\n", exception.what().c_str());
   } catch (std::exception const& exception) {
      std::printf("%s\n", exception.what());
   }
   return 1;
}
