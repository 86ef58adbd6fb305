#include "Controller.h"

#include "Encoding.h"

#include <RTI/time/HLAinteger64Time.h>

#include <algorithm>

namespace airtraffic {

using namespace rti1516e;

Controller::Controller(Sector const& sector) : Federate(sector.name, step), _sector(sector) {}

bool Controller::controls(std::wstring const& callsign) const
{
   return std::any_of(_contacts.begin(), _contacts.end(), [&](auto const& each) {
      return each.second.callsign == callsign && each.second.control == Control::own;
   });
}

void Controller::prepare()
{
   rti().publishObjectClassAttributes(fom().aircraft, {fom().controller});
   rti().publishInteractionClass(fom().clearance);
   rti().subscribeObjectClassAttributesWithRegions(fom().aircraft, positionIn(createRegion(view())));
}

// Tells who it is to those aircraft that have come under control.
void Controller::send()
{
   for (auto& each : _contacts) {
      Contact& contact = each.second;
      if (contact.control == Control::own && !contact.isToldSo) {
         contact.isToldSo = true;
         HLAinteger64Time const next(nextTime());
         rti().updateAttributeValues(each.first, {{fom().controller, encode(name())}}, VariableLengthData(),
                                     next);
         rti().sendInteraction(
            fom().clearance,
            {{fom().callsign, encode(contact.callsign)}, {fom().flightLevel, encode(_sector.flightLevel)}},
            VariableLengthData(), next);
         ++_clearancesSent;
      }
   }
}

bool Controller::isSettled() const
{
   return std::none_of(_contacts.begin(), _contacts.end(), [](auto const& each) {
      return each.second.control == Control::asked || each.second.control == Control::offered;
   });
}

void Controller::discovered(ObjectInstanceHandle aircraft, std::wstring const& callsign)
{
   _contacts[aircraft].callsign = callsign;
}

void Controller::reflected(ObjectInstanceHandle aircraft, AttributeHandleValueMap const& values)
{
   Position const position = decodePosition(values.at(fom().position));
   ++_positionsSeen;
   _positionsElsewhere += !view().contains(position);

   Contact& contact = _contacts.at(aircraft);
   bool const here = _sector.area.contains(position);
   if (contact.control == Control::unknown) {
      // One that is first seen well inside has just entered the airspace. One from another sector is first
      // seen in the margin, and will be offered.
      contact.control = here ? Control::asked : Control::elsewhere;
      if (here) {
         rti().attributeOwnershipAcquisitionIfAvailable(aircraft, {fom().controller});
         ++_firstContacts;
      }
   } else if (contact.control == Control::own && !here) {
      contact.control = Control::offered;
      ++_offered;
      rti().negotiatedAttributeOwnershipDivestiture(aircraft, {fom().controller},
                                                    encode(sectorOf(position).name));
   }
}

void Controller::removed(ObjectInstanceHandle aircraft) { _contacts.erase(aircraft); }

// Everybody who could control the aircraft is asked; the tag tells who is meant.
void Controller::requestAttributeOwnershipAssumption(ObjectInstanceHandle aircraft,
                                                     AttributeHandleSet const& attributes,
                                                     VariableLengthData const& tag)
{
   if (decodeText(tag) == _sector.name) {
      _contacts.at(aircraft).control = Control::asked;
      ++_accepted;
      rti().attributeOwnershipAcquisition(aircraft, attributes, tag);
   }
}

void Controller::requestDivestitureConfirmation(ObjectInstanceHandle aircraft,
                                                AttributeHandleSet const& attributes)
{
   rti().confirmDivestiture(aircraft, attributes, VariableLengthData());
   _contacts.at(aircraft).control = Control::elsewhere;
   ++_confirmed;
}

void Controller::attributeOwnershipAcquisitionNotification(ObjectInstanceHandle aircraft,
                                                           AttributeHandleSet const&,
                                                           VariableLengthData const&)
{
   Contact& contact = _contacts.at(aircraft);
   contact.control = Control::own;
   contact.isToldSo = false;
}

void Controller::attributeOwnershipUnavailable(ObjectInstanceHandle aircraft, AttributeHandleSet const&)
{
   _contacts.at(aircraft).control = Control::elsewhere;
}

} // namespace airtraffic
