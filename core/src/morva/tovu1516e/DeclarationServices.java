package morva.tovu1516e;

import static morva.tovu1516e.Service.*;

import hla.rti1516e.exceptions.RTIexception;

/** Declaration management. */
abstract class DeclarationServices extends SupportServices {
    DeclarationServices(Connection connection) {
        super(connection);
    }

    public final void publishObjectClassAttributes_OCH_AHS(byte[] message) throws RTIexception {
        act(publishObjectClassAttributes_OCH_AHS, message, (federation, me, in) ->
                federation.declarations().publishObjectClass(me, in.handle(), in.handles()));
    }

    public final void unpublishObjectClass_OCH(byte[] message) throws RTIexception {
        act(unpublishObjectClass_OCH, message, (federation, me, in) ->
                federation.declarations().unpublishObjectClass(me, in.handle()));
    }

    public final void unpublishObjectClassAttributes_OCH_AHS(byte[] message) throws RTIexception {
        act(unpublishObjectClassAttributes_OCH_AHS, message, (federation, me, in) ->
                federation.declarations().unpublishObjectClassAttributes(me, in.handle(), in.handles()));
    }

    public final void publishInteractionClass_ICH(byte[] message) throws RTIexception {
        act(publishInteractionClass_ICH, message, (federation, me, in) ->
                federation.declarations().publishInteractionClass(me, in.handle()));
    }

    public final void unpublishInteractionClass_ICH(byte[] message) throws RTIexception {
        act(unpublishInteractionClass_ICH, message, (federation, me, in) ->
                federation.declarations().unpublishInteractionClass(me, in.handle()));
    }

    public final void subscribeObjectClassAttributes_OCH_AHS_Z_S(byte[] message) throws RTIexception {
        act(subscribeObjectClassAttributes_OCH_AHS_Z_S, message, (federation, me, in) ->
                federation.declarations().subscribeObjectClass(me, in.handle(), in.handles(), in.flag(), in.text()));
    }

    public final void unsubscribeObjectClass_OCH(byte[] message) throws RTIexception {
        act(unsubscribeObjectClass_OCH, message, (federation, me, in) ->
                federation.declarations().unsubscribeObjectClass(me, in.handle()));
    }

    public final void unsubscribeObjectClassAttributes_OCH_AHS(byte[] message) throws RTIexception {
        act(unsubscribeObjectClassAttributes_OCH_AHS, message, (federation, me, in) ->
                federation.declarations().unsubscribeObjectClassAttributes(me, in.handle(), in.handles()));
    }

    public final void subscribeInteractionClass_ICH_Z(byte[] message) throws RTIexception {
        act(subscribeInteractionClass_ICH_Z, message, (federation, me, in) ->
                federation.declarations().subscribeInteractionClass(me, in.handle(), in.flag()));
    }

    public final void unsubscribeInteractionClass_ICH(byte[] message) throws RTIexception {
        act(unsubscribeInteractionClass_ICH, message, (federation, me, in) ->
                federation.declarations().unsubscribeInteractionClass(me, in.handle()));
    }
}
