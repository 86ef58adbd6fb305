#ifndef AIRTRAFFIC_DISPLAY_H
#define AIRTRAFFIC_DISPLAY_H

#include "Position.h"

#include <RTI/encoding/EncodingConfig.h>

#include <string>
#include <vector>

namespace airtraffic {

struct Track
{
   std::wstring callsign;
   std::wstring controller; // empty as long as nobody is known to control it
   Position position{};
   bool isSeen = false;
};

struct Member
{
   std::wstring name;
   rti1516e::Integer64 time = 0;
};

// The picture of the air traffic on the standard output: on a terminal one that moves, otherwise a frame from
// time to time.
class Display
{
public:
   Display();

   void show(rti1516e::Integer64 time, std::vector<Track> const& tracks,
             std::vector<Member> const& members) const;

private:
   bool const _moves;
};

} // namespace airtraffic

#endif
