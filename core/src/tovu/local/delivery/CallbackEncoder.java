package tovu.local.delivery;

import static tovu.local.delivery.CallbackMethod.*;

import hla.rti1516e.exceptions.FederateInternalError;
import java.util.List;
import java.util.Set;
import tovu.local.fom.OrderType;
import tovu.local.fom.Transportation;
import tovu.local.model.port.FederateCallbacks;
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

/** Makes each callback a message and hands it on. */
final class CallbackEncoder implements FederateCallbacks {
    private final CallbackPort port;
    private final MessageWriter message;

    CallbackEncoder(int context, CallbackPort port) {
        this.port = port;
        message = new MessageWriter(context);
    }

    @Override
    public void connectionLost(String faultDescription) throws FederateInternalError {
        port.call(connectionLost_S, message.begin().text(faultDescription).end());
    }

    @Override
    public void reportFederationExecutions(List<FederationInformation> executions) throws FederateInternalError {
        port.call(reportFederationExecutions_FEIS, message.begin()
                .rows(executions, (out, row) -> out.text(row.name()).text(row.timeImplementation())).end());
    }

    @Override
    public void synchronizationPointRegistrationSucceeded(String label) throws FederateInternalError {
        port.call(synchronizationPointRegistrationSucceeded_S, message.begin().text(label).end());
    }

    @Override
    public void synchronizationPointRegistrationFailed(String label, SynchronizationPointFailureReason reason)
            throws FederateInternalError {
        port.call(synchronizationPointRegistrationFailed_S_SPFR, message.begin().text(label).code(reason).end());
    }

    @Override
    public void announceSynchronizationPoint(String label, byte[] tag) throws FederateInternalError {
        port.call(announceSynchronizationPoint_S_BX, message.begin().text(label).bytes(tag).end());
    }

    @Override
    public void federationSynchronized(String label, int[] failedFederates) throws FederateInternalError {
        port.call(federationSynchronized_S_FHS, message.begin().text(label).handles(failedFederates).end());
    }

    @Override
    public void initiateFederateSave(String label, LogicalTime time) throws FederateInternalError {
        message.begin().text(label);
        if (time == null) {
            port.call(initiateFederateSave_S, message.end());
        } else {
            port.call(initiateFederateSave_S_LT, message.time(time).end());
        }
    }

    @Override
    public void federationSaved() throws FederateInternalError {
        port.call(federationSaved, message.begin().end());
    }

    @Override
    public void federationNotSaved(SaveFailureReason reason) throws FederateInternalError {
        port.call(federationNotSaved_SFR, message.begin().code(reason).end());
    }

    @Override
    public void federationSaveStatusResponse(List<FederateSaveStatus> statuses) throws FederateInternalError {
        port.call(federationSaveStatusResponse_FHSSPX, message.begin()
                .rows(statuses, (out, row) -> out.integer(row.federate()).code(row.status())).end());
    }

    @Override
    public void requestFederationRestoreSucceeded(String label) throws FederateInternalError {
        port.call(requestFederationRestoreSucceeded_S, message.begin().text(label).end());
    }

    @Override
    public void requestFederationRestoreFailed(String label) throws FederateInternalError {
        port.call(requestFederationRestoreFailed_S, message.begin().text(label).end());
    }

    @Override
    public void federationRestoreBegun() throws FederateInternalError {
        port.call(federationRestoreBegun, message.begin().end());
    }

    @Override
    public void initiateFederateRestore(String label, String federateName, int federate) throws FederateInternalError {
        port.call(initiateFederateRestore_S_S_FH,
                message.begin().text(label).text(federateName).integer(federate).end());
    }

    @Override
    public void federationRestored() throws FederateInternalError {
        port.call(federationRestored, message.begin().end());
    }

    @Override
    public void federationNotRestored(RestoreFailureReason reason) throws FederateInternalError {
        port.call(federationNotRestored_RFR, message.begin().code(reason).end());
    }

    @Override
    public void federationRestoreStatusResponse(List<FederateRestoreStatus> statuses) throws FederateInternalError {
        port.call(federationRestoreStatusResponse_FRSX, message.begin()
                .rows(statuses, (out, row) -> out.integer(row.before()).integer(row.after()).code(row.status()))
                .end());
    }

    @Override
    public void startRegistrationForObjectClass(int objectClass) throws FederateInternalError {
        port.call(startRegistrationForObjectClass_OCH, message.begin().integer(objectClass).end());
    }

    @Override
    public void stopRegistrationForObjectClass(int objectClass) throws FederateInternalError {
        port.call(stopRegistrationForObjectClass_OCH, message.begin().integer(objectClass).end());
    }

    @Override
    public void turnInteractionsOn(int interactionClass) throws FederateInternalError {
        port.call(turnInteractionsOn_ICH, message.begin().integer(interactionClass).end());
    }

    @Override
    public void turnInteractionsOff(int interactionClass) throws FederateInternalError {
        port.call(turnInteractionsOff_ICH, message.begin().integer(interactionClass).end());
    }

    @Override
    public void objectInstanceNameReservationSucceeded(String name) throws FederateInternalError {
        port.call(objectInstanceNameReservationSucceeded_S, message.begin().text(name).end());
    }

    @Override
    public void objectInstanceNameReservationFailed(String name) throws FederateInternalError {
        port.call(objectInstanceNameReservationFailed_S, message.begin().text(name).end());
    }

    @Override
    public void multipleObjectInstanceNameReservationSucceeded(Set<String> names) throws FederateInternalError {
        port.call(multipleObjectInstanceNameReservationSucceeded_S, message.begin().texts(names).end());
    }

    @Override
    public void multipleObjectInstanceNameReservationFailed(Set<String> names) throws FederateInternalError {
        port.call(multipleObjectInstanceNameReservationFailed_S, message.begin().texts(names).end());
    }

    @Override
    public void discoverObjectInstance(int object, int objectClass, String name, int producer)
            throws FederateInternalError {
        message.begin().integer(object).integer(objectClass).text(name);
        if (producer == 0) {
            port.call(discoverObjectInstance_OIH_OCH_S, message.end());
        } else {
            port.call(discoverObjectInstance_OIH_OCH_S_FH, message.integer(producer).end());
        }
    }

    @Override
    public void reflectAttributeValues(int object, HandleValues attributeValues, byte[] tag, OrderType sentOrder,
            Transportation transportation, Stamp stamp, Supplement supplement) throws FederateInternalError {
        message.begin().integer(object).values(attributeValues).bytes(tag).order(sentOrder)
                .transportation(transportation);
        if (stamp == null) {
            port.call(reflectAttributeValues_OIH_AHVM_BX_OT_TTH_FASRI, message.supplement(supplement).end());
        } else if (stamp.retraction() == 0) {
            message.time(stamp.time()).order(stamp.receivedOrder());
            port.call(reflectAttributeValues_OIH_AHVM_BX_OT_TTH_LT_OT_FASRI, message.supplement(supplement).end());
        } else {
            message.time(stamp.time()).order(stamp.receivedOrder()).retraction(stamp.retraction());
            port.call(reflectAttributeValues_OIH_AHVM_BX_OT_TTH_LT_OT_MRH_FASRI,
                    message.supplement(supplement).end());
        }
    }

    @Override
    public void receiveInteraction(int interactionClass, HandleValues parameterValues, byte[] tag,
            OrderType sentOrder, Transportation transportation, Stamp stamp, Supplement supplement)
            throws FederateInternalError {
        message.begin().integer(interactionClass).values(parameterValues).bytes(tag).order(sentOrder)
                .transportation(transportation);
        if (stamp == null) {
            port.call(receiveInteraction_ICH_PHVM_BX_OT_TTH_FASRI, message.supplement(supplement).end());
        } else if (stamp.retraction() == 0) {
            message.time(stamp.time()).order(stamp.receivedOrder());
            port.call(receiveInteraction_ICH_PHVM_BX_OT_TTH_LT_OT_FASRI, message.supplement(supplement).end());
        } else {
            message.time(stamp.time()).order(stamp.receivedOrder()).retraction(stamp.retraction());
            port.call(receiveInteraction_ICH_PHVM_BX_OT_TTH_LT_OT_MRH_FASRI, message.supplement(supplement).end());
        }
    }

    @Override
    public void removeObjectInstance(int object, byte[] tag, OrderType sentOrder, Stamp stamp, int producer)
            throws FederateInternalError {
        message.begin().integer(object).bytes(tag).order(sentOrder);
        if (stamp == null) {
            port.call(removeObjectInstance_OIH_BX_OT_FASRI, message.producer(producer).end());
        } else if (stamp.retraction() == 0) {
            message.time(stamp.time()).order(stamp.receivedOrder());
            port.call(removeObjectInstance_OIH_BX_OT_LT_OT_FASRI, message.producer(producer).end());
        } else {
            message.time(stamp.time()).order(stamp.receivedOrder()).retraction(stamp.retraction());
            port.call(removeObjectInstance_OIH_BX_OT_LT_OT_MRH_FASRI, message.producer(producer).end());
        }
    }

    @Override
    public void attributesInScope(int object, int[] attributes) throws FederateInternalError {
        port.call(attributesInScope_OIH_AHS, message.begin().integer(object).handles(attributes).end());
    }

    @Override
    public void attributesOutOfScope(int object, int[] attributes) throws FederateInternalError {
        port.call(attributesOutOfScope_OIH_AHS, message.begin().integer(object).handles(attributes).end());
    }

    @Override
    public void provideAttributeValueUpdate(int object, int[] attributes, byte[] tag) throws FederateInternalError {
        port.call(provideAttributeValueUpdate_OIH_AHS_BX,
                message.begin().integer(object).handles(attributes).bytes(tag).end());
    }

    @Override
    public void turnUpdatesOnForObjectInstance(int object, int[] attributes, String updateRate)
            throws FederateInternalError {
        message.begin().integer(object).handles(attributes);
        if (updateRate.isEmpty()) {
            port.call(turnUpdatesOnForObjectInstance_OIH_AHS, message.end());
        } else {
            port.call(turnUpdatesOnForObjectInstance_OIH_AHS_S, message.text(updateRate).end());
        }
    }

    @Override
    public void turnUpdatesOffForObjectInstance(int object, int[] attributes) throws FederateInternalError {
        port.call(turnUpdatesOffForObjectInstance_OIH_AHS,
                message.begin().integer(object).handles(attributes).end());
    }

    @Override
    public void confirmAttributeTransportationTypeChange(int object, int[] attributes, Transportation transportation)
            throws FederateInternalError {
        port.call(confirmAttributeTransportationTypeChange_OIH_AHS_TTH,
                message.begin().integer(object).handles(attributes).transportation(transportation).end());
    }

    @Override
    public void confirmInteractionTransportationTypeChange(int interactionClass, Transportation transportation)
            throws FederateInternalError {
        port.call(confirmInteractionTransportationTypeChange_ICH_TTH,
                message.begin().integer(interactionClass).transportation(transportation).end());
    }

    @Override
    public void reportAttributeTransportationType(int object, int attribute, Transportation transportation)
            throws FederateInternalError {
        port.call(reportAttributeTransportationType_OIH_AH_TTH,
                message.begin().integer(object).integer(attribute).transportation(transportation).end());
    }

    @Override
    public void reportInteractionTransportationType(int federate, int interactionClass, Transportation transportation)
            throws FederateInternalError {
        port.call(reportInteractionTransportationType_FH_ICH_TTH,
                message.begin().integer(federate).integer(interactionClass).transportation(transportation).end());
    }

    @Override
    public void requestAttributeOwnershipAssumption(int object, int[] attributes, byte[] tag)
            throws FederateInternalError {
        port.call(requestAttributeOwnershipAssumption_OIH_AHS_BX,
                message.begin().integer(object).handles(attributes).bytes(tag).end());
    }

    @Override
    public void requestDivestitureConfirmation(int object, int[] attributes) throws FederateInternalError {
        port.call(requestDivestitureConfirmation_OIH_AHS,
                message.begin().integer(object).handles(attributes).end());
    }

    @Override
    public void attributeOwnershipAcquisitionNotification(int object, int[] attributes, byte[] tag)
            throws FederateInternalError {
        port.call(attributeOwnershipAcquisitionNotification_OIH_AHS_BX,
                message.begin().integer(object).handles(attributes).bytes(tag).end());
    }

    @Override
    public void attributeOwnershipUnavailable(int object, int[] attributes) throws FederateInternalError {
        port.call(attributeOwnershipUnavailable_OIH_AHS, message.begin().integer(object).handles(attributes).end());
    }

    @Override
    public void requestAttributeOwnershipRelease(int object, int[] attributes, byte[] tag)
            throws FederateInternalError {
        port.call(requestAttributeOwnershipRelease_OIH_AHS_BX,
                message.begin().integer(object).handles(attributes).bytes(tag).end());
    }

    @Override
    public void confirmAttributeOwnershipAcquisitionCancellation(int object, int[] attributes)
            throws FederateInternalError {
        port.call(confirmAttributeOwnershipAcquisitionCancellation_OIH_AHS,
                message.begin().integer(object).handles(attributes).end());
    }

    @Override
    public void informAttributeOwnership(int object, int attribute, int federate) throws FederateInternalError {
        port.call(informAttributeOwnership_OIH_AH_FH,
                message.begin().integer(object).integer(attribute).integer(federate).end());
    }

    @Override
    public void attributeIsNotOwned(int object, int attribute) throws FederateInternalError {
        port.call(attributeIsNotOwned_OIH_AH, message.begin().integer(object).integer(attribute).end());
    }

    @Override
    public void attributeIsOwnedByRTI(int object, int attribute) throws FederateInternalError {
        port.call(attributeIsOwnedByRTI_OIH_AH, message.begin().integer(object).integer(attribute).end());
    }

    @Override
    public void timeRegulationEnabled(LogicalTime time) throws FederateInternalError {
        port.call(timeRegulationEnabled_LT, message.begin().time(time).end());
    }

    @Override
    public void timeConstrainedEnabled(LogicalTime time) throws FederateInternalError {
        port.call(timeConstrainedEnabled_LT, message.begin().time(time).end());
    }

    @Override
    public void timeAdvanceGrant(LogicalTime time) throws FederateInternalError {
        port.call(timeAdvanceGrant_LT, message.begin().time(time).end());
    }

    @Override
    public void requestRetraction(int retraction) throws FederateInternalError {
        port.call(requestRetraction_MRH, message.begin().retraction(retraction).end());
    }
}
