package morva.tovu1516e;

import hla.rti1516e.exceptions.FederateInternalError;

/**
 * The way into the federate: each native takes one callback message and returns when the federate's callback has. What
 * the federate throws, and that its ambassador is gone, arrives as FederateInternalError.
 */
public final class FederateAmbassadorC2007 {
    public native void synchronizationPointRegistrationSucceeded_S_Native(byte[] message) throws FederateInternalError;

    public native void synchronizationPointRegistrationFailed_S_SPFR_Native(byte[] message)
            throws FederateInternalError;

    public native void announceSynchronizationPoint_S_BX_Native(byte[] message) throws FederateInternalError;

    public native void federationSynchronized_S_FHS_Native(byte[] message) throws FederateInternalError;

    public native void initiateFederateSave_S_Native(byte[] message) throws FederateInternalError;

    public native void initiateFederateSave_S_LT_Native(byte[] message) throws FederateInternalError;

    public native void federationSaved_Native(byte[] message) throws FederateInternalError;

    public native void federationNotSaved_SFR_Native(byte[] message) throws FederateInternalError;

    public native void federationSaveStatusResponse_FHSSPX_Native(byte[] message) throws FederateInternalError;

    public native void requestFederationRestoreSucceeded_S_Native(byte[] message) throws FederateInternalError;

    public native void requestFederationRestoreFailed_S_Native(byte[] message) throws FederateInternalError;

    public native void federationRestoreBegun_Native(byte[] message) throws FederateInternalError;

    public native void initiateFederateRestore_S_S_FH_Native(byte[] message) throws FederateInternalError;

    public native void federationRestored_Native(byte[] message) throws FederateInternalError;

    public native void federationNotRestored_RFR_Native(byte[] message) throws FederateInternalError;

    public native void federationRestoreStatusResponse_FRSX_Native(byte[] message) throws FederateInternalError;

    public native void connectionLost_S_Native(byte[] message) throws FederateInternalError;

    public native void reportFederationExecutions_FEIS_Native(byte[] message) throws FederateInternalError;

    public native void startRegistrationForObjectClass_OCH_Native(byte[] message) throws FederateInternalError;

    public native void stopRegistrationForObjectClass_OCH_Native(byte[] message) throws FederateInternalError;

    public native void turnInteractionsOn_ICH_Native(byte[] message) throws FederateInternalError;

    public native void turnInteractionsOff_ICH_Native(byte[] message) throws FederateInternalError;

    public native void objectInstanceNameReservationSucceeded_S_Native(byte[] message) throws FederateInternalError;

    public native void multipleObjectInstanceNameReservationSucceeded_S_Native(byte[] message)
            throws FederateInternalError;

    public native void objectInstanceNameReservationFailed_S_Native(byte[] message) throws FederateInternalError;

    public native void multipleObjectInstanceNameReservationFailed_S_Native(byte[] message)
            throws FederateInternalError;

    public native void discoverObjectInstance_OIH_OCH_S_Native(byte[] message) throws FederateInternalError;

    public native void discoverObjectInstance_OIH_OCH_S_FH_Native(byte[] message) throws FederateInternalError;

    public native void reflectAttributeValues_OIH_AHVM_BX_OT_TTH_FASRI_Native(byte[] message)
            throws FederateInternalError;

    public native void reflectAttributeValues_OIH_AHVM_BX_OT_TTH_LT_OT_FASRI_Native(byte[] message)
            throws FederateInternalError;

    public native void reflectAttributeValues_OIH_AHVM_BX_OT_TTH_LT_OT_MRH_FASRI_Native(byte[] message)
            throws FederateInternalError;

    public native void receiveInteraction_ICH_PHVM_BX_OT_TTH_FASRI_Native(byte[] message) throws FederateInternalError;

    public native void receiveInteraction_ICH_PHVM_BX_OT_TTH_LT_OT_FASRI_Native(byte[] message)
            throws FederateInternalError;

    public native void receiveInteraction_ICH_PHVM_BX_OT_TTH_LT_OT_MRH_FASRI_Native(byte[] message)
            throws FederateInternalError;

    public native void removeObjectInstance_OIH_BX_OT_FASRI_Native(byte[] message) throws FederateInternalError;

    public native void removeObjectInstance_OIH_BX_OT_LT_OT_FASRI_Native(byte[] message) throws FederateInternalError;

    public native void removeObjectInstance_OIH_BX_OT_LT_OT_MRH_FASRI_Native(byte[] message)
            throws FederateInternalError;

    public native void attributesInScope_OIH_AHS_Native(byte[] message) throws FederateInternalError;

    public native void attributesOutOfScope_OIH_AHS_Native(byte[] message) throws FederateInternalError;

    public native void provideAttributeValueUpdate_OIH_AHS_BX_Native(byte[] message) throws FederateInternalError;

    public native void turnUpdatesOnForObjectInstance_OIH_AHS_Native(byte[] message) throws FederateInternalError;

    public native void turnUpdatesOnForObjectInstance_OIH_AHS_S_Native(byte[] message) throws FederateInternalError;

    public native void turnUpdatesOffForObjectInstance_OIH_AHS_Native(byte[] message) throws FederateInternalError;

    public native void confirmAttributeTransportationTypeChange_OIH_AHS_TTH_Native(byte[] message)
            throws FederateInternalError;

    public native void confirmInteractionTransportationTypeChange_ICH_TTH_Native(byte[] message)
            throws FederateInternalError;

    public native void reportAttributeTransportationType_OIH_AH_TTH_Native(byte[] message) throws FederateInternalError;

    public native void reportInteractionTransportationType_FH_ICH_TTH_Native(byte[] message)
            throws FederateInternalError;

    public native void requestAttributeOwnershipAssumption_OIH_AHS_BX_Native(byte[] message)
            throws FederateInternalError;

    public native void requestDivestitureConfirmation_OIH_AHS_Native(byte[] message) throws FederateInternalError;

    public native void attributeOwnershipAcquisitionNotification_OIH_AHS_BX_Native(byte[] message)
            throws FederateInternalError;

    public native void attributeOwnershipUnavailable_OIH_AHS_Native(byte[] message) throws FederateInternalError;

    public native void requestAttributeOwnershipRelease_OIH_AHS_BX_Native(byte[] message) throws FederateInternalError;

    public native void confirmAttributeOwnershipAcquisitionCancellation_OIH_AHS_Native(byte[] message)
            throws FederateInternalError;

    public native void informAttributeOwnership_OIH_AH_FH_Native(byte[] message) throws FederateInternalError;

    public native void attributeIsNotOwned_OIH_AH_Native(byte[] message) throws FederateInternalError;

    public native void attributeIsOwnedByRTI_OIH_AH_Native(byte[] message) throws FederateInternalError;

    public native void timeRegulationEnabled_LT_Native(byte[] message) throws FederateInternalError;

    public native void timeConstrainedEnabled_LT_Native(byte[] message) throws FederateInternalError;

    public native void timeAdvanceGrant_LT_Native(byte[] message) throws FederateInternalError;

    public native void requestRetraction_MRH_Native(byte[] message) throws FederateInternalError;
}
