// The airspace and what happens in it.
#ifndef AIRTRAFFIC_SCENARIO_H
#define AIRTRAFFIC_SCENARIO_H

#include "Position.h"

#include <RTI/encoding/EncodingConfig.h>

#include <string>
#include <vector>

namespace airtraffic {

// A part of the airspace, in whole kilometres; the upper bounds are outside, as they are for regions.
struct Area
{
   unsigned long west;
   unsigned long east;
   unsigned long south;
   unsigned long north;

   bool contains(Position const& position) const;

   // The square kilometre that a position is in.
   static Area around(Position const& position);

   // Extended to the west and the east, where there is airspace.
   Area widened(unsigned long margin) const;
};

struct Sector
{
   std::wstring name;
   Area area;
   rti1516e::Integer32 flightLevel; // at which its controller wants all aircraft
};

struct FlightPlan
{
   std::wstring callsign;
   rti1516e::Integer64 entry; // seconds
   Position start;
   double eastward; // km/s
   double northward;
};

struct AirlinePlan
{
   std::wstring name;
   std::vector<FlightPlan> flights;
};

Area const airspace{0, 240, 0, 120};
Area const radarCoverage{60, 180, 15, 105};

// Controllers look this far into the sectors beside their own, in kilometres: so both of them see an aircraft
// that is about to be handed over.
unsigned long const handOverMargin = 10;

// Seconds. Aircraft report so often that there are several reports in each step by which airlines and
// controllers advance; the radar advances from report to report. Nobody sends for a time before the next
// report: that is the lookahead. The end is a multiple of all.
rti1516e::Integer64 const reportInterval = 5;
rti1516e::Integer64 const step = 10;
rti1516e::Integer64 const end = 1100;

std::vector<Sector> const& sectors();

// The position has to be within the airspace.
Sector const& sectorOf(Position const& position);

std::vector<AirlinePlan> const& airlines();

} // namespace airtraffic

#endif
