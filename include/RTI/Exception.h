// The exceptions of the interface: one abstract base and 122 concrete classes, all siblings below it.
//
// A service, a logical time or an encoding helper that fails throws one of them by value. Catch the class
// that you can handle, or rti1516e::Exception const& for all of them; what() tells what happened.
#ifndef RTI_Exception_h
#define RTI_Exception_h

#include <RTI/SpecificConfig.h>

#include <iosfwd>
#include <string>

namespace rti1516e {

// Base of every exception of the interface. It does not derive from std::exception.
class RTI_EXPORT Exception
{
public:
   Exception();
   Exception(Exception const&);
   Exception& operator=(Exception const&);
   virtual ~Exception();

   // The message as it was given: no class name is added, no character converted.
   virtual std::wstring what() const = 0;
};

// Writes what().
RTI_EXPORT std::wostream& operator<<(std::wostream& stream, Exception const& exception);

} // namespace rti1516e

// The concrete classes, in alphabetical order: X(name) for each. Everything that has to know all of them,
// inside the library too, expands this list.
// clang-format off
#define RTI_FOR_EACH_EXCEPTION(X) \
   X(AlreadyConnected) \
   X(AsynchronousDeliveryAlreadyDisabled) \
   X(AsynchronousDeliveryAlreadyEnabled) \
   X(AttributeAcquisitionWasNotCanceled) \
   X(AttributeAcquisitionWasNotRequested) \
   X(AttributeAlreadyBeingAcquired) \
   X(AttributeAlreadyBeingChanged) \
   X(AttributeAlreadyBeingDivested) \
   X(AttributeAlreadyOwned) \
   X(AttributeDivestitureWasNotRequested) \
   X(AttributeNotDefined) \
   X(AttributeNotOwned) \
   X(AttributeNotPublished) \
   X(AttributeNotRecognized) \
   X(AttributeNotSubscribed) \
   X(AttributeRelevanceAdvisorySwitchIsOff) \
   X(AttributeRelevanceAdvisorySwitchIsOn) \
   X(AttributeScopeAdvisorySwitchIsOff) \
   X(AttributeScopeAdvisorySwitchIsOn) \
   X(BadInitializationParameter) \
   X(CallNotAllowedFromWithinCallback) \
   X(ConnectionFailed) \
   X(CouldNotCreateLogicalTimeFactory) \
   X(CouldNotDecode) \
   X(CouldNotDiscover) \
   X(CouldNotEncode) \
   X(CouldNotInitiateRestore) \
   X(CouldNotOpenFDD) \
   X(CouldNotOpenMIM) \
   X(DeletePrivilegeNotHeld) \
   X(DesignatorIsHLAstandardMIM) \
   X(EncoderException) \
   X(ErrorReadingFDD) \
   X(ErrorReadingMIM) \
   X(FederateAlreadyExecutionMember) \
   X(FederateHandleNotKnown) \
   X(FederateHasNotBegunSave) \
   X(FederateInternalError) \
   X(FederateIsExecutionMember) \
   X(FederateNameAlreadyInUse) \
   X(FederateNotExecutionMember) \
   X(FederateOwnsAttributes) \
   X(FederateServiceInvocationsAreBeingReportedViaMOM) \
   X(FederateUnableToUseTime) \
   X(FederatesCurrentlyJoined) \
   X(FederationExecutionAlreadyExists) \
   X(FederationExecutionDoesNotExist) \
   X(IllegalName) \
   X(IllegalTimeArithmetic) \
   X(InTimeAdvancingState) \
   X(InconsistentFDD) \
   X(InteractionClassAlreadyBeingChanged) \
   X(InteractionClassNotDefined) \
   X(InteractionClassNotPublished) \
   X(InteractionClassNotRecognized) \
   X(InteractionClassNotSubscribed) \
   X(InteractionParameterNotDefined) \
   X(InteractionParameterNotRecognized) \
   X(InteractionRelevanceAdvisorySwitchIsOff) \
   X(InteractionRelevanceAdvisorySwitchIsOn) \
   X(InternalError) \
   X(InvalidAttributeHandle) \
   X(InvalidDimensionHandle) \
   X(InvalidFederateHandle) \
   X(InvalidInteractionClassHandle) \
   X(InvalidLocalSettingsDesignator) \
   X(InvalidLogicalTime) \
   X(InvalidLogicalTimeInterval) \
   X(InvalidLookahead) \
   X(InvalidMessageRetractionHandle) \
   X(InvalidObjectClassHandle) \
   X(InvalidOrderName) \
   X(InvalidOrderType) \
   X(InvalidParameterHandle) \
   X(InvalidRangeBound) \
   X(InvalidRegion) \
   X(InvalidRegionContext) \
   X(InvalidResignAction) \
   X(InvalidServiceGroup) \
   X(InvalidTransportationName) \
   X(InvalidTransportationType) \
   X(InvalidUpdateRateDesignator) \
   X(JoinedFederateIsNotInTimeAdvancingState) \
   X(LogicalTimeAlreadyPassed) \
   X(MessageCanNoLongerBeRetracted) \
   X(NameNotFound) \
   X(NameSetWasEmpty) \
   X(NoAcquisitionPending) \
   X(NoFederateWillingToAcquireAttribute) \
   X(NoRequestToEnableTimeConstrainedWasPending) \
   X(NoRequestToEnableTimeRegulationWasPending) \
   X(NotConnected) \
   X(ObjectClassNotDefined) \
   X(ObjectClassNotKnown) \
   X(ObjectClassNotPublished) \
   X(ObjectClassRelevanceAdvisorySwitchIsOff) \
   X(ObjectClassRelevanceAdvisorySwitchIsOn) \
   X(ObjectInstanceNameInUse) \
   X(ObjectInstanceNameNotReserved) \
   X(ObjectInstanceNotKnown) \
   X(OwnershipAcquisitionPending) \
   X(RTIinternalError) \
   X(RegionDoesNotContainSpecifiedDimension) \
   X(RegionInUseForUpdateOrSubscription) \
   X(RegionNotCreatedByThisFederate) \
   X(RequestForTimeConstrainedPending) \
   X(RequestForTimeRegulationPending) \
   X(RestoreInProgress) \
   X(RestoreNotInProgress) \
   X(RestoreNotRequested) \
   X(SaveInProgress) \
   X(SaveNotInProgress) \
   X(SaveNotInitiated) \
   X(SpecifiedSaveLabelDoesNotExist) \
   X(SynchronizationPointLabelNotAnnounced) \
   X(TimeConstrainedAlreadyEnabled) \
   X(TimeConstrainedIsNotEnabled) \
   X(TimeRegulationAlreadyEnabled) \
   X(TimeRegulationIsNotEnabled) \
   X(UnableToPerformSave) \
   X(UnknownName) \
   X(UnsupportedCallbackModel)
// clang-format on

// A concrete class owns its message and nothing else. Moving from one leaves its message empty.
#define RTI_EXCEPTION(Name)                       \
   class RTI_EXPORT Name : public Exception       \
   {                                              \
   public:                                        \
      explicit Name(std::wstring const& message); \
      Name(Name const& other);                    \
      Name(Name&& other) noexcept;                \
      Name& operator=(Name const& other);         \
      Name& operator=(Name&& other) noexcept;     \
      ~Name() override;                           \
      std::wstring what() const override;         \
                                                  \
   private:                                       \
      std::wstring _message;                      \
   };

namespace rti1516e {
RTI_FOR_EACH_EXCEPTION(RTI_EXCEPTION)
} // namespace rti1516e

#undef RTI_EXCEPTION

#endif
