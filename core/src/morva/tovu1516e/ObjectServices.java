package morva.tovu1516e;

import static morva.tovu1516e.Service.*;

import hla.rti1516e.exceptions.RTIexception;
import java.nio.ByteBuffer;
import java.util.Set;
import tovu.local.model.value.Timing;

/** Object management. */
abstract class ObjectServices extends DeclarationServices {
    ObjectServices(Connection connection) {
        super(connection);
    }

    public final void reserveObjectInstanceName_S(byte[] message) throws RTIexception {
        act(reserveObjectInstanceName_S, message, (federation, me, in) -> federation.names().reserve(me, in.text()));
    }

    public final void releaseObjectInstanceName_S(byte[] message) throws RTIexception {
        act(releaseObjectInstanceName_S, message, (federation, me, in) ->
                federation.names().release(me, Set.of(in.text())));
    }

    public final void reserveMultipleObjectInstanceName_S(byte[] message) throws RTIexception {
        act(reserveMultipleObjectInstanceName_S, message, (federation, me, in) ->
                federation.names().reserve(me, in.textSet()));
    }

    public final void releaseMultipleObjectInstanceName_S(byte[] message) throws RTIexception {
        act(releaseMultipleObjectInstanceName_S, message, (federation, me, in) ->
                federation.names().release(me, in.textSet()));
    }

    public final int registerObjectInstance_OCH(byte[] message) throws RTIexception {
        return ask(registerObjectInstance_OCH, message, (federation, me, in) ->
                federation.objectManagement().register(me, in.handle(), null));
    }

    public final int registerObjectInstance_OCH_S(byte[] message) throws RTIexception {
        return ask(registerObjectInstance_OCH_S, message, (federation, me, in) ->
                federation.objectManagement().register(me, in.handle(), in.text()));
    }

    public final void updateAttributeValues_OIH_AHVM_BX(byte[] message) throws RTIexception {
        act(updateAttributeValues_OIH_AHVM_BX, message, (federation, me, in) ->
                federation.objectManagement().update(me, in.handle(), in.values(), in.bytes(), Timing.NONE));
    }

    public final byte[] updateAttributeValues_OIH_AHVM_BX_LT(byte[] message) throws RTIexception {
        return ask(updateAttributeValues_OIH_AHVM_BX_LT, message, (federation, me, in) ->
                retraction(
                federation.objectManagement().update(me, in.handle(), in.values(), in.bytes(), in.timing())));
    }

    public final void sendInteraction_ICH_PHVM_BX(byte[] message) throws RTIexception {
        act(sendInteraction_ICH_PHVM_BX, message, (federation, me, in) ->
                federation.interactions().send(me, in.handle(), in.values(), in.bytes(), Timing.NONE));
    }

    public final byte[] sendInteraction_ICH_PHVM_BX_LT(byte[] message) throws RTIexception {
        return ask(sendInteraction_ICH_PHVM_BX_LT, message, (federation, me, in) ->
                retraction(
                federation.interactions().send(me, in.handle(), in.values(), in.bytes(), in.timing())));
    }

    public final void deleteObjectInstance_OIH_BX(byte[] message) throws RTIexception {
        act(deleteObjectInstance_OIH_BX, message, (federation, me, in) ->
                federation.objectManagement().delete(me, in.handle(), in.bytes(), Timing.NONE));
    }

    public final byte[] deleteObjectInstance_OIH_BX_LT(byte[] message) throws RTIexception {
        return ask(deleteObjectInstance_OIH_BX_LT, message, (federation, me, in) ->
                retraction(
                federation.objectManagement().delete(me, in.handle(), in.bytes(), in.timing())));
    }

    public final void localDeleteObjectInstance_OIH(byte[] message) throws RTIexception {
        act(localDeleteObjectInstance_OIH, message, (federation, me, in) ->
                federation.objectManagement().deleteLocally(me, in.handle()));
    }

    public final void requestAttributeValueUpdate_OIH_AHS_BX(byte[] message) throws RTIexception {
        act(requestAttributeValueUpdate_OIH_AHS_BX, message, (federation, me, in) ->
                federation.objectManagement().requestUpdate(me, in.handle(), in.handles(), in.bytes()));
    }

    public final void requestAttributeValueUpdate_OCH_AHS_BX(byte[] message) throws RTIexception {
        act(requestAttributeValueUpdate_OCH_AHS_BX, message, (federation, me, in) ->
                federation.objectManagement().requestClassUpdate(me, in.handle(), in.handles(), in.bytes()));
    }

    public final void requestAttributeTransportationTypeChange_OIH_AHS_TTH(byte[] message) throws RTIexception {
        act(requestAttributeTransportationTypeChange_OIH_AHS_TTH, message, (federation, me, in) ->
                federation.deliveryChanges().changeTransportation(me, in.handle(), in.handles(), in.integer()));
    }

    public final void queryAttributeTransportationType_OIH_AH(byte[] message) throws RTIexception {
        act(queryAttributeTransportationType_OIH_AH, message, (federation, me, in) ->
                federation.deliveryChanges().queryTransportation(me, in.handle(), in.handle()));
    }

    public final void requestInteractionTransportationTypeChange_ICH_TTH(byte[] message) throws RTIexception {
        act(requestInteractionTransportationTypeChange_ICH_TTH, message, (federation, me, in) ->
                federation.deliveryChanges().changeInteractionTransportation(me, in.handle(), in.integer()));
    }

    public final void queryInteractionTransportationType_FH_ICH(byte[] message) throws RTIexception {
        act(queryInteractionTransportationType_FH_ICH, message, (federation, me, in) ->
                federation.deliveryChanges().queryInteractionTransportation(me, in.handle(), in.handle()));
    }

    public final void changeAttributeOrderType_OIH_AHS_OT(byte[] message) throws RTIexception {
        act(changeAttributeOrderType_OIH_AHS_OT, message, (federation, me, in) ->
                federation.deliveryChanges().changeOrder(me, in.handle(), in.handles(), order(in.integer())));
    }

    public final void changeInteractionOrderType_ICH_OT(byte[] message) throws RTIexception {
        act(changeInteractionOrderType_ICH_OT, message, (federation, me, in) ->
                federation.deliveryChanges().changeInteractionOrder(me, in.handle(), order(in.integer())));
    }

    /** The retraction handle's own encoding: its number, and no bytes beside it. Null stands for none. */
    static byte[] retraction(int handle) {
        return handle == 0 ? null : ByteBuffer.allocate(2 * Integer.BYTES).putInt(handle).array();
    }
}
