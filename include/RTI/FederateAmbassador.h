#ifndef RTI_FederateAmbassador_h
#define RTI_FederateAmbassador_h

#include <RTI/Enums.h>
#include <RTI/Handle.h>
#include <RTI/LogicalTime.h>
#include <RTI/SpecificConfig.h>
#include <RTI/Typedefs.h>
#include <RTI/VariableLengthData.h>

#include <set>
#include <string>

namespace rti1516e {

// What a federate implements to be called back. NullFederateAmbassador spares it the callbacks it has no use
// for.
//
// In the evoked model callbacks run on the thread that evokes them, in the immediate model on a thread of the
// infrastructure's. Both use the floating-point control word of the thread that called connect. Arguments
// taken by reference live until the callback returns: copy what is to be kept. A tag is empty if the sender
// gave none.
//
// Within a callback any service may be called whose list of exceptions does not name
// CallNotAllowedFromWithinCallback.
//
// A callback reports failure by throwing FederateInternalError. That, any other exception of the interface,
// std::exception, a std::string and, unless the environment variable TOVU1516_DONTCATCHALL is set, whatever
// else is thrown, goes to the infrastructure as a FederateInternalError and no further.
//
// Where TOVU1516_DONTCATCHALL is set, what else is thrown finds no way through Java and ends the process
// (std::terminate), so that a debugger sees where it came from. How a thread may end in a callback, and what
// a fork leaves, is told with RTIambassador.
//
// The object must outlive the ambassador that it was connected with, or at least every callback: the library
// does not own it.
class RTI_EXPORT FederateAmbassador
{
protected:
   FederateAmbassador();

public:
   virtual ~FederateAmbassador();

   // Federation management

   // The connection to the infrastructure is gone; every federation joined through it is left.
   virtual void connectionLost(std::wstring const& faultDescription) = 0;

   // The answer to listFederationExecutions.
   virtual void reportFederationExecutions(
      FederationExecutionInformationVector const& theFederationExecutionInformationList) = 0;

   // The answers to registerFederationSynchronizationPoint.
   virtual void synchronizationPointRegistrationSucceeded(std::wstring const& label) = 0;
   virtual void synchronizationPointRegistrationFailed(std::wstring const& label,
                                                       SynchronizationPointFailureReason reason) = 0;

   // A point to reach: answer with synchronizationPointAchieved. The tag is that of whoever registered it.
   virtual void announceSynchronizationPoint(std::wstring const& label,
                                             VariableLengthData const& theUserSuppliedTag) = 0;

   // Every federate of the point has achieved it. The set names those that did so without success; it is
   // empty if none did.
   virtual void federationSynchronized(std::wstring const& label,
                                       FederateHandleSet const& failedToSyncSet) = 0;

   // Save your state and report with federateSaveBegun and federateSaveComplete; in the first form, when
   // the federate has reached the time.
   virtual void initiateFederateSave(std::wstring const& label, LogicalTime const& theTime) = 0;
   virtual void initiateFederateSave(std::wstring const& label) = 0;

   // All federates have saved their state. The saved state can be restored by its label.
   virtual void federationSaved() = 0;

   // The save has failed or was given up.
   virtual void federationNotSaved(SaveFailureReason theSaveFailureReason) = 0;

   // The answer to queryFederationSaveStatus, with an element for each joined federate.
   virtual void federationSaveStatusResponse(
      FederateHandleSaveStatusPairVector const& theFederateStatusVector) = 0;

   // The answers to requestFederationRestore. They go only to the federate that asked.
   virtual void requestFederationRestoreSucceeded(std::wstring const& label) = 0;
   virtual void requestFederationRestoreFailed(std::wstring const& label) = 0;

   // A restore begins: call no service but those of the restore until it ends.
   virtual void federationRestoreBegun() = 0;

   // Restore the state saved under the label. The federate goes on under the given name and handle.
   virtual void initiateFederateRestore(std::wstring const& label, std::wstring const& federateName,
                                        FederateHandle handle) = 0;

   // All federates have restored their state, and go on.
   virtual void federationRestored() = 0;

   // The restore has failed or was given up.
   virtual void federationNotRestored(RestoreFailureReason theRestoreFailureReason) = 0;

   // The answer to queryFederationRestoreStatus, with an element for each joined federate.
   virtual void federationRestoreStatusResponse(
      FederateRestoreStatusVector const& theFederateRestoreStatusVector) = 0;

   // Declaration management

   // Somebody is subscribed to a published class, or nobody is any more: whether instances are worth
   // registering.
   virtual void startRegistrationForObjectClass(ObjectClassHandle theClass) = 0;
   virtual void stopRegistrationForObjectClass(ObjectClassHandle theClass) = 0;

   // Somebody is subscribed to a published class, or nobody is any more: whether interactions are worth
   // sending.
   virtual void turnInteractionsOn(InteractionClassHandle theHandle) = 0;
   virtual void turnInteractionsOff(InteractionClassHandle theHandle) = 0;

   // Object management

   // The answers to reserveObjectInstanceName.
   virtual void objectInstanceNameReservationSucceeded(std::wstring const& theObjectInstanceName) = 0;
   virtual void objectInstanceNameReservationFailed(std::wstring const& theObjectInstanceName) = 0;

   // The answers to reserveMultipleObjectInstanceName: all names are reserved, or none.
   virtual void multipleObjectInstanceNameReservationSucceeded(
      std::set<std::wstring> const& theObjectInstanceNames) = 0;
   virtual void multipleObjectInstanceNameReservationFailed(
      std::set<std::wstring> const& theObjectInstanceNames) = 0;

   // An instance of a subscribed class is there, known as that class from now on. The form with a federate
   // tells who registered it.
   virtual void discoverObjectInstance(ObjectInstanceHandle theObject, ObjectClassHandle theObjectClass,
                                       std::wstring const& theObjectInstanceName,
                                       FederateHandle producingFederate) = 0;
   virtual void discoverObjectInstance(ObjectInstanceHandle theObject, ObjectClassHandle theObjectClass,
                                       std::wstring const& theObjectInstanceName) = 0;

   // The forms with a time are for messages sent with one; the retraction handle comes where the sender
   // may still retract the message.
   virtual void reflectAttributeValues(ObjectInstanceHandle theObject,
                                       AttributeHandleValueMap const& theAttributeValues,
                                       VariableLengthData const& theUserSuppliedTag, OrderType sentOrder,
                                       TransportationType theType, LogicalTime const& theTime,
                                       OrderType receivedOrder, MessageRetractionHandle theHandle,
                                       SupplementalReflectInfo theReflectInfo) = 0;
   virtual void reflectAttributeValues(ObjectInstanceHandle theObject,
                                       AttributeHandleValueMap const& theAttributeValues,
                                       VariableLengthData const& theUserSuppliedTag, OrderType sentOrder,
                                       TransportationType theType, LogicalTime const& theTime,
                                       OrderType receivedOrder, SupplementalReflectInfo theReflectInfo) = 0;
   virtual void reflectAttributeValues(ObjectInstanceHandle theObject,
                                       AttributeHandleValueMap const& theAttributeValues,
                                       VariableLengthData const& theUserSuppliedTag, OrderType sentOrder,
                                       TransportationType theType,
                                       SupplementalReflectInfo theReflectInfo) = 0;

   // An interaction of a subscribed class, as that class. The forms are those of reflectAttributeValues.
   virtual void receiveInteraction(InteractionClassHandle theInteraction,
                                   ParameterHandleValueMap const& theParameterValues,
                                   VariableLengthData const& theUserSuppliedTag, OrderType sentOrder,
                                   TransportationType theType, LogicalTime const& theTime,
                                   OrderType receivedOrder, MessageRetractionHandle theHandle,
                                   SupplementalReceiveInfo theReceiveInfo) = 0;
   virtual void receiveInteraction(InteractionClassHandle theInteraction,
                                   ParameterHandleValueMap const& theParameterValues,
                                   VariableLengthData const& theUserSuppliedTag, OrderType sentOrder,
                                   TransportationType theType, LogicalTime const& theTime,
                                   OrderType receivedOrder, SupplementalReceiveInfo theReceiveInfo) = 0;
   virtual void receiveInteraction(InteractionClassHandle theInteraction,
                                   ParameterHandleValueMap const& theParameterValues,
                                   VariableLengthData const& theUserSuppliedTag, OrderType sentOrder,
                                   TransportationType theType, SupplementalReceiveInfo theReceiveInfo) = 0;

   // The instance has been deleted. Its name and class can still be asked for within this callback.
   virtual void removeObjectInstance(ObjectInstanceHandle theObject,
                                     VariableLengthData const& theUserSuppliedTag, OrderType sentOrder,
                                     LogicalTime const& theTime, OrderType receivedOrder,
                                     MessageRetractionHandle theHandle,
                                     SupplementalRemoveInfo theRemoveInfo) = 0;
   virtual void removeObjectInstance(ObjectInstanceHandle theObject,
                                     VariableLengthData const& theUserSuppliedTag, OrderType sentOrder,
                                     LogicalTime const& theTime, OrderType receivedOrder,
                                     SupplementalRemoveInfo theRemoveInfo) = 0;
   virtual void removeObjectInstance(ObjectInstanceHandle theObject,
                                     VariableLengthData const& theUserSuppliedTag, OrderType sentOrder,
                                     SupplementalRemoveInfo theRemoveInfo) = 0;

   // Updates of these attributes can reach this federate, or cannot any more.
   virtual void attributesInScope(ObjectInstanceHandle theObject,
                                  AttributeHandleSet const& theAttributes) = 0;
   virtual void attributesOutOfScope(ObjectInstanceHandle theObject,
                                     AttributeHandleSet const& theAttributes) = 0;

   // Somebody asks for the values of attributes of this federate's: answer with updateAttributeValues.
   virtual void provideAttributeValueUpdate(ObjectInstanceHandle theObject,
                                            AttributeHandleSet const& theAttributes,
                                            VariableLengthData const& theUserSuppliedTag) = 0;

   // Somebody wants updates of these attributes, at most at the rate that the designator names; without one,
   // every update.
   virtual void turnUpdatesOnForObjectInstance(ObjectInstanceHandle theObject,
                                               AttributeHandleSet const& theAttributes,
                                               std::wstring const& updateRateDesignator) = 0;
   virtual void turnUpdatesOnForObjectInstance(ObjectInstanceHandle theObject,
                                               AttributeHandleSet const& theAttributes) = 0;

   // Nobody wants updates of these attributes.
   virtual void turnUpdatesOffForObjectInstance(ObjectInstanceHandle theObject,
                                                AttributeHandleSet const& theAttributes) = 0;

   // The answer to requestAttributeTransportationTypeChange. The change is in force.
   virtual void confirmAttributeTransportationTypeChange(ObjectInstanceHandle theObject,
                                                         AttributeHandleSet theAttributes,
                                                         TransportationType theTransportation) = 0;

   // The answer to queryAttributeTransportationType.
   virtual void reportAttributeTransportationType(ObjectInstanceHandle theObject,
                                                  AttributeHandle theAttribute,
                                                  TransportationType theTransportation) = 0;

   // The answer to requestInteractionTransportationTypeChange. The change is in force.
   virtual void confirmInteractionTransportationTypeChange(InteractionClassHandle theInteraction,
                                                           TransportationType theTransportation) = 0;

   // The answer to queryInteractionTransportationType.
   virtual void reportInteractionTransportationType(FederateHandle federateHandle,
                                                    InteractionClassHandle theInteraction,
                                                    TransportationType theTransportation) = 0;

   // Ownership management

   // The attributes are offered: answer with an acquisition, or not at all.
   virtual void requestAttributeOwnershipAssumption(ObjectInstanceHandle theObject,
                                                    AttributeHandleSet const& offeredAttributes,
                                                    VariableLengthData const& theUserSuppliedTag) = 0;

   // Somebody takes the attributes that this federate wants to divest: answer with confirmDivestiture.
   virtual void requestDivestitureConfirmation(ObjectInstanceHandle theObject,
                                               AttributeHandleSet const& releasedAttributes) = 0;

   // This federate owns the attributes from now on.
   virtual void attributeOwnershipAcquisitionNotification(ObjectInstanceHandle theObject,
                                                          AttributeHandleSet const& securedAttributes,
                                                          VariableLengthData const& theUserSuppliedTag) = 0;

   // These attributes have an owner, so that attributeOwnershipAcquisitionIfAvailable did not take them.
   virtual void attributeOwnershipUnavailable(ObjectInstanceHandle theObject,
                                              AttributeHandleSet const& theAttributes) = 0;

   // Somebody wants these attributes of this federate's: answer with attributeOwnershipDivestitureIfWanted or
   // attributeOwnershipReleaseDenied.
   virtual void requestAttributeOwnershipRelease(ObjectInstanceHandle theObject,
                                                 AttributeHandleSet const& candidateAttributes,
                                                 VariableLengthData const& theUserSuppliedTag) = 0;

   // The answer to cancelAttributeOwnershipAcquisition: the attributes do not come any more.
   virtual void confirmAttributeOwnershipAcquisitionCancellation(ObjectInstanceHandle theObject,
                                                                 AttributeHandleSet const& theAttributes) = 0;

   // The answers to queryAttributeOwnership.
   virtual void informAttributeOwnership(ObjectInstanceHandle theObject, AttributeHandle theAttribute,
                                         FederateHandle theOwner) = 0;
   virtual void attributeIsNotOwned(ObjectInstanceHandle theObject, AttributeHandle theAttribute) = 0;
   virtual void attributeIsOwnedByRTI(ObjectInstanceHandle theObject, AttributeHandle theAttribute) = 0;

   // Time management

   // The federate regulates, or is constrained, from now on; its time is this one.
   virtual void timeRegulationEnabled(LogicalTime const& theFederateTime) = 0;
   virtual void timeConstrainedEnabled(LogicalTime const& theFederateTime) = 0;

   // The request to advance is granted: the federate's time is this one.
   virtual void timeAdvanceGrant(LogicalTime const& theTime) = 0;

   // The sender has retracted a message that this federate may have received already.
   virtual void requestRetraction(MessageRetractionHandle theHandle) = 0;
};

} // namespace rti1516e

#endif
