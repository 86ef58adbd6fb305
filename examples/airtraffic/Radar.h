#ifndef AIRTRAFFIC_RADAR_H
#define AIRTRAFFIC_RADAR_H

#include "Display.h"
#include "Federate.h"

#include <map>

namespace airtraffic {

// Watches the aircraft within its coverage, and shows them, and who takes part and at what time. It sends
// nothing; it regulates time so that nobody runs ahead of the picture.
class Radar : public Federate
{
public:
   Radar();

   // Returns when so many federates have joined.
   void awaitMembers(std::size_t number);

   long positionsSeen() const { return _positionsSeen; }
   long positionsElsewhere() const { return _positionsElsewhere; }

private:
   void prepare() override;
   void send() override;
   void discovered(rti1516e::ObjectInstanceHandle aircraft, std::wstring const& callsign) override;
   void reflected(rti1516e::ObjectInstanceHandle aircraft,
                  rti1516e::AttributeHandleValueMap const& values) override;
   void reflectedWithoutTime(rti1516e::ObjectInstanceHandle member,
                             rti1516e::AttributeHandleValueMap const& values) override;
   void received(rti1516e::InteractionClassHandle, rti1516e::ParameterHandleValueMap const& values) override;
   void removed(rti1516e::ObjectInstanceHandle aircraftOrMember) override;

   std::map<rti1516e::ObjectInstanceHandle, Track> _tracks;
   std::map<rti1516e::ObjectInstanceHandle, Member> _members;
   Display _display;
   long _positionsSeen = 0;
   long _positionsElsewhere = 0;
};

} // namespace airtraffic

#endif
