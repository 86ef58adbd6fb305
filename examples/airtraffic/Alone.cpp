#include "Alone.h"

#include "Airline.h"
#include "Controller.h"
#include "Radar.h"

#include <iostream>
#include <memory>

namespace airtraffic {
namespace {

std::unique_ptr<Federate> federateCalled(std::wstring const& name)
{
   for (Sector const& each : sectors()) {
      if (each.name == name) {
         return std::make_unique<Controller>(each);
      }
   }
   for (AirlinePlan const& each : airlines()) {
      if (each.name == name) {
         return std::make_unique<Airline>(each);
      }
   }
   return nullptr;
}

// The radar is the one who creates the federation and calls the others together.
void runRadar(std::wstring const& fomModule)
{
   Radar radar;
   radar.createFederation(fomModule);
   radar.join();
   radar.awaitMembers(1 + sectors().size() + airlines().size());
   radar.callTogether();
   radar.run();
   radar.destroyFederation();
}

} // namespace

bool runAlone(std::wstring const& name, std::wstring const& fomModule)
{
   if (name == L"Radar") {
      runRadar(fomModule);
   } else if (auto const federate = federateCalled(name)) {
      federate->join();
      federate->run();
   } else {
      return false;
   }
   std::wcout << name + L" has come to the end.\n" << std::flush;
   return true;
}

} // namespace airtraffic
