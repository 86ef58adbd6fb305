package morva.tovu1516e;

import static morva.tovu1516e.Service.*;

import hla.rti1516e.exceptions.InvalidOrderType;
import hla.rti1516e.exceptions.InvalidServiceGroup;
import hla.rti1516e.exceptions.RTIexception;
import tovu.local.fom.OrderType;

/** Support services: names for handles, handles for names, and advisory switches. */
abstract class LookupServices extends FederationServices {
    LookupServices(Connection connection) {
        super(connection);
    }

    public final int getObjectClassHandle_S(byte[] message) throws RTIexception {
        return askAnytime(getObjectClassHandle_S, message, (federation, me, in) ->
                federation.lookups().objectClassHandle(in.text()));
    }

    public final String getObjectClassName_OCH(byte[] message) throws RTIexception {
        return askAnytime(getObjectClassName_OCH, message, (federation, me, in) ->
                federation.lookups().objectClassName(in.handle()));
    }

    public final int getKnownObjectClassHandle_OIH(byte[] message) throws RTIexception {
        return askAnytime(getKnownObjectClassHandle_OIH, message, (federation, me, in) ->
                federation.objects().knownClass(me, in.handle()));
    }

    public final int getObjectInstanceHandle_S(byte[] message) throws RTIexception {
        return askAnytime(getObjectInstanceHandle_S, message, (federation, me, in) ->
                federation.objects().handle(me, in.text()));
    }

    public final String getObjectInstanceName_OIH(byte[] message) throws RTIexception {
        return askAnytime(getObjectInstanceName_OIH, message, (federation, me, in) ->
                federation.objects().name(me, in.handle()));
    }

    public final int getAttributeHandle_OCH_S(byte[] message) throws RTIexception {
        return askAnytime(getAttributeHandle_OCH_S, message, (federation, me, in) ->
                federation.lookups().attributeHandle(in.handle(), in.text()));
    }

    public final String getAttributeName_OCH_AH(byte[] message) throws RTIexception {
        return askAnytime(getAttributeName_OCH_AH, message, (federation, me, in) ->
                federation.lookups().attributeName(in.handle(), in.handle()));
    }

    public final double getUpdateRateValue_S(byte[] message) throws RTIexception {
        return askAnytime(getUpdateRateValue_S, message, (federation, me, in) ->
                federation.lookups().updateRate(in.text()));
    }

    public final double getUpdateRateValueForAttribute_OIH_AH(byte[] message) throws RTIexception {
        return askAnytime(getUpdateRateValueForAttribute_OIH_AH, message, (federation, me, in) ->
                federation.lookups().updateRate(me, in.handle(), in.handle()));
    }

    public final int getInteractionClassHandle_S(byte[] message) throws RTIexception {
        return askAnytime(getInteractionClassHandle_S, message, (federation, me, in) ->
                federation.lookups().interactionClassHandle(in.text()));
    }

    public final String getInteractionClassName_ICH(byte[] message) throws RTIexception {
        return askAnytime(getInteractionClassName_ICH, message, (federation, me, in) ->
                federation.lookups().interactionClassName(in.handle()));
    }

    public final int getParameterHandle_ICH_S(byte[] message) throws RTIexception {
        return askAnytime(getParameterHandle_ICH_S, message, (federation, me, in) ->
                federation.lookups().parameterHandle(in.handle(), in.text()));
    }

    public final String getParameterName_ICH_PH(byte[] message) throws RTIexception {
        return askAnytime(getParameterName_ICH_PH, message, (federation, me, in) ->
                federation.lookups().parameterName(in.handle(), in.handle()));
    }

    public final int getOrderType_S(byte[] message) throws RTIexception {
        return askAnytime(getOrderType_S, message, (federation, me, in) ->
                federation.lookups().orderType(in.text()).ordinal());
    }

    public final String getOrderName_OT(byte[] message) throws RTIexception {
        return askAnytime(getOrderName_OT, message, (federation, me, in) -> order(in.integer()).hlaName());
    }

    public final int getTransportationTypeHandle_S(byte[] message) throws RTIexception {
        return askAnytime(getTransportationTypeHandle_S, message, (federation, me, in) ->
                federation.lookups().transportationCode(me, in.text()));
    }

    public final String getTransportationTypeName_TTH(byte[] message) throws RTIexception {
        return askAnytime(getTransportationTypeName_TTH, message, (federation, me, in) ->
                federation.lookups().transportationName(me, in.integer()));
    }

    public final int[] getAvailableDimensionsForClassAttribute_OCH_AH(byte[] message) throws RTIexception {
        return askAnytime(getAvailableDimensionsForClassAttribute_OCH_AH, message, (federation, me, in) ->
                federation.lookups().attributeDimensions(in.handle(), in.handle()));
    }

    public final int[] getAvailableDimensionsForInteractionClass_ICH(byte[] message) throws RTIexception {
        return askAnytime(getAvailableDimensionsForInteractionClass_ICH, message, (federation, me, in) ->
                federation.lookups().interactionDimensions(in.handle()));
    }

    public final int getDimensionHandle_S(byte[] message) throws RTIexception {
        return askAnytime(getDimensionHandle_S, message, (federation, me, in) ->
                federation.lookups().dimensionHandle(in.text()));
    }

    public final String getDimensionName_DH(byte[] message) throws RTIexception {
        return askAnytime(getDimensionName_DH, message, (federation, me, in) ->
                federation.lookups().dimensionName(in.handle()));
    }

    public final long getDimensionUpperBound_DH(byte[] message) throws RTIexception {
        return askAnytime(getDimensionUpperBound_DH, message, (federation, me, in) ->
                federation.lookups().dimensionUpperBound(in.handle()));
    }

    public final long normalizeFederateHandle_FH(byte[] message) throws RTIexception {
        return askAnytime(normalizeFederateHandle_FH, message, (federation, me, in) ->
                federation.lookups().normalizeFederate(in.handle()));
    }

    public final long normalizeServiceGroup_SG(byte[] message) throws RTIexception {
        return askAnytime(normalizeServiceGroup_SG, message, (federation, me, in) -> serviceGroup(in.integer()));
    }

    public final void enableObjectClassRelevanceAdvisorySwitch() throws RTIexception {
        act(enableObjectClassRelevanceAdvisorySwitch, (federation, me, in) ->
                federation.advisorySwitches().setObjectClassRelevance(me, true));
    }

    public final void disableObjectClassRelevanceAdvisorySwitch() throws RTIexception {
        act(disableObjectClassRelevanceAdvisorySwitch, (federation, me, in) ->
                federation.advisorySwitches().setObjectClassRelevance(me, false));
    }

    public final void enableAttributeRelevanceAdvisorySwitch() throws RTIexception {
        act(enableAttributeRelevanceAdvisorySwitch, (federation, me, in) ->
                federation.advisorySwitches().setAttributeRelevance(me, true));
    }

    public final void disableAttributeRelevanceAdvisorySwitch() throws RTIexception {
        act(disableAttributeRelevanceAdvisorySwitch, (federation, me, in) ->
                federation.advisorySwitches().setAttributeRelevance(me, false));
    }

    public final void enableAttributeScopeAdvisorySwitch() throws RTIexception {
        act(enableAttributeScopeAdvisorySwitch, (federation, me, in) ->
                federation.advisorySwitches().setAttributeScope(me, true));
    }

    public final void disableAttributeScopeAdvisorySwitch() throws RTIexception {
        act(disableAttributeScopeAdvisorySwitch, (federation, me, in) ->
                federation.advisorySwitches().setAttributeScope(me, false));
    }

    public final void enableInteractionRelevanceAdvisorySwitch() throws RTIexception {
        act(enableInteractionRelevanceAdvisorySwitch, (federation, me, in) ->
                federation.advisorySwitches().setInteractionRelevance(me, true));
    }

    public final void disableInteractionRelevanceAdvisorySwitch() throws RTIexception {
        act(disableInteractionRelevanceAdvisorySwitch, (federation, me, in) ->
                federation.advisorySwitches().setInteractionRelevance(me, false));
    }

    static OrderType order(int code) throws InvalidOrderType {
        if (code < 0 || code >= OrderType.values().length) {
            throw new InvalidOrderType("Order type " + code + " is unknown; use RECEIVE or TIMESTAMP");
        }
        return OrderType.values()[code];
    }

    /** Service groups are coded from 1 and normalized from 0. */
    private static long serviceGroup(int code) throws InvalidServiceGroup {
        if (code < 1 || code > 7) {
            throw new InvalidServiceGroup("Service group " + code + " is unknown; use one of the standard's seven");
        }
        return code - 1L;
    }
}
