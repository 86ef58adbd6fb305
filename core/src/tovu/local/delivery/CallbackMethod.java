package tovu.local.delivery;

/**
 * The callbacks of a federate ambassador as the library takes them, in the order in which it knows them. A name ends in
 * the codes of what the callback's message holds.
 */
public enum CallbackMethod {
    synchronizationPointRegistrationSucceeded_S,
    synchronizationPointRegistrationFailed_S_SPFR,
    announceSynchronizationPoint_S_BX,
    federationSynchronized_S_FHS,
    initiateFederateSave_S,
    initiateFederateSave_S_LT,
    federationSaved,
    federationNotSaved_SFR,
    federationSaveStatusResponse_FHSSPX,
    requestFederationRestoreSucceeded_S,
    requestFederationRestoreFailed_S,
    federationRestoreBegun,
    initiateFederateRestore_S_S_FH,
    federationRestored,
    federationNotRestored_RFR,
    federationRestoreStatusResponse_FRSX,
    connectionLost_S,
    reportFederationExecutions_FEIS,
    startRegistrationForObjectClass_OCH,
    stopRegistrationForObjectClass_OCH,
    turnInteractionsOn_ICH,
    turnInteractionsOff_ICH,
    objectInstanceNameReservationSucceeded_S,
    multipleObjectInstanceNameReservationSucceeded_S,
    objectInstanceNameReservationFailed_S,
    multipleObjectInstanceNameReservationFailed_S,
    discoverObjectInstance_OIH_OCH_S,
    discoverObjectInstance_OIH_OCH_S_FH,
    reflectAttributeValues_OIH_AHVM_BX_OT_TTH_FASRI,
    reflectAttributeValues_OIH_AHVM_BX_OT_TTH_LT_OT_FASRI,
    reflectAttributeValues_OIH_AHVM_BX_OT_TTH_LT_OT_MRH_FASRI,
    receiveInteraction_ICH_PHVM_BX_OT_TTH_FASRI,
    receiveInteraction_ICH_PHVM_BX_OT_TTH_LT_OT_FASRI,
    receiveInteraction_ICH_PHVM_BX_OT_TTH_LT_OT_MRH_FASRI,
    removeObjectInstance_OIH_BX_OT_FASRI,
    removeObjectInstance_OIH_BX_OT_LT_OT_FASRI,
    removeObjectInstance_OIH_BX_OT_LT_OT_MRH_FASRI,
    attributesInScope_OIH_AHS,
    attributesOutOfScope_OIH_AHS,
    provideAttributeValueUpdate_OIH_AHS_BX,
    turnUpdatesOnForObjectInstance_OIH_AHS,
    turnUpdatesOnForObjectInstance_OIH_AHS_S,
    turnUpdatesOffForObjectInstance_OIH_AHS,
    confirmAttributeTransportationTypeChange_OIH_AHS_TTH,
    confirmInteractionTransportationTypeChange_ICH_TTH,
    reportAttributeTransportationType_OIH_AH_TTH,
    reportInteractionTransportationType_FH_ICH_TTH,
    requestAttributeOwnershipAssumption_OIH_AHS_BX,
    requestDivestitureConfirmation_OIH_AHS,
    attributeOwnershipAcquisitionNotification_OIH_AHS_BX,
    attributeOwnershipUnavailable_OIH_AHS,
    requestAttributeOwnershipRelease_OIH_AHS_BX,
    confirmAttributeOwnershipAcquisitionCancellation_OIH_AHS,
    informAttributeOwnership_OIH_AH_FH,
    attributeIsNotOwned_OIH_AH,
    attributeIsOwnedByRTI_OIH_AH,
    timeRegulationEnabled_LT,
    timeConstrainedEnabled_LT,
    timeAdvanceGrant_LT,
    requestRetraction_MRH;

    private static final CallbackMethod[] ALL = values();

    /** The one with that ordinal, or null. */
    public static CallbackMethod of(int ordinal) {
        return ordinal >= 0 && ordinal < ALL.length ? ALL[ordinal] : null;
    }
}
