#include "Airline.h"

#include "Encoding.h"

#include <RTI/time/HLAinteger64Time.h>

#include <algorithm>

namespace airtraffic {

using namespace rti1516e;

namespace {

Integer32 const climbPerReport = 3; // flight levels

Position movedOn(Position const& from, FlightPlan const& plan, Integer32 level)
{
   double const seconds = static_cast<double>(reportInterval);
   Integer32 const climb = std::clamp(level - from.flightLevel, -climbPerReport, climbPerReport);
   return {from.easting + plan.eastward * seconds, from.northing + plan.northward * seconds,
           from.flightLevel + climb};
}

} // namespace

Airline::Airline(AirlinePlan const& plan) : Federate(plan.name, step)
{
   for (FlightPlan const& each : plan.flights) {
      _flights.push_back({each, each.start, each.start.flightLevel, {}, {}});
   }
}

void Airline::prepare()
{
   rti().publishObjectClassAttributes(fom().aircraft, {fom().position});
   rti().subscribeInteractionClass(fom().clearance);

   std::set<std::wstring> callsigns;
   for (Flight const& each : _flights) {
      callsigns.insert(each.plan.callsign);
   }
   rti().reserveMultipleObjectInstanceName(callsigns);
   await("the callsigns", [this] { return _callsignsReserved; });
}

void Airline::multipleObjectInstanceNameReservationSucceeded(std::set<std::wstring> const&)
{
   _callsignsReserved = true;
}

void Airline::send()
{
   for (Flight& each : _flights) {
      if (each.isFlying()) {
         for (Integer64 at = time() + reportInterval; at <= nextTime() && each.isFlying();
              at += reportInterval) {
            move(each, at);
         }
      } else if (each.plan.entry == time()) {
         enter(each);
      }
   }
}

void Airline::enter(Flight& flight)
{
   flight.region = createRegion(Area::around(flight.position));
   flight.aircraft = rti().registerObjectInstanceWithRegions(fom().aircraft, positionIn(flight.region),
                                                             flight.plan.callsign);
   ++_entered;
}

void Airline::move(Flight& flight, Integer64 at)
{
   Position const next = movedOn(flight.position, flight.plan, flight.clearedLevel);
   if (!airspace.contains(next)) {
      leave(flight, at);
      return;
   }
   _crossings += &sectorOf(next) != &sectorOf(flight.position);
   flight.position = next;
   // Who is sent an update is settled when it is sent: first the region, then the update.
   moveRegion(flight.region, Area::around(next));
   rti().updateAttributeValues(flight.aircraft, {{fom().position, encode(next)}}, VariableLengthData(),
                               HLAinteger64Time(at));
   _sentPositions.push_back(next);
}

void Airline::leave(Flight& flight, Integer64 at)
{
   rti().deleteObjectInstance(flight.aircraft, VariableLengthData(), HLAinteger64Time(at));
   rti().deleteRegion(flight.region);
   flight.aircraft = ObjectInstanceHandle();
}

void Airline::received(InteractionClassHandle, ParameterHandleValueMap const& values)
{
   ++_clearancesReceived;
   std::wstring const callsign = decodeText(values.at(fom().callsign));
   for (Flight& each : _flights) {
      if (each.plan.callsign == callsign) {
         each.clearedLevel = decodeNumber(values.at(fom().flightLevel));
         ++_clearancesObeyed;
      }
   }
}

} // namespace airtraffic
