#include "Scenario.h"

#include <algorithm>

namespace airtraffic {

bool Area::contains(Position const& position) const
{
   return position.easting >= static_cast<double>(west) && position.easting < static_cast<double>(east) &&
          position.northing >= static_cast<double>(south) && position.northing < static_cast<double>(north);
}

Area Area::around(Position const& position)
{
   auto const east = static_cast<unsigned long>(position.easting);
   auto const north = static_cast<unsigned long>(position.northing);
   return {east, east + 1, north, north + 1};
}

Area Area::widened(unsigned long margin) const
{
   return {west < airspace.west + margin ? airspace.west : west - margin,
           std::min(east + margin, airspace.east), south, north};
}

std::vector<Sector> const& sectors()
{
   static std::vector<Sector> const all{
      {L"West", {0, 80, 0, 120}, 290},
      {L"Centre", {80, 160, 0, 120}, 330},
      {L"East", {160, 240, 0, 120}, 310},
   };
   return all;
}

Sector const& sectorOf(Position const& position)
{
   return *std::find_if(sectors().begin(), sectors().end(),
                        [&](Sector const& each) { return each.area.contains(position); });
}

std::vector<AirlinePlan> const& airlines()
{
   // The last two of Heron never come within the radar's coverage.
   static std::vector<AirlinePlan> const all{
      {L"Kite",
       {
          {L"KITE1", 0, {0, 30, 300}, 0.24, 0},
          {L"KITE2", 60, {0, 100, 250}, 0.22, -0.06},
          {L"KITE3", 20, {239, 80, 350}, -0.23, 0},
          {L"KITE4", 150, {239, 20, 300}, -0.21, 0.05},
       }},
      {L"Heron",
       {
          {L"HERON1", 100, {0, 60, 280}, 0.25, 0.01},
          {L"HERON2", 40, {239, 110, 320}, -0.24, -0.08},
          {L"HERON3", 0, {30, 5, 200}, 0.02, 0.1},
          {L"HERON4", 0, {200, 5, 200}, -0.01, 0.1},
       }},
   };
   return all;
}

} // namespace airtraffic
