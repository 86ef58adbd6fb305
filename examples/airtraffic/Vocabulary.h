#ifndef AIRTRAFFIC_VOCABULARY_H
#define AIRTRAFFIC_VOCABULARY_H

#include <RTI/Handle.h>
#include <RTI/RTIambassador.h>

namespace airtraffic {

// The handles of what the FOM names, as a joined federate looks them up once and for all.
struct Vocabulary
{
   explicit Vocabulary(rti1516e::RTIambassador& rti)
      : aircraft(rti.getObjectClassHandle(L"HLAobjectRoot.Aircraft")),
        position(rti.getAttributeHandle(aircraft, L"Position")),
        controller(rti.getAttributeHandle(aircraft, L"Controller")),
        clearance(rti.getInteractionClassHandle(L"HLAinteractionRoot.Clearance")),
        callsign(rti.getParameterHandle(clearance, L"Callsign")),
        flightLevel(rti.getParameterHandle(clearance, L"FlightLevel")),
        easting(rti.getDimensionHandle(L"Easting")),
        northing(rti.getDimensionHandle(L"Northing")),
        member(rti.getObjectClassHandle(L"HLAobjectRoot.HLAmanager.HLAfederate")),
        memberName(rti.getAttributeHandle(member, L"HLAfederateName")),
        memberTime(rti.getAttributeHandle(member, L"HLAlogicalTime")),
        lost(rti.getInteractionClassHandle(
           L"HLAinteractionRoot.HLAmanager.HLAfederate.HLAreport.HLAreportFederateLost")),
        lostName(rti.getParameterHandle(lost, L"HLAfederateName")),
        lostFault(rti.getParameterHandle(lost, L"HLAfaultDescription"))
   {}

   rti1516e::ObjectClassHandle const aircraft;
   rti1516e::AttributeHandle const position;
   rti1516e::AttributeHandle const controller;
   rti1516e::InteractionClassHandle const clearance;
   rti1516e::ParameterHandle const callsign;
   rti1516e::ParameterHandle const flightLevel;
   rti1516e::DimensionHandle const easting;
   rti1516e::DimensionHandle const northing;
   rti1516e::ObjectClassHandle const member;
   rti1516e::AttributeHandle const memberName;
   rti1516e::AttributeHandle const memberTime;
   rti1516e::InteractionClassHandle const lost;
   rti1516e::ParameterHandle const lostName;
   rti1516e::ParameterHandle const lostFault;
};

} // namespace airtraffic

#endif
