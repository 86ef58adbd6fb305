// A federate ambassador whose callbacks all end in one function: called(name, arguments...) of the class that
// derives from it.
#ifndef RTI1516E_TESTS_SYSTEM_EVERYCALLBACK_H
#define RTI1516E_TESTS_SYSTEM_EVERYCALLBACK_H

#include <RTI/RTI1516.h>

#include <set>
#include <string>

namespace system_tests {

using namespace rti1516e;

template <class Derived>
class EveryCallback : public FederateAmbassador
{
   using Text = std::wstring const&;
   using Texts = std::set<std::wstring> const&;
   using Tag = VariableLengthData const&;
   using Federate = FederateHandle;
   using Federates = FederateHandleSet const&;
   using ObjectClass = ObjectClassHandle;
   using Object = ObjectInstanceHandle;
   using Attribute = AttributeHandle;
   using Attributes = AttributeHandleSet const&;
   using Values = AttributeHandleValueMap const&;
   using Interaction = InteractionClassHandle;
   using Parameters = ParameterHandleValueMap const&;
   using Order = OrderType;
   using Transport = TransportationType;
   using Time = LogicalTime const&;
   using Retraction = MessageRetractionHandle;
   using ReflectInfo = SupplementalReflectInfo;
   using ReceiveInfo = SupplementalReceiveInfo;
   using RemoveInfo = SupplementalRemoveInfo;

   template <class... Arguments>
   void told(char const* name, Arguments const&... arguments)
   {
      static_cast<Derived&>(*this).called(name, arguments...);
   }

   void connectionLost(Text a) override { told(__func__, a); }
   void reportFederationExecutions(FederationExecutionInformationVector const& a) override
   {
      told(__func__, a);
   }
   void synchronizationPointRegistrationSucceeded(Text a) override { told(__func__, a); }
   void synchronizationPointRegistrationFailed(Text a, SynchronizationPointFailureReason b) override
   {
      told(__func__, a, b);
   }
   void announceSynchronizationPoint(Text a, Tag b) override { told(__func__, a, b); }
   void federationSynchronized(Text a, Federates b) override { told(__func__, a, b); }
   void initiateFederateSave(Text a, Time b) override { told(__func__, a, b); }
   void initiateFederateSave(Text a) override { told(__func__, a); }
   void federationSaved() override { told(__func__); }
   void federationNotSaved(SaveFailureReason a) override { told(__func__, a); }
   void federationSaveStatusResponse(FederateHandleSaveStatusPairVector const& a) override
   {
      told(__func__, a);
   }
   void requestFederationRestoreSucceeded(Text a) override { told(__func__, a); }
   void requestFederationRestoreFailed(Text a) override { told(__func__, a); }
   void federationRestoreBegun() override { told(__func__); }
   void initiateFederateRestore(Text a, Text b, Federate c) override { told(__func__, a, b, c); }
   void federationRestored() override { told(__func__); }
   void federationNotRestored(RestoreFailureReason a) override { told(__func__, a); }
   void federationRestoreStatusResponse(FederateRestoreStatusVector const& a) override { told(__func__, a); }
   void startRegistrationForObjectClass(ObjectClass a) override { told(__func__, a); }
   void stopRegistrationForObjectClass(ObjectClass a) override { told(__func__, a); }
   void turnInteractionsOn(Interaction a) override { told(__func__, a); }
   void turnInteractionsOff(Interaction a) override { told(__func__, a); }
   void objectInstanceNameReservationSucceeded(Text a) override { told(__func__, a); }
   void objectInstanceNameReservationFailed(Text a) override { told(__func__, a); }
   void multipleObjectInstanceNameReservationSucceeded(Texts a) override { told(__func__, a); }
   void multipleObjectInstanceNameReservationFailed(Texts a) override { told(__func__, a); }
   void discoverObjectInstance(Object a, ObjectClass b, Text c, Federate d) override
   {
      told(__func__, a, b, c, d);
   }
   void discoverObjectInstance(Object a, ObjectClass b, Text c) override { told(__func__, a, b, c); }
   void reflectAttributeValues(Object a, Values b, Tag c, Order d, Transport e, Time f, Order g, Retraction h,
                               ReflectInfo i) override
   {
      told(__func__, a, b, c, d, e, f, g, h, i);
   }
   void reflectAttributeValues(Object a, Values b, Tag c, Order d, Transport e, Time f, Order g,
                               ReflectInfo h) override
   {
      told(__func__, a, b, c, d, e, f, g, h);
   }
   void reflectAttributeValues(Object a, Values b, Tag c, Order d, Transport e, ReflectInfo f) override
   {
      told(__func__, a, b, c, d, e, f);
   }
   void receiveInteraction(Interaction a, Parameters b, Tag c, Order d, Transport e, Time f, Order g,
                           Retraction h, ReceiveInfo i) override
   {
      told(__func__, a, b, c, d, e, f, g, h, i);
   }
   void receiveInteraction(Interaction a, Parameters b, Tag c, Order d, Transport e, Time f, Order g,
                           ReceiveInfo h) override
   {
      told(__func__, a, b, c, d, e, f, g, h);
   }
   void receiveInteraction(Interaction a, Parameters b, Tag c, Order d, Transport e, ReceiveInfo f) override
   {
      told(__func__, a, b, c, d, e, f);
   }
   void removeObjectInstance(Object a, Tag b, Order c, Time d, Order e, Retraction f, RemoveInfo g) override
   {
      told(__func__, a, b, c, d, e, f, g);
   }
   void removeObjectInstance(Object a, Tag b, Order c, Time d, Order e, RemoveInfo f) override
   {
      told(__func__, a, b, c, d, e, f);
   }
   void removeObjectInstance(Object a, Tag b, Order c, RemoveInfo d) override { told(__func__, a, b, c, d); }
   void attributesInScope(Object a, Attributes b) override { told(__func__, a, b); }
   void attributesOutOfScope(Object a, Attributes b) override { told(__func__, a, b); }
   void provideAttributeValueUpdate(Object a, Attributes b, Tag c) override { told(__func__, a, b, c); }
   void turnUpdatesOnForObjectInstance(Object a, Attributes b, Text c) override { told(__func__, a, b, c); }
   void turnUpdatesOnForObjectInstance(Object a, Attributes b) override { told(__func__, a, b); }
   void turnUpdatesOffForObjectInstance(Object a, Attributes b) override { told(__func__, a, b); }
   void confirmAttributeTransportationTypeChange(Object a, Attributes b, Transport c) override
   {
      told(__func__, a, b, c);
   }
   void reportAttributeTransportationType(Object a, Attribute b, Transport c) override
   {
      told(__func__, a, b, c);
   }
   void confirmInteractionTransportationTypeChange(Interaction a, Transport b) override
   {
      told(__func__, a, b);
   }
   void reportInteractionTransportationType(Federate a, Interaction b, Transport c) override
   {
      told(__func__, a, b, c);
   }
   void requestAttributeOwnershipAssumption(Object a, Attributes b, Tag c) override
   {
      told(__func__, a, b, c);
   }
   void requestDivestitureConfirmation(Object a, Attributes b) override { told(__func__, a, b); }
   void attributeOwnershipAcquisitionNotification(Object a, Attributes b, Tag c) override
   {
      told(__func__, a, b, c);
   }
   void attributeOwnershipUnavailable(Object a, Attributes b) override { told(__func__, a, b); }
   void requestAttributeOwnershipRelease(Object a, Attributes b, Tag c) override { told(__func__, a, b, c); }
   void confirmAttributeOwnershipAcquisitionCancellation(Object a, Attributes b) override
   {
      told(__func__, a, b);
   }
   void informAttributeOwnership(Object a, Attribute b, Federate c) override { told(__func__, a, b, c); }
   void attributeIsNotOwned(Object a, Attribute b) override { told(__func__, a, b); }
   void attributeIsOwnedByRTI(Object a, Attribute b) override { told(__func__, a, b); }
   void timeRegulationEnabled(Time a) override { told(__func__, a); }
   void timeConstrainedEnabled(Time a) override { told(__func__, a); }
   void timeAdvanceGrant(Time a) override { told(__func__, a); }
   void requestRetraction(Retraction a) override { told(__func__, a); }
};

} // namespace system_tests

#endif
