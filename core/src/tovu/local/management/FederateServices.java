package tovu.local.management;

import hla.rti1516e.exceptions.RTIexception;
import java.util.HashMap;
import java.util.Map;
import tovu.local.model.federation.Federation;
import tovu.local.model.time.AdvanceKind;

/** HLAmanager.HLAfederate.HLAservice: services on behalf of the federate that the interaction names. */
final class FederateServices {
    private final Map<String, Action> rows = new HashMap<>();

    private FederateServices() {
        federationManagement();
        declarations();
        objects();
        times();
    }

    static Map<String, Action> all() {
        return new FederateServices().rows;
    }

    private void federationManagement() {
        rows.put("HLAresignFederationExecution", (federation, who, in) ->
                federation.resign(who, in.resignAction("HLAresignAction")));
        rows.put("HLAsynchronizationPointAchieved", (federation, who, in) ->
                federation.synchronizationPoints().achieved(who, in.text("HLAlabel"), true));
        rows.put("HLAfederateSaveBegun", (federation, who, in) -> federation.save().begun(who));
        rows.put("HLAfederateSaveComplete", (federation, who, in) ->
                federation.save().complete(who, in.flag("HLAsuccessIndicator")));
        rows.put("HLAfederateRestoreComplete", (federation, who, in) ->
                federation.restore().complete(who, in.flag("HLAsuccessIndicator")));
    }

    private void declarations() {
        rows.put("HLApublishObjectClassAttributes", (federation, who, in) -> federation.declarations()
                .publishObjectClass(who, in.handle("HLAobjectClass"), in.handles("HLAattributeList")));
        rows.put("HLAunpublishObjectClassAttributes", (federation, who, in) -> federation.declarations()
                .unpublishObjectClassAttributes(who, in.handle("HLAobjectClass"), in.handles("HLAattributeList")));
        rows.put("HLApublishInteractionClass", (federation, who, in) ->
                federation.declarations().publishInteractionClass(who, in.handle("HLAinteractionClass")));
        rows.put("HLAunpublishInteractionClass", (federation, who, in) ->
                federation.declarations().unpublishInteractionClass(who, in.handle("HLAinteractionClass")));
        rows.put("HLAsubscribeObjectClassAttributes", (federation, who, in) -> federation.declarations()
                .subscribeObjectClass(who, in.handle("HLAobjectClass"), in.handles("HLAattributeList"),
                        in.flag("HLAactive"), ""));
        rows.put("HLAunsubscribeObjectClassAttributes", (federation, who, in) -> federation.declarations()
                .unsubscribeObjectClassAttributes(who, in.handle("HLAobjectClass"), in.handles("HLAattributeList")));
        rows.put("HLAsubscribeInteractionClass", (federation, who, in) -> federation.declarations()
                .subscribeInteractionClass(who, in.handle("HLAinteractionClass"), in.flag("HLAactive")));
        rows.put("HLAunsubscribeInteractionClass", (federation, who, in) ->
                federation.declarations().unsubscribeInteractionClass(who, in.handle("HLAinteractionClass")));
    }

    private void objects() {
        rows.put("HLAdeleteObjectInstance", (federation, who, in) -> federation.objectManagement()
                .delete(who, in.handle("HLAobjectInstance"), in.bytes("HLAtag"),
                        in.timing("HLAtimeStamp")));
        rows.put("HLAlocalDeleteObjectInstance", (federation, who, in) ->
                federation.objectManagement().deleteLocally(who, in.handle("HLAobjectInstance")));
        rows.put("HLArequestAttributeTransportationTypeChange", (federation, who, in) -> federation.deliveryChanges()
                .changeTransportation(who, in.handle("HLAobjectInstance"), in.handles("HLAattributeList"),
                        transportation(federation, in)));
        rows.put("HLArequestInteractionTransportationTypeChange", (federation, who, in) -> federation
                .deliveryChanges().changeInteractionTransportation(who, in.handle("HLAinteractionClass"),
                        transportation(federation, in)));
        rows.put("HLAunconditionalAttributeOwnershipDivestiture", (federation, who, in) -> federation.ownership()
                .divestUnconditionally(who, in.handle("HLAobjectInstance"), in.handles("HLAattributeList")));
        rows.put("HLAchangeAttributeOrderType", (federation, who, in) -> federation.deliveryChanges()
                .changeOrder(who, in.handle("HLAobjectInstance"), in.handles("HLAattributeList"),
                        in.order("HLAsendOrder")));
        rows.put("HLAchangeInteractionOrderType", (federation, who, in) -> federation.deliveryChanges()
                .changeInteractionOrder(who, in.handle("HLAinteractionClass"), in.order("HLAsendOrder")));
    }

    private static int transportation(Federation federation, Arguments in) throws RTIexception, ParameterFault {
        return federation.lookups().transportationCode(federation.infrastructure(), in.text("HLAtransportation"));
    }

    private void times() {
        rows.put("HLAenableTimeRegulation", (federation, who, in) ->
                federation.time().enableRegulation(who, in.time("HLAlookahead")));
        rows.put("HLAdisableTimeRegulation", (federation, who, in) -> federation.time().disableRegulation(who));
        rows.put("HLAenableTimeConstrained", (federation, who, in) -> federation.time().enableConstrained(who));
        rows.put("HLAdisableTimeConstrained", (federation, who, in) -> federation.time().disableConstrained(who));
        advance("HLAtimeAdvanceRequest", AdvanceKind.TIME_ADVANCE);
        advance("HLAtimeAdvanceRequestAvailable", AdvanceKind.TIME_ADVANCE_AVAILABLE);
        advance("HLAnextMessageRequest", AdvanceKind.NEXT_MESSAGE);
        advance("HLAnextMessageRequestAvailable", AdvanceKind.NEXT_MESSAGE_AVAILABLE);
        advance("HLAflushQueueRequest", AdvanceKind.FLUSH_QUEUE);
        rows.put("HLAenableAsynchronousDelivery", (federation, who, in) ->
                federation.time().setAsynchronousDelivery(who, true));
        rows.put("HLAdisableAsynchronousDelivery", (federation, who, in) ->
                federation.time().setAsynchronousDelivery(who, false));
        rows.put("HLAmodifyLookahead", (federation, who, in) ->
                federation.time().modifyLookahead(who, in.time("HLAlookahead")));
    }

    private void advance(String name, AdvanceKind kind) {
        rows.put(name, (federation, who, in) -> federation.time().advance(who, kind, in.time("HLAtimeStamp")));
    }
}
