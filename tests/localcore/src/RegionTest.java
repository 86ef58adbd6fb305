import java.util.List;
import java.util.Random;
import tovu.local.model.Federations;
import tovu.local.model.RegionManagement.Pair;
import tovu.local.model.Timing;

/** Regions: their rules, and that exactly those get a message whose regions meet those it is sent with. */
final class RegionTest {
    private static final byte[] TAG = {};

    private final Federations federations = new Federations();
    private final TestFederate a;
    private final TestFederate b;
    private final int x;
    private final int y;
    private final int[] position;
    private final int[] colour;
    private final int vehicle;
    private final int report;

    private RegionTest() throws Exception {
        TestFederate.create(federations, "f", List.of(TestFom.file(TestFom.AIR)), "");
        a = TestFederate.join(federations, "f", "a");
        b = TestFederate.join(federations, "f", "b");
        x = a.ask((federation, me) -> federation.lookups().dimensionHandle("X"));
        y = a.ask((federation, me) -> federation.lookups().dimensionHandle("Y"));
        position = a.attributes("Vehicle", "position");
        colour = a.attributes("Vehicle", "colour");
        vehicle = a.classHandle("Vehicle");
        report = a.ask((federation, me) -> federation.lookups().interactionClassHandle("Report"));
        a.publish("Vehicle", "position", "colour");
        a.act((federation, me) -> federation.declarations().publishInteractionClass(me, report));
    }

    public static void main(String[] arguments) {
        Harness harness = new Harness();
        harness.run("rules", () -> new RegionTest().rules());
        harness.run("updates", () -> new RegionTest().updates());
        harness.run("scope", () -> new RegionTest().scope());
        harness.run("overlap", () -> new RegionTest().overlap(new Random(7)));
        harness.finish();
    }

    private static int region(TestFederate federate, int... dimensions) throws Exception {
        return federate.ask((federation, me) -> federation.regions().create(me, dimensions));
    }

    private static void range(TestFederate federate, int region, int dimension, long lower, long upper)
            throws Exception {
        federate.act((federation, me) -> federation.regions().setBounds(me, region, dimension, lower, upper));
    }

    private static void commit(TestFederate federate, int... regions) throws Exception {
        federate.act((federation, me) -> federation.regions().commit(me, regions));
    }

    private void rules() throws Exception {
        Harness.refuses("InvalidDimensionHandle", () -> region(a, 99), "99");
        int region = region(a, x);
        Harness.refuses("RegionDoesNotContainSpecifiedDimension", () -> range(a, region, y, 0, 1));
        Harness.refuses("InvalidRangeBound", () -> range(a, region, x, 0, 101), "100");
        Harness.refuses("InvalidRangeBound", () -> range(a, region, x, 5, 5));
        Harness.refuses("RegionNotCreatedByThisFederate", () -> range(b, region, x, 0, 1), "'a'");
        Harness.refuses("InvalidRegion", () -> commit(a, 99));
        range(a, region, x, 10, 20);
        Harness.equal(a.ask((federation, me) -> federation.regions().bounds(me, region, x)[1]), 20L);
        Harness.equal(b.ask((federation, me) -> federation.regions().bounds(me, region, x)[1]), 100L);
        commit(a, region);
        Harness.equal(b.ask((federation, me) -> federation.regions().bounds(me, region, x)[1]), 20L);
        Harness.refuses("InvalidRegionContext", () -> a.act((federation, me) -> federation.regions().subscribe(me,
                vehicle, List.of(new Pair(colour, new int[] {region})), true, "")), "colour");
        List<Pair> pairs = List.of(new Pair(position, new int[] {region}));
        a.act((federation, me) -> federation.regions().subscribe(me, vehicle, pairs, true, ""));
        Harness.refuses("RegionInUseForUpdateOrSubscription", () -> a.act((federation, me) ->
                federation.regions().delete(me, region)));
        a.act((federation, me) -> federation.regions().unsubscribe(me, vehicle, pairs));
        int object = a.ask((federation, me) -> federation.regions().register(me, vehicle, pairs, null));
        Harness.refuses("RegionInUseForUpdateOrSubscription", () -> a.act((federation, me) ->
                federation.regions().delete(me, region)));
        a.act((federation, me) -> federation.regions().unassociate(me, object, pairs));
        a.act((federation, me) -> federation.regions().delete(me, region));
        Harness.refuses("InvalidRegion", () -> a.act((federation, me) -> federation.regions().delete(me, region)));
    }

    private void updates() throws Exception {
        int sent = region(a, x, y);
        range(a, sent, x, 0, 10);
        commit(a, sent);
        int wanted = region(b, x);
        range(b, wanted, x, 10, 20);
        commit(b, wanted);
        b.act((federation, me) -> federation.regions().subscribe(me, vehicle,
                List.of(new Pair(position, new int[] {wanted})), true, ""));
        int object = a.ask((federation, me) -> federation.regions().register(me, vehicle,
                List.of(new Pair(position, new int[] {sent})), null));
        a.update(object, position[0], colour[0]);
        Harness.equal(b.told(), List.of());
        range(a, sent, x, 0, 11);
        a.update(object, position[0]);
        Harness.equal(b.told(), List.of());
        commit(a, sent);
        Harness.that(b.told().get(0).startsWith("discoverObjectInstance(" + object), "it came into sight");
        a.update(object, position[0], colour[0]);
        List<String> told = b.told();
        Harness.that(told.size() == 1 && told.get(0).contains("{" + position[0] + ": 0 bytes}")
                && told.get(0).contains("producer=" + a.handle()), told.toString());
        b.subscribe("Vehicle", "position");
        range(a, sent, x, 90, 91);
        commit(a, sent);
        a.update(object, position[0]);
        Harness.equal(b.told().size(), 1);
    }

    private void scope() throws Exception {
        b.act((federation, me) -> federation.advisorySwitches().setAttributeScope(me, true));
        int sent = region(a, x);
        int wanted = region(b, x);
        range(b, wanted, x, 0, 50);
        commit(b, wanted);
        b.act((federation, me) -> federation.regions().subscribe(me, vehicle,
                List.of(new Pair(position, new int[] {wanted})), true, ""));
        int object = a.register("Vehicle");
        String which = "(" + object + ", [" + position[0] + "])";
        Harness.equal(b.told().get(1), "attributesInScope" + which);
        range(a, sent, x, 60, 70);
        commit(a, sent);
        a.act((federation, me) -> federation.regions().associate(me, object,
                List.of(new Pair(position, new int[] {sent}))));
        Harness.equal(b.told(), List.of("attributesOutOfScope" + which));
        range(b, wanted, x, 0, 61);
        commit(b, wanted);
        Harness.equal(b.told(), List.of("attributesInScope" + which));
        b.act((federation, me) -> federation.regions().requestUpdate(me, vehicle,
                List.of(new Pair(position, new int[] {wanted})), TAG));
        Harness.equal(a.told(), List.of("provideAttributeValueUpdate(" + object + ", [" + position[0] + "], '')"));
    }

    private void overlap(Random random) throws Exception {
        int sent = region(a, x);
        int wanted = region(b, x);
        b.act((federation, me) -> federation.regions().subscribeInteraction(me, report, true, new int[] {wanted}));
        int met = 0;
        for (int round = 0; round < 500; ++round) {
            long[] bounds = random.longs(4, 0, 20).toArray();
            bounds[1] += bounds[0] + 1;
            bounds[3] += bounds[2] + 1;
            range(a, sent, x, bounds[0], bounds[1]);
            range(b, wanted, x, bounds[2], bounds[3]);
            commit(a, sent);
            commit(b, wanted);
            a.act((federation, me) -> federation.regions().send(me, report, TestFederate.values(), new int[] {sent}, TAG,
                    Timing.NONE));
            boolean meets = Math.max(bounds[0], bounds[2]) < Math.min(bounds[1], bounds[3]);
            Harness.equal(b.told().size(), meets ? 1 : 0);
            met += meets ? 1 : 0;
        }
        Harness.that(met > 50 && met < 450, "both happen: " + met);
    }
}
