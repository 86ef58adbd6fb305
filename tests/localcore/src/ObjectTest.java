import java.util.List;
import java.util.Set;
import tovu.local.model.Federations;
import tovu.local.model.HandleValues;
import tovu.local.model.ResignAction;
import tovu.local.model.Timing;

/** Names, discovery, reflection, interactions, deletion and the notices about who wants what. */
final class ObjectTest {
    private static final byte[] TAG = "t".getBytes();

    private final Federations federations = new Federations();
    private final TestFederate a;
    private final TestFederate b;
    private final int position;
    private final int colour;
    private final int altitude;
    private final int vehicle;
    private final int aircraft;

    private ObjectTest() throws Exception {
        TestFederate.create(federations, "f", List.of(TestFom.file(TestFom.AIR)), "");
        a = TestFederate.join(federations, "f", "a");
        b = TestFederate.join(federations, "f", "b");
        int[] handles = a.attributes("Vehicle.Aircraft", "position", "colour", "altitude");
        position = handles[0];
        colour = handles[1];
        altitude = handles[2];
        vehicle = a.classHandle("Vehicle");
        aircraft = a.classHandle("Vehicle.Aircraft");
    }

    public static void main(String[] arguments) {
        Harness harness = new Harness();
        harness.run("names", () -> new ObjectTest().names());
        harness.run("discovery", () -> new ObjectTest().discovery());
        harness.run("other federation", () -> new ObjectTest().otherFederation());
        harness.run("reflection", () -> new ObjectTest().reflection());
        harness.run("renounced", () -> new ObjectTest().renounced());
        harness.run("interactions", () -> new ObjectTest().interactions());
        harness.run("deletion", () -> new ObjectTest().deletion());
        harness.run("retracted deletion", () -> new ObjectTest().retractedDeletion());
        harness.run("requests", () -> new ObjectTest().requests());
        harness.run("delivery changes", () -> new ObjectTest().deliveryChanges());
        harness.run("relevance", () -> new ObjectTest().relevance());
        harness.run("scope and update rates", () -> new ObjectTest().scope());
        harness.run("resigning", () -> new ObjectTest().resigning());
        harness.finish();
    }

    /** An object's handle says nothing in another federation, even if that has as many objects. */
    private void otherFederation() throws Exception {
        TestFederate.create(federations, "g", List.of(TestFom.file(TestFom.AIR)), "");
        TestFederate c = TestFederate.join(federations, "g", "c");
        a.publish("Vehicle", "colour");
        c.publish("Vehicle", "colour");
        int mine = a.register("Vehicle");
        int others = c.register("Vehicle");
        a.update(mine, colour);
        Harness.refuses("ObjectInstanceNotKnown", () -> a.update(others, colour), "in this federation");
    }

    private void names() throws Exception {
        a.act((federation, me) -> federation.names().reserve(me, "x"));
        b.act((federation, me) -> federation.names().reserve(me, Set.of("x", "y")));
        Harness.equal(a.told(), List.of("objectInstanceNameReservationSucceeded(x)"));
        Harness.that(b.told().get(0).startsWith("multipleObjectInstanceNameReservationFailed"), "x is taken");
        b.act((federation, me) -> federation.names().reserve(me, Set.of("y")));
        Harness.refuses("IllegalName", () -> a.act((federation, me) -> federation.names().reserve(me, "HLAx")));
        Harness.refuses("NameSetWasEmpty", () -> a.act((federation, me) -> federation.names().reserve(me, Set.of())));
        a.publish("Vehicle", "colour");
        b.publish("Vehicle", "colour");
        Harness.refuses("ObjectInstanceNameNotReserved", () -> b.act((federation, me) ->
                federation.objectManagement().register(me, vehicle, "x")));
        int x = a.ask((federation, me) -> federation.objectManagement().register(me, vehicle, "x"));
        Harness.refuses("ObjectInstanceNameInUse", () -> a.act((federation, me) ->
                federation.objectManagement().register(me, vehicle, "x")), "'x'");
        Harness.equal(a.ask((federation, me) -> federation.objects().handle(me, "x")), x);
        Harness.refuses("ObjectInstanceNotKnown", () -> b.act((federation, me) -> federation.objects().handle(me, "x")));
        Harness.refuses("ObjectInstanceNameNotReserved", () -> a.act((federation, me) ->
                federation.names().release(me, Set.of("y"))));
        b.act((federation, me) -> federation.names().release(me, Set.of("y")));
        a.act((federation, me) -> federation.objectManagement().delete(me, x, TAG, Timing.NONE));
        a.told();
        a.act((federation, me) -> federation.names().reserve(me, Set.of("x", "y")));
        Harness.that(a.told().get(0).startsWith("multipleObjectInstanceNameReservationSucceeded"), "all is free again");
    }

    private void discovery() throws Exception {
        Harness.refuses("ObjectClassNotPublished", () -> a.register("Vehicle"), "Vehicle");
        a.publish("Vehicle.Aircraft", "altitude");
        int unseen = a.register("Vehicle.Aircraft");
        b.subscribe("Vehicle", "colour");
        Harness.equal(b.told(), List.of()); // nobody owns what it would see
        a.publish("Vehicle.Aircraft", "colour");
        int early = a.register("Vehicle.Aircraft");
        int late = a.register("Vehicle.Aircraft");
        Harness.equal(b.told(), List.of(discover(early, vehicle), discover(late, vehicle)));
        b.subscribe("Vehicle.Aircraft", "altitude");
        int specific = a.register("Vehicle.Aircraft");
        Harness.equal(b.told(), List.of(discover(unseen, aircraft), discover(specific, aircraft)));
        Harness.equal(a.told(), List.of());
        Harness.equal(b.ask((federation, me) -> federation.objects().knownClass(me, early)), vehicle);
        b.act((federation, me) -> federation.objectManagement().deleteLocally(me, early));
        Harness.refuses("ObjectInstanceNotKnown", () -> b.act((federation, me) ->
                federation.objects().knownClass(me, early)));
        b.subscribe("Vehicle", "colour");
        Harness.equal(b.told(), List.of(discover(early, aircraft)));
        Harness.refuses("FederateOwnsAttributes", () -> a.act((federation, me) ->
                federation.objectManagement().deleteLocally(me, early)));
    }

    private String discover(int object, int asClass) {
        return "discoverObjectInstance(" + object + ", " + asClass + ", HLAobject-" + object + ", " + a.handle() + ")";
    }

    private static String reflect(int object, String values, String transportation, int producer) {
        return "reflectAttributeValues(" + object + ", " + values + ", '', RECEIVE, " + transportation
                + ", null, Supplement[producer=" + producer + ", sentRegions=null])";
    }

    private void reflection() throws Exception {
        a.publish("Vehicle.Aircraft", "altitude", "colour", "position");
        b.publish("Vehicle.Aircraft", "altitude");
        b.subscribe("Vehicle", "colour", "position");
        int object = a.register("Vehicle.Aircraft");
        b.told();
        a.update(object, position, colour, altitude);
        Harness.equal(b.told(), List.of(reflect(object, "{" + position + ": 0 bytes}", "RELIABLE", a.handle()),
                reflect(object, "{" + colour + ": 0 bytes}", "BEST_EFFORT", a.handle())));
        a.update(object, altitude);
        Harness.equal(b.told(), List.of());
        Harness.refuses("AttributeNotOwned", () -> b.update(object, position), "position");
        Harness.refuses("AttributeNotDefined", () -> b.update(object, altitude), "Vehicle");
        Harness.refuses("AttributeNotDefined", () -> a.update(object, 999), "999");
        Harness.refuses("ObjectInstanceNotKnown", () -> a.update(999, position), "999");
    }

    /** What was sent before an unsubscription or local deletion is not delivered after it. */
    private void renounced() throws Exception {
        a.publish("Vehicle", "colour", "position");
        b.subscribe("Vehicle", "colour", "position");
        int object = a.register("Vehicle");
        int other = a.register("Vehicle");
        b.told();
        a.update(object, colour, position);
        b.unsubscribe("Vehicle", "colour");
        Harness.equal(b.told(), List.of(reflect(object, "{" + position + ": 0 bytes}", "RELIABLE", a.handle())));
        a.update(object, position);
        a.update(other, position);
        b.act((federation, me) -> federation.objectManagement().deleteLocally(me, object));
        Harness.equal(b.told(), List.of(reflect(other, "{" + position + ": 0 bytes}", "RELIABLE", a.handle())));
        a.update(other, position);
        a.act((federation, me) -> federation.objectManagement().delete(me, other, TAG, Timing.NONE));
        Harness.equal(b.told().size(), 2);
    }

    private void interactions() throws Exception {
        int report = a.ask((federation, me) -> federation.lookups().interactionClassHandle("Report"));
        int alarm = a.ask((federation, me) -> federation.lookups().interactionClassHandle("Report.Alarm"));
        int text = a.ask((federation, me) -> federation.lookups().parameterHandle(report, "text"));
        int level = a.ask((federation, me) -> federation.lookups().parameterHandle(alarm, "level"));
        HandleValues both = TestFederate.values(text, level);
        Harness.refuses("InteractionClassNotPublished", () -> a.act((federation, me) ->
                federation.interactions().send(me, alarm, both, TAG, Timing.NONE)), "Alarm");
        a.act((federation, me) -> federation.declarations().publishInteractionClass(me, alarm));
        a.act((federation, me) -> federation.declarations().subscribeInteractionClass(me, alarm, true));
        b.act((federation, me) -> federation.declarations().subscribeInteractionClass(me, report, true));
        a.act((federation, me) -> federation.interactions().send(me, alarm, both, TAG, Timing.NONE));
        b.act((federation, me) -> federation.declarations().subscribeInteractionClass(me, alarm, false));
        a.act((federation, me) -> federation.interactions().send(me, alarm, both, TAG, Timing.NONE));
        Harness.equal(a.told(), List.of());
        List<String> told = b.told();
        Harness.that(told.size() == 2 && told.get(0).startsWith("receiveInteraction(" + report + ", {" + text + ": ")
                && told.get(1).startsWith("receiveInteraction(" + alarm + ", " + both), told.toString());
        Harness.refuses("InteractionParameterNotDefined", () -> a.act((federation, me) ->
                federation.interactions().send(me, report, both, TAG, Timing.NONE)), Integer.toString(level));
    }

    private void deletion() throws Exception {
        a.publish("Vehicle", "colour");
        b.subscribe("Vehicle", "colour");
        int object = a.register("Vehicle");
        b.told();
        Harness.refuses("DeletePrivilegeNotHeld", () -> b.act((federation, me) ->
                federation.objectManagement().delete(me, object, TAG, Timing.NONE)));
        a.act((federation, me) -> federation.objectManagement().delete(me, object, TAG, Timing.NONE));
        Harness.equal(b.told(), List.of("removeObjectInstance(" + object + ", 't', RECEIVE, null, " + a.handle() + ")"));
        for (TestFederate each : List.of(a, b)) {
            Harness.refuses("ObjectInstanceNotKnown", () -> each.act((federation, me) ->
                    federation.objects().name(me, object)));
        }
    }

    private void retractedDeletion() throws Exception {
        TestFederate c = TestFederate.join(federations, "f", "c");
        a.act((federation, me) -> federation.time().enableRegulation(me, Double.doubleToLongBits(1)));
        b.act((federation, me) -> federation.time().enableConstrained(me));
        a.publish("Vehicle", "colour");
        b.subscribe("Vehicle", "colour");
        c.subscribe("Vehicle", "colour");
        int object = a.register("Vehicle");
        a.told();
        b.told();
        c.told();
        int retraction = a.ask((federation, me) -> federation.objectManagement().delete(me, object, TAG,
                Timing.at(Double.doubleToLongBits(5))));
        Harness.refuses("ObjectInstanceNotKnown", () -> a.update(object, colour));
        Harness.that(c.told().get(0).startsWith("removeObjectInstance"), "who is not constrained is told at once");
        a.act((federation, me) -> federation.retractions().retract(me, retraction));
        a.update(object, colour);
        b.act((federation, me) -> federation.objects().name(me, object));
        List<String> told = c.told();
        Harness.that(told.get(0).equals("requestRetraction(" + retraction + ")") && told.get(1).startsWith("discover")
                && told.get(2).startsWith("reflect"), told.toString());
    }

    private void requests() throws Exception {
        a.publish("Vehicle.Aircraft", "colour", "altitude");
        b.subscribe("Vehicle", "colour");
        int object = a.register("Vehicle.Aircraft");
        b.told();
        b.act((federation, me) -> federation.objectManagement().requestUpdate(me, object, new int[] {colour, position}, TAG));
        b.act((federation, me) -> federation.objectManagement().requestClassUpdate(me, vehicle, new int[] {colour}, TAG));
        a.act((federation, me) -> federation.objectManagement().requestClassUpdate(me, vehicle, new int[] {colour}, TAG));
        String provide = "provideAttributeValueUpdate(" + object + ", [" + colour + "], 't')";
        Harness.equal(a.told(), List.of(provide, provide));
    }

    private void deliveryChanges() throws Exception {
        a.publish("Vehicle", "colour");
        b.subscribe("Vehicle", "colour");
        int object = a.register("Vehicle");
        b.told();
        a.act((federation, me) -> federation.deliveryChanges().changeTransportation(me, object, new int[] {colour}, 1));
        Harness.refuses("AttributeAlreadyBeingChanged", () -> a.act((federation, me) ->
                federation.deliveryChanges().changeTransportation(me, object, new int[] {colour}, 1)));
        Harness.refuses("InvalidTransportationType", () -> a.act((federation, me) ->
                federation.deliveryChanges().changeTransportation(me, object, new int[] {colour}, 3)));
        Harness.equal(a.told(), List.of("confirmAttributeTransportationTypeChange(" + object + ", [" + colour
                + "], RELIABLE)"));
        a.update(object, colour);
        Harness.equal(b.told(), List.of(reflect(object, "{" + colour + ": 0 bytes}", "RELIABLE", a.handle())));
        b.act((federation, me) -> federation.deliveryChanges().queryTransportation(me, object, colour));
        Harness.equal(b.told(), List.of("reportAttributeTransportationType(" + object + ", " + colour + ", RELIABLE)"));
    }

    private void relevance() throws Exception {
        int report = a.ask((federation, me) -> federation.lookups().interactionClassHandle("Report"));
        a.act((federation, me) -> federation.advisorySwitches().setObjectClassRelevance(me, true));
        a.act((federation, me) -> federation.advisorySwitches().setInteractionRelevance(me, true));
        Harness.refuses("InteractionRelevanceAdvisorySwitchIsOn", () -> a.act((federation, me) ->
                federation.advisorySwitches().setInteractionRelevance(me, true)));
        a.publish("Vehicle.Aircraft", "colour");
        a.act((federation, me) -> federation.declarations().publishInteractionClass(me, report));
        b.subscribe("Vehicle", "position");
        b.act((federation, me) -> federation.declarations().subscribeInteractionClass(me, report, false));
        Harness.equal(a.told(), List.of());
        b.subscribe("Vehicle", "colour");
        b.act((federation, me) -> federation.declarations().subscribeInteractionClass(me, report, true));
        Harness.equal(a.told(), List.of("startRegistrationForObjectClass(" + aircraft + ")",
                "turnInteractionsOn(" + report + ")"));
        b.resign(ResignAction.NO_ACTION);
        Harness.equal(a.told(), List.of("stopRegistrationForObjectClass(" + aircraft + ")",
                "turnInteractionsOff(" + report + ")"));
    }

    private void scope() throws Exception {
        a.act((federation, me) -> federation.advisorySwitches().setAttributeRelevance(me, true));
        b.act((federation, me) -> federation.advisorySwitches().setAttributeScope(me, true));
        a.publish("Vehicle", "colour", "position");
        int object = a.register("Vehicle");
        b.act((federation, me) -> federation.declarations().subscribeObjectClass(me, vehicle, new int[] {colour}, true,
                "slow"));
        Harness.equal(b.told().get(1), "attributesInScope(" + object + ", [" + colour + "])");
        Harness.equal(a.told(), List.of("turnUpdatesOnForObjectInstance(" + object + ", [" + colour + "], slow)"));
        Harness.equal(b.ask((federation, me) -> federation.lookups().updateRate(me, object, colour)), 1.0);
        b.act((federation, me) -> federation.declarations().subscribeObjectClass(me, vehicle, new int[] {colour}, true,
                "fast"));
        Harness.equal(a.told(), List.of("turnUpdatesOnForObjectInstance(" + object + ", [" + colour + "], fast)"));
        Harness.refuses("InvalidUpdateRateDesignator", () -> b.act((federation, me) ->
                federation.declarations().subscribeObjectClass(me, vehicle, new int[] {colour}, true, "never")));
        a.act((federation, me) -> federation.ownership().divestUnconditionally(me, object, new int[] {colour}));
        Harness.equal(b.told(), List.of("attributesOutOfScope(" + object + ", [" + colour + "])"));
        b.subscribe("Vehicle", "position");
        b.unsubscribe("Vehicle", "position");
        Harness.equal(b.told(), List.of("attributesInScope(" + object + ", [" + position + "])",
                "attributesOutOfScope(" + object + ", [" + position + "])"));
        Harness.equal(a.told(), List.of("turnUpdatesOnForObjectInstance(" + object + ", [" + position + "], )",
                "turnUpdatesOffForObjectInstance(" + object + ", [" + position + "])"));
    }

    private void resigning() throws Exception {
        for (ResignAction action : ResignAction.values()) {
            TestFederate c = TestFederate.join(federations, "f", "c");
            c.publish("Vehicle", "colour");
            b.subscribe("Vehicle", "colour");
            int object = c.register("Vehicle");
            b.told();
            boolean deletes = action == ResignAction.DELETE_OBJECTS || action == ResignAction.DELETE_OBJECTS_THEN_DIVEST
                    || action == ResignAction.CANCEL_THEN_DELETE_THEN_DIVEST;
            boolean leaves = deletes || action == ResignAction.UNCONDITIONALLY_DIVEST_ATTRIBUTES;
            if (!leaves) {
                Harness.refuses("FederateOwnsAttributes", () -> c.resign(action));
                c.resign(ResignAction.DELETE_OBJECTS);
                continue;
            }
            c.resign(action);
            Harness.equal(b.told().size(), deletes ? 1 : 0);
            if (!deletes) {
                b.act((federation, me) -> federation.ownership().query(me, object, colour));
                Harness.equal(b.told(), List.of("attributeIsNotOwned(" + object + ", " + colour + ")"));
            }
        }
    }
}
