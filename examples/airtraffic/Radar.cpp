#include "Radar.h"

#include "Encoding.h"

#include <iostream>
#include <vector>

namespace airtraffic {

using namespace rti1516e;

Radar::Radar() : Federate(L"Radar", reportInterval) {}

void Radar::prepare()
{
   rti().subscribeObjectClassAttributesWithRegions(fom().aircraft, positionIn(createRegion(radarCoverage)));
   rti().subscribeObjectClassAttributes(fom().aircraft, {fom().controller});
   rti().subscribeObjectClassAttributes(fom().member, {fom().memberName, fom().memberTime});
   rti().subscribeInteractionClass(fom().lost);
}

void Radar::awaitMembers(std::size_t number)
{
   rti().subscribeObjectClassAttributes(fom().member, {fom().memberName, fom().memberTime});
   await("the other federates", [&] { return _members.size() == number; });
}

// Shows who has reported last.
void Radar::send()
{
   std::vector<Track> seen;
   for (auto& each : _tracks) {
      if (each.second.isSeen) {
         seen.push_back(each.second);
         each.second.isSeen = false;
      }
   }
   std::vector<Member> members;
   for (auto const& each : _members) {
      members.push_back(each.second);
   }
   _display.show(time(), seen, members);
   rti().requestAttributeValueUpdate(fom().member, {fom().memberTime}, VariableLengthData());
}

void Radar::discovered(ObjectInstanceHandle aircraft, std::wstring const& callsign)
{
   if (rti().getKnownObjectClassHandle(aircraft) == fom().aircraft) {
      _tracks[aircraft].callsign = callsign;
   }
}

void Radar::reflected(ObjectInstanceHandle aircraft, AttributeHandleValueMap const& values)
{
   Track& track = _tracks.at(aircraft);
   auto const position = values.find(fom().position);
   if (position != values.end()) {
      track.position = decodePosition(position->second);
      track.isSeen = true;
      ++_positionsSeen;
      _positionsElsewhere += !radarCoverage.contains(track.position);
   }
   auto const controller = values.find(fom().controller);
   if (controller != values.end()) {
      track.controller = decodeText(controller->second);
   }
}

void Radar::reflectedWithoutTime(ObjectInstanceHandle member, AttributeHandleValueMap const& values)
{
   for (auto const& each : values) {
      if (each.first == fom().memberName) {
         _members[member].name = decodeText(each.second);
      } else {
         _members[member].time = decodeTime(each.second);
      }
   }
}

void Radar::received(InteractionClassHandle, ParameterHandleValueMap const& values)
{
   std::wcout << decodeText(values.at(fom().lostName)) << L" is lost: "
              << decodeText(values.at(fom().lostFault)) << std::endl;
}

void Radar::removed(ObjectInstanceHandle aircraftOrMember)
{
   _tracks.erase(aircraftOrMember);
   _members.erase(aircraftOrMember);
}

} // namespace airtraffic
