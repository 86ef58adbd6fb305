package morva.tovu1516e;

import static morva.tovu1516e.Service.*;

import hla.rti1516e.exceptions.RTIexception;
import tovu.local.model.value.Timing;

/** Data distribution management. */
abstract class RegionServices extends TimeServices {
    RegionServices(Connection connection) {
        super(connection);
    }

    public final int createRegion_DHS(byte[] message) throws RTIexception {
        return ask(createRegion_DHS, message, (federation, me, in) -> federation.regions().create(me, in.handles()));
    }

    public final void commitRegionModifications_RHS(byte[] message) throws RTIexception {
        act(commitRegionModifications_RHS, message, (federation, me, in) ->
                federation.regions().commit(me, in.handles()));
    }

    public final void deleteRegion_RH(byte[] message) throws RTIexception {
        act(deleteRegion_RH, message, (federation, me, in) -> federation.regions().delete(me, in.handle()));
    }

    public final int registerObjectInstanceWithRegions_OCH_ASRSPL(byte[] message) throws RTIexception {
        return ask(registerObjectInstanceWithRegions_OCH_ASRSPL, message, (federation, me, in) ->
                federation.regions().register(me, in.handle(), in.regionPairs(), null));
    }

    public final int registerObjectInstanceWithRegions_OCH_ASRSPL_S(byte[] message) throws RTIexception {
        return ask(registerObjectInstanceWithRegions_OCH_ASRSPL_S, message, (federation, me, in) ->
                federation.regions().register(me, in.handle(), in.regionPairs(), in.text()));
    }

    public final void associateRegionsForUpdates_OIH_ASRSPL(byte[] message) throws RTIexception {
        act(associateRegionsForUpdates_OIH_ASRSPL, message, (federation, me, in) ->
                federation.regions().associate(me, in.handle(), in.regionPairs()));
    }

    public final void unassociateRegionsForUpdates_OIH_ASRSPL(byte[] message) throws RTIexception {
        act(unassociateRegionsForUpdates_OIH_ASRSPL, message, (federation, me, in) ->
                federation.regions().unassociate(me, in.handle(), in.regionPairs()));
    }

    public final void subscribeObjectClassAttributesWithRegions_OCH_ASRSPL_Z_S(byte[] message) throws RTIexception {
        act(subscribeObjectClassAttributesWithRegions_OCH_ASRSPL_Z_S, message, (federation, me, in) ->
                federation.regions().subscribe(me, in.handle(), in.regionPairs(), in.flag(), in.text()));
    }

    public final void unsubscribeObjectClassAttributesWithRegions_OCH_ASRSPL(byte[] message) throws RTIexception {
        act(unsubscribeObjectClassAttributesWithRegions_OCH_ASRSPL, message, (federation, me, in) ->
                federation.regions().unsubscribe(me, in.handle(), in.regionPairs()));
    }

    public final void subscribeInteractionClassWithRegions_ICH_Z_RHS(byte[] message) throws RTIexception {
        act(subscribeInteractionClassWithRegions_ICH_Z_RHS, message, (federation, me, in) ->
                federation.regions().subscribeInteraction(me, in.handle(), in.flag(), in.handles()));
    }

    public final void unsubscribeInteractionClassWithRegions_ICH_RHS(byte[] message) throws RTIexception {
        act(unsubscribeInteractionClassWithRegions_ICH_RHS, message, (federation, me, in) ->
                federation.regions().unsubscribeInteraction(me, in.handle(), in.handles()));
    }

    public final void sendInteractionWithRegions_ICH_PHVM_RHS_BX(byte[] message) throws RTIexception {
        act(sendInteractionWithRegions_ICH_PHVM_RHS_BX, message, (federation, me, in) ->
                federation.regions().send(me, in.handle(), in.values(), in.handles(), in.bytes(), Timing.NONE));
    }

    public final byte[] sendInteractionWithRegions_ICH_PHVM_RHS_BX_LT(byte[] message) throws RTIexception {
        return ask(sendInteractionWithRegions_ICH_PHVM_RHS_BX_LT, message, (federation, me, in) ->
                retraction(
                federation.regions().send(me, in.handle(), in.values(), in.handles(), in.bytes(), in.timing())));
    }

    public final void requestAttributeValueUpdateWithRegions_OCH_ASRSPL_BX(byte[] message) throws RTIexception {
        act(requestAttributeValueUpdateWithRegions_OCH_ASRSPL_BX, message, (federation, me, in) ->
                federation.regions().requestUpdate(me, in.handle(), in.regionPairs(), in.bytes()));
    }

    public final int[] getDimensionHandleSet_RH(byte[] message) throws RTIexception {
        return ask(getDimensionHandleSet_RH, message, (federation, me, in) ->
                federation.regions().dimensions(in.handle()));
    }

    public final long[] getRangeBounds_RH_DH(byte[] message) throws RTIexception {
        return ask(getRangeBounds_RH_DH, message, (federation, me, in) ->
                federation.regions().bounds(me, in.handle(), in.handle()));
    }

    public final void setRangeBounds_RH_DH_RB(byte[] message) throws RTIexception {
        act(setRangeBounds_RH_DH_RB, message, (federation, me, in) ->
                federation.regions().setBounds(me, in.handle(), in.handle(), in.longInteger(), in.longInteger()));
    }
}
