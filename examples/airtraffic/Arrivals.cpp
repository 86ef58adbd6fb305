#include "Arrivals.h"

#include <RTI/time/HLAinteger64Time.h>

namespace airtraffic {

using namespace rti1516e;

void Arrivals::add(LogicalTime const* time, OrderType receivedOrder)
{
   ++_count;
   if (time == nullptr || receivedOrder != TIMESTAMP) {
      ++_disordered;
      return;
   }
   Integer64 const seconds = HLAinteger64Time(*time).getTime();
   _late += seconds <= _granted;
   _early += seconds > _requested;
   _disordered += seconds < _latest;
   _latest = seconds;
}

} // namespace airtraffic
