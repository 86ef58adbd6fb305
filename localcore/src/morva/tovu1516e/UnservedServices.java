package morva.tovu1516e;

import hla.rti1516e.exceptions.RTIexception;
import hla.rti1516e.exceptions.RTIinternalError;

/** What the core does not serve yet. */
abstract class UnservedServices extends SupportServices {
    private static RTIinternalError unserved(String service) {
        return new RTIinternalError(service + " is not served by the local core yet");
    }

    public final int getObjectClassHandle_S(byte[] message) throws RTIexception {
        throw unserved("getObjectClassHandle");
    }

    public final String getObjectClassName_OCH(byte[] message) throws RTIexception {
        throw unserved("getObjectClassName");
    }

    public final int getKnownObjectClassHandle_OIH(byte[] message) throws RTIexception {
        throw unserved("getKnownObjectClassHandle");
    }

    public final int getObjectInstanceHandle_S(byte[] message) throws RTIexception {
        throw unserved("getObjectInstanceHandle");
    }

    public final String getObjectInstanceName_OIH(byte[] message) throws RTIexception {
        throw unserved("getObjectInstanceName");
    }

    public final int getAttributeHandle_OCH_S(byte[] message) throws RTIexception {
        throw unserved("getAttributeHandle");
    }

    public final String getAttributeName_OCH_AH(byte[] message) throws RTIexception {
        throw unserved("getAttributeName");
    }

    public final double getUpdateRateValue_S(byte[] message) throws RTIexception {
        throw unserved("getUpdateRateValue");
    }

    public final double getUpdateRateValueForAttribute_OIH_AH(byte[] message) throws RTIexception {
        throw unserved("getUpdateRateValueForAttribute");
    }

    public final int getInteractionClassHandle_S(byte[] message) throws RTIexception {
        throw unserved("getInteractionClassHandle");
    }

    public final String getInteractionClassName_ICH(byte[] message) throws RTIexception {
        throw unserved("getInteractionClassName");
    }

    public final int getParameterHandle_ICH_S(byte[] message) throws RTIexception {
        throw unserved("getParameterHandle");
    }

    public final String getParameterName_ICH_PH(byte[] message) throws RTIexception {
        throw unserved("getParameterName");
    }

    public final int getOrderType_S(byte[] message) throws RTIexception {
        throw unserved("getOrderType");
    }

    public final String getOrderName_OT(byte[] message) throws RTIexception {
        throw unserved("getOrderName");
    }

    public final int getTransportationTypeHandle_S(byte[] message) throws RTIexception {
        throw unserved("getTransportationTypeHandle");
    }

    public final String getTransportationTypeName_TTH(byte[] message) throws RTIexception {
        throw unserved("getTransportationTypeName");
    }

    public final int[] getAvailableDimensionsForClassAttribute_OCH_AH(byte[] message) throws RTIexception {
        throw unserved("getAvailableDimensionsForClassAttribute");
    }

    public final int[] getAvailableDimensionsForInteractionClass_ICH(byte[] message) throws RTIexception {
        throw unserved("getAvailableDimensionsForInteractionClass");
    }

    public final int getDimensionHandle_S(byte[] message) throws RTIexception {
        throw unserved("getDimensionHandle");
    }

    public final String getDimensionName_DH(byte[] message) throws RTIexception {
        throw unserved("getDimensionName");
    }

    public final long getDimensionUpperBound_DH(byte[] message) throws RTIexception {
        throw unserved("getDimensionUpperBound");
    }

    public final long normalizeFederateHandle_FH(byte[] message) throws RTIexception {
        throw unserved("normalizeFederateHandle");
    }

    public final long normalizeServiceGroup_SG(byte[] message) throws RTIexception {
        throw unserved("normalizeServiceGroup");
    }

    public final void enableObjectClassRelevanceAdvisorySwitch() throws RTIexception {
        throw unserved("enableObjectClassRelevanceAdvisorySwitch");
    }

    public final void disableObjectClassRelevanceAdvisorySwitch() throws RTIexception {
        throw unserved("disableObjectClassRelevanceAdvisorySwitch");
    }

    public final void enableAttributeRelevanceAdvisorySwitch() throws RTIexception {
        throw unserved("enableAttributeRelevanceAdvisorySwitch");
    }

    public final void disableAttributeRelevanceAdvisorySwitch() throws RTIexception {
        throw unserved("disableAttributeRelevanceAdvisorySwitch");
    }

    public final void enableAttributeScopeAdvisorySwitch() throws RTIexception {
        throw unserved("enableAttributeScopeAdvisorySwitch");
    }

    public final void disableAttributeScopeAdvisorySwitch() throws RTIexception {
        throw unserved("disableAttributeScopeAdvisorySwitch");
    }

    public final void enableInteractionRelevanceAdvisorySwitch() throws RTIexception {
        throw unserved("enableInteractionRelevanceAdvisorySwitch");
    }

    public final void disableInteractionRelevanceAdvisorySwitch() throws RTIexception {
        throw unserved("disableInteractionRelevanceAdvisorySwitch");
    }

    public final void publishObjectClassAttributes_OCH_AHS(byte[] message) throws RTIexception {
        throw unserved("publishObjectClassAttributes");
    }

    public final void unpublishObjectClass_OCH(byte[] message) throws RTIexception {
        throw unserved("unpublishObjectClass");
    }

    public final void unpublishObjectClassAttributes_OCH_AHS(byte[] message) throws RTIexception {
        throw unserved("unpublishObjectClassAttributes");
    }

    public final void publishInteractionClass_ICH(byte[] message) throws RTIexception {
        throw unserved("publishInteractionClass");
    }

    public final void unpublishInteractionClass_ICH(byte[] message) throws RTIexception {
        throw unserved("unpublishInteractionClass");
    }

    public final void subscribeObjectClassAttributes_OCH_AHS_Z_S(byte[] message) throws RTIexception {
        throw unserved("subscribeObjectClassAttributes");
    }

    public final void unsubscribeObjectClass_OCH(byte[] message) throws RTIexception {
        throw unserved("unsubscribeObjectClass");
    }

    public final void unsubscribeObjectClassAttributes_OCH_AHS(byte[] message) throws RTIexception {
        throw unserved("unsubscribeObjectClassAttributes");
    }

    public final void subscribeInteractionClass_ICH_Z(byte[] message) throws RTIexception {
        throw unserved("subscribeInteractionClass");
    }

    public final void unsubscribeInteractionClass_ICH(byte[] message) throws RTIexception {
        throw unserved("unsubscribeInteractionClass");
    }

    public final void reserveObjectInstanceName_S(byte[] message) throws RTIexception {
        throw unserved("reserveObjectInstanceName");
    }

    public final void releaseObjectInstanceName_S(byte[] message) throws RTIexception {
        throw unserved("releaseObjectInstanceName");
    }

    public final void reserveMultipleObjectInstanceName_S(byte[] message) throws RTIexception {
        throw unserved("reserveMultipleObjectInstanceName");
    }

    public final void releaseMultipleObjectInstanceName_S(byte[] message) throws RTIexception {
        throw unserved("releaseMultipleObjectInstanceName");
    }

    public final int registerObjectInstance_OCH(byte[] message) throws RTIexception {
        throw unserved("registerObjectInstance");
    }

    public final int registerObjectInstance_OCH_S(byte[] message) throws RTIexception {
        throw unserved("registerObjectInstance");
    }

    public final void updateAttributeValues_OIH_AHVM_BX(byte[] message) throws RTIexception {
        throw unserved("updateAttributeValues");
    }

    public final byte[] updateAttributeValues_OIH_AHVM_BX_LT(byte[] message) throws RTIexception {
        throw unserved("updateAttributeValues");
    }

    public final void sendInteraction_ICH_PHVM_BX(byte[] message) throws RTIexception {
        throw unserved("sendInteraction");
    }

    public final byte[] sendInteraction_ICH_PHVM_BX_LT(byte[] message) throws RTIexception {
        throw unserved("sendInteraction");
    }

    public final void deleteObjectInstance_OIH_BX(byte[] message) throws RTIexception {
        throw unserved("deleteObjectInstance");
    }

    public final byte[] deleteObjectInstance_OIH_BX_LT(byte[] message) throws RTIexception {
        throw unserved("deleteObjectInstance");
    }

    public final void localDeleteObjectInstance_OIH(byte[] message) throws RTIexception {
        throw unserved("localDeleteObjectInstance");
    }

    public final void requestAttributeValueUpdate_OIH_AHS_BX(byte[] message) throws RTIexception {
        throw unserved("requestAttributeValueUpdate");
    }

    public final void requestAttributeValueUpdate_OCH_AHS_BX(byte[] message) throws RTIexception {
        throw unserved("requestAttributeValueUpdate");
    }

    public final void requestAttributeTransportationTypeChange_OIH_AHS_TTH(byte[] message) throws RTIexception {
        throw unserved("requestAttributeTransportationTypeChange");
    }

    public final void queryAttributeTransportationType_OIH_AH(byte[] message) throws RTIexception {
        throw unserved("queryAttributeTransportationType");
    }

    public final void requestInteractionTransportationTypeChange_ICH_TTH(byte[] message) throws RTIexception {
        throw unserved("requestInteractionTransportationTypeChange");
    }

    public final void queryInteractionTransportationType_FH_ICH(byte[] message) throws RTIexception {
        throw unserved("queryInteractionTransportationType");
    }

    public final void changeAttributeOrderType_OIH_AHS_OT(byte[] message) throws RTIexception {
        throw unserved("changeAttributeOrderType");
    }

    public final void changeInteractionOrderType_ICH_OT(byte[] message) throws RTIexception {
        throw unserved("changeInteractionOrderType");
    }

    public final void unconditionalAttributeOwnershipDivestiture_OIH_AHS(byte[] message) throws RTIexception {
        throw unserved("unconditionalAttributeOwnershipDivestiture");
    }

    public final void negotiatedAttributeOwnershipDivestiture_OIH_AHS_BX(byte[] message) throws RTIexception {
        throw unserved("negotiatedAttributeOwnershipDivestiture");
    }

    public final void confirmDivestiture_OIH_AHS_BX(byte[] message) throws RTIexception {
        throw unserved("confirmDivestiture");
    }

    public final void attributeOwnershipAcquisition_OIH_AHS_BX(byte[] message) throws RTIexception {
        throw unserved("attributeOwnershipAcquisition");
    }

    public final void attributeOwnershipAcquisitionIfAvailable_OIH_AHS(byte[] message) throws RTIexception {
        throw unserved("attributeOwnershipAcquisitionIfAvailable");
    }

    public final void attributeOwnershipReleaseDenied_OIH_AHS(byte[] message) throws RTIexception {
        throw unserved("attributeOwnershipReleaseDenied");
    }

    public final int[] attributeOwnershipDivestitureIfWanted_OIH_AHS(byte[] message) throws RTIexception {
        throw unserved("attributeOwnershipDivestitureIfWanted");
    }

    public final void cancelNegotiatedAttributeOwnershipDivestiture_OIH_AHS(byte[] message) throws RTIexception {
        throw unserved("cancelNegotiatedAttributeOwnershipDivestiture");
    }

    public final void cancelAttributeOwnershipAcquisition_OIH_AHS(byte[] message) throws RTIexception {
        throw unserved("cancelAttributeOwnershipAcquisition");
    }

    public final void queryAttributeOwnership_OIH_AH(byte[] message) throws RTIexception {
        throw unserved("queryAttributeOwnership");
    }

    public final boolean isAttributeOwnedByFederate_OIH_AH(byte[] message) throws RTIexception {
        throw unserved("isAttributeOwnedByFederate");
    }

    public final void enableTimeRegulation_LTI(byte[] message) throws RTIexception {
        throw unserved("enableTimeRegulation");
    }

    public final void disableTimeRegulation() throws RTIexception {
        throw unserved("disableTimeRegulation");
    }

    public final void enableTimeConstrained() throws RTIexception {
        throw unserved("enableTimeConstrained");
    }

    public final void disableTimeConstrained() throws RTIexception {
        throw unserved("disableTimeConstrained");
    }

    public final void timeAdvanceRequest_LT(byte[] message) throws RTIexception {
        throw unserved("timeAdvanceRequest");
    }

    public final void timeAdvanceRequestAvailable_LT(byte[] message) throws RTIexception {
        throw unserved("timeAdvanceRequestAvailable");
    }

    public final void nextMessageRequest_LT(byte[] message) throws RTIexception {
        throw unserved("nextMessageRequest");
    }

    public final void nextMessageRequestAvailable_LT(byte[] message) throws RTIexception {
        throw unserved("nextMessageRequestAvailable");
    }

    public final void flushQueueRequest_LT(byte[] message) throws RTIexception {
        throw unserved("flushQueueRequest");
    }

    public final void enableAsynchronousDelivery() throws RTIexception {
        throw unserved("enableAsynchronousDelivery");
    }

    public final void disableAsynchronousDelivery() throws RTIexception {
        throw unserved("disableAsynchronousDelivery");
    }

    public final byte[] queryGALT() throws RTIexception {
        throw unserved("queryGALT");
    }

    public final byte[] queryLogicalTime() throws RTIexception {
        throw unserved("queryLogicalTime");
    }

    public final byte[] queryLITS() throws RTIexception {
        throw unserved("queryLITS");
    }

    public final void modifyLookahead_LTI(byte[] message) throws RTIexception {
        throw unserved("modifyLookahead");
    }

    public final byte[] queryLookahead() throws RTIexception {
        throw unserved("queryLookahead");
    }

    public final void retract_MRH(byte[] message) throws RTIexception {
        throw unserved("retract");
    }

    public final int createRegion_DHS(byte[] message) throws RTIexception {
        throw unserved("createRegion");
    }

    public final void commitRegionModifications_RHS(byte[] message) throws RTIexception {
        throw unserved("commitRegionModifications");
    }

    public final void deleteRegion_RH(byte[] message) throws RTIexception {
        throw unserved("deleteRegion");
    }

    public final int registerObjectInstanceWithRegions_OCH_ASRSPL(byte[] message) throws RTIexception {
        throw unserved("registerObjectInstanceWithRegions");
    }

    public final int registerObjectInstanceWithRegions_OCH_ASRSPL_S(byte[] message) throws RTIexception {
        throw unserved("registerObjectInstanceWithRegions");
    }

    public final void associateRegionsForUpdates_OIH_ASRSPL(byte[] message) throws RTIexception {
        throw unserved("associateRegionsForUpdates");
    }

    public final void unassociateRegionsForUpdates_OIH_ASRSPL(byte[] message) throws RTIexception {
        throw unserved("unassociateRegionsForUpdates");
    }

    public final void subscribeObjectClassAttributesWithRegions_OCH_ASRSPL_Z_S(byte[] message) throws RTIexception {
        throw unserved("subscribeObjectClassAttributesWithRegions");
    }

    public final void unsubscribeObjectClassAttributesWithRegions_OCH_ASRSPL(byte[] message) throws RTIexception {
        throw unserved("unsubscribeObjectClassAttributesWithRegions");
    }

    public final void subscribeInteractionClassWithRegions_ICH_Z_RHS(byte[] message) throws RTIexception {
        throw unserved("subscribeInteractionClassWithRegions");
    }

    public final void unsubscribeInteractionClassWithRegions_ICH_RHS(byte[] message) throws RTIexception {
        throw unserved("unsubscribeInteractionClassWithRegions");
    }

    public final void sendInteractionWithRegions_ICH_PHVM_RHS_BX(byte[] message) throws RTIexception {
        throw unserved("sendInteractionWithRegions");
    }

    public final byte[] sendInteractionWithRegions_ICH_PHVM_RHS_BX_LT(byte[] message) throws RTIexception {
        throw unserved("sendInteractionWithRegions");
    }

    public final void requestAttributeValueUpdateWithRegions_OCH_ASRSPL_BX(byte[] message) throws RTIexception {
        throw unserved("requestAttributeValueUpdateWithRegions");
    }

    public final int[] getDimensionHandleSet_RH(byte[] message) throws RTIexception {
        throw unserved("getDimensionHandleSet");
    }

    public final long[] getRangeBounds_RH_DH(byte[] message) throws RTIexception {
        throw unserved("getRangeBounds");
    }

    public final void setRangeBounds_RH_DH_RB(byte[] message) throws RTIexception {
        throw unserved("setRangeBounds");
    }
}
