import hla.rti1516e.exceptions.RTIexception;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.HashMap;
import java.util.HashSet;
import java.util.List;
import java.util.Map;
import java.util.Random;
import java.util.Set;
import tovu.local.fom.OrderType;
import tovu.local.model.AdvanceKind;
import tovu.local.model.Federations;
import tovu.local.model.HandleValues;
import tovu.local.model.RegionManagement.Pair;
import tovu.local.model.ResignAction;
import tovu.local.model.Timing;

/** Federates that do anything in any order, sensible or not: what each is told must make sense to it all the same. */
final class RandomTest {
    private static final String[] CLASSES = {"Vehicle", "Vehicle.Aircraft"};
    private static final byte[] TAG = {};

    private final Federations federations = new Federations();
    private final Random random;
    private final Map<TestFederate, Set<Integer>> regions = new HashMap<>();
    private int answered;
    private int refused;
    private int reflected;

    private RandomTest(long seed) throws Exception {
        random = new Random(seed);
        TestFederate.create(federations, "f", List.of(TestFom.file(TestFom.AIR)), "HLAinteger64Time");
    }

    public static void main(String[] arguments) {
        Harness harness = new Harness();
        for (long seed = 1; seed <= 12; ++seed) {
            long theSeed = seed;
            harness.run("seed " + seed, () -> new RandomTest(theSeed).play());
        }
        harness.finish();
    }

    /** Believes what it is told, and objects to what does not fit. */
    private final class Player extends TestFederate {
        final Map<Integer, Integer> known = new HashMap<>();
        final Map<Integer, Set<Integer>> subscribed = new HashMap<>();
        final Set<List<Integer>> owned = new HashSet<>();

        Player(String name) throws Exception {
            super(federations);
            joined("f", name);
        }

        @Override
        void hear(String callback, Object[] args) {
            switch (callback) {
                case "discoverObjectInstance" ->
                    Harness.equal(known.put((Integer) args[0], (Integer) args[1]), null);
                case "removeObjectInstance" -> {
                    Harness.that(known.remove(args[0]) != null, "removed but not known");
                    owned.removeIf(each -> each.get(0).equals(args[0]));
                }
                case "reflectAttributeValues" -> {
                    ++reflected;
                    Integer knownClass = known.get(args[0]);
                    Harness.that(knownClass != null, "reflected but not known");
                    HandleValues values = (HandleValues) args[1];
                    for (int i = 0; i < values.size(); ++i) {
                        Harness.that(subscribed.getOrDefault(knownClass, Set.of()).contains(values.handle(i)),
                                "reflected but not subscribed");
                    }
                }
                case "attributeOwnershipAcquisitionNotification" -> {
                    for (int attribute : (int[]) args[1]) {
                        Harness.that(owned.add(List.of((Integer) args[0], attribute)), "acquired what it owned");
                    }
                }
                default -> {
                    // nothing that this player remembers
                }
            }
        }

        /** Asks the core afresh about what it may have lost by its own doing. */
        void recall() throws Exception {
            owned.removeIf(each -> {
                try {
                    return !ask((federation, me) -> federation.ownership().isOwned(me, each.get(0), each.get(1)));
                } catch (Exception gone) {
                    return true;
                }
            });
        }
    }

    private void play() throws Exception {
        List<Player> players = new ArrayList<>();
        for (int step = 0; step < 4000; ++step) {
            if (players.size() < 2 || players.size() < 6 && random.nextInt(40) == 0) {
                players.add(new Player("p" + step));
            }
            Player player = players.get(random.nextInt(players.size()));
            try {
                if (random.nextInt(150) == 0) {
                    player.resign(ResignAction.values()[random.nextInt(6)]);
                    players.remove(player);
                } else {
                    act(player);
                    player.recall();
                }
                ++answered;
            } catch (RTIexception refusal) {
                ++refused;
                Harness.that(!refusal.getClass().getSimpleName().equals("RTIinternalError"), refusal.getMessage());
            }
            if (random.nextInt(3) == 0) {
                player.told();
            }
            if (step % 50 == 0) {
                requireOneOwnerEach(players);
            }
        }
        Harness.that(answered > 1000 && refused > 300 && reflected > 5,
                answered + " answered, " + refused + " refused, " + reflected + " reflected");
    }

    private static void requireOneOwnerEach(List<Player> players) throws Exception {
        Set<List<Integer>> all = new HashSet<>();
        for (Player player : players) {
            player.told();
            player.recall();
            for (List<Integer> attribute : player.owned) {
                Harness.that(all.add(attribute), "two federates own " + attribute);
            }
        }
    }

    private int[] someAttributes(Player player, String theClass) throws Exception {
        int[] all = theClass.equals("Vehicle") ? player.attributes(theClass, "position", "colour")
                : player.attributes(theClass, "position", "colour", "altitude", "HLAprivilegeToDeleteObject");
        return Arrays.stream(all).filter(each -> random.nextBoolean()).toArray();
    }

    private int someObject(Player player) {
        List<Integer> objects = new ArrayList<>(player.known.keySet());
        return objects.isEmpty() || random.nextInt(20) == 0 ? random.nextInt(5)
                : objects.get(random.nextInt(objects.size()));
    }

    private int someRegion(Player player) {
        List<Integer> own = new ArrayList<>(regions.getOrDefault(player, Set.of()));
        return own.isEmpty() || random.nextInt(20) == 0 ? random.nextInt(5) : own.get(random.nextInt(own.size()));
    }

    private Timing someTiming() {
        return random.nextBoolean() ? Timing.NONE : Timing.at(random.nextInt(60));
    }

    private void act(Player player) throws Exception {
        String name = CLASSES[random.nextInt(2)];
        int theClass = player.classHandle(name);
        int[] attributes = someAttributes(player, name);
        int object = someObject(player);
        List<Pair> pairs = List.of(new Pair(player.attributes(name, "position"), new int[] {someRegion(player)}));
        switch (random.nextInt(30)) {
            case 0, 1 -> player.act((federation, me) -> federation.declarations().publishObjectClass(me, theClass, attributes));
            case 2, 3, 4 -> {
                player.act((federation, me) -> federation.declarations().subscribeObjectClass(me, theClass, attributes,
                        random.nextBoolean(), random.nextBoolean() ? "" : "slow"));
                subscribed(player, theClass, attributes);
            }
            case 5 -> {
                player.act((federation, me) ->
                        federation.declarations().unsubscribeObjectClassAttributes(me, theClass, attributes));
                Arrays.stream(attributes).forEach(player.subscribed.getOrDefault(theClass, new HashSet<>())::remove);
            }
            case 6, 7 -> {
                int registered = player.ask((federation, me) ->
                        federation.objectManagement().register(me, theClass, null));
                player.known.put(registered, theClass);
                own(player, registered);
            }
            case 8, 9, 10, 11, 12 -> player.act((federation, me) -> federation.objectManagement().update(me, object,
                    TestFederate.values(attributes), TAG, someTiming()));
            case 13 -> {
                player.act((federation, me) -> federation.objectManagement().delete(me, object, TAG, someTiming()));
                player.known.remove(object);
            }
            case 14 -> {
                player.act((federation, me) -> federation.objectManagement().deleteLocally(me, object));
                player.known.remove(object);
            }
            case 15 -> player.act((federation, me) -> federation.ownership().divestUnconditionally(me, object, attributes));
            case 16 -> player.act((federation, me) -> federation.ownership().divestNegotiated(me, object, attributes, TAG));
            case 17 -> player.act((federation, me) -> federation.ownership().confirmDivestiture(me, object, attributes, TAG));
            case 18 -> player.act((federation, me) -> federation.ownership().acquire(me, object, attributes, TAG));
            case 19 -> player.act((federation, me) -> federation.ownership().acquireIfAvailable(me, object, attributes));
            case 20 -> player.act((federation, me) -> federation.ownership().divestIfWanted(me, object, attributes));
            case 21 -> {
                int region = player.ask((federation, me) -> federation.regions().create(me, new int[] {
                        federation.lookups().dimensionHandle("X")}));
                regions.computeIfAbsent(player, key -> new HashSet<>()).add(region);
            }
            case 22 -> {
                int region = someRegion(player);
                long lower = random.nextInt(90);
                player.act((federation, me) -> federation.regions().setBounds(me, region,
                        federation.lookups().dimensionHandle("X"), lower, lower + 10));
                player.act((federation, me) -> federation.regions().commit(me, new int[] {region}));
            }
            case 23 -> player.act((federation, me) -> federation.regions().associate(me, object, pairs));
            case 24 -> {
                player.act((federation, me) -> federation.regions().subscribe(me, theClass, pairs, true, ""));
                subscribed(player, theClass, pairs.get(0).attributes());
            }
            case 25 -> player.act((federation, me) -> federation.time().advance(me,
                    AdvanceKind.values()[random.nextInt(5)], random.nextInt(50)));
            case 26 -> player.act((federation, me) -> federation.time().enableRegulation(me, random.nextInt(3)));
            case 27 -> player.act((federation, me) -> federation.time().enableConstrained(me));
            case 28 -> player.act((federation, me) -> federation.deliveryChanges().changeOrder(me, object, attributes,
                    OrderType.values()[random.nextInt(2)]));
            default -> player.act((federation, me) -> {
                federation.advisorySwitches().setAttributeScope(me, random.nextBoolean());
                federation.advisorySwitches().setAttributeRelevance(me, random.nextBoolean());
                federation.advisorySwitches().setObjectClassRelevance(me, random.nextBoolean());
            });
        }
    }

    private static void subscribed(Player player, int theClass, int[] attributes) {
        Set<Integer> all = player.subscribed.computeIfAbsent(theClass, key -> new HashSet<>());
        Arrays.stream(attributes).forEach(all::add);
    }

    private static void own(Player player, int object) throws Exception {
        for (int attribute : player.attributes("Vehicle.Aircraft", "position", "colour", "altitude",
                "HLAprivilegeToDeleteObject")) {
            try {
                if (player.ask((federation, me) -> federation.ownership().isOwned(me, object, attribute))) {
                    player.owned.add(List.of(object, attribute));
                }
            } catch (hla.rti1516e.exceptions.AttributeNotDefined notOfThisClass) {
                continue;
            }
        }
    }
}
