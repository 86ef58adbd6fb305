#include "Exercise.h"

#include <exception>
#include <mutex>
#include <thread>

namespace airtraffic {

Exercise::Exercise()
{
   _federates.push_back(&_radar);
   for (Sector const& each : sectors()) {
      _federates.push_back(&_controllers.emplace_back(each));
   }
   for (AirlinePlan const& each : airlines()) {
      _federates.push_back(&_fleets.emplace_back(each));
   }
}

void Exercise::run(std::wstring const& fomModule)
{
   _radar.createFederation(fomModule);
   for (Federate* each : _federates) {
      each->join();
   }
   _radar.callTogether();
   runTogether();
   _radar.destroyFederation();
}

void Exercise::runTogether()
{
   std::exception_ptr failure;
   std::mutex failing;
   std::vector<std::thread> threads;
   for (Federate* each : _federates) {
      threads.emplace_back([&failure, &failing, each] {
         try {
            each->run();
         } catch (...) {
            std::lock_guard<std::mutex> const lock(failing);
            failure = failure ? failure : std::current_exception();
         }
      });
   }
   for (std::thread& each : threads) {
      each.join();
   }
   if (failure) {
      std::rethrow_exception(failure);
   }
}

} // namespace airtraffic
