#ifndef AIRTRAFFIC_AIRLINE_H
#define AIRTRAFFIC_AIRLINE_H

#include "Federate.h"

#include <vector>

namespace airtraffic {

// Flies aircraft: registers each with a region around it when it enters the airspace, moves the region along
// with it and updates its position, and deletes it where it leaves.
class Airline : public Federate
{
public:
   explicit Airline(AirlinePlan const& plan);

   // Every position that was sent, in the order of sending.
   std::vector<Position> const& sentPositions() const { return _sentPositions; }

   // How often an aircraft has come into another sector.
   long crossings() const { return _crossings; }

   long clearancesReceived() const { return _clearancesReceived; }
   long clearancesObeyed() const { return _clearancesObeyed; }

   long entered() const { return _entered; }

   struct Flight
   {
      FlightPlan plan;
      Position position;
      rti1516e::Integer32 clearedLevel;
      rti1516e::ObjectInstanceHandle aircraft; // valid while in the airspace
      rti1516e::RegionHandle region;

      bool isFlying() const { return aircraft.isValid(); }
   };
   std::vector<Flight> const& flights() const { return _flights; }

private:
   void prepare() override;
   void send() override;
   void received(rti1516e::InteractionClassHandle interaction,
                 rti1516e::ParameterHandleValueMap const& values) override;
   void multipleObjectInstanceNameReservationSucceeded(std::set<std::wstring> const& names) override;

   void enter(Flight& flight);
   void move(Flight& flight, rti1516e::Integer64 at);
   void leave(Flight& flight, rti1516e::Integer64 at);

   std::vector<Flight> _flights;
   bool _callsignsReserved = false;
   std::vector<Position> _sentPositions;
   long _crossings = 0;
   long _clearancesReceived = 0;
   long _clearancesObeyed = 0;
   long _entered = 0;
};

} // namespace airtraffic

#endif
