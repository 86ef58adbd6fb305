#ifndef AIRTRAFFIC_ARRIVALS_H
#define AIRTRAFFIC_ARRIVALS_H

#include <RTI/Enums.h>
#include <RTI/LogicalTime.h>
#include <RTI/encoding/EncodingConfig.h>

namespace airtraffic {

// Holds time management to its promises to a federate that advances by timeAdvanceRequest: a message arrives
// neither in the past that the federate was granted, nor before the federate asks for its time, and messages
// arrive in the order of their times.
class Arrivals
{
public:
   void request(rti1516e::Integer64 time) { _requested = time; }
   void grant(rti1516e::Integer64 time) { _granted = time; }

   // No time for a message that was sent without one; that breaks the order, too.
   void add(rti1516e::LogicalTime const* time, rti1516e::OrderType receivedOrder);

   long count() const { return _count; }
   long late() const { return _late; }
   long early() const { return _early; }
   long disordered() const { return _disordered; }

private:
   rti1516e::Integer64 _granted = 0;
   rti1516e::Integer64 _requested = 0;
   rti1516e::Integer64 _latest = 0;
   long _count = 0;
   long _late = 0;
   long _early = 0;
   long _disordered = 0;
};

} // namespace airtraffic

#endif
