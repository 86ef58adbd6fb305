#ifndef AIRTRAFFIC_MESSAGEFORMS_H
#define AIRTRAFFIC_MESSAGEFORMS_H

#include <RTI/NullFederateAmbassador.h>

#include <string>

namespace airtraffic {

// Messages reach a federate in several forms: with or without a time, a retraction handle, a producer. This
// makes one callback of all forms of each kind.
class MessageForms : public rti1516e::NullFederateAmbassador
{
protected:
   virtual void discovered(rti1516e::ObjectInstanceHandle /*aircraft*/, std::wstring const& /*callsign*/) {}
   virtual void reflected(rti1516e::ObjectInstanceHandle /*aircraft*/,
                          rti1516e::AttributeHandleValueMap const&)
   {}
   // What the infrastructure tells of the federation's members comes without a time. Nothing else should.
   virtual void reflectedWithoutTime(rti1516e::ObjectInstanceHandle object,
                                     rti1516e::AttributeHandleValueMap const& values)
   {
      arrives(nullptr, rti1516e::RECEIVE);
      reflected(object, values);
   }
   virtual void received(rti1516e::InteractionClassHandle, rti1516e::ParameterHandleValueMap const&) {}
   virtual void removed(rti1516e::ObjectInstanceHandle /*aircraft*/) {}

   // Called before each of the last three. No time for a message that was sent without one.
   virtual void arrives(rti1516e::LogicalTime const* time, rti1516e::OrderType receivedOrder) = 0;

private:
   using Tag = rti1516e::VariableLengthData;

   void discoverObjectInstance(rti1516e::ObjectInstanceHandle, rti1516e::ObjectClassHandle,
                               std::wstring const&) override;
   void discoverObjectInstance(rti1516e::ObjectInstanceHandle, rti1516e::ObjectClassHandle,
                               std::wstring const&, rti1516e::FederateHandle) override;

   void reflectAttributeValues(rti1516e::ObjectInstanceHandle, rti1516e::AttributeHandleValueMap const&,
                               Tag const&, rti1516e::OrderType, rti1516e::TransportationType,
                               rti1516e::SupplementalReflectInfo) override;
   void reflectAttributeValues(rti1516e::ObjectInstanceHandle, rti1516e::AttributeHandleValueMap const&,
                               Tag const&, rti1516e::OrderType, rti1516e::TransportationType,
                               rti1516e::LogicalTime const&, rti1516e::OrderType,
                               rti1516e::SupplementalReflectInfo) override;
   void reflectAttributeValues(rti1516e::ObjectInstanceHandle, rti1516e::AttributeHandleValueMap const&,
                               Tag const&, rti1516e::OrderType, rti1516e::TransportationType,
                               rti1516e::LogicalTime const&, rti1516e::OrderType,
                               rti1516e::MessageRetractionHandle, rti1516e::SupplementalReflectInfo) override;

   void receiveInteraction(rti1516e::InteractionClassHandle, rti1516e::ParameterHandleValueMap const&,
                           Tag const&, rti1516e::OrderType, rti1516e::TransportationType,
                           rti1516e::SupplementalReceiveInfo) override;
   void receiveInteraction(rti1516e::InteractionClassHandle, rti1516e::ParameterHandleValueMap const&,
                           Tag const&, rti1516e::OrderType, rti1516e::TransportationType,
                           rti1516e::LogicalTime const&, rti1516e::OrderType,
                           rti1516e::SupplementalReceiveInfo) override;
   void receiveInteraction(rti1516e::InteractionClassHandle, rti1516e::ParameterHandleValueMap const&,
                           Tag const&, rti1516e::OrderType, rti1516e::TransportationType,
                           rti1516e::LogicalTime const&, rti1516e::OrderType,
                           rti1516e::MessageRetractionHandle, rti1516e::SupplementalReceiveInfo) override;

   void removeObjectInstance(rti1516e::ObjectInstanceHandle, Tag const&, rti1516e::OrderType,
                             rti1516e::SupplementalRemoveInfo) override;
   void removeObjectInstance(rti1516e::ObjectInstanceHandle, Tag const&, rti1516e::OrderType,
                             rti1516e::LogicalTime const&, rti1516e::OrderType,
                             rti1516e::SupplementalRemoveInfo) override;
   void removeObjectInstance(rti1516e::ObjectInstanceHandle, Tag const&, rti1516e::OrderType,
                             rti1516e::LogicalTime const&, rti1516e::OrderType,
                             rti1516e::MessageRetractionHandle, rti1516e::SupplementalRemoveInfo) override;
};

} // namespace airtraffic

#endif
