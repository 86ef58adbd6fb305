package morva.tovu1516e;

import java.util.List;
import tovu.local.wire.Licence;

/**
 * The services of an ambassador, in the order in which the library knows them. A name ends in the codes of what the
 * service's message holds.
 */
enum Service {
    // Federation management
    connect_FA_CM_S,
    disconnect,
    createFederationExecution_S_URL_S,
    createFederationExecution_S_URLX_S,
    createFederationExecution_S_URLX_URL_S,
    destroyFederationExecution_S,
    listFederationExecutions,
    joinFederationExecution_S_S_S_URLX,
    joinFederationExecution_S_S_URLX,
    resignFederationExecution_RA,
    registerFederationSynchronizationPoint_S_BX,
    registerFederationSynchronizationPoint_S_BX_FHS,
    synchronizationPointAchieved_S_Z,
    requestFederationSave_S,
    requestFederationSave_S_LT,
    federateSaveBegun,
    federateSaveComplete,
    federateSaveNotComplete,
    abortFederationSave,
    queryFederationSaveStatus,
    requestFederationRestore_S,
    federateRestoreComplete,
    federateRestoreNotComplete,
    abortFederationRestore,
    queryFederationRestoreStatus,

    // Declaration management
    publishObjectClassAttributes_OCH_AHS,
    unpublishObjectClass_OCH,
    unpublishObjectClassAttributes_OCH_AHS,
    publishInteractionClass_ICH,
    unpublishInteractionClass_ICH,
    subscribeObjectClassAttributes_OCH_AHS_Z_S,
    unsubscribeObjectClass_OCH,
    unsubscribeObjectClassAttributes_OCH_AHS,
    subscribeInteractionClass_ICH_Z,
    unsubscribeInteractionClass_ICH,

    // Object management
    reserveObjectInstanceName_S,
    releaseObjectInstanceName_S,
    reserveMultipleObjectInstanceName_S,
    releaseMultipleObjectInstanceName_S,
    registerObjectInstance_OCH,
    registerObjectInstance_OCH_S,
    updateAttributeValues_OIH_AHVM_BX,
    updateAttributeValues_OIH_AHVM_BX_LT,
    sendInteraction_ICH_PHVM_BX,
    sendInteraction_ICH_PHVM_BX_LT,
    deleteObjectInstance_OIH_BX,
    deleteObjectInstance_OIH_BX_LT,
    localDeleteObjectInstance_OIH,
    requestAttributeValueUpdate_OIH_AHS_BX,
    requestAttributeValueUpdate_OCH_AHS_BX,
    requestAttributeTransportationTypeChange_OIH_AHS_TTH,
    queryAttributeTransportationType_OIH_AH,
    requestInteractionTransportationTypeChange_ICH_TTH,
    queryInteractionTransportationType_FH_ICH,
    changeAttributeOrderType_OIH_AHS_OT,
    changeInteractionOrderType_ICH_OT,

    // Ownership management
    unconditionalAttributeOwnershipDivestiture_OIH_AHS,
    negotiatedAttributeOwnershipDivestiture_OIH_AHS_BX,
    confirmDivestiture_OIH_AHS_BX,
    attributeOwnershipAcquisition_OIH_AHS_BX,
    attributeOwnershipAcquisitionIfAvailable_OIH_AHS,
    attributeOwnershipReleaseDenied_OIH_AHS,
    attributeOwnershipDivestitureIfWanted_OIH_AHS,
    cancelNegotiatedAttributeOwnershipDivestiture_OIH_AHS,
    cancelAttributeOwnershipAcquisition_OIH_AHS,
    queryAttributeOwnership_OIH_AH,
    isAttributeOwnedByFederate_OIH_AH,

    // Time management
    enableTimeRegulation_LTI,
    disableTimeRegulation,
    enableTimeConstrained,
    disableTimeConstrained,
    timeAdvanceRequest_LT,
    timeAdvanceRequestAvailable_LT,
    nextMessageRequest_LT,
    nextMessageRequestAvailable_LT,
    flushQueueRequest_LT,
    enableAsynchronousDelivery,
    disableAsynchronousDelivery,
    queryGALT,
    queryLogicalTime,
    queryLITS,
    modifyLookahead_LTI,
    queryLookahead,
    retract_MRH,

    // Data distribution management
    createRegion_DHS,
    commitRegionModifications_RHS,
    deleteRegion_RH,
    registerObjectInstanceWithRegions_OCH_ASRSPL,
    registerObjectInstanceWithRegions_OCH_ASRSPL_S,
    associateRegionsForUpdates_OIH_ASRSPL,
    unassociateRegionsForUpdates_OIH_ASRSPL,
    subscribeObjectClassAttributesWithRegions_OCH_ASRSPL_Z_S,
    unsubscribeObjectClassAttributesWithRegions_OCH_ASRSPL,
    subscribeInteractionClassWithRegions_ICH_Z_RHS,
    unsubscribeInteractionClassWithRegions_ICH_RHS,
    sendInteractionWithRegions_ICH_PHVM_RHS_BX,
    sendInteractionWithRegions_ICH_PHVM_RHS_BX_LT,
    requestAttributeValueUpdateWithRegions_OCH_ASRSPL_BX,

    // Support services
    getAutomaticResignDirective,
    setAutomaticResignDirective_RA,
    getFederateHandle_S,
    getFederateName_FH,
    getObjectClassHandle_S,
    getObjectClassName_OCH,
    getKnownObjectClassHandle_OIH,
    getObjectInstanceHandle_S,
    getObjectInstanceName_OIH,
    getAttributeHandle_OCH_S,
    getAttributeName_OCH_AH,
    getUpdateRateValue_S,
    getUpdateRateValueForAttribute_OIH_AH,
    getInteractionClassHandle_S,
    getInteractionClassName_ICH,
    getParameterHandle_ICH_S,
    getParameterName_ICH_PH,
    getOrderType_S,
    getOrderName_OT,
    getTransportationTypeHandle_S,
    getTransportationTypeName_TTH,
    getAvailableDimensionsForClassAttribute_OCH_AH,
    getAvailableDimensionsForInteractionClass_ICH,
    getDimensionHandle_S,
    getDimensionName_DH,
    getDimensionUpperBound_DH,
    getDimensionHandleSet_RH,
    getRangeBounds_RH_DH,
    setRangeBounds_RH_DH_RB,
    normalizeFederateHandle_FH,
    normalizeServiceGroup_SG,
    enableObjectClassRelevanceAdvisorySwitch,
    disableObjectClassRelevanceAdvisorySwitch,
    enableAttributeRelevanceAdvisorySwitch,
    disableAttributeRelevanceAdvisorySwitch,
    enableAttributeScopeAdvisorySwitch,
    disableAttributeScopeAdvisorySwitch,
    enableInteractionRelevanceAdvisorySwitch,
    disableInteractionRelevanceAdvisorySwitch,
    evokeCallback_D,
    evokeMultipleCallbacks_D_D,
    enableCallbacks,
    disableCallbacks,
    getTimeFactory;

    private final String[] parts = name().split("_");

    private static final List<Service> FIRST_OF_GROUPS = List.of(publishObjectClassAttributes_OCH_AHS,
            reserveObjectInstanceName_S, unconditionalAttributeOwnershipDivestiture_OIH_AHS, enableTimeRegulation_LTI,
            createRegion_DHS, getAutomaticResignDirective);

    /** The number of the service group that it belongs to. */
    int group() {
        return (int) FIRST_OF_GROUPS.stream().filter(first -> first.ordinal() <= ordinal()).count();
    }

    /**
     * What a federate elsewhere may be spared by a licence. Lookups are those whose answer stays true while the federate
     * is a member: what a FOM module has defined keeps its handle and its name.
     */
    Licence licence() {
        return switch (this) {
            case getObjectClassHandle_S, getObjectClassName_OCH, getAttributeHandle_OCH_S, getAttributeName_OCH_AH,
                    getInteractionClassHandle_S, getInteractionClassName_ICH, getParameterHandle_ICH_S,
                    getParameterName_ICH_PH, getDimensionHandle_S, getDimensionName_DH, getDimensionUpperBound_DH,
                    getAvailableDimensionsForClassAttribute_OCH_AH, getAvailableDimensionsForInteractionClass_ICH,
                    getUpdateRateValue_S, getOrderType_S, getOrderName_OT, normalizeServiceGroup_SG,
                    getTimeFactory -> Licence.LOOKUP;
            case updateAttributeValues_OIH_AHVM_BX -> Licence.UPDATE;
            case updateAttributeValues_OIH_AHVM_BX_LT -> Licence.TIMED_UPDATE;
            case sendInteraction_ICH_PHVM_BX -> Licence.INTERACTION;
            case sendInteraction_ICH_PHVM_BX_LT -> Licence.TIMED_INTERACTION;
            case registerObjectInstance_OCH, registerObjectInstance_OCH_S, registerObjectInstanceWithRegions_OCH_ASRSPL,
                    registerObjectInstanceWithRegions_OCH_ASRSPL_S -> Licence.REGISTRATION;
            case deleteObjectInstance_OIH_BX -> Licence.DELETION;
            case deleteObjectInstance_OIH_BX_LT -> Licence.TIMED_DELETION;
            default -> Licence.NONE;
        };
    }

    /** As the standard has it. */
    String standardName() {
        return parts[0];
    }

    /** Whether it takes a message: one without parameters takes none. */
    boolean hasMessage() {
        return parts.length > 1;
    }

    boolean isJoin() {
        return this == joinFederationExecution_S_S_S_URLX || this == joinFederationExecution_S_S_URLX;
    }

    /** Of its parameters, in order. */
    List<String> codes() {
        return List.of(parts).subList(1, parts.length);
    }
}
