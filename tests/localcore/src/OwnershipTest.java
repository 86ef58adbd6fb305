import java.util.ArrayList;
import java.util.Arrays;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.Random;
import tovu.local.model.Federations;
import tovu.local.model.ResignAction;

/** The ways in which attributes change hands, and random negotiations in which each attribute has one owner at most. */
final class OwnershipTest {
    private static final byte[] TAG = "t".getBytes();

    private final Federations federations = new Federations();
    private final TestFederate a;
    private final TestFederate b;
    private final TestFederate c;
    private final int object;
    private final int[] colour;
    private final int[] position;
    private final String arguments;

    private OwnershipTest() throws Exception {
        TestFederate.create(federations, "f", List.of(TestFom.file(TestFom.AIR)), "");
        a = TestFederate.join(federations, "f", "a");
        b = TestFederate.join(federations, "f", "b");
        c = TestFederate.join(federations, "f", "c");
        colour = a.attributes("Vehicle", "colour");
        position = a.attributes("Vehicle", "position");
        for (TestFederate each : List.of(a, b, c)) {
            each.publish("Vehicle", "colour");
            each.subscribe("Vehicle", "colour");
        }
        object = a.register("Vehicle");
        b.told();
        c.told();
        arguments = "(" + object + ", " + Arrays.toString(colour);
    }

    public static void main(String[] unused) {
        Harness harness = new Harness();
        harness.run("release", () -> new OwnershipTest().release());
        harness.run("negotiated", () -> new OwnershipTest().negotiated());
        harness.run("if available", () -> new OwnershipTest().ifAvailable());
        harness.run("unconditional", () -> new OwnershipTest().unconditional());
        harness.run("refusals", () -> new OwnershipTest().refusals());
        harness.run("leaving", () -> new OwnershipTest().leaving());
        for (long seed = 1; seed <= 10; ++seed) {
            long theSeed = seed;
            harness.run("negotiations " + seed, () -> new OwnershipTest().negotiations(new Random(theSeed)));
        }
        harness.finish();
    }

    private void divest(TestFederate federate) throws Exception {
        federate.act((federation, me) -> federation.ownership().divestUnconditionally(me, object, colour));
    }

    private void offer(TestFederate federate) throws Exception {
        federate.act((federation, me) -> federation.ownership().divestNegotiated(me, object, colour, TAG));
    }

    private void confirm(TestFederate federate) throws Exception {
        federate.act((federation, me) -> federation.ownership().confirmDivestiture(me, object, colour, "c".getBytes()));
    }

    private void keep(TestFederate federate) throws Exception {
        federate.act((federation, me) -> federation.ownership().cancelDivestiture(me, object, colour));
    }

    private void acquire(TestFederate federate) throws Exception {
        federate.act((federation, me) -> federation.ownership().acquire(me, object, colour, TAG));
    }

    private void acquireIfAvailable(TestFederate federate) throws Exception {
        federate.act((federation, me) -> federation.ownership().acquireIfAvailable(me, object, colour));
    }

    private void cancel(TestFederate federate) throws Exception {
        federate.act((federation, me) -> federation.ownership().cancelAcquisition(me, object, colour));
    }

    private int[] divestIfWanted(TestFederate federate) throws Exception {
        return federate.ask((federation, me) -> federation.ownership().divestIfWanted(me, object, colour));
    }

    private boolean owns(TestFederate federate) throws Exception {
        return federate.ask((federation, me) -> federation.ownership().isOwned(me, object, colour[0]));
    }

    private void release() throws Exception {
        acquire(b);
        acquire(c);
        Harness.equal(a.told(), List.of("requestAttributeOwnershipRelease" + arguments + ", 't')",
                "requestAttributeOwnershipRelease" + arguments + ", 't')"));
        a.act((federation, me) -> federation.ownership().denyRelease(me, object, colour));
        Harness.that(owns(a) && b.told().isEmpty(), "denied");
        Harness.equal(divestIfWanted(a).length, 1);
        Harness.equal(b.told(), List.of("attributeOwnershipAcquisitionNotification" + arguments + ", '')",
                "requestAttributeOwnershipRelease" + arguments + ", 't')"));
        Harness.that(owns(b) && !owns(a), "the first who asked owns it");
        cancel(c);
        Harness.equal(c.told(), List.of("confirmAttributeOwnershipAcquisitionCancellation" + arguments + ")"));
        Harness.equal(divestIfWanted(b).length, 0);
        a.act((federation, me) -> federation.ownership().query(me, object, colour[0]));
        Harness.equal(a.told(), List.of("informAttributeOwnership(" + object + ", " + colour[0] + ", " + b.handle() + ")"));
    }

    private void negotiated() throws Exception {
        offer(a);
        Harness.equal(b.told(), List.of("requestAttributeOwnershipAssumption" + arguments + ", 't')"));
        Harness.refuses("NoAcquisitionPending", () -> confirm(a));
        acquireIfAvailable(c);
        acquire(b);
        Harness.equal(a.told(), List.of("requestDivestitureConfirmation" + arguments + ")"));
        Harness.that(owns(a), "until it confirms");
        keep(a);
        Harness.that(c.told().contains("attributeOwnershipUnavailable" + arguments + ")"), "not available any more");
        Harness.equal(a.told(), List.of("requestAttributeOwnershipRelease" + arguments + ", 't')"));
        offer(a);
        Harness.equal(a.told(), List.of("requestDivestitureConfirmation" + arguments + ")"));
        confirm(a);
        Harness.equal(b.told(), List.of("attributeOwnershipAcquisitionNotification" + arguments + ", 'c')"));
        Harness.that(owns(b) && !owns(a), "confirmed");
    }

    private void ifAvailable() throws Exception {
        acquireIfAvailable(b);
        Harness.equal(b.told(), List.of("attributeOwnershipUnavailable" + arguments + ")"));
        divest(a);
        acquireIfAvailable(b);
        Harness.equal(b.told(), List.of("attributeOwnershipAcquisitionNotification" + arguments + ", '')"));
    }

    private void unconditional() throws Exception {
        acquire(c);
        divest(a);
        Harness.that(owns(c) && b.told().isEmpty(), "it goes to who wants it, and is offered to nobody");
        divest(c);
        TestFederate late = TestFederate.join(federations, "f", "late");
        late.publish("Vehicle", "colour");
        late.subscribe("Vehicle", "colour", "HLAprivilegeToDeleteObject");
        Harness.equal(late.told().get(1), "requestAttributeOwnershipAssumption" + arguments + ", '')");
        acquire(late);
        Harness.that(owns(late), "what nobody owns is had for the asking");
    }

    private void refusals() throws Exception {
        Harness.refuses("AttributeNotOwned", () -> divest(b), "colour", "'a'");
        Harness.refuses("AttributeNotOwned", () -> offer(b));
        Harness.refuses("AttributeDivestitureWasNotRequested", () -> confirm(a));
        Harness.refuses("AttributeDivestitureWasNotRequested", () -> keep(a));
        Harness.refuses("FederateOwnsAttributes", () -> acquire(a));
        Harness.refuses("AttributeAlreadyOwned", () -> cancel(a));
        Harness.refuses("AttributeAcquisitionWasNotRequested", () -> cancel(b));
        Harness.refuses("AttributeNotPublished", () -> b.act((federation, me) ->
                federation.ownership().acquire(me, object, position, TAG)), "position");
        offer(a);
        Harness.refuses("AttributeAlreadyBeingDivested", () -> offer(a));
        acquire(b);
        Harness.refuses("AttributeAlreadyBeingAcquired", () -> acquireIfAvailable(b));
        Harness.refuses("OwnershipAcquisitionPending", () -> b.act((federation, me) ->
                federation.declarations().unpublishObjectClass(me, b.session.federate().federation().lookups()
                        .objectClassHandle("Vehicle"))));
        Harness.refuses("OwnershipAcquisitionPending", () -> b.act((federation, me) ->
                federation.objectManagement().deleteLocally(me, object)));
        Harness.refuses("OwnershipAcquisitionPending", () -> b.resign(ResignAction.NO_ACTION));
        b.resign(ResignAction.CANCEL_PENDING_OWNERSHIP_ACQUISITIONS);
        Harness.refuses("NoAcquisitionPending", () -> confirm(a));
        int vehicle = c.classHandle("Vehicle");
        c.act((federation, me) -> federation.declarations().unpublishObjectClass(me, vehicle));
        Harness.refuses("ObjectClassNotPublished", () -> acquire(c));
    }

    private void leaving() throws Exception {
        int vehicle = a.classHandle("Vehicle");
        a.act((federation, me) -> federation.declarations().unpublishObjectClass(me, vehicle));
        Harness.that(b.told().stream().anyMatch(each -> each.startsWith("requestAttributeOwnershipAssumption")),
                "what may not be owned any more is offered");
        acquire(b);
        b.resign(ResignAction.UNCONDITIONALLY_DIVEST_ATTRIBUTES);
        acquireIfAvailable(c);
        Harness.that(owns(c), "what a resigned federate owned is free");
    }

    /** Whatever is asked for and granted, callbacks and the core's own view agree on who owns. */
    private void negotiations(Random random) throws Exception {
        List<TestFederate> federates = List.of(a, b, c);
        Map<TestFederate, Boolean> told = new HashMap<>(Map.of(a, true, b, false, c, false));
        for (int step = 0; step < 400; ++step) {
            TestFederate federate = federates.get(random.nextInt(3));
            boolean before = owns(federate);
            try {
                switch (random.nextInt(8)) {
                    case 0 -> divest(federate);
                    case 1 -> offer(federate);
                    case 2 -> confirm(federate);
                    case 3 -> keep(federate);
                    case 4 -> acquire(federate);
                    case 5 -> acquireIfAvailable(federate);
                    case 6 -> cancel(federate);
                    default -> divestIfWanted(federate);
                }
            } catch (hla.rti1516e.exceptions.RTIexception refused) {
                Harness.equal(owns(federate), before);
            }
            List<TestFederate> owners = new ArrayList<>();
            for (TestFederate each : federates) {
                if (each == federate && before && !owns(each)) {
                    told.put(each, false);
                }
                for (String line : each.told()) {
                    if (line.startsWith("attributeOwnershipAcquisitionNotification")) {
                        Harness.that(!told.put(each, true), "it was the owner already");
                    }
                }
                Harness.equal(told.get(each), owns(each));
                if (owns(each)) {
                    owners.add(each);
                }
            }
            Harness.that(owners.size() <= 1, "several owners");
        }
    }
}
