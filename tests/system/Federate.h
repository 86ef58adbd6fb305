// A federate that writes down its callbacks.
#ifndef RTI1516E_TESTS_SYSTEM_FEDERATE_H
#define RTI1516E_TESTS_SYSTEM_FEDERATE_H

#include "Text.h"

#include <RTI/RTI1516.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace system_tests {

// Each callback becomes a text such as "announceSynchronizationPoint(ready, tag)", in which handles have the
// names that the test's dictionary gives them. A callback with optional arguments is written in one way:
//
//    reflectAttributeValues(car, {Speed=5}, tag, TSO, reliable, by alpha)
//    reflectAttributeValues(car, {Speed=5}, tag, TSO, reliable, at 7 TSO retractable, by alpha, from {r1})
//
// One thread, the test's, asks for callbacks; they may come on any other.
class Federate : private rti1516e::FederateAmbassador
{
public:
   using Callbacks = std::vector<std::string>;

   Federate(std::string const& name, rti1516e::CallbackModel model, Names& names);

   // Destroys the ambassador first, as any federate has to.
   ~Federate() override;

   std::string const& name() const { return _name; }
   rti1516e::FederateHandle handle() const { return _handle; }
   rti1516e::RTIambassador* operator->() { return _ambassador.get(); }
   rti1516e::RTIambassador& operator*() { return *_ambassador; }

   void connect();
   void join(std::string const& federation, std::vector<std::wstring> const& modules = {});
   void destroyAmbassador() { _ambassador.reset(); }

   // What has come since the last question, waiting until there are as many as wanted and then for whatever
   // the services called so far have still under way. Gives up after ten seconds.
   Callbacks callbacks(std::size_t wanted = 0);

   // Called in each callback, after it is written down, with the handles as numbers.
   std::function<void(std::string const&)> onCallback;

   // Waits for the condition, which callbacks can change, letting callbacks come.
   bool await(std::function<bool()> const& condition,
              std::chrono::milliseconds limit = std::chrono::seconds(10));

   // How many callbacks have come that were not asked for yet.
   std::size_t waiting() const;

private:
   template <class... Arguments>
   void record(char const* callback, Arguments const&... arguments);
   void written(std::string const& callback);
   void tell();
   void drain();

   std::string const _name;
   rti1516e::CallbackModel const _model;
   Names& _names;
   rti1516e::FederateHandle _handle;

   mutable std::mutex _mutex;
   std::condition_variable _news;
   Callbacks _callbacks;
   std::atomic<std::size_t> _written{0};
   std::atomic<bool> _draining{false};
   std::atomic<bool> _drained{false};

   std::unique_ptr<rti1516e::RTIambassador> _ambassador;

   void connectionLost(std::wstring const& faultDescription) override;
   void reportFederationExecutions(
      rti1516e::FederationExecutionInformationVector const& theFederationExecutionInformationList) override;
   void synchronizationPointRegistrationSucceeded(std::wstring const& label) override;
   void synchronizationPointRegistrationFailed(std::wstring const& label,
                                               rti1516e::SynchronizationPointFailureReason reason) override;
   void announceSynchronizationPoint(std::wstring const& label,
                                     rti1516e::VariableLengthData const& theUserSuppliedTag) override;
   void federationSynchronized(std::wstring const& label,
                               rti1516e::FederateHandleSet const& failedToSyncSet) override;
   void initiateFederateSave(std::wstring const& label, rti1516e::LogicalTime const& theTime) override;
   void initiateFederateSave(std::wstring const& label) override;
   void federationSaved() override;
   void federationNotSaved(rti1516e::SaveFailureReason theSaveFailureReason) override;
   void federationSaveStatusResponse(
      rti1516e::FederateHandleSaveStatusPairVector const& theFederateStatusVector) override;
   void requestFederationRestoreSucceeded(std::wstring const& label) override;
   void requestFederationRestoreFailed(std::wstring const& label) override;
   void federationRestoreBegun() override;
   void initiateFederateRestore(std::wstring const& label, std::wstring const& federateName,
                                rti1516e::FederateHandle handle) override;
   void federationRestored() override;
   void federationNotRestored(rti1516e::RestoreFailureReason theRestoreFailureReason) override;
   void federationRestoreStatusResponse(
      rti1516e::FederateRestoreStatusVector const& theFederateRestoreStatusVector) override;
   void startRegistrationForObjectClass(rti1516e::ObjectClassHandle theClass) override;
   void stopRegistrationForObjectClass(rti1516e::ObjectClassHandle theClass) override;
   void turnInteractionsOn(rti1516e::InteractionClassHandle theHandle) override;
   void turnInteractionsOff(rti1516e::InteractionClassHandle theHandle) override;
   void objectInstanceNameReservationSucceeded(std::wstring const& theObjectInstanceName) override;
   void objectInstanceNameReservationFailed(std::wstring const& theObjectInstanceName) override;
   void multipleObjectInstanceNameReservationSucceeded(
      std::set<std::wstring> const& theObjectInstanceNames) override;
   void multipleObjectInstanceNameReservationFailed(
      std::set<std::wstring> const& theObjectInstanceNames) override;
   void discoverObjectInstance(rti1516e::ObjectInstanceHandle theObject,
                               rti1516e::ObjectClassHandle theObjectClass,
                               std::wstring const& theObjectInstanceName,
                               rti1516e::FederateHandle producingFederate) override;
   void discoverObjectInstance(rti1516e::ObjectInstanceHandle theObject,
                               rti1516e::ObjectClassHandle theObjectClass,
                               std::wstring const& theObjectInstanceName) override;
   void reflectAttributeValues(rti1516e::ObjectInstanceHandle theObject,
                               rti1516e::AttributeHandleValueMap const& theAttributeValues,
                               rti1516e::VariableLengthData const& theUserSuppliedTag,
                               rti1516e::OrderType sentOrder, rti1516e::TransportationType theType,
                               rti1516e::LogicalTime const& theTime, rti1516e::OrderType receivedOrder,
                               rti1516e::MessageRetractionHandle theHandle,
                               rti1516e::SupplementalReflectInfo theReflectInfo) override;
   void reflectAttributeValues(rti1516e::ObjectInstanceHandle theObject,
                               rti1516e::AttributeHandleValueMap const& theAttributeValues,
                               rti1516e::VariableLengthData const& theUserSuppliedTag,
                               rti1516e::OrderType sentOrder, rti1516e::TransportationType theType,
                               rti1516e::LogicalTime const& theTime, rti1516e::OrderType receivedOrder,
                               rti1516e::SupplementalReflectInfo theReflectInfo) override;
   void reflectAttributeValues(rti1516e::ObjectInstanceHandle theObject,
                               rti1516e::AttributeHandleValueMap const& theAttributeValues,
                               rti1516e::VariableLengthData const& theUserSuppliedTag,
                               rti1516e::OrderType sentOrder, rti1516e::TransportationType theType,
                               rti1516e::SupplementalReflectInfo theReflectInfo) override;
   void receiveInteraction(rti1516e::InteractionClassHandle theInteraction,
                           rti1516e::ParameterHandleValueMap const& theParameterValues,
                           rti1516e::VariableLengthData const& theUserSuppliedTag,
                           rti1516e::OrderType sentOrder, rti1516e::TransportationType theType,
                           rti1516e::LogicalTime const& theTime, rti1516e::OrderType receivedOrder,
                           rti1516e::MessageRetractionHandle theHandle,
                           rti1516e::SupplementalReceiveInfo theReceiveInfo) override;
   void receiveInteraction(rti1516e::InteractionClassHandle theInteraction,
                           rti1516e::ParameterHandleValueMap const& theParameterValues,
                           rti1516e::VariableLengthData const& theUserSuppliedTag,
                           rti1516e::OrderType sentOrder, rti1516e::TransportationType theType,
                           rti1516e::LogicalTime const& theTime, rti1516e::OrderType receivedOrder,
                           rti1516e::SupplementalReceiveInfo theReceiveInfo) override;
   void receiveInteraction(rti1516e::InteractionClassHandle theInteraction,
                           rti1516e::ParameterHandleValueMap const& theParameterValues,
                           rti1516e::VariableLengthData const& theUserSuppliedTag,
                           rti1516e::OrderType sentOrder, rti1516e::TransportationType theType,
                           rti1516e::SupplementalReceiveInfo theReceiveInfo) override;
   void removeObjectInstance(rti1516e::ObjectInstanceHandle theObject,
                             rti1516e::VariableLengthData const& theUserSuppliedTag,
                             rti1516e::OrderType sentOrder, rti1516e::LogicalTime const& theTime,
                             rti1516e::OrderType receivedOrder, rti1516e::MessageRetractionHandle theHandle,
                             rti1516e::SupplementalRemoveInfo theRemoveInfo) override;
   void removeObjectInstance(rti1516e::ObjectInstanceHandle theObject,
                             rti1516e::VariableLengthData const& theUserSuppliedTag,
                             rti1516e::OrderType sentOrder, rti1516e::LogicalTime const& theTime,
                             rti1516e::OrderType receivedOrder,
                             rti1516e::SupplementalRemoveInfo theRemoveInfo) override;
   void removeObjectInstance(rti1516e::ObjectInstanceHandle theObject,
                             rti1516e::VariableLengthData const& theUserSuppliedTag,
                             rti1516e::OrderType sentOrder,
                             rti1516e::SupplementalRemoveInfo theRemoveInfo) override;
   void attributesInScope(rti1516e::ObjectInstanceHandle theObject,
                          rti1516e::AttributeHandleSet const& theAttributes) override;
   void attributesOutOfScope(rti1516e::ObjectInstanceHandle theObject,
                             rti1516e::AttributeHandleSet const& theAttributes) override;
   void provideAttributeValueUpdate(rti1516e::ObjectInstanceHandle theObject,
                                    rti1516e::AttributeHandleSet const& theAttributes,
                                    rti1516e::VariableLengthData const& theUserSuppliedTag) override;
   void turnUpdatesOnForObjectInstance(rti1516e::ObjectInstanceHandle theObject,
                                       rti1516e::AttributeHandleSet const& theAttributes,
                                       std::wstring const& updateRateDesignator) override;
   void turnUpdatesOnForObjectInstance(rti1516e::ObjectInstanceHandle theObject,
                                       rti1516e::AttributeHandleSet const& theAttributes) override;
   void turnUpdatesOffForObjectInstance(rti1516e::ObjectInstanceHandle theObject,
                                        rti1516e::AttributeHandleSet const& theAttributes) override;
   void confirmAttributeTransportationTypeChange(rti1516e::ObjectInstanceHandle theObject,
                                                 rti1516e::AttributeHandleSet const& theAttributes,
                                                 rti1516e::TransportationType theTransportation) override;
   void reportAttributeTransportationType(rti1516e::ObjectInstanceHandle theObject,
                                          rti1516e::AttributeHandle theAttribute,
                                          rti1516e::TransportationType theTransportation) override;
   void confirmInteractionTransportationTypeChange(rti1516e::InteractionClassHandle theInteraction,
                                                   rti1516e::TransportationType theTransportation) override;
   void reportInteractionTransportationType(rti1516e::FederateHandle federateHandle,
                                            rti1516e::InteractionClassHandle theInteraction,
                                            rti1516e::TransportationType theTransportation) override;
   void requestAttributeOwnershipAssumption(rti1516e::ObjectInstanceHandle theObject,
                                            rti1516e::AttributeHandleSet const& offeredAttributes,
                                            rti1516e::VariableLengthData const& theUserSuppliedTag) override;
   void requestDivestitureConfirmation(rti1516e::ObjectInstanceHandle theObject,
                                       rti1516e::AttributeHandleSet const& releasedAttributes) override;
   void attributeOwnershipAcquisitionNotification(
      rti1516e::ObjectInstanceHandle theObject, rti1516e::AttributeHandleSet const& securedAttributes,
      rti1516e::VariableLengthData const& theUserSuppliedTag) override;
   void attributeOwnershipUnavailable(rti1516e::ObjectInstanceHandle theObject,
                                      rti1516e::AttributeHandleSet const& theAttributes) override;
   void requestAttributeOwnershipRelease(rti1516e::ObjectInstanceHandle theObject,
                                         rti1516e::AttributeHandleSet const& candidateAttributes,
                                         rti1516e::VariableLengthData const& theUserSuppliedTag) override;
   void confirmAttributeOwnershipAcquisitionCancellation(
      rti1516e::ObjectInstanceHandle theObject, rti1516e::AttributeHandleSet const& theAttributes) override;
   void informAttributeOwnership(rti1516e::ObjectInstanceHandle theObject,
                                 rti1516e::AttributeHandle theAttribute,
                                 rti1516e::FederateHandle theOwner) override;
   void attributeIsNotOwned(rti1516e::ObjectInstanceHandle theObject,
                            rti1516e::AttributeHandle theAttribute) override;
   void attributeIsOwnedByRTI(rti1516e::ObjectInstanceHandle theObject,
                              rti1516e::AttributeHandle theAttribute) override;
   void timeRegulationEnabled(rti1516e::LogicalTime const& theFederateTime) override;
   void timeConstrainedEnabled(rti1516e::LogicalTime const& theFederateTime) override;
   void timeAdvanceGrant(rti1516e::LogicalTime const& theTime) override;
   void requestRetraction(rti1516e::MessageRetractionHandle theHandle) override;
};

} // namespace system_tests

#endif
