#ifndef AIRTRAFFIC_POSITION_H
#define AIRTRAFFIC_POSITION_H

#include <RTI/encoding/EncodingConfig.h>

namespace airtraffic {

struct Position
{
   double easting; // km
   double northing;
   rti1516e::Integer32 flightLevel; // 100 feet
};

} // namespace airtraffic

#endif
