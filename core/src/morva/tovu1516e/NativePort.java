package morva.tovu1516e;

import hla.rti1516e.exceptions.FederateInternalError;
import tovu.local.delivery.CallbackMethod;
import tovu.local.delivery.CallbackPort;

/** The way into the federates of this process. */
final class NativePort implements CallbackPort {
    private final FederateAmbassadorC2007 natives = new FederateAmbassadorC2007();

    @Override
    public void call(CallbackMethod method, byte[] message) throws FederateInternalError {
        switch (method) {
            case synchronizationPointRegistrationSucceeded_S ->
                natives.synchronizationPointRegistrationSucceeded_S_Native(message);
            case synchronizationPointRegistrationFailed_S_SPFR ->
                natives.synchronizationPointRegistrationFailed_S_SPFR_Native(message);
            case announceSynchronizationPoint_S_BX -> natives.announceSynchronizationPoint_S_BX_Native(message);
            case federationSynchronized_S_FHS -> natives.federationSynchronized_S_FHS_Native(message);
            case initiateFederateSave_S -> natives.initiateFederateSave_S_Native(message);
            case initiateFederateSave_S_LT -> natives.initiateFederateSave_S_LT_Native(message);
            case federationSaved -> natives.federationSaved_Native(message);
            case federationNotSaved_SFR -> natives.federationNotSaved_SFR_Native(message);
            case federationSaveStatusResponse_FHSSPX -> natives.federationSaveStatusResponse_FHSSPX_Native(message);
            case requestFederationRestoreSucceeded_S -> natives.requestFederationRestoreSucceeded_S_Native(message);
            case requestFederationRestoreFailed_S -> natives.requestFederationRestoreFailed_S_Native(message);
            case federationRestoreBegun -> natives.federationRestoreBegun_Native(message);
            case initiateFederateRestore_S_S_FH -> natives.initiateFederateRestore_S_S_FH_Native(message);
            case federationRestored -> natives.federationRestored_Native(message);
            case federationNotRestored_RFR -> natives.federationNotRestored_RFR_Native(message);
            case federationRestoreStatusResponse_FRSX -> natives.federationRestoreStatusResponse_FRSX_Native(message);
            case connectionLost_S -> natives.connectionLost_S_Native(message);
            case reportFederationExecutions_FEIS -> natives.reportFederationExecutions_FEIS_Native(message);
            case startRegistrationForObjectClass_OCH -> natives.startRegistrationForObjectClass_OCH_Native(message);
            case stopRegistrationForObjectClass_OCH -> natives.stopRegistrationForObjectClass_OCH_Native(message);
            case turnInteractionsOn_ICH -> natives.turnInteractionsOn_ICH_Native(message);
            case turnInteractionsOff_ICH -> natives.turnInteractionsOff_ICH_Native(message);
            case objectInstanceNameReservationSucceeded_S ->
                natives.objectInstanceNameReservationSucceeded_S_Native(message);
            case multipleObjectInstanceNameReservationSucceeded_S ->
                natives.multipleObjectInstanceNameReservationSucceeded_S_Native(message);
            case objectInstanceNameReservationFailed_S -> natives.objectInstanceNameReservationFailed_S_Native(message);
            case multipleObjectInstanceNameReservationFailed_S ->
                natives.multipleObjectInstanceNameReservationFailed_S_Native(message);
            case discoverObjectInstance_OIH_OCH_S -> natives.discoverObjectInstance_OIH_OCH_S_Native(message);
            case discoverObjectInstance_OIH_OCH_S_FH -> natives.discoverObjectInstance_OIH_OCH_S_FH_Native(message);
            case reflectAttributeValues_OIH_AHVM_BX_OT_TTH_FASRI ->
                natives.reflectAttributeValues_OIH_AHVM_BX_OT_TTH_FASRI_Native(message);
            case reflectAttributeValues_OIH_AHVM_BX_OT_TTH_LT_OT_FASRI ->
                natives.reflectAttributeValues_OIH_AHVM_BX_OT_TTH_LT_OT_FASRI_Native(message);
            case reflectAttributeValues_OIH_AHVM_BX_OT_TTH_LT_OT_MRH_FASRI ->
                natives.reflectAttributeValues_OIH_AHVM_BX_OT_TTH_LT_OT_MRH_FASRI_Native(message);
            case receiveInteraction_ICH_PHVM_BX_OT_TTH_FASRI ->
                natives.receiveInteraction_ICH_PHVM_BX_OT_TTH_FASRI_Native(message);
            case receiveInteraction_ICH_PHVM_BX_OT_TTH_LT_OT_FASRI ->
                natives.receiveInteraction_ICH_PHVM_BX_OT_TTH_LT_OT_FASRI_Native(message);
            case receiveInteraction_ICH_PHVM_BX_OT_TTH_LT_OT_MRH_FASRI ->
                natives.receiveInteraction_ICH_PHVM_BX_OT_TTH_LT_OT_MRH_FASRI_Native(message);
            case removeObjectInstance_OIH_BX_OT_FASRI -> natives.removeObjectInstance_OIH_BX_OT_FASRI_Native(message);
            case removeObjectInstance_OIH_BX_OT_LT_OT_FASRI ->
                natives.removeObjectInstance_OIH_BX_OT_LT_OT_FASRI_Native(message);
            case removeObjectInstance_OIH_BX_OT_LT_OT_MRH_FASRI ->
                natives.removeObjectInstance_OIH_BX_OT_LT_OT_MRH_FASRI_Native(message);
            case attributesInScope_OIH_AHS -> natives.attributesInScope_OIH_AHS_Native(message);
            case attributesOutOfScope_OIH_AHS -> natives.attributesOutOfScope_OIH_AHS_Native(message);
            case provideAttributeValueUpdate_OIH_AHS_BX ->
                natives.provideAttributeValueUpdate_OIH_AHS_BX_Native(message);
            case turnUpdatesOnForObjectInstance_OIH_AHS ->
                natives.turnUpdatesOnForObjectInstance_OIH_AHS_Native(message);
            case turnUpdatesOnForObjectInstance_OIH_AHS_S ->
                natives.turnUpdatesOnForObjectInstance_OIH_AHS_S_Native(message);
            case turnUpdatesOffForObjectInstance_OIH_AHS ->
                natives.turnUpdatesOffForObjectInstance_OIH_AHS_Native(message);
            case confirmAttributeTransportationTypeChange_OIH_AHS_TTH ->
                natives.confirmAttributeTransportationTypeChange_OIH_AHS_TTH_Native(message);
            case confirmInteractionTransportationTypeChange_ICH_TTH ->
                natives.confirmInteractionTransportationTypeChange_ICH_TTH_Native(message);
            case reportAttributeTransportationType_OIH_AH_TTH ->
                natives.reportAttributeTransportationType_OIH_AH_TTH_Native(message);
            case reportInteractionTransportationType_FH_ICH_TTH ->
                natives.reportInteractionTransportationType_FH_ICH_TTH_Native(message);
            case requestAttributeOwnershipAssumption_OIH_AHS_BX ->
                natives.requestAttributeOwnershipAssumption_OIH_AHS_BX_Native(message);
            case requestDivestitureConfirmation_OIH_AHS ->
                natives.requestDivestitureConfirmation_OIH_AHS_Native(message);
            case attributeOwnershipAcquisitionNotification_OIH_AHS_BX ->
                natives.attributeOwnershipAcquisitionNotification_OIH_AHS_BX_Native(message);
            case attributeOwnershipUnavailable_OIH_AHS -> natives.attributeOwnershipUnavailable_OIH_AHS_Native(message);
            case requestAttributeOwnershipRelease_OIH_AHS_BX ->
                natives.requestAttributeOwnershipRelease_OIH_AHS_BX_Native(message);
            case confirmAttributeOwnershipAcquisitionCancellation_OIH_AHS ->
                natives.confirmAttributeOwnershipAcquisitionCancellation_OIH_AHS_Native(message);
            case informAttributeOwnership_OIH_AH_FH -> natives.informAttributeOwnership_OIH_AH_FH_Native(message);
            case attributeIsNotOwned_OIH_AH -> natives.attributeIsNotOwned_OIH_AH_Native(message);
            case attributeIsOwnedByRTI_OIH_AH -> natives.attributeIsOwnedByRTI_OIH_AH_Native(message);
            case timeRegulationEnabled_LT -> natives.timeRegulationEnabled_LT_Native(message);
            case timeConstrainedEnabled_LT -> natives.timeConstrainedEnabled_LT_Native(message);
            case timeAdvanceGrant_LT -> natives.timeAdvanceGrant_LT_Native(message);
            case requestRetraction_MRH -> natives.requestRetraction_MRH_Native(message);
            default -> throw new IllegalArgumentException(method.name());
        }
    }
}
