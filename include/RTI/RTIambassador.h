#ifndef RTI_RTIambassador_h
#define RTI_RTIambassador_h

#include <RTI/Enums.h>
#include <RTI/Exception.h>
#include <RTI/Handle.h>
#include <RTI/LogicalTime.h>
#include <RTI/LogicalTimeFactory.h>
#include <RTI/LogicalTimeInterval.h>
#include <RTI/RangeBounds.h>
#include <RTI/SpecificConfig.h>
#include <RTI/Typedefs.h>
#include <RTI/VariableLengthData.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

RTI_AUTO_PTR_BEGIN

namespace rti1516e {

class FederateAmbassador;

// The answer to queryGALT and queryLITS. The pointer is empty if timeIsValid is false, and also if the
// ambassador has no time factory: before the first join, or for a time implementation that the time library
// does not know.
struct RTI_EXPORT TimeQueryReturn
{
   TimeQueryReturn() : timeIsValid(false) {}
   TimeQueryReturn(TimeQueryReturn&& other) noexcept
      : timeIsValid(other.timeIsValid), time(other.time.release())
   {}
   TimeQueryReturn& operator=(TimeQueryReturn&& other) noexcept
   {
      timeIsValid = other.timeIsValid;
      time.reset(other.time.release());
      return *this;
   }

   bool timeIsValid;
   std::auto_ptr<LogicalTime> time;
};

// The services of the infrastructure, as RTIambassadorFactory gives them to a federate.
//
// Any thread may call. The library attaches it to the Java VM and detaches it when it ends; a thread that was
// attached before stays attached. A thread must not have a Java exception pending when it calls.
//
// A service throws one of the exceptions that are listed with it, in the order in which they are tested. The
// infrastructure checks the arguments, the library itself does not. RTIinternalError stands for everything
// that the standard does not foresee, with the infrastructure's own text. If memory runs out, a service
// throws std::bad_alloc; the ambassador remains usable.
//
// A service may be called within a callback unless CallNotAllowedFromWithinCallback is in its list.
//
// Strings are sent as UTF-16. A message to the infrastructure holds up to 2^31 - 1 bytes; a service whose
// arguments take more throws RTIinternalError. Arguments are copied before a service returns, and results
// belong to the caller. Times and lookaheads are in the unit that the federation has agreed on.
//
// Destroying the ambassador disconnects it. It waits for those of its callbacks that run on other threads, so
// that the federate's objects may be destroyed next. Two threads that each wait in this way for the other's
// callback wait for ever. The ambassador may be destroyed
// - in one of its own callbacks,
// - by a static object's destructor while the process ends,
// - while another thread waits in evokeCallback or evokeMultipleCallbacks, which then return,
// but not while another thread is in, or about to call, any other of its services.
//
// If the Java VM is gone, services throw RTIinternalError: the application has destroyed it, Java has ended
// the process, or this is the child of a fork, which has no VM. The ambassador can still be destroyed, and
// then waits for no callback. A child must not return from a callback that it was forked in.
//
// A thread that is cancelled (pthread_cancel) while it evokes callbacks ends after the service has returned.
// These are outside the contract, because the Java VM still believes in a stack that is gone, and ends the
// process sooner or later: cancelling a thread in any other service, cancelling one of the infrastructure's
// own threads, and leaving a callback by pthread_exit or longjmp.
class RTI_EXPORT RTIambassador
{
protected:
   RTIambassador();

public:
   RTIambassador(RTIambassador const&) = delete;
   RTIambassador& operator=(RTIambassador const&) = delete;
   virtual ~RTIambassador();

   // Federation management

   // The federate ambassador must outlive this ambassador; it stays stored even if the call fails.
   // Throws ConnectionFailed, InvalidLocalSettingsDesignator, UnsupportedCallbackModel, AlreadyConnected,
   // CallNotAllowedFromWithinCallback, RTIinternalError.
   virtual void connect(FederateAmbassador& federateAmbassador, CallbackModel theCallbackModel,
                        std::wstring const& localSettingsDesignator = std::wstring()) = 0;

   // Ends the connection. The federate has resigned before.
   // Throws FederateIsExecutionMember, CallNotAllowedFromWithinCallback, RTIinternalError.
   virtual void disconnect() = 0;

   // A FOM module is named by the path or the URL of its file. An empty time implementation name asks for
   // "HLAfloat64Time".
   // Throws CouldNotCreateLogicalTimeFactory, InconsistentFDD, ErrorReadingFDD, CouldNotOpenFDD,
   // FederationExecutionAlreadyExists, NotConnected, RTIinternalError.
   virtual void createFederationExecution(
      std::wstring const& federationExecutionName, std::wstring const& fomModule,
      std::wstring const& logicalTimeImplementationName = std::wstring()) = 0;

   // Throws CouldNotCreateLogicalTimeFactory, InconsistentFDD, ErrorReadingFDD, CouldNotOpenFDD,
   // FederationExecutionAlreadyExists, NotConnected, RTIinternalError.
   virtual void createFederationExecution(
      std::wstring const& federationExecutionName, std::vector<std::wstring> const& fomModules,
      std::wstring const& logicalTimeImplementationName = std::wstring()) = 0;

   // Throws CouldNotCreateLogicalTimeFactory, InconsistentFDD, ErrorReadingFDD, CouldNotOpenFDD,
   // ErrorReadingMIM, CouldNotOpenMIM, DesignatorIsHLAstandardMIM, FederationExecutionAlreadyExists,
   // NotConnected, RTIinternalError.
   virtual void createFederationExecutionWithMIM(
      std::wstring const& federationExecutionName, std::vector<std::wstring> const& fomModules,
      std::wstring const& mimModule, std::wstring const& logicalTimeImplementationName = std::wstring()) = 0;

   // Nobody may be joined any more.
   // Throws FederatesCurrentlyJoined, FederationExecutionDoesNotExist, NotConnected, RTIinternalError.
   virtual void destroyFederationExecution(std::wstring const& federationExecutionName) = 0;

   // The list arrives as the callback reportFederationExecutions.
   // Throws NotConnected, RTIinternalError.
   virtual void listFederationExecutions() = 0;

   // A successful join also gives this ambassador the factory of the federation's logical times.
   // Throws CouldNotCreateLogicalTimeFactory, FederateNameAlreadyInUse, FederationExecutionDoesNotExist,
   // InconsistentFDD, ErrorReadingFDD, CouldNotOpenFDD, FederateAlreadyExecutionMember, SaveInProgress,
   // RestoreInProgress, NotConnected, CallNotAllowedFromWithinCallback, RTIinternalError.
   virtual FederateHandle joinFederationExecution(
      std::wstring const& federateName, std::wstring const& federateType,
      std::wstring const& federationExecutionName,
      std::vector<std::wstring> const& additionalFomModules = std::vector<std::wstring>()) = 0;

   // Throws CouldNotCreateLogicalTimeFactory, FederationExecutionDoesNotExist, InconsistentFDD,
   // ErrorReadingFDD, CouldNotOpenFDD, FederateAlreadyExecutionMember, SaveInProgress, RestoreInProgress,
   // NotConnected, CallNotAllowedFromWithinCallback, RTIinternalError.
   virtual FederateHandle joinFederationExecution(
      std::wstring const& federateType, std::wstring const& federationExecutionName,
      std::vector<std::wstring> const& additionalFomModules = std::vector<std::wstring>()) = 0;

   // The action says what becomes of what the federate owns and acquires.
   // Throws InvalidResignAction, OwnershipAcquisitionPending, FederateOwnsAttributes,
   // FederateNotExecutionMember, NotConnected, CallNotAllowedFromWithinCallback, RTIinternalError.
   virtual void resignFederationExecution(ResignAction resignAction) = 0;

   // Without a set of federates the point is for all of them, those that join later included.
   // Throws SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void registerFederationSynchronizationPoint(std::wstring const& label,
                                                       VariableLengthData const& theUserSuppliedTag) = 0;

   // Throws InvalidFederateHandle, SaveInProgress, RestoreInProgress, FederateNotExecutionMember,
   // NotConnected, RTIinternalError.
   virtual void registerFederationSynchronizationPoint(std::wstring const& label,
                                                       VariableLengthData const& theUserSuppliedTag,
                                                       FederateHandleSet const& synchronizationSet) = 0;

   // When every federate of the point has achieved it, they are told by federationSynchronized.
   // Throws SynchronizationPointLabelNotAnnounced, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void synchronizationPointAchieved(std::wstring const& label, bool successfully = true) = 0;

   // As soon as it can be.
   // Throws SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void requestFederationSave(std::wstring const& label) = 0;

   // When every constrained federate has reached the time.
   // Throws LogicalTimeAlreadyPassed, InvalidLogicalTime, FederateUnableToUseTime, SaveInProgress,
   // RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void requestFederationSave(std::wstring const& label, LogicalTime const& theTime) = 0;

   // The answer to initiateFederateSave: from here on the federate saves its state.
   // Throws SaveNotInitiated, RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void federateSaveBegun() = 0;

   // The state is saved. federationSaved tells when all federates have done so.
   // Throws FederateHasNotBegunSave, RestoreInProgress, FederateNotExecutionMember, NotConnected,
   // RTIinternalError.
   virtual void federateSaveComplete() = 0;

   // The state could not be saved. All federates are told by federationNotSaved.
   // Throws FederateHasNotBegunSave, RestoreInProgress, FederateNotExecutionMember, NotConnected,
   // RTIinternalError.
   virtual void federateSaveNotComplete() = 0;

   // Gives up the save under way. All federates are told by federationNotSaved.
   // Throws SaveNotInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void abortFederationSave() = 0;

   // The status arrives as the callback federationSaveStatusResponse.
   // Throws RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void queryFederationSaveStatus() = 0;

   // The answer is requestFederationRestoreSucceeded or requestFederationRestoreFailed.
   // Throws SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void requestFederationRestore(std::wstring const& label) = 0;

   // The state is restored. federationRestored tells when all federates have done so.
   // Throws RestoreNotRequested, SaveInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void federateRestoreComplete() = 0;

   // The state could not be restored. All federates are told by federationNotRestored.
   // Throws RestoreNotRequested, SaveInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void federateRestoreNotComplete() = 0;

   // Gives up the restore under way. All federates are told by federationNotRestored.
   // Throws RestoreNotInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void abortFederationRestore() = 0;

   // The status arrives as the callback federationRestoreStatusResponse.
   // Throws SaveInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void queryFederationRestoreStatus() = 0;

   // Declaration management

   // Adds to the attributes of the class that are published already. An empty set changes nothing.
   // Throws AttributeNotDefined, ObjectClassNotDefined, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void publishObjectClassAttributes(ObjectClassHandle theClass,
                                             AttributeHandleSet const& attributeList) = 0;

   // Unpublishes all attributes of the class. The federate owns none of them any more.
   // Throws OwnershipAcquisitionPending, ObjectClassNotDefined, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void unpublishObjectClass(ObjectClassHandle theClass) = 0;

   // The federate owns none of the attributes at this class any more.
   // Throws OwnershipAcquisitionPending, AttributeNotDefined, ObjectClassNotDefined, SaveInProgress,
   // RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void unpublishObjectClassAttributes(ObjectClassHandle theClass,
                                               AttributeHandleSet const& attributeList) = 0;

   // Throws InteractionClassNotDefined, SaveInProgress, RestoreInProgress, FederateNotExecutionMember,
   // NotConnected, RTIinternalError.
   virtual void publishInteractionClass(InteractionClassHandle theInteraction) = 0;

   // Throws InteractionClassNotDefined, SaveInProgress, RestoreInProgress, FederateNotExecutionMember,
   // NotConnected, RTIinternalError.
   virtual void unpublishInteractionClass(InteractionClassHandle theInteraction) = 0;

   // Adds to the attributes that are subscribed already. A passive subscription asks nobody to update. An
   // empty designator asks for every update.
   // Throws AttributeNotDefined, ObjectClassNotDefined, InvalidUpdateRateDesignator, SaveInProgress,
   // RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void subscribeObjectClassAttributes(ObjectClassHandle theClass,
                                               AttributeHandleSet const& attributeList, bool active = true,
                                               std::wstring const& updateRateDesignator = std::wstring()) = 0;

   // Unsubscribes from all attributes of the class, with regions or without.
   // Throws ObjectClassNotDefined, SaveInProgress, RestoreInProgress, FederateNotExecutionMember,
   // NotConnected, RTIinternalError.
   virtual void unsubscribeObjectClass(ObjectClassHandle theClass) = 0;

   // Throws AttributeNotDefined, ObjectClassNotDefined, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void unsubscribeObjectClassAttributes(ObjectClassHandle theClass,
                                                 AttributeHandleSet const& attributeList) = 0;

   // A passive subscription asks nobody to send.
   // Throws FederateServiceInvocationsAreBeingReportedViaMOM, InteractionClassNotDefined, SaveInProgress,
   // RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void subscribeInteractionClass(InteractionClassHandle theClass, bool active = true) = 0;

   // Throws InteractionClassNotDefined, SaveInProgress, RestoreInProgress, FederateNotExecutionMember,
   // NotConnected, RTIinternalError.
   virtual void unsubscribeInteractionClass(InteractionClassHandle theClass) = 0;

   // Object management

   // The answer to a reservation arrives as a callback.
   // Throws IllegalName, SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected,
   // RTIinternalError.
   virtual void reserveObjectInstanceName(std::wstring const& theObjectInstanceName) = 0;

   // For a name that was reserved and not used.
   // Throws ObjectInstanceNameNotReserved, SaveInProgress, RestoreInProgress, FederateNotExecutionMember,
   // NotConnected, RTIinternalError.
   virtual void releaseObjectInstanceName(std::wstring const& theObjectInstanceName) = 0;

   // Throws IllegalName, NameSetWasEmpty, SaveInProgress, RestoreInProgress, FederateNotExecutionMember,
   // NotConnected, RTIinternalError.
   virtual void reserveMultipleObjectInstanceName(std::set<std::wstring> const& theObjectInstanceNames) = 0;

   // For names that were reserved and not used.
   // Throws ObjectInstanceNameNotReserved, SaveInProgress, RestoreInProgress, FederateNotExecutionMember,
   // NotConnected, RTIinternalError.
   virtual void releaseMultipleObjectInstanceName(std::set<std::wstring> const& theObjectInstanceNames) = 0;

   // The infrastructure makes up the name. The handle is always valid.
   // Throws ObjectClassNotPublished, ObjectClassNotDefined, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual ObjectInstanceHandle registerObjectInstance(ObjectClassHandle theClass) = 0;

   // Under a name that this federate has reserved.
   // Throws ObjectInstanceNameInUse, ObjectInstanceNameNotReserved, ObjectClassNotPublished,
   // ObjectClassNotDefined, SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected,
   // RTIinternalError.
   virtual ObjectInstanceHandle registerObjectInstance(ObjectClassHandle theClass,
                                                       std::wstring const& theObjectInstanceName) = 0;

   // The forms with a time return a handle by which the message can be retracted, one that is not valid
   // if the message was not sent in time stamp order.
   // Sends the values to the federates that have subscribed to them.
   // Throws AttributeNotOwned, AttributeNotDefined, ObjectInstanceNotKnown, SaveInProgress,
   // RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void updateAttributeValues(ObjectInstanceHandle theObject,
                                      AttributeHandleValueMap const& theAttributeValues,
                                      VariableLengthData const& theUserSuppliedTag) = 0;

   // Throws InvalidLogicalTime, AttributeNotOwned, AttributeNotDefined, ObjectInstanceNotKnown,
   // SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual MessageRetractionHandle updateAttributeValues(ObjectInstanceHandle theObject,
                                                         AttributeHandleValueMap const& theAttributeValues,
                                                         VariableLengthData const& theUserSuppliedTag,
                                                         LogicalTime const& theTime) = 0;

   // Parameters may be left out.
   // Throws InteractionClassNotPublished, InteractionParameterNotDefined, InteractionClassNotDefined,
   // SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void sendInteraction(InteractionClassHandle theInteraction,
                                ParameterHandleValueMap const& theParameterValues,
                                VariableLengthData const& theUserSuppliedTag) = 0;

   // Throws InvalidLogicalTime, InteractionClassNotPublished, InteractionParameterNotDefined,
   // InteractionClassNotDefined, SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected,
   // RTIinternalError.
   virtual MessageRetractionHandle sendInteraction(InteractionClassHandle theInteraction,
                                                   ParameterHandleValueMap const& theParameterValues,
                                                   VariableLengthData const& theUserSuppliedTag,
                                                   LogicalTime const& theTime) = 0;

   // The others are told by removeObjectInstance.
   // Throws DeletePrivilegeNotHeld, ObjectInstanceNotKnown, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void deleteObjectInstance(ObjectInstanceHandle theObject,
                                     VariableLengthData const& theUserSuppliedTag) = 0;

   // Throws InvalidLogicalTime, DeletePrivilegeNotHeld, ObjectInstanceNotKnown, SaveInProgress,
   // RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual MessageRetractionHandle deleteObjectInstance(ObjectInstanceHandle theObject,
                                                        VariableLengthData const& theUserSuppliedTag,
                                                        LogicalTime const& theTime) = 0;

   // Forgets the instance here alone. It is discovered again if this federate is still subscribed.
   // Throws OwnershipAcquisitionPending, FederateOwnsAttributes, ObjectInstanceNotKnown, SaveInProgress,
   // RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void localDeleteObjectInstance(ObjectInstanceHandle theObject) = 0;

   // The owners are asked by provideAttributeValueUpdate.
   // Throws AttributeNotDefined, ObjectInstanceNotKnown, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void requestAttributeValueUpdate(ObjectInstanceHandle theObject,
                                            AttributeHandleSet const& theAttributes,
                                            VariableLengthData const& theUserSuppliedTag) = 0;

   // The same for all instances of the class.
   // Throws AttributeNotDefined, ObjectClassNotDefined, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void requestAttributeValueUpdate(ObjectClassHandle theClass,
                                            AttributeHandleSet const& theAttributes,
                                            VariableLengthData const& theUserSuppliedTag) = 0;

   // Confirmed by confirmAttributeTransportationTypeChange.
   // Throws AttributeAlreadyBeingChanged, AttributeNotOwned, AttributeNotDefined, ObjectInstanceNotKnown,
   // InvalidTransportationType, SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected,
   // RTIinternalError.
   virtual void requestAttributeTransportationTypeChange(ObjectInstanceHandle theObject,
                                                         AttributeHandleSet const& theAttributes,
                                                         TransportationType theType) = 0;

   // The answers to the queries arrive as callbacks.
   // The answer is reportAttributeTransportationType.
   // Throws AttributeNotDefined, ObjectInstanceNotKnown, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void queryAttributeTransportationType(ObjectInstanceHandle theObject,
                                                 AttributeHandle theAttribute) = 0;

   // Confirmed by confirmInteractionTransportationTypeChange.
   // Throws InteractionClassAlreadyBeingChanged, InteractionClassNotPublished, InteractionClassNotDefined,
   // InvalidTransportationType, SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected,
   // RTIinternalError.
   virtual void requestInteractionTransportationTypeChange(InteractionClassHandle theClass,
                                                           TransportationType theType) = 0;

   // The answer is reportInteractionTransportationType.
   // Throws InteractionClassNotDefined, SaveInProgress, RestoreInProgress, FederateNotExecutionMember,
   // NotConnected, RTIinternalError.
   virtual void queryInteractionTransportationType(FederateHandle theFederate,
                                                   InteractionClassHandle theInteraction) = 0;

   // From the next update on.
   // Throws AttributeNotOwned, AttributeNotDefined, ObjectInstanceNotKnown, SaveInProgress,
   // RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void changeAttributeOrderType(ObjectInstanceHandle theObject,
                                         AttributeHandleSet const& theAttributes, OrderType theType) = 0;

   // From the next interaction on.
   // Throws InteractionClassNotPublished, InteractionClassNotDefined, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void changeInteractionOrderType(InteractionClassHandle theClass, OrderType theType) = 0;

   // Ownership management

   // At once, whether somebody takes the attributes or not.
   // Throws AttributeNotOwned, AttributeNotDefined, ObjectInstanceNotKnown, SaveInProgress,
   // RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void unconditionalAttributeOwnershipDivestiture(ObjectInstanceHandle theObject,
                                                           AttributeHandleSet const& theAttributes) = 0;

   // The federate stays the owner until somebody takes the attributes; requestDivestitureConfirmation tells
   // when.
   // Throws AttributeAlreadyBeingDivested, AttributeNotOwned, AttributeNotDefined, ObjectInstanceNotKnown,
   // SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void negotiatedAttributeOwnershipDivestiture(ObjectInstanceHandle theObject,
                                                        AttributeHandleSet const& theAttributes,
                                                        VariableLengthData const& theUserSuppliedTag) = 0;

   // The answer to requestDivestitureConfirmation.
   // Throws NoAcquisitionPending, AttributeDivestitureWasNotRequested, AttributeNotOwned,
   // AttributeNotDefined, ObjectInstanceNotKnown, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void confirmDivestiture(ObjectInstanceHandle theObject,
                                   AttributeHandleSet const& confirmedAttributes,
                                   VariableLengthData const& theUserSuppliedTag) = 0;

   // The owners are asked by requestAttributeOwnershipRelease. attributeOwnershipAcquisitionNotification
   // tells of success.
   // Throws AttributeNotPublished, ObjectClassNotPublished, FederateOwnsAttributes, AttributeNotDefined,
   // ObjectInstanceNotKnown, SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected,
   // RTIinternalError.
   virtual void attributeOwnershipAcquisition(ObjectInstanceHandle theObject,
                                              AttributeHandleSet const& desiredAttributes,
                                              VariableLengthData const& theUserSuppliedTag) = 0;

   // Takes what nobody owns; of the rest the federate is told by attributeOwnershipUnavailable.
   // Throws AttributeAlreadyBeingAcquired, AttributeNotPublished, ObjectClassNotPublished,
   // FederateOwnsAttributes, AttributeNotDefined, ObjectInstanceNotKnown, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void attributeOwnershipAcquisitionIfAvailable(ObjectInstanceHandle theObject,
                                                         AttributeHandleSet const& desiredAttributes) = 0;

   // An answer to requestAttributeOwnershipRelease: the federate keeps the attributes.
   // Throws AttributeNotOwned, AttributeNotDefined, ObjectInstanceNotKnown, SaveInProgress,
   // RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void attributeOwnershipReleaseDenied(ObjectInstanceHandle theObject,
                                                AttributeHandleSet const& theAttributes) = 0;

   // Assigns the attributes that were divested to the last argument; a failure leaves it untouched.
   // Throws AttributeNotOwned, AttributeNotDefined, ObjectInstanceNotKnown, SaveInProgress,
   // RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void attributeOwnershipDivestitureIfWanted(ObjectInstanceHandle theObject,
                                                      AttributeHandleSet const& theAttributes,
                                                      AttributeHandleSet& theDivestedAttributes) = 0;

   // The federate keeps the attributes.
   // Throws AttributeDivestitureWasNotRequested, AttributeNotOwned, AttributeNotDefined,
   // ObjectInstanceNotKnown, SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected,
   // RTIinternalError.
   virtual void cancelNegotiatedAttributeOwnershipDivestiture(ObjectInstanceHandle theObject,
                                                              AttributeHandleSet const& theAttributes) = 0;

   // Confirmed by confirmAttributeOwnershipAcquisitionCancellation, unless the attributes have come
   // meanwhile.
   // Throws AttributeAcquisitionWasNotRequested, AttributeAlreadyOwned, AttributeNotDefined,
   // ObjectInstanceNotKnown, SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected,
   // RTIinternalError.
   virtual void cancelAttributeOwnershipAcquisition(ObjectInstanceHandle theObject,
                                                    AttributeHandleSet const& theAttributes) = 0;

   // The answer is informAttributeOwnership, attributeIsNotOwned or attributeIsOwnedByRTI.
   // Throws AttributeNotDefined, ObjectInstanceNotKnown, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void queryAttributeOwnership(ObjectInstanceHandle theObject, AttributeHandle theAttribute) = 0;

   // Throws AttributeNotDefined, ObjectInstanceNotKnown, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual bool isAttributeOwnedByFederate(ObjectInstanceHandle theObject, AttributeHandle theAttribute) = 0;

   // Time management

   // In force with the callback timeRegulationEnabled. The lookahead is in the federation's unit of time and
   // may be zero.
   // Throws InvalidLookahead, InTimeAdvancingState, RequestForTimeRegulationPending,
   // TimeRegulationAlreadyEnabled, SaveInProgress, RestoreInProgress, FederateNotExecutionMember,
   // NotConnected, RTIinternalError.
   virtual void enableTimeRegulation(LogicalTimeInterval const& theLookahead) = 0;

   // In force at once.
   // Throws TimeRegulationIsNotEnabled, SaveInProgress, RestoreInProgress, FederateNotExecutionMember,
   // NotConnected, RTIinternalError.
   virtual void disableTimeRegulation() = 0;

   // In force with the callback timeConstrainedEnabled.
   // Throws InTimeAdvancingState, RequestForTimeConstrainedPending, TimeConstrainedAlreadyEnabled,
   // SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void enableTimeConstrained() = 0;

   // In force at once.
   // Throws TimeConstrainedIsNotEnabled, SaveInProgress, RestoreInProgress, FederateNotExecutionMember,
   // NotConnected, RTIinternalError.
   virtual void disableTimeConstrained() = 0;

   // timeAdvanceGrant comes with this time, after every message up to it, that time included.
   // Throws LogicalTimeAlreadyPassed, InvalidLogicalTime, InTimeAdvancingState,
   // RequestForTimeRegulationPending, RequestForTimeConstrainedPending, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void timeAdvanceRequest(LogicalTime const& theTime) = 0;

   // timeAdvanceGrant comes with this time. More messages of that very time may come later.
   // Throws LogicalTimeAlreadyPassed, InvalidLogicalTime, InTimeAdvancingState,
   // RequestForTimeRegulationPending, RequestForTimeConstrainedPending, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void timeAdvanceRequestAvailable(LogicalTime const& theTime) = 0;

   // timeAdvanceGrant comes with the time of the next message, after all messages of that time, or with this
   // time if there is none before.
   // Throws LogicalTimeAlreadyPassed, InvalidLogicalTime, InTimeAdvancingState,
   // RequestForTimeRegulationPending, RequestForTimeConstrainedPending, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void nextMessageRequest(LogicalTime const& theTime) = 0;

   // timeAdvanceGrant comes with the time of the next message, or with this time. More messages of the
   // granted time may come later.
   // Throws LogicalTimeAlreadyPassed, InvalidLogicalTime, InTimeAdvancingState,
   // RequestForTimeRegulationPending, RequestForTimeConstrainedPending, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void nextMessageRequestAvailable(LogicalTime const& theTime) = 0;

   // All messages that wait are delivered, whatever their times. timeAdvanceGrant comes with this time or an
   // earlier one.
   // Throws LogicalTimeAlreadyPassed, InvalidLogicalTime, InTimeAdvancingState,
   // RequestForTimeRegulationPending, RequestForTimeConstrainedPending, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void flushQueueRequest(LogicalTime const& theTime) = 0;

   // Receive-order messages are delivered between advances as well.
   // Throws AsynchronousDeliveryAlreadyEnabled, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void enableAsynchronousDelivery() = 0;

   // While the federate is constrained, receive-order messages are delivered only as its time advances.
   // Throws AsynchronousDeliveryAlreadyDisabled, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void disableAsynchronousDelivery() = 0;

   // The greatest available logical time: timeIsValid is false if nobody limits it.
   // Throws SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual TimeQueryReturn queryGALT() = 0;

   // Empty before the first join, and where the time library does not know the federation's time
   // implementation. So is what queryLookahead returns.
   // Throws SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual std::auto_ptr<LogicalTime> queryLogicalTime() = 0;

   // The least incoming time stamp: timeIsValid is false if there is none.
   // Throws SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual TimeQueryReturn queryLITS() = 0;

   // A shorter lookahead comes into force as the federate's time advances.
   // Throws InvalidLookahead, InTimeAdvancingState, TimeRegulationIsNotEnabled, SaveInProgress,
   // RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void modifyLookahead(LogicalTimeInterval const& theLookahead) = 0;

   // Throws TimeRegulationIsNotEnabled, SaveInProgress, RestoreInProgress, FederateNotExecutionMember,
   // NotConnected, RTIinternalError.
   virtual std::auto_ptr<LogicalTimeInterval> queryLookahead() = 0;

   // Takes back a message that was sent with a time, as long as it may not have been received by then.
   // Throws MessageCanNoLongerBeRetracted, InvalidMessageRetractionHandle, TimeRegulationIsNotEnabled,
   // SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void retract(MessageRetractionHandle theHandle) = 0;

   // Data distribution management

   // Its range along each dimension is the whole dimension, until setRangeBounds and
   // commitRegionModifications change it.
   // Throws InvalidDimensionHandle, SaveInProgress, RestoreInProgress, FederateNotExecutionMember,
   // NotConnected, RTIinternalError.
   virtual RegionHandle createRegion(DimensionHandleSet const& theDimensions) = 0;

   // Puts the ranges that setRangeBounds has set into force.
   // Throws RegionNotCreatedByThisFederate, InvalidRegion, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void commitRegionModifications(RegionHandleSet const& theRegionHandleSet) = 0;

   // The region may not be in use.
   // Throws RegionInUseForUpdateOrSubscription, RegionNotCreatedByThisFederate, InvalidRegion,
   // SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void deleteRegion(RegionHandle const& theRegion) = 0;

   // Throws InvalidRegionContext, RegionNotCreatedByThisFederate, InvalidRegion, AttributeNotPublished,
   // ObjectClassNotPublished, AttributeNotDefined, ObjectClassNotDefined, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual ObjectInstanceHandle registerObjectInstanceWithRegions(
      ObjectClassHandle theClass,
      AttributeHandleSetRegionHandleSetPairVector const& theAttributeHandleSetRegionHandleSetPairVector) = 0;

   // Throws ObjectInstanceNameInUse, ObjectInstanceNameNotReserved, InvalidRegionContext,
   // RegionNotCreatedByThisFederate, InvalidRegion, AttributeNotPublished, ObjectClassNotPublished,
   // AttributeNotDefined, ObjectClassNotDefined, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual ObjectInstanceHandle registerObjectInstanceWithRegions(
      ObjectClassHandle theClass,
      AttributeHandleSetRegionHandleSetPairVector const& theAttributeHandleSetRegionHandleSetPairVector,
      std::wstring const& theObjectInstanceName) = 0;

   // Throws InvalidRegionContext, RegionNotCreatedByThisFederate, InvalidRegion, AttributeNotDefined,
   // ObjectInstanceNotKnown, SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected,
   // RTIinternalError.
   virtual void associateRegionsForUpdates(
      ObjectInstanceHandle theObject,
      AttributeHandleSetRegionHandleSetPairVector const& theAttributeHandleSetRegionHandleSetPairVector) = 0;

   // Throws RegionNotCreatedByThisFederate, InvalidRegion, AttributeNotDefined, ObjectInstanceNotKnown,
   // SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void unassociateRegionsForUpdates(
      ObjectInstanceHandle theObject,
      AttributeHandleSetRegionHandleSetPairVector const& theAttributeHandleSetRegionHandleSetPairVector) = 0;

   // Throws InvalidRegionContext, RegionNotCreatedByThisFederate, InvalidRegion, AttributeNotDefined,
   // ObjectClassNotDefined, InvalidUpdateRateDesignator, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void subscribeObjectClassAttributesWithRegions(
      ObjectClassHandle theClass,
      AttributeHandleSetRegionHandleSetPairVector const& theAttributeHandleSetRegionHandleSetPairVector,
      bool active = true, std::wstring const& updateRateDesignator = std::wstring()) = 0;

   // Throws RegionNotCreatedByThisFederate, InvalidRegion, AttributeNotDefined, ObjectClassNotDefined,
   // SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void unsubscribeObjectClassAttributesWithRegions(
      ObjectClassHandle theClass,
      AttributeHandleSetRegionHandleSetPairVector const& theAttributeHandleSetRegionHandleSetPairVector) = 0;

   // Throws FederateServiceInvocationsAreBeingReportedViaMOM, InvalidRegionContext,
   // RegionNotCreatedByThisFederate, InvalidRegion, InteractionClassNotDefined, SaveInProgress,
   // RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void subscribeInteractionClassWithRegions(InteractionClassHandle theClass,
                                                     RegionHandleSet const& theRegionHandleSet,
                                                     bool active = true) = 0;

   // Throws RegionNotCreatedByThisFederate, InvalidRegion, InteractionClassNotDefined, SaveInProgress,
   // RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void unsubscribeInteractionClassWithRegions(InteractionClassHandle theClass,
                                                       RegionHandleSet const& theRegionHandleSet) = 0;

   // Throws InvalidRegionContext, RegionNotCreatedByThisFederate, InvalidRegion,
   // InteractionClassNotPublished, InteractionParameterNotDefined, InteractionClassNotDefined,
   // SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void sendInteractionWithRegions(InteractionClassHandle theInteraction,
                                           ParameterHandleValueMap const& theParameterValues,
                                           RegionHandleSet const& theRegionHandleSet,
                                           VariableLengthData const& theUserSuppliedTag) = 0;

   // Throws InvalidLogicalTime, InvalidRegionContext, RegionNotCreatedByThisFederate, InvalidRegion,
   // InteractionClassNotPublished, InteractionParameterNotDefined, InteractionClassNotDefined,
   // SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual MessageRetractionHandle sendInteractionWithRegions(
      InteractionClassHandle theInteraction, ParameterHandleValueMap const& theParameterValues,
      RegionHandleSet const& theRegionHandleSet, VariableLengthData const& theUserSuppliedTag,
      LogicalTime const& theTime) = 0;

   // Throws InvalidRegionContext, RegionNotCreatedByThisFederate, InvalidRegion, AttributeNotDefined,
   // ObjectClassNotDefined, SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected,
   // RTIinternalError.
   virtual void requestAttributeValueUpdateWithRegions(
      ObjectClassHandle theClass, AttributeHandleSetRegionHandleSetPairVector const& theSet,
      VariableLengthData const& theUserSuppliedTag) = 0;

   // Support services

   // Throws FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual ResignAction getAutomaticResignDirective() = 0;

   // What happens when the federate is lost.
   // Throws InvalidResignAction, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void setAutomaticResignDirective(ResignAction resignAction) = 0;

   // By the name of a joined federate.
   // Throws NameNotFound, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual FederateHandle getFederateHandle(std::wstring const& theName) = 0;

   // Throws InvalidFederateHandle, FederateHandleNotKnown, FederateNotExecutionMember, NotConnected,
   // RTIinternalError.
   virtual std::wstring getFederateName(FederateHandle theHandle) = 0;

   // By the full name, with or without HLAobjectRoot.
   // Throws NameNotFound, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual ObjectClassHandle getObjectClassHandle(std::wstring const& theName) = 0;

   // Throws InvalidObjectClassHandle, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual std::wstring getObjectClassName(ObjectClassHandle theHandle) = 0;

   // The class as which this federate has discovered or registered the instance.
   // Throws ObjectInstanceNotKnown, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual ObjectClassHandle getKnownObjectClassHandle(ObjectInstanceHandle theObject) = 0;

   // Throws ObjectInstanceNotKnown, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual ObjectInstanceHandle getObjectInstanceHandle(std::wstring const& theName) = 0;

   // Throws ObjectInstanceNotKnown, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual std::wstring getObjectInstanceName(ObjectInstanceHandle theHandle) = 0;

   // An inherited attribute has the same handle at every class.
   // Throws NameNotFound, InvalidObjectClassHandle, FederateNotExecutionMember, NotConnected,
   // RTIinternalError.
   virtual AttributeHandle getAttributeHandle(ObjectClassHandle whichClass,
                                              std::wstring const& theAttributeName) = 0;

   // Throws AttributeNotDefined, InvalidAttributeHandle, InvalidObjectClassHandle,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual std::wstring getAttributeName(ObjectClassHandle whichClass, AttributeHandle theHandle) = 0;

   // In updates per second.
   // Throws InvalidUpdateRateDesignator, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual double getUpdateRateValue(std::wstring const& updateRateDesignator) = 0;

   // Throws ObjectInstanceNotKnown, AttributeNotDefined, FederateNotExecutionMember, NotConnected,
   // RTIinternalError.
   virtual double getUpdateRateValueForAttribute(ObjectInstanceHandle theObject,
                                                 AttributeHandle theAttribute) = 0;

   // By the full name, with or without HLAinteractionRoot.
   // Throws NameNotFound, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual InteractionClassHandle getInteractionClassHandle(std::wstring const& theName) = 0;

   // Throws InvalidInteractionClassHandle, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual std::wstring getInteractionClassName(InteractionClassHandle theHandle) = 0;

   // An inherited parameter has the same handle at every class.
   // Throws NameNotFound, InvalidInteractionClassHandle, FederateNotExecutionMember, NotConnected,
   // RTIinternalError.
   virtual ParameterHandle getParameterHandle(InteractionClassHandle whichClass,
                                              std::wstring const& theName) = 0;

   // Throws InteractionParameterNotDefined, InvalidParameterHandle, InvalidInteractionClassHandle,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual std::wstring getParameterName(InteractionClassHandle whichClass, ParameterHandle theHandle) = 0;

   // Names are "Receive" and "TimeStamp".
   // Throws InvalidOrderName, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual OrderType getOrderType(std::wstring const& orderName) = 0;

   // Throws InvalidOrderType, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual std::wstring getOrderName(OrderType orderType) = 0;

   // Names are "HLAreliable" and "HLAbestEffort".
   // Throws InvalidTransportationName, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual TransportationType getTransportationTypeHandle(std::wstring const& transportationTypeName) = 0;

   // Throws InvalidTransportationType, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual std::wstring getTransportationTypeName(TransportationType transportationType) = 0;

   // An empty set: no region can be used with the attribute.
   // Throws AttributeNotDefined, InvalidAttributeHandle, InvalidObjectClassHandle,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual DimensionHandleSet getAvailableDimensionsForClassAttribute(ObjectClassHandle theClass,
                                                                      AttributeHandle theHandle) = 0;

   // An empty set: no region can be used with the class.
   // Throws InvalidInteractionClassHandle, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual DimensionHandleSet getAvailableDimensionsForInteractionClass(InteractionClassHandle theClass) = 0;

   // Throws NameNotFound, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual DimensionHandle getDimensionHandle(std::wstring const& theName) = 0;

   // Throws InvalidDimensionHandle, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual std::wstring getDimensionName(DimensionHandle theHandle) = 0;

   // Bounds of regions lie between 0 and this number.
   // Throws InvalidDimensionHandle, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual unsigned long getDimensionUpperBound(DimensionHandle theHandle) = 0;

   // The dimensions that the region was created with.
   // Throws InvalidRegion, SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected,
   // RTIinternalError.
   virtual DimensionHandleSet getDimensionHandleSet(RegionHandle theRegionHandle) = 0;

   // As committed; for a region of this federate, as last set.
   // Throws RegionDoesNotContainSpecifiedDimension, InvalidRegion, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual RangeBounds getRangeBounds(RegionHandle theRegionHandle, DimensionHandle theDimensionHandle) = 0;

   // In force with commitRegionModifications.
   // Throws InvalidRangeBound, RegionDoesNotContainSpecifiedDimension, RegionNotCreatedByThisFederate,
   // InvalidRegion, SaveInProgress, RestoreInProgress, FederateNotExecutionMember, NotConnected,
   // RTIinternalError.
   virtual void setRangeBounds(RegionHandle theRegionHandle, DimensionHandle theDimensionHandle,
                               RangeBounds const& theRangeBounds) = 0;

   // A point on the dimension HLAfederate.
   // Throws InvalidFederateHandle, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual unsigned long normalizeFederateHandle(FederateHandle theFederateHandle) = 0;

   // A point on the dimension HLAserviceGroup.
   // Throws InvalidServiceGroup, FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual unsigned long normalizeServiceGroup(ServiceGroup theServiceGroup) = 0;

   // Throws ObjectClassRelevanceAdvisorySwitchIsOn, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void enableObjectClassRelevanceAdvisorySwitch() = 0;

   // Throws ObjectClassRelevanceAdvisorySwitchIsOff, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void disableObjectClassRelevanceAdvisorySwitch() = 0;

   // Throws AttributeRelevanceAdvisorySwitchIsOn, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void enableAttributeRelevanceAdvisorySwitch() = 0;

   // Throws AttributeRelevanceAdvisorySwitchIsOff, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void disableAttributeRelevanceAdvisorySwitch() = 0;

   // Throws AttributeScopeAdvisorySwitchIsOn, SaveInProgress, RestoreInProgress, FederateNotExecutionMember,
   // NotConnected, RTIinternalError.
   virtual void enableAttributeScopeAdvisorySwitch() = 0;

   // Throws AttributeScopeAdvisorySwitchIsOff, SaveInProgress, RestoreInProgress, FederateNotExecutionMember,
   // NotConnected, RTIinternalError.
   virtual void disableAttributeScopeAdvisorySwitch() = 0;

   // Throws InteractionRelevanceAdvisorySwitchIsOn, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void enableInteractionRelevanceAdvisorySwitch() = 0;

   // Throws InteractionRelevanceAdvisorySwitchIsOff, SaveInProgress, RestoreInProgress,
   // FederateNotExecutionMember, NotConnected, RTIinternalError.
   virtual void disableInteractionRelevanceAdvisorySwitch() = 0;

   // Times in seconds. In the evoked model callbacks run on this thread, inside these calls. Both tell
   // whether more callbacks are waiting.
   // Throws CallNotAllowedFromWithinCallback, RTIinternalError.
   virtual bool evokeCallback(double approximateMinimumTimeInSeconds) = 0;

   // Throws CallNotAllowedFromWithinCallback, RTIinternalError.
   virtual bool evokeMultipleCallbacks(double approximateMinimumTimeInSeconds,
                                       double approximateMaximumTimeInSeconds) = 0;

   // What has waited is delivered.
   // Throws SaveInProgress, RestoreInProgress, RTIinternalError.
   virtual void enableCallbacks() = 0;

   // From here on callbacks wait, until enableCallbacks.
   // Throws SaveInProgress, RestoreInProgress, RTIinternalError.
   virtual void disableCallbacks() = 0;

   // Times and handles

   // A new factory of the federation's logical times, the caller's; empty if the time library does not
   // know them.
   // Throws RTIinternalError.
   virtual std::auto_ptr<LogicalTimeFactory> getTimeFactory() const = 0;

   // Turn what a handle's encode gave back into the handle.
   virtual FederateHandle decodeFederateHandle(VariableLengthData const& encodedValue) const = 0;
   virtual ObjectClassHandle decodeObjectClassHandle(VariableLengthData const& encodedValue) const = 0;
   virtual InteractionClassHandle decodeInteractionClassHandle(
      VariableLengthData const& encodedValue) const = 0;
   virtual ObjectInstanceHandle decodeObjectInstanceHandle(VariableLengthData const& encodedValue) const = 0;
   virtual AttributeHandle decodeAttributeHandle(VariableLengthData const& encodedValue) const = 0;
   virtual ParameterHandle decodeParameterHandle(VariableLengthData const& encodedValue) const = 0;
   virtual DimensionHandle decodeDimensionHandle(VariableLengthData const& encodedValue) const = 0;
   virtual MessageRetractionHandle decodeMessageRetractionHandle(
      VariableLengthData const& encodedValue) const = 0;
   virtual RegionHandle decodeRegionHandle(VariableLengthData const& encodedValue) const = 0;

   // Other spellings of services above. The queries assign what they get to the argument, which must be of
   // the federation's time implementation; queryGALT and queryLITS tell whether there was a time to assign,
   // and the other two throw RTIinternalError if there was none.
   bool queryGALT(LogicalTime& theTime) { return assign(queryGALT().time, theTime); }
   bool queryLITS(LogicalTime& theTime) { return assign(queryLITS().time, theTime); }
   void queryLogicalTime(LogicalTime& theTime) { require(assign(queryLogicalTime(), theTime)); }
   void queryLookahead(LogicalTimeInterval& interval) { require(assign(queryLookahead(), interval)); }
   TransportationType getTransportationType(std::wstring const& transportationName)
   {
      return getTransportationTypeHandle(transportationName);
   }
   std::wstring getTransportationName(TransportationType theType)
   {
      return getTransportationTypeName(theType);
   }

private:
   template <typename T>
   static bool assign(std::auto_ptr<T> const& from, T& to)
   {
      if (from.get() == nullptr) {
         return false;
      }
      to = *from;
      return true;
   }

   static void require(bool assigned)
   {
      if (!assigned) {
         throw RTIinternalError(L"There is no logical time: this ambassador has no logical time factory");
      }
   }
};

} // namespace rti1516e

RTI_AUTO_PTR_END

#endif
