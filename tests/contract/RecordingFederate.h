// A federate ambassador that writes down what it is called with and then does what the test has told it to.
#pragma once

#include "Shown.h"

#include <RTI/FederateAmbassador.h>

#include <functional>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace contract {

using namespace rti1516e;

class RecordingFederate : public FederateAmbassador
{
public:
   // Done in every callback, on its thread, once it is written down.
   std::function<void()> inCallback;

   // The callbacks since the last time, each as its name and its arguments.
   std::vector<std::wstring> takeCalled()
   {
      std::lock_guard<std::mutex> const lock(_mutex);
      return std::exchange(_called, {});
   }

   void connectionLost(std::wstring const& a) override { called(L"connectionLost", a); }
   void reportFederationExecutions(FederationExecutionInformationVector const& a) override
   {
      called(L"reportFederationExecutions", a);
   }
   void synchronizationPointRegistrationSucceeded(std::wstring const& a) override
   {
      called(L"synchronizationPointRegistrationSucceeded", a);
   }
   void synchronizationPointRegistrationFailed(std::wstring const& a,
                                               SynchronizationPointFailureReason b) override
   {
      called(L"synchronizationPointRegistrationFailed", a, b);
   }
   void announceSynchronizationPoint(std::wstring const& a, VariableLengthData const& b) override
   {
      called(L"announceSynchronizationPoint", a, b);
   }
   void federationSynchronized(std::wstring const& a, FederateHandleSet const& b) override
   {
      called(L"federationSynchronized", a, b);
   }
   void initiateFederateSave(std::wstring const& a, LogicalTime const& b) override
   {
      called(L"initiateFederateSave", a, b);
   }
   void initiateFederateSave(std::wstring const& a) override { called(L"initiateFederateSave", a); }
   void federationSaved() override { called(L"federationSaved"); }
   void federationNotSaved(SaveFailureReason a) override { called(L"federationNotSaved", a); }
   void federationSaveStatusResponse(FederateHandleSaveStatusPairVector const& a) override
   {
      called(L"federationSaveStatusResponse", a);
   }
   void requestFederationRestoreSucceeded(std::wstring const& a) override
   {
      called(L"requestFederationRestoreSucceeded", a);
   }
   void requestFederationRestoreFailed(std::wstring const& a) override
   {
      called(L"requestFederationRestoreFailed", a);
   }
   void federationRestoreBegun() override { called(L"federationRestoreBegun"); }
   void initiateFederateRestore(std::wstring const& a, std::wstring const& b, FederateHandle c) override
   {
      called(L"initiateFederateRestore", a, b, c);
   }
   void federationRestored() override { called(L"federationRestored"); }
   void federationNotRestored(RestoreFailureReason a) override { called(L"federationNotRestored", a); }
   void federationRestoreStatusResponse(FederateRestoreStatusVector const& a) override
   {
      called(L"federationRestoreStatusResponse", a);
   }
   void startRegistrationForObjectClass(ObjectClassHandle a) override
   {
      called(L"startRegistrationForObjectClass", a);
   }
   void stopRegistrationForObjectClass(ObjectClassHandle a) override
   {
      called(L"stopRegistrationForObjectClass", a);
   }
   void turnInteractionsOn(InteractionClassHandle a) override { called(L"turnInteractionsOn", a); }
   void turnInteractionsOff(InteractionClassHandle a) override { called(L"turnInteractionsOff", a); }
   void objectInstanceNameReservationSucceeded(std::wstring const& a) override
   {
      called(L"objectInstanceNameReservationSucceeded", a);
   }
   void objectInstanceNameReservationFailed(std::wstring const& a) override
   {
      called(L"objectInstanceNameReservationFailed", a);
   }
   void multipleObjectInstanceNameReservationSucceeded(std::set<std::wstring> const& a) override
   {
      called(L"multipleObjectInstanceNameReservationSucceeded", a);
   }
   void multipleObjectInstanceNameReservationFailed(std::set<std::wstring> const& a) override
   {
      called(L"multipleObjectInstanceNameReservationFailed", a);
   }
   void discoverObjectInstance(ObjectInstanceHandle a, ObjectClassHandle b, std::wstring const& c,
                               FederateHandle d) override
   {
      called(L"discoverObjectInstance", a, b, c, d);
   }
   void discoverObjectInstance(ObjectInstanceHandle a, ObjectClassHandle b, std::wstring const& c) override
   {
      called(L"discoverObjectInstance", a, b, c);
   }
   void reflectAttributeValues(ObjectInstanceHandle a, AttributeHandleValueMap const& b,
                               VariableLengthData const& c, OrderType d, TransportationType e,
                               LogicalTime const& f, OrderType g, MessageRetractionHandle h,
                               SupplementalReflectInfo i) override
   {
      called(L"reflectAttributeValues", a, b, c, d, e, f, g, h, i);
   }
   void reflectAttributeValues(ObjectInstanceHandle a, AttributeHandleValueMap const& b,
                               VariableLengthData const& c, OrderType d, TransportationType e,
                               LogicalTime const& f, OrderType g, SupplementalReflectInfo h) override
   {
      called(L"reflectAttributeValues", a, b, c, d, e, f, g, h);
   }
   void reflectAttributeValues(ObjectInstanceHandle a, AttributeHandleValueMap const& b,
                               VariableLengthData const& c, OrderType d, TransportationType e,
                               SupplementalReflectInfo f) override
   {
      called(L"reflectAttributeValues", a, b, c, d, e, f);
   }
   void receiveInteraction(InteractionClassHandle a, ParameterHandleValueMap const& b,
                           VariableLengthData const& c, OrderType d, TransportationType e,
                           LogicalTime const& f, OrderType g, MessageRetractionHandle h,
                           SupplementalReceiveInfo i) override
   {
      called(L"receiveInteraction", a, b, c, d, e, f, g, h, i);
   }
   void receiveInteraction(InteractionClassHandle a, ParameterHandleValueMap const& b,
                           VariableLengthData const& c, OrderType d, TransportationType e,
                           LogicalTime const& f, OrderType g, SupplementalReceiveInfo h) override
   {
      called(L"receiveInteraction", a, b, c, d, e, f, g, h);
   }
   void receiveInteraction(InteractionClassHandle a, ParameterHandleValueMap const& b,
                           VariableLengthData const& c, OrderType d, TransportationType e,
                           SupplementalReceiveInfo f) override
   {
      called(L"receiveInteraction", a, b, c, d, e, f);
   }
   void removeObjectInstance(ObjectInstanceHandle a, VariableLengthData const& b, OrderType c,
                             LogicalTime const& d, OrderType e, MessageRetractionHandle f,
                             SupplementalRemoveInfo g) override
   {
      called(L"removeObjectInstance", a, b, c, d, e, f, g);
   }
   void removeObjectInstance(ObjectInstanceHandle a, VariableLengthData const& b, OrderType c,
                             LogicalTime const& d, OrderType e, SupplementalRemoveInfo f) override
   {
      called(L"removeObjectInstance", a, b, c, d, e, f);
   }
   void removeObjectInstance(ObjectInstanceHandle a, VariableLengthData const& b, OrderType c,
                             SupplementalRemoveInfo d) override
   {
      called(L"removeObjectInstance", a, b, c, d);
   }
   void attributesInScope(ObjectInstanceHandle a, AttributeHandleSet const& b) override
   {
      called(L"attributesInScope", a, b);
   }
   void attributesOutOfScope(ObjectInstanceHandle a, AttributeHandleSet const& b) override
   {
      called(L"attributesOutOfScope", a, b);
   }
   void provideAttributeValueUpdate(ObjectInstanceHandle a, AttributeHandleSet const& b,
                                    VariableLengthData const& c) override
   {
      called(L"provideAttributeValueUpdate", a, b, c);
   }
   void turnUpdatesOnForObjectInstance(ObjectInstanceHandle a, AttributeHandleSet const& b,
                                       std::wstring const& c) override
   {
      called(L"turnUpdatesOnForObjectInstance", a, b, c);
   }
   void turnUpdatesOnForObjectInstance(ObjectInstanceHandle a, AttributeHandleSet const& b) override
   {
      called(L"turnUpdatesOnForObjectInstance", a, b);
   }
   void turnUpdatesOffForObjectInstance(ObjectInstanceHandle a, AttributeHandleSet const& b) override
   {
      called(L"turnUpdatesOffForObjectInstance", a, b);
   }
   void confirmAttributeTransportationTypeChange(ObjectInstanceHandle a, AttributeHandleSet const& b,
                                                 TransportationType c) override
   {
      called(L"confirmAttributeTransportationTypeChange", a, b, c);
   }
   void reportAttributeTransportationType(ObjectInstanceHandle a, AttributeHandle b,
                                          TransportationType c) override
   {
      called(L"reportAttributeTransportationType", a, b, c);
   }
   void confirmInteractionTransportationTypeChange(InteractionClassHandle a, TransportationType b) override
   {
      called(L"confirmInteractionTransportationTypeChange", a, b);
   }
   void reportInteractionTransportationType(FederateHandle a, InteractionClassHandle b,
                                            TransportationType c) override
   {
      called(L"reportInteractionTransportationType", a, b, c);
   }
   void requestAttributeOwnershipAssumption(ObjectInstanceHandle a, AttributeHandleSet const& b,
                                            VariableLengthData const& c) override
   {
      called(L"requestAttributeOwnershipAssumption", a, b, c);
   }
   void requestDivestitureConfirmation(ObjectInstanceHandle a, AttributeHandleSet const& b) override
   {
      called(L"requestDivestitureConfirmation", a, b);
   }
   void attributeOwnershipAcquisitionNotification(ObjectInstanceHandle a, AttributeHandleSet const& b,
                                                  VariableLengthData const& c) override
   {
      called(L"attributeOwnershipAcquisitionNotification", a, b, c);
   }
   void attributeOwnershipUnavailable(ObjectInstanceHandle a, AttributeHandleSet const& b) override
   {
      called(L"attributeOwnershipUnavailable", a, b);
   }
   void requestAttributeOwnershipRelease(ObjectInstanceHandle a, AttributeHandleSet const& b,
                                         VariableLengthData const& c) override
   {
      called(L"requestAttributeOwnershipRelease", a, b, c);
   }
   void confirmAttributeOwnershipAcquisitionCancellation(ObjectInstanceHandle a,
                                                         AttributeHandleSet const& b) override
   {
      called(L"confirmAttributeOwnershipAcquisitionCancellation", a, b);
   }
   void informAttributeOwnership(ObjectInstanceHandle a, AttributeHandle b, FederateHandle c) override
   {
      called(L"informAttributeOwnership", a, b, c);
   }
   void attributeIsNotOwned(ObjectInstanceHandle a, AttributeHandle b) override
   {
      called(L"attributeIsNotOwned", a, b);
   }
   void attributeIsOwnedByRTI(ObjectInstanceHandle a, AttributeHandle b) override
   {
      called(L"attributeIsOwnedByRTI", a, b);
   }
   void timeRegulationEnabled(LogicalTime const& a) override { called(L"timeRegulationEnabled", a); }
   void timeConstrainedEnabled(LogicalTime const& a) override { called(L"timeConstrainedEnabled", a); }
   void timeAdvanceGrant(LogicalTime const& a) override { called(L"timeAdvanceGrant", a); }
   void requestRetraction(MessageRetractionHandle a) override { called(L"requestRetraction", a); }

private:
   template <class... Arguments>
   void called(wchar_t const* name, Arguments const&... arguments)
   {
      std::wstring text;
      ((text += (text.empty() ? L"" : L", ") + shown(arguments)), ...);
      {
         std::lock_guard<std::mutex> const lock(_mutex);
         _called.push_back(std::wstring(name) + L"(" + text + L")");
      }
      if (inCallback) {
         inCallback();
      }
   }

   std::mutex _mutex;
   std::vector<std::wstring> _called;
};

} // namespace contract
