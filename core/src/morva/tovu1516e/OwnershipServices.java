package morva.tovu1516e;

import static morva.tovu1516e.Service.*;

import hla.rti1516e.exceptions.RTIexception;

/** Ownership management. */
abstract class OwnershipServices extends ObjectServices {
    OwnershipServices(Connection connection) {
        super(connection);
    }

    public final void unconditionalAttributeOwnershipDivestiture_OIH_AHS(byte[] message) throws RTIexception {
        act(unconditionalAttributeOwnershipDivestiture_OIH_AHS, message, (federation, me, in) ->
                federation.ownership().divestUnconditionally(me, in.handle(), in.handles()));
    }

    public final void negotiatedAttributeOwnershipDivestiture_OIH_AHS_BX(byte[] message) throws RTIexception {
        act(negotiatedAttributeOwnershipDivestiture_OIH_AHS_BX, message, (federation, me, in) ->
                federation.ownership().divestNegotiated(me, in.handle(), in.handles(), in.bytes()));
    }

    public final void confirmDivestiture_OIH_AHS_BX(byte[] message) throws RTIexception {
        act(confirmDivestiture_OIH_AHS_BX, message, (federation, me, in) ->
                federation.ownership().confirmDivestiture(me, in.handle(), in.handles(), in.bytes()));
    }

    public final void attributeOwnershipAcquisition_OIH_AHS_BX(byte[] message) throws RTIexception {
        act(attributeOwnershipAcquisition_OIH_AHS_BX, message, (federation, me, in) ->
                federation.ownership().acquire(me, in.handle(), in.handles(), in.bytes()));
    }

    public final void attributeOwnershipAcquisitionIfAvailable_OIH_AHS(byte[] message) throws RTIexception {
        act(attributeOwnershipAcquisitionIfAvailable_OIH_AHS, message, (federation, me, in) ->
                federation.ownership().acquireIfAvailable(me, in.handle(), in.handles()));
    }

    public final void attributeOwnershipReleaseDenied_OIH_AHS(byte[] message) throws RTIexception {
        act(attributeOwnershipReleaseDenied_OIH_AHS, message, (federation, me, in) ->
                federation.ownership().denyRelease(me, in.handle(), in.handles()));
    }

    public final int[] attributeOwnershipDivestitureIfWanted_OIH_AHS(byte[] message) throws RTIexception {
        return ask(attributeOwnershipDivestitureIfWanted_OIH_AHS, message, (federation, me, in) ->
                federation.ownership().divestIfWanted(me, in.handle(), in.handles()));
    }

    public final void cancelNegotiatedAttributeOwnershipDivestiture_OIH_AHS(byte[] message) throws RTIexception {
        act(cancelNegotiatedAttributeOwnershipDivestiture_OIH_AHS, message, (federation, me, in) ->
                federation.ownership().cancelDivestiture(me, in.handle(), in.handles()));
    }

    public final void cancelAttributeOwnershipAcquisition_OIH_AHS(byte[] message) throws RTIexception {
        act(cancelAttributeOwnershipAcquisition_OIH_AHS, message, (federation, me, in) ->
                federation.ownership().cancelAcquisition(me, in.handle(), in.handles()));
    }

    public final void queryAttributeOwnership_OIH_AH(byte[] message) throws RTIexception {
        act(queryAttributeOwnership_OIH_AH, message, (federation, me, in) ->
                federation.ownership().query(me, in.handle(), in.handle()));
    }

    public final boolean isAttributeOwnedByFederate_OIH_AH(byte[] message) throws RTIexception {
        return ask(isAttributeOwnedByFederate_OIH_AH, message, (federation, me, in) ->
                federation.ownership().isOwned(me, in.handle(), in.handle()));
    }
}
