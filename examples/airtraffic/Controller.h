#ifndef AIRTRAFFIC_CONTROLLER_H
#define AIRTRAFFIC_CONTROLLER_H

#include "Federate.h"

#include <map>
#include <string>

namespace airtraffic {

// Controls the aircraft in one sector: whoever owns an aircraft's attribute Controller does. The attribute
// goes from sector to sector by negotiated divestiture, as controllers hand over an aircraft:
//
//    "yours?"    negotiatedAttributeOwnershipDivestiture -> requestAttributeOwnershipAssumption
//    "mine"      attributeOwnershipAcquisition           -> requestDivestitureConfirmation
//    "all yours" confirmDivestiture                      -> attributeOwnershipAcquisitionNotification
class Controller : public Federate
{
public:
   explicit Controller(Sector const& sector);

   Sector const& sector() const { return _sector; }
   Area view() const { return _sector.area.widened(handOverMargin); }
   bool controls(std::wstring const& callsign) const;

   long positionsSeen() const { return _positionsSeen; }
   long positionsElsewhere() const { return _positionsElsewhere; }

   // Aircraft that entered the airspace, and what became of the hand-overs on either side.
   long firstContacts() const { return _firstContacts; }
   long offered() const { return _offered; }
   long confirmed() const { return _confirmed; }
   long accepted() const { return _accepted; }

   long clearancesSent() const { return _clearancesSent; }

private:
   enum class Control
   {
      unknown,   // not seen yet
      elsewhere, // somebody else's
      asked,     // soon to be its own
      own,
      offered, // its own until another takes it
   };

   struct Contact
   {
      std::wstring callsign;
      Control control = Control::unknown;
      bool isToldSo = false; // to the pilot and to all, once it is its own
   };

   void prepare() override;
   void send() override;
   bool isSettled() const override;
   void discovered(rti1516e::ObjectInstanceHandle aircraft, std::wstring const& callsign) override;
   void reflected(rti1516e::ObjectInstanceHandle aircraft,
                  rti1516e::AttributeHandleValueMap const& values) override;
   void removed(rti1516e::ObjectInstanceHandle aircraft) override;

   void requestAttributeOwnershipAssumption(rti1516e::ObjectInstanceHandle aircraft,
                                            rti1516e::AttributeHandleSet const& attributes,
                                            rti1516e::VariableLengthData const& tag) override;
   void requestDivestitureConfirmation(rti1516e::ObjectInstanceHandle aircraft,
                                       rti1516e::AttributeHandleSet const& attributes) override;
   void attributeOwnershipAcquisitionNotification(rti1516e::ObjectInstanceHandle aircraft,
                                                  rti1516e::AttributeHandleSet const& attributes,
                                                  rti1516e::VariableLengthData const& tag) override;
   void attributeOwnershipUnavailable(rti1516e::ObjectInstanceHandle aircraft,
                                      rti1516e::AttributeHandleSet const& attributes) override;

   Sector const& _sector;
   std::map<rti1516e::ObjectInstanceHandle, Contact> _contacts;
   long _positionsSeen = 0;
   long _positionsElsewhere = 0;
   long _firstContacts = 0;
   long _offered = 0;
   long _confirmed = 0;
   long _accepted = 0;
   long _clearancesSent = 0;
};

} // namespace airtraffic

#endif
