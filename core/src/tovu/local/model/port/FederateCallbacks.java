package tovu.local.model.port;

import hla.rti1516e.exceptions.FederateInternalError;
import java.util.List;
import java.util.Set;
import tovu.local.fom.OrderType;
import tovu.local.fom.Transportation;
import tovu.local.model.value.FederateRestoreStatus;
import tovu.local.model.value.FederateSaveStatus;
import tovu.local.model.value.FederationInformation;
import tovu.local.model.value.HandleValues;
import tovu.local.model.value.LogicalTime;
import tovu.local.model.value.RestoreFailureReason;
import tovu.local.model.value.SaveFailureReason;
import tovu.local.model.value.Stamp;
import tovu.local.model.value.Supplement;
import tovu.local.model.value.SynchronizationPointFailureReason;

/**
 * Everything that a federate can be told. Whatever the federate throws arrives as FederateInternalError. The
 * parameters' names say what kind of thing a handle designates; the trace goes by them.
 */
public interface FederateCallbacks {
    void connectionLost(String faultDescription) throws FederateInternalError;

    void reportFederationExecutions(List<FederationInformation> executions) throws FederateInternalError;

    void synchronizationPointRegistrationSucceeded(String label) throws FederateInternalError;

    void synchronizationPointRegistrationFailed(String label, SynchronizationPointFailureReason reason)
            throws FederateInternalError;

    void announceSynchronizationPoint(String label, byte[] tag) throws FederateInternalError;

    void federationSynchronized(String label, int[] failedFederates) throws FederateInternalError;

    /** @param time null for a save that was requested without a time */
    void initiateFederateSave(String label, LogicalTime time) throws FederateInternalError;

    void federationSaved() throws FederateInternalError;

    void federationNotSaved(SaveFailureReason reason) throws FederateInternalError;

    void federationSaveStatusResponse(List<FederateSaveStatus> statuses) throws FederateInternalError;

    void requestFederationRestoreSucceeded(String label) throws FederateInternalError;

    void requestFederationRestoreFailed(String label) throws FederateInternalError;

    void federationRestoreBegun() throws FederateInternalError;

    void initiateFederateRestore(String label, String federateName, int federate) throws FederateInternalError;

    void federationRestored() throws FederateInternalError;

    void federationNotRestored(RestoreFailureReason reason) throws FederateInternalError;

    void federationRestoreStatusResponse(List<FederateRestoreStatus> statuses) throws FederateInternalError;

    void startRegistrationForObjectClass(int objectClass) throws FederateInternalError;

    void stopRegistrationForObjectClass(int objectClass) throws FederateInternalError;

    void turnInteractionsOn(int interactionClass) throws FederateInternalError;

    void turnInteractionsOff(int interactionClass) throws FederateInternalError;

    void objectInstanceNameReservationSucceeded(String name) throws FederateInternalError;

    void objectInstanceNameReservationFailed(String name) throws FederateInternalError;

    void multipleObjectInstanceNameReservationSucceeded(Set<String> names) throws FederateInternalError;

    void multipleObjectInstanceNameReservationFailed(Set<String> names) throws FederateInternalError;

    /** @param producer the registering federate, or 0 where the federation does not convey it */
    void discoverObjectInstance(int object, int objectClass, String name, int producer) throws FederateInternalError;

    /** @param stamp null for an update that was sent without a time */
    void reflectAttributeValues(int object, HandleValues attributeValues, byte[] tag, OrderType sentOrder,
            Transportation transportation, Stamp stamp, Supplement supplement) throws FederateInternalError;

    /** @param stamp null for an interaction that was sent without a time */
    void receiveInteraction(int interactionClass, HandleValues parameterValues, byte[] tag, OrderType sentOrder,
            Transportation transportation, Stamp stamp, Supplement supplement) throws FederateInternalError;

    /** @param stamp null for a deletion without a time */
    void removeObjectInstance(int object, byte[] tag, OrderType sentOrder, Stamp stamp, int producer)
            throws FederateInternalError;

    void attributesInScope(int object, int[] attributes) throws FederateInternalError;

    void attributesOutOfScope(int object, int[] attributes) throws FederateInternalError;

    void provideAttributeValueUpdate(int object, int[] attributes, byte[] tag) throws FederateInternalError;

    /** @param updateRate the designator of the rate at which updates are wanted, or an empty text */
    void turnUpdatesOnForObjectInstance(int object, int[] attributes, String updateRate) throws FederateInternalError;

    void turnUpdatesOffForObjectInstance(int object, int[] attributes) throws FederateInternalError;

    void confirmAttributeTransportationTypeChange(int object, int[] attributes, Transportation transportation)
            throws FederateInternalError;

    void confirmInteractionTransportationTypeChange(int interactionClass, Transportation transportation)
            throws FederateInternalError;

    void reportAttributeTransportationType(int object, int attribute, Transportation transportation)
            throws FederateInternalError;

    void reportInteractionTransportationType(int federate, int interactionClass, Transportation transportation)
            throws FederateInternalError;

    void requestAttributeOwnershipAssumption(int object, int[] attributes, byte[] tag) throws FederateInternalError;

    void requestDivestitureConfirmation(int object, int[] attributes) throws FederateInternalError;

    void attributeOwnershipAcquisitionNotification(int object, int[] attributes, byte[] tag)
            throws FederateInternalError;

    void attributeOwnershipUnavailable(int object, int[] attributes) throws FederateInternalError;

    void requestAttributeOwnershipRelease(int object, int[] attributes, byte[] tag) throws FederateInternalError;

    void confirmAttributeOwnershipAcquisitionCancellation(int object, int[] attributes) throws FederateInternalError;

    void informAttributeOwnership(int object, int attribute, int federate) throws FederateInternalError;

    void attributeIsNotOwned(int object, int attribute) throws FederateInternalError;

    void attributeIsOwnedByRTI(int object, int attribute) throws FederateInternalError;

    void timeRegulationEnabled(LogicalTime time) throws FederateInternalError;

    void timeConstrainedEnabled(LogicalTime time) throws FederateInternalError;

    void timeAdvanceGrant(LogicalTime time) throws FederateInternalError;

    void requestRetraction(int retraction) throws FederateInternalError;
}
