package tovu.local.delivery;

import hla.rti1516e.exceptions.FederateInternalError;
import java.util.List;
import java.util.Set;
import morva.tovu1516e.FederateAmbassadorC2007;
import tovu.local.fom.OrderType;
import tovu.local.fom.Transportation;
import tovu.local.model.FederateCallbacks;
import tovu.local.model.FederateRestoreStatus;
import tovu.local.model.FederateSaveStatus;
import tovu.local.model.FederationInformation;
import tovu.local.model.HandleValues;
import tovu.local.model.LogicalTime;
import tovu.local.model.RestoreFailureReason;
import tovu.local.model.SaveFailureReason;
import tovu.local.model.Stamp;
import tovu.local.model.Supplement;
import tovu.local.model.SynchronizationPointFailureReason;

/** Makes each callback a message and hands it to its native, in which the federate's own code runs. */
final class CallbackEncoder implements FederateCallbacks {
    private final FederateAmbassadorC2007 natives = new FederateAmbassadorC2007();
    private final MessageWriter message;

    CallbackEncoder(int context) {
        message = new MessageWriter(context);
    }

    @Override
    public void connectionLost(String faultDescription) throws FederateInternalError {
        natives.connectionLost_S_Native(message.begin().text(faultDescription).end());
    }

    @Override
    public void reportFederationExecutions(List<FederationInformation> executions) throws FederateInternalError {
        natives.reportFederationExecutions_FEIS_Native(message.begin()
                .rows(executions, (out, row) -> out.text(row.name()).text(row.timeImplementation())).end());
    }

    @Override
    public void synchronizationPointRegistrationSucceeded(String label) throws FederateInternalError {
        natives.synchronizationPointRegistrationSucceeded_S_Native(message.begin().text(label).end());
    }

    @Override
    public void synchronizationPointRegistrationFailed(String label, SynchronizationPointFailureReason reason)
            throws FederateInternalError {
        natives.synchronizationPointRegistrationFailed_S_SPFR_Native(message.begin().text(label).code(reason).end());
    }

    @Override
    public void announceSynchronizationPoint(String label, byte[] tag) throws FederateInternalError {
        natives.announceSynchronizationPoint_S_BX_Native(message.begin().text(label).bytes(tag).end());
    }

    @Override
    public void federationSynchronized(String label, int[] failedFederates) throws FederateInternalError {
        natives.federationSynchronized_S_FHS_Native(message.begin().text(label).handles(failedFederates).end());
    }

    @Override
    public void initiateFederateSave(String label, LogicalTime time) throws FederateInternalError {
        message.begin().text(label);
        if (time == null) {
            natives.initiateFederateSave_S_Native(message.end());
        } else {
            natives.initiateFederateSave_S_LT_Native(message.time(time).end());
        }
    }

    @Override
    public void federationSaved() throws FederateInternalError {
        natives.federationSaved_Native(message.begin().end());
    }

    @Override
    public void federationNotSaved(SaveFailureReason reason) throws FederateInternalError {
        natives.federationNotSaved_SFR_Native(message.begin().code(reason).end());
    }

    @Override
    public void federationSaveStatusResponse(List<FederateSaveStatus> statuses) throws FederateInternalError {
        natives.federationSaveStatusResponse_FHSSPX_Native(message.begin()
                .rows(statuses, (out, row) -> out.integer(row.federate()).code(row.status())).end());
    }

    @Override
    public void requestFederationRestoreSucceeded(String label) throws FederateInternalError {
        natives.requestFederationRestoreSucceeded_S_Native(message.begin().text(label).end());
    }

    @Override
    public void requestFederationRestoreFailed(String label) throws FederateInternalError {
        natives.requestFederationRestoreFailed_S_Native(message.begin().text(label).end());
    }

    @Override
    public void federationRestoreBegun() throws FederateInternalError {
        natives.federationRestoreBegun_Native(message.begin().end());
    }

    @Override
    public void initiateFederateRestore(String label, String federateName, int federate) throws FederateInternalError {
        natives.initiateFederateRestore_S_S_FH_Native(
                message.begin().text(label).text(federateName).integer(federate).end());
    }

    @Override
    public void federationRestored() throws FederateInternalError {
        natives.federationRestored_Native(message.begin().end());
    }

    @Override
    public void federationNotRestored(RestoreFailureReason reason) throws FederateInternalError {
        natives.federationNotRestored_RFR_Native(message.begin().code(reason).end());
    }

    @Override
    public void federationRestoreStatusResponse(List<FederateRestoreStatus> statuses) throws FederateInternalError {
        natives.federationRestoreStatusResponse_FRSX_Native(message.begin()
                .rows(statuses, (out, row) -> out.integer(row.before()).integer(row.after()).code(row.status()))
                .end());
    }

    @Override
    public void startRegistrationForObjectClass(int objectClass) throws FederateInternalError {
        natives.startRegistrationForObjectClass_OCH_Native(message.begin().integer(objectClass).end());
    }

    @Override
    public void stopRegistrationForObjectClass(int objectClass) throws FederateInternalError {
        natives.stopRegistrationForObjectClass_OCH_Native(message.begin().integer(objectClass).end());
    }

    @Override
    public void turnInteractionsOn(int interactionClass) throws FederateInternalError {
        natives.turnInteractionsOn_ICH_Native(message.begin().integer(interactionClass).end());
    }

    @Override
    public void turnInteractionsOff(int interactionClass) throws FederateInternalError {
        natives.turnInteractionsOff_ICH_Native(message.begin().integer(interactionClass).end());
    }

    @Override
    public void objectInstanceNameReservationSucceeded(String name) throws FederateInternalError {
        natives.objectInstanceNameReservationSucceeded_S_Native(message.begin().text(name).end());
    }

    @Override
    public void objectInstanceNameReservationFailed(String name) throws FederateInternalError {
        natives.objectInstanceNameReservationFailed_S_Native(message.begin().text(name).end());
    }

    @Override
    public void multipleObjectInstanceNameReservationSucceeded(Set<String> names) throws FederateInternalError {
        natives.multipleObjectInstanceNameReservationSucceeded_S_Native(message.begin().texts(names).end());
    }

    @Override
    public void multipleObjectInstanceNameReservationFailed(Set<String> names) throws FederateInternalError {
        natives.multipleObjectInstanceNameReservationFailed_S_Native(message.begin().texts(names).end());
    }

    @Override
    public void discoverObjectInstance(int object, int objectClass, String name, int producer)
            throws FederateInternalError {
        message.begin().integer(object).integer(objectClass).text(name);
        if (producer == 0) {
            natives.discoverObjectInstance_OIH_OCH_S_Native(message.end());
        } else {
            natives.discoverObjectInstance_OIH_OCH_S_FH_Native(message.integer(producer).end());
        }
    }

    @Override
    public void reflectAttributeValues(int object, HandleValues attributeValues, byte[] tag, OrderType sentOrder,
            Transportation transportation, Stamp stamp, Supplement supplement) throws FederateInternalError {
        message.begin().integer(object).values(attributeValues).bytes(tag).order(sentOrder)
                .transportation(transportation);
        if (stamp == null) {
            natives.reflectAttributeValues_OIH_AHVM_BX_OT_TTH_FASRI_Native(message.supplement(supplement).end());
        } else if (stamp.retraction() == 0) {
            message.time(stamp.time()).order(stamp.receivedOrder());
            natives.reflectAttributeValues_OIH_AHVM_BX_OT_TTH_LT_OT_FASRI_Native(message.supplement(supplement).end());
        } else {
            message.time(stamp.time()).order(stamp.receivedOrder()).retraction(stamp.retraction());
            natives.reflectAttributeValues_OIH_AHVM_BX_OT_TTH_LT_OT_MRH_FASRI_Native(
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
            natives.receiveInteraction_ICH_PHVM_BX_OT_TTH_FASRI_Native(message.supplement(supplement).end());
        } else if (stamp.retraction() == 0) {
            message.time(stamp.time()).order(stamp.receivedOrder());
            natives.receiveInteraction_ICH_PHVM_BX_OT_TTH_LT_OT_FASRI_Native(message.supplement(supplement).end());
        } else {
            message.time(stamp.time()).order(stamp.receivedOrder()).retraction(stamp.retraction());
            natives.receiveInteraction_ICH_PHVM_BX_OT_TTH_LT_OT_MRH_FASRI_Native(message.supplement(supplement).end());
        }
    }

    @Override
    public void removeObjectInstance(int object, byte[] tag, OrderType sentOrder, Stamp stamp, int producer)
            throws FederateInternalError {
        message.begin().integer(object).bytes(tag).order(sentOrder);
        if (stamp == null) {
            natives.removeObjectInstance_OIH_BX_OT_FASRI_Native(message.producer(producer).end());
        } else if (stamp.retraction() == 0) {
            message.time(stamp.time()).order(stamp.receivedOrder());
            natives.removeObjectInstance_OIH_BX_OT_LT_OT_FASRI_Native(message.producer(producer).end());
        } else {
            message.time(stamp.time()).order(stamp.receivedOrder()).retraction(stamp.retraction());
            natives.removeObjectInstance_OIH_BX_OT_LT_OT_MRH_FASRI_Native(message.producer(producer).end());
        }
    }

    @Override
    public void attributesInScope(int object, int[] attributes) throws FederateInternalError {
        natives.attributesInScope_OIH_AHS_Native(message.begin().integer(object).handles(attributes).end());
    }

    @Override
    public void attributesOutOfScope(int object, int[] attributes) throws FederateInternalError {
        natives.attributesOutOfScope_OIH_AHS_Native(message.begin().integer(object).handles(attributes).end());
    }

    @Override
    public void provideAttributeValueUpdate(int object, int[] attributes, byte[] tag) throws FederateInternalError {
        natives.provideAttributeValueUpdate_OIH_AHS_BX_Native(
                message.begin().integer(object).handles(attributes).bytes(tag).end());
    }

    @Override
    public void turnUpdatesOnForObjectInstance(int object, int[] attributes, String updateRate)
            throws FederateInternalError {
        message.begin().integer(object).handles(attributes);
        if (updateRate.isEmpty()) {
            natives.turnUpdatesOnForObjectInstance_OIH_AHS_Native(message.end());
        } else {
            natives.turnUpdatesOnForObjectInstance_OIH_AHS_S_Native(message.text(updateRate).end());
        }
    }

    @Override
    public void turnUpdatesOffForObjectInstance(int object, int[] attributes) throws FederateInternalError {
        natives.turnUpdatesOffForObjectInstance_OIH_AHS_Native(
                message.begin().integer(object).handles(attributes).end());
    }

    @Override
    public void confirmAttributeTransportationTypeChange(int object, int[] attributes, Transportation transportation)
            throws FederateInternalError {
        natives.confirmAttributeTransportationTypeChange_OIH_AHS_TTH_Native(
                message.begin().integer(object).handles(attributes).transportation(transportation).end());
    }

    @Override
    public void confirmInteractionTransportationTypeChange(int interactionClass, Transportation transportation)
            throws FederateInternalError {
        natives.confirmInteractionTransportationTypeChange_ICH_TTH_Native(
                message.begin().integer(interactionClass).transportation(transportation).end());
    }

    @Override
    public void reportAttributeTransportationType(int object, int attribute, Transportation transportation)
            throws FederateInternalError {
        natives.reportAttributeTransportationType_OIH_AH_TTH_Native(
                message.begin().integer(object).integer(attribute).transportation(transportation).end());
    }

    @Override
    public void reportInteractionTransportationType(int federate, int interactionClass, Transportation transportation)
            throws FederateInternalError {
        natives.reportInteractionTransportationType_FH_ICH_TTH_Native(
                message.begin().integer(federate).integer(interactionClass).transportation(transportation).end());
    }

    @Override
    public void requestAttributeOwnershipAssumption(int object, int[] attributes, byte[] tag)
            throws FederateInternalError {
        natives.requestAttributeOwnershipAssumption_OIH_AHS_BX_Native(
                message.begin().integer(object).handles(attributes).bytes(tag).end());
    }

    @Override
    public void requestDivestitureConfirmation(int object, int[] attributes) throws FederateInternalError {
        natives.requestDivestitureConfirmation_OIH_AHS_Native(
                message.begin().integer(object).handles(attributes).end());
    }

    @Override
    public void attributeOwnershipAcquisitionNotification(int object, int[] attributes, byte[] tag)
            throws FederateInternalError {
        natives.attributeOwnershipAcquisitionNotification_OIH_AHS_BX_Native(
                message.begin().integer(object).handles(attributes).bytes(tag).end());
    }

    @Override
    public void attributeOwnershipUnavailable(int object, int[] attributes) throws FederateInternalError {
        natives.attributeOwnershipUnavailable_OIH_AHS_Native(message.begin().integer(object).handles(attributes).end());
    }

    @Override
    public void requestAttributeOwnershipRelease(int object, int[] attributes, byte[] tag)
            throws FederateInternalError {
        natives.requestAttributeOwnershipRelease_OIH_AHS_BX_Native(
                message.begin().integer(object).handles(attributes).bytes(tag).end());
    }

    @Override
    public void confirmAttributeOwnershipAcquisitionCancellation(int object, int[] attributes)
            throws FederateInternalError {
        natives.confirmAttributeOwnershipAcquisitionCancellation_OIH_AHS_Native(
                message.begin().integer(object).handles(attributes).end());
    }

    @Override
    public void informAttributeOwnership(int object, int attribute, int federate) throws FederateInternalError {
        natives.informAttributeOwnership_OIH_AH_FH_Native(
                message.begin().integer(object).integer(attribute).integer(federate).end());
    }

    @Override
    public void attributeIsNotOwned(int object, int attribute) throws FederateInternalError {
        natives.attributeIsNotOwned_OIH_AH_Native(message.begin().integer(object).integer(attribute).end());
    }

    @Override
    public void attributeIsOwnedByRTI(int object, int attribute) throws FederateInternalError {
        natives.attributeIsOwnedByRTI_OIH_AH_Native(message.begin().integer(object).integer(attribute).end());
    }

    @Override
    public void timeRegulationEnabled(LogicalTime time) throws FederateInternalError {
        natives.timeRegulationEnabled_LT_Native(message.begin().time(time).end());
    }

    @Override
    public void timeConstrainedEnabled(LogicalTime time) throws FederateInternalError {
        natives.timeConstrainedEnabled_LT_Native(message.begin().time(time).end());
    }

    @Override
    public void timeAdvanceGrant(LogicalTime time) throws FederateInternalError {
        natives.timeAdvanceGrant_LT_Native(message.begin().time(time).end());
    }

    @Override
    public void requestRetraction(int retraction) throws FederateInternalError {
        natives.requestRetraction_MRH_Native(message.begin().retraction(retraction).end());
    }
}
