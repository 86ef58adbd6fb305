// A federate that has every callback, as federates of either age write them: with the exception
// specifications of the older dialects, or with override.
#include <RTI/FederateAmbassador.h>
#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>

#include <set>
#include <string>

using namespace rti1516e;

#ifdef EXCEPTION_SPECIFICATIONS
#define CALLBACK throw(rti1516e::FederateInternalError)
#define NOTHROW throw()
#else
#define CALLBACK override
#define NOTHROW override
#endif

namespace {

class Everything : public FederateAmbassador
{
public:
   Everything() {}
   virtual ~Everything() NOTHROW {}

   virtual void connectionLost(std::wstring const&) CALLBACK {}
   virtual void reportFederationExecutions(FederationExecutionInformationVector const&) CALLBACK {}
   virtual void synchronizationPointRegistrationSucceeded(std::wstring const&) CALLBACK {}
   virtual void synchronizationPointRegistrationFailed(std::wstring const&,
                                                       SynchronizationPointFailureReason) CALLBACK
   {}
   virtual void announceSynchronizationPoint(std::wstring const&, VariableLengthData const&) CALLBACK {}
   virtual void federationSynchronized(std::wstring const&, FederateHandleSet const&) CALLBACK {}
   virtual void initiateFederateSave(std::wstring const&, LogicalTime const&) CALLBACK {}
   virtual void initiateFederateSave(std::wstring const&) CALLBACK {}
   virtual void federationSaved() CALLBACK {}
   virtual void federationNotSaved(SaveFailureReason) CALLBACK {}
   virtual void federationSaveStatusResponse(FederateHandleSaveStatusPairVector const&) CALLBACK {}
   virtual void requestFederationRestoreSucceeded(std::wstring const&) CALLBACK {}
   virtual void requestFederationRestoreFailed(std::wstring const&) CALLBACK {}
   virtual void federationRestoreBegun() CALLBACK {}
   virtual void initiateFederateRestore(std::wstring const&, std::wstring const&, FederateHandle) CALLBACK {}
   virtual void federationRestored() CALLBACK {}
   virtual void federationNotRestored(RestoreFailureReason) CALLBACK {}
   virtual void federationRestoreStatusResponse(FederateRestoreStatusVector const&) CALLBACK {}
   virtual void startRegistrationForObjectClass(ObjectClassHandle) CALLBACK {}
   virtual void stopRegistrationForObjectClass(ObjectClassHandle) CALLBACK {}
   virtual void turnInteractionsOn(InteractionClassHandle) CALLBACK {}
   virtual void turnInteractionsOff(InteractionClassHandle) CALLBACK {}
   virtual void objectInstanceNameReservationSucceeded(std::wstring const&) CALLBACK {}
   virtual void objectInstanceNameReservationFailed(std::wstring const&) CALLBACK {}
   virtual void multipleObjectInstanceNameReservationSucceeded(std::set<std::wstring> const&) CALLBACK {}
   virtual void multipleObjectInstanceNameReservationFailed(std::set<std::wstring> const&) CALLBACK {}
   virtual void discoverObjectInstance(ObjectInstanceHandle, ObjectClassHandle, std::wstring const&,
                                       FederateHandle) CALLBACK
   {}
   virtual void discoverObjectInstance(ObjectInstanceHandle, ObjectClassHandle, std::wstring const&) CALLBACK
   {}
   virtual void reflectAttributeValues(ObjectInstanceHandle, AttributeHandleValueMap const&,
                                       VariableLengthData const&, OrderType, TransportationType,
                                       LogicalTime const&, OrderType, MessageRetractionHandle,
                                       SupplementalReflectInfo) CALLBACK
   {}
   virtual void reflectAttributeValues(ObjectInstanceHandle, AttributeHandleValueMap const&,
                                       VariableLengthData const&, OrderType, TransportationType,
                                       LogicalTime const&, OrderType, SupplementalReflectInfo) CALLBACK
   {}
   virtual void reflectAttributeValues(ObjectInstanceHandle, AttributeHandleValueMap const&,
                                       VariableLengthData const&, OrderType, TransportationType,
                                       SupplementalReflectInfo) CALLBACK
   {}
   virtual void receiveInteraction(InteractionClassHandle, ParameterHandleValueMap const&,
                                   VariableLengthData const&, OrderType, TransportationType,
                                   LogicalTime const&, OrderType, MessageRetractionHandle,
                                   SupplementalReceiveInfo) CALLBACK
   {}
   virtual void receiveInteraction(InteractionClassHandle, ParameterHandleValueMap const&,
                                   VariableLengthData const&, OrderType, TransportationType,
                                   LogicalTime const&, OrderType, SupplementalReceiveInfo) CALLBACK
   {}
   virtual void receiveInteraction(InteractionClassHandle, ParameterHandleValueMap const&,
                                   VariableLengthData const&, OrderType, TransportationType,
                                   SupplementalReceiveInfo) CALLBACK
   {}
   virtual void removeObjectInstance(ObjectInstanceHandle, VariableLengthData const&, OrderType,
                                     LogicalTime const&, OrderType, MessageRetractionHandle,
                                     SupplementalRemoveInfo) CALLBACK
   {}
   virtual void removeObjectInstance(ObjectInstanceHandle, VariableLengthData const&, OrderType,
                                     LogicalTime const&, OrderType, SupplementalRemoveInfo) CALLBACK
   {}
   virtual void removeObjectInstance(ObjectInstanceHandle, VariableLengthData const&, OrderType,
                                     SupplementalRemoveInfo) CALLBACK
   {}
   virtual void attributesInScope(ObjectInstanceHandle, AttributeHandleSet const&) CALLBACK {}
   virtual void attributesOutOfScope(ObjectInstanceHandle, AttributeHandleSet const&) CALLBACK {}
   virtual void provideAttributeValueUpdate(ObjectInstanceHandle, AttributeHandleSet const&,
                                            VariableLengthData const&) CALLBACK
   {}
   virtual void turnUpdatesOnForObjectInstance(ObjectInstanceHandle, AttributeHandleSet const&,
                                               std::wstring const&) CALLBACK
   {}
   virtual void turnUpdatesOnForObjectInstance(ObjectInstanceHandle, AttributeHandleSet const&) CALLBACK {}
   virtual void turnUpdatesOffForObjectInstance(ObjectInstanceHandle, AttributeHandleSet const&) CALLBACK {}
   virtual void confirmAttributeTransportationTypeChange(ObjectInstanceHandle, AttributeHandleSet const&,
                                                         TransportationType) CALLBACK
   {}
   virtual void reportAttributeTransportationType(ObjectInstanceHandle, AttributeHandle,
                                                  TransportationType) CALLBACK
   {}
   virtual void confirmInteractionTransportationTypeChange(InteractionClassHandle,
                                                           TransportationType) CALLBACK
   {}
   virtual void reportInteractionTransportationType(FederateHandle, InteractionClassHandle,
                                                    TransportationType) CALLBACK
   {}
   virtual void requestAttributeOwnershipAssumption(ObjectInstanceHandle, AttributeHandleSet const&,
                                                    VariableLengthData const&) CALLBACK
   {}
   virtual void requestDivestitureConfirmation(ObjectInstanceHandle, AttributeHandleSet const&) CALLBACK {}
   virtual void attributeOwnershipAcquisitionNotification(ObjectInstanceHandle, AttributeHandleSet const&,
                                                          VariableLengthData const&) CALLBACK
   {}
   virtual void attributeOwnershipUnavailable(ObjectInstanceHandle, AttributeHandleSet const&) CALLBACK {}
   virtual void requestAttributeOwnershipRelease(ObjectInstanceHandle, AttributeHandleSet const&,
                                                 VariableLengthData const&) CALLBACK
   {}
   virtual void confirmAttributeOwnershipAcquisitionCancellation(ObjectInstanceHandle,
                                                                 AttributeHandleSet const&) CALLBACK
   {}
   virtual void informAttributeOwnership(ObjectInstanceHandle, AttributeHandle, FederateHandle) CALLBACK {}
   virtual void attributeIsNotOwned(ObjectInstanceHandle, AttributeHandle) CALLBACK {}
   virtual void attributeIsOwnedByRTI(ObjectInstanceHandle, AttributeHandle) CALLBACK {}
   virtual void timeRegulationEnabled(LogicalTime const&) CALLBACK {}
   virtual void timeConstrainedEnabled(LogicalTime const&) CALLBACK {}
   virtual void timeAdvanceGrant(LogicalTime const&) CALLBACK {}
   virtual void requestRetraction(MessageRetractionHandle) CALLBACK {}
};

class Little : public NullFederateAmbassador
{
public:
   Little() : _reached(false) {}
   virtual ~Little() NOTHROW {}

   virtual void timeAdvanceGrant(LogicalTime const& theTime) CALLBACK { _reached = !theTime.isInitial(); }
   virtual void connectionLost(std::wstring const& faultDescription) CALLBACK
   {
      throw FederateInternalError(faultDescription);
   }

   bool _reached;
};

} // namespace

// Neither is abstract.
void connectBoth(RTIambassador& ambassador, RTIambassador& another);
void connectBoth(RTIambassador& ambassador, RTIambassador& another)
{
   static Everything everything;
   static Little little;
   ambassador.connect(everything, HLA_EVOKED);
   another.connect(little, HLA_IMMEDIATE, L"settings");
}
