import java.util.ArrayList;
import java.util.List;
import java.util.Random;
import java.util.TreeMap;
import java.util.TreeSet;
import tovu.local.fom.OrderType;
import tovu.local.model.AdvanceKind;
import tovu.local.model.Federations;
import tovu.local.model.HandleValues;
import tovu.local.model.LogicalTime;
import tovu.local.model.ResignAction;
import tovu.local.model.Stamp;
import tovu.local.model.Timing;

/** Time management: known cases, and random schedules against what must hold of every schedule. */
final class TimeTest {
    private static final HandleValues NOTHING = new HandleValues(new byte[0], new int[0], 0);
    private static final byte[] TAG = {};

    private final Federations federations = new Federations();
    private final boolean integer;

    private TimeTest(String family) throws Exception {
        integer = family.equals("HLAinteger64Time");
        TestFederate.create(federations, "f", List.of(TestFom.file(TestFom.AIR)), family);
    }

    public static void main(String[] arguments) {
        Harness harness = new Harness();
        for (String family : List.of("HLAinteger64Time", "HLAfloat64Time")) {
            harness.run("grants " + family, () -> new TimeTest(family).grants());
            harness.run("next message " + family, () -> new TimeTest(family).nextMessage());
            harness.run("zero lookahead " + family, () -> new TimeTest(family).zeroLookahead());
            harness.run("lookahead " + family, () -> new TimeTest(family).lookahead());
            harness.run("late regulation " + family, () -> new TimeTest(family).lateRegulation());
            harness.run("pending regulation " + family, () -> new TimeTest(family).pendingRegulation());
            harness.run("end of time " + family, () -> new TimeTest(family).endOfTime());
            harness.run("late constraint " + family, () -> new TimeTest(family).lateConstraint());
            harness.run("receive order " + family, () -> new TimeTest(family).receiveOrder());
            harness.run("retraction " + family, () -> new TimeTest(family).retraction());
            harness.run("timed save " + family, () -> new TimeTest(family).timedSave());
            for (long seed = 1; seed <= 40; ++seed) {
                long theSeed = seed;
                harness.run("schedule " + seed + " " + family, () -> new TimeTest(family).schedule(new Random(theSeed)));
            }
        }
        harness.finish();
    }

    private long bits(double time) {
        return integer ? (long) time : Double.doubleToLongBits(time);
    }

    private double value(LogicalTime time) {
        return integer ? time.bits() : Double.longBitsToDouble(time.bits());
    }

    /** Counts grants and messages, and checks each against what was promised before. */
    private final class Clock extends TestFederate {
        final List<String> heard = new ArrayList<>();
        final TreeMap<Integer, Double> received = new TreeMap<>();
        boolean waiting;
        AdvanceKind kind;
        double time;
        double lastMessage = Double.NEGATIVE_INFINITY;
        boolean constrained;
        boolean regulating;
        boolean checked = true;

        Clock(String name) throws Exception {
            super(federations);
            joined("f", name);
            act((federation, me) -> {
                int report = federation.lookups().interactionClassHandle("Report");
                federation.declarations().publishInteractionClass(me, report);
                federation.declarations().subscribeInteractionClass(me, report, true);
            });
        }

        @Override
        void hear(String callback, Object[] args) {
            if (callback.equals("timeAdvanceGrant")) {
                double granted = value((LogicalTime) args[0]);
                Harness.that(waiting && granted >= time, "granted " + granted + " at " + time);
                time = granted;
                waiting = false;
            } else if (callback.equals("timeRegulationEnabled")) {
                time = value((LogicalTime) args[0]);
                regulating = true;
            } else if (callback.equals("timeConstrainedEnabled")) {
                constrained = true;
            } else if (callback.equals("receiveInteraction")) {
                receive((byte[]) args[2], (Stamp) args[5]);
                return;
            }
            heard.add(callback + (args.length == 1 && args[0] instanceof LogicalTime t ? "(" + (long) value(t) + ")"
                    : ""));
        }

        private void receive(byte[] tag, Stamp stamp) {
            if (tag.length > 0) {
                int number = Integer.parseInt(new String(tag));
                Harness.equal(received.put(number, stamp == null ? -1 : value(stamp.time())), null);
            }
            if (stamp == null || stamp.receivedOrder() == OrderType.RECEIVE) {
                heard.add("receive");
                return;
            }
            double sent = value(stamp.time());
            heard.add("receive(" + (long) sent + ")");
            if (checked && constrained) {
                boolean exclusive = kind == AdvanceKind.TIME_ADVANCE || kind == AdvanceKind.NEXT_MESSAGE;
                Harness.that(sent > time || sent == time && (waiting || !exclusive), "past: " + sent + " at " + time);
                Harness.that(sent >= lastMessage || kind == AdvanceKind.FLUSH_QUEUE, "order: " + sent);
                lastMessage = kind == AdvanceKind.FLUSH_QUEUE ? Double.NEGATIVE_INFINITY : sent;
            }
        }

        List<String> hear() throws Exception {
            told();
            List<String> result = List.copyOf(heard);
            heard.clear();
            return result;
        }

        Clock regulate(double lookahead) throws Exception {
            act((federation, me) -> federation.time().enableRegulation(me, bits(lookahead)));
            return this;
        }

        Clock constrain() throws Exception {
            act((federation, me) -> federation.time().enableConstrained(me));
            return this;
        }

        Clock both(double lookahead) throws Exception {
            regulate(lookahead);
            told();
            constrain();
            told();
            heard.clear();
            return this;
        }

        void advance(AdvanceKind theKind, double to) throws Exception {
            act((federation, me) -> federation.time().advance(me, theKind, bits(to)));
            kind = theKind;
            waiting = true;
        }

        int send(int number, double at) throws Exception {
            return ask((federation, me) -> federation.interactions().send(me,
                    federation.lookups().interactionClassHandle("Report"), NOTHING,
                    number < 0 ? TAG : Integer.toString(number).getBytes(), Timing.at(bits(at))));
        }
    }

    private void grants() throws Exception {
        Clock a = new Clock("a").both(2);
        Clock b = new Clock("b").both(3);
        Clock free = new Clock("free");
        free.advance(AdvanceKind.TIME_ADVANCE, 1000);
        Harness.equal(free.hear(), List.of("timeAdvanceGrant(1000)"));
        a.advance(AdvanceKind.TIME_ADVANCE, 3);
        Harness.equal(a.hear(), List.of());
        Harness.refuses("InTimeAdvancingState", () -> a.advance(AdvanceKind.TIME_ADVANCE, 4));
        Harness.refuses("InvalidLogicalTime", () -> a.send(-1, 4), "5");
        a.send(1, 5);
        b.send(2, 3);
        b.advance(AdvanceKind.TIME_ADVANCE_AVAILABLE, 5);
        Harness.equal(a.hear(), List.of("receive(3)", "timeAdvanceGrant(3)"));
        Harness.equal(b.hear(), List.of("receive(5)", "timeAdvanceGrant(5)"));
        Harness.refuses("LogicalTimeAlreadyPassed", () -> a.advance(AdvanceKind.NEXT_MESSAGE, 2), "3");
        Harness.equal(value(a.ask((federation, me) -> federation.time().galt(me))), 8.0);
        Harness.equal(value(b.ask((federation, me) -> federation.time().galt(me))), 5.0);
        a.act((federation, me) -> federation.time().disableRegulation(me));
        Harness.equal(b.ask((federation, me) -> federation.time().galt(me)), null);
        Harness.refuses("TimeRegulationIsNotEnabled", () -> a.act((federation, me) ->
                federation.time().disableRegulation(me)));
        b.advance(AdvanceKind.TIME_ADVANCE, 50);
        Harness.equal(b.hear(), List.of("timeAdvanceGrant(50)"));
        a.advance(AdvanceKind.TIME_ADVANCE, 60);
        Harness.equal(a.hear(), List.of());
        b.resign(ResignAction.NO_ACTION);
        Harness.equal(a.hear(), List.of("timeAdvanceGrant(60)"));
    }

    private void nextMessage() throws Exception {
        Clock a = new Clock("a").both(1);
        Clock b = new Clock("b").both(1);
        a.send(1, 4);
        a.send(2, 4);
        a.send(3, 7);
        b.advance(AdvanceKind.NEXT_MESSAGE, 10);
        Harness.equal(b.hear(), List.of());
        a.advance(AdvanceKind.NEXT_MESSAGE, 20);
        Harness.equal(b.hear(), List.of("receive(4)", "receive(4)", "timeAdvanceGrant(4)"));
        // Asked for 20, a may yet be sent something for 5 and answer it for 6.
        Harness.equal(value(b.ask((federation, me) -> federation.time().galt(me))), 6.0);
        b.advance(AdvanceKind.NEXT_MESSAGE, 10);
        Harness.equal(b.hear(), List.of("receive(7)", "timeAdvanceGrant(7)"));
        b.advance(AdvanceKind.NEXT_MESSAGE_AVAILABLE, 10);
        Harness.equal(b.hear(), List.of("timeAdvanceGrant(10)"));
        Harness.equal(a.hear(), List.of());
        b.advance(AdvanceKind.FLUSH_QUEUE, 30);
        Harness.equal(b.hear(), List.of("timeAdvanceGrant(21)"));
        Harness.equal(a.hear(), List.of("timeAdvanceGrant(20)"));
        a.send(4, 25);
        a.send(5, 23);
        b.advance(AdvanceKind.FLUSH_QUEUE, 30);
        Harness.equal(b.hear(), List.of("receive(23)", "receive(25)", "timeAdvanceGrant(21)"));
    }

    /** Nobody waits for ever although everyone may still send with its own time. */
    private void zeroLookahead() throws Exception {
        Clock a = new Clock("a").both(0);
        Clock b = new Clock("b").both(0);
        for (int time = 1; time <= 3; ++time) {
            a.advance(AdvanceKind.TIME_ADVANCE, time);
            Harness.equal(a.hear(), List.of());
            b.advance(AdvanceKind.TIME_ADVANCE, time);
            Harness.equal(a.hear(), List.of("timeAdvanceGrant(" + time + ")"));
            Harness.equal(b.hear(), List.of("timeAdvanceGrant(" + time + ")"));
        }
        Harness.refuses("InvalidLogicalTime", () -> a.send(-1, 3));
        a.advance(AdvanceKind.TIME_ADVANCE_AVAILABLE, 4);
        b.advance(AdvanceKind.TIME_ADVANCE_AVAILABLE, 4);
        Harness.equal(a.hear(), List.of("timeAdvanceGrant(4)"));
        Harness.equal(b.hear(), List.of("timeAdvanceGrant(4)"));
        a.send(1, 4);
        b.advance(AdvanceKind.TIME_ADVANCE, 4);
        Harness.equal(b.hear(), List.of());
        a.advance(AdvanceKind.TIME_ADVANCE, 4);
        Harness.equal(b.hear(), List.of("receive(4)", "timeAdvanceGrant(4)"));
    }

    private void lookahead() throws Exception {
        Clock a = new Clock("a").both(10);
        a.act((federation, me) -> federation.time().modifyLookahead(me, bits(4)));
        Harness.equal(value(a.ask((federation, me) -> federation.time().lookahead(me))), 10.0);
        Harness.refuses("InvalidLogicalTime", () -> a.send(-1, 9));
        a.advance(AdvanceKind.TIME_ADVANCE, 3);
        a.hear();
        Harness.equal(value(a.ask((federation, me) -> federation.time().lookahead(me))), 7.0);
        a.advance(AdvanceKind.TIME_ADVANCE, 9);
        a.hear();
        Harness.equal(value(a.ask((federation, me) -> federation.time().lookahead(me))), 4.0);
        a.act((federation, me) -> federation.time().modifyLookahead(me, bits(0)));
        Harness.refuses("InvalidLogicalTime", () -> a.send(-1, 12), "13");
        Harness.refuses("InvalidLookahead", () -> a.act((federation, me) ->
                federation.time().modifyLookahead(me, bits(-1))), "zero or more");
        if (!integer) {
            Harness.refuses("InvalidLogicalTime", () -> a.advance(AdvanceKind.TIME_ADVANCE, Double.NaN));
            Harness.refuses("InvalidLookahead", () -> a.act((federation, me) ->
                    federation.time().modifyLookahead(me, bits(Double.NaN))));
        }
    }

    /** Who begins to regulate late begins where it cannot send into anyone's past. */
    private void lateRegulation() throws Exception {
        Clock a = new Clock("a").both(1);
        a.advance(AdvanceKind.TIME_ADVANCE, 100);
        a.hear();
        Clock late = new Clock("late").constrain();
        Harness.equal(late.hear(), List.of("timeConstrainedEnabled(0)"));
        a.send(1, 150);
        late.regulate(30);
        Harness.refuses("RequestForTimeRegulationPending", () -> late.advance(AdvanceKind.TIME_ADVANCE, 5));
        late.hear();
        Harness.that(late.time >= 70 && late.time < 71.5, "starts at " + late.time);
        late.send(2, 101);
        Harness.refuses("InvalidLogicalTime", () -> late.send(-1, 100));
        a.advance(AdvanceKind.TIME_ADVANCE, 102);
        Harness.equal(a.hear(), List.of());
        late.advance(AdvanceKind.NEXT_MESSAGE, 1000);
        Harness.equal(a.hear(), List.of("receive(101)", "timeAdvanceGrant(102)"));
    }

    private void endOfTime() throws Exception {
        Clock a = new Clock("a").constrain();
        a.told();
        a.advance(AdvanceKind.TIME_ADVANCE, Double.POSITIVE_INFINITY);
        a.told();
        Clock late = new Clock("late").regulate(1);
        late.told();
        Harness.that(late.time > 0, "starts at " + late.time); // a number
    }

    /** What a federate will be put forward to counts for everyone before it is told so. */
    private void pendingRegulation() throws Exception {
        for (boolean constrainedBefore : new boolean[] {true, false}) {
            Clock fast = new Clock("fast " + constrainedBefore).constrain();
            fast.told();
            fast.advance(AdvanceKind.TIME_ADVANCE, 68);
            fast.told();
            Clock late = new Clock("late " + constrainedBefore);
            if (constrainedBefore) {
                late.constrain().told();
            }
            late.regulate(1);
            fast.resign(ResignAction.NO_ACTION);
            Clock other = new Clock("other " + constrainedBefore).regulate(1);
            other.told();
            if (constrainedBefore) {
                Harness.refuses("InvalidLogicalTime", () -> other.send(-1, 50));
                late.hear();
                Harness.that(late.time >= 67, "put forward to " + late.time);
            } else {
                late.constrain();
                late.hear();
                Harness.that(!late.constrained, "messages may still come for the time that it has");
                other.advance(AdvanceKind.TIME_ADVANCE, 70);
                late.hear();
                Harness.that(late.constrained && late.time >= 67, "constrained at " + late.time);
            }
            late.resign(ResignAction.NO_ACTION);
            other.resign(ResignAction.NO_ACTION);
        }
    }

    /** Who becomes constrained late becomes so when nothing can come any more for the time it has passed. */
    private void lateConstraint() throws Exception {
        Clock a = new Clock("a").both(1);
        Clock late = new Clock("late");
        late.advance(AdvanceKind.TIME_ADVANCE, 50);
        late.hear();
        late.constrain();
        Harness.refuses("RequestForTimeConstrainedPending", () -> late.constrain());
        a.advance(AdvanceKind.TIME_ADVANCE, 49);
        Harness.equal(late.hear(), List.of());
        a.hear();
        a.advance(AdvanceKind.TIME_ADVANCE, 50);
        Harness.equal(late.hear(), List.of("timeConstrainedEnabled(50)"));
    }

    private void receiveOrder() throws Exception {
        Clock a = new Clock("a");
        Clock b = new Clock("b").both(1);
        a.send(1, 5);
        Harness.equal(b.hear(), List.of());
        b.advance(AdvanceKind.TIME_ADVANCE, 1);
        Harness.equal(b.hear(), List.of("receive", "timeAdvanceGrant(1)"));
        a.send(2, 5);
        b.act((federation, me) -> federation.time().setAsynchronousDelivery(me, true));
        Harness.equal(b.hear(), List.of("receive"));
        a.send(3, 5);
        Harness.equal(b.hear(), List.of("receive"));
        Harness.equal(a.send(-1, 5), 0);
        b.send(4, 7);
        Harness.equal(a.hear(), List.of("receive"));
    }

    private void retraction() throws Exception {
        Clock a = new Clock("a").both(1);
        Clock b = new Clock("b").both(1);
        Clock unconstrained = new Clock("unconstrained");
        int first = a.send(1, 5);
        Harness.equal(unconstrained.hear(), List.of("receive"));
        int second = a.send(2, 6);
        int unheard = a.send(3, 7);
        a.act((federation, me) -> federation.retractions().retract(me, first));
        a.act((federation, me) -> federation.retractions().retract(me, unheard));
        Harness.equal(unconstrained.hear(), List.of("receive", "requestRetraction"));
        Harness.refuses("MessageCanNoLongerBeRetracted", () -> a.act((federation, me) ->
                federation.retractions().retract(me, first)));
        Harness.refuses("InvalidMessageRetractionHandle", () -> b.act((federation, me) ->
                federation.retractions().retract(me, second)));
        Harness.refuses("InvalidMessageRetractionHandle", () -> a.act((federation, me) ->
                federation.retractions().retract(me, 99)));
        a.advance(AdvanceKind.TIME_ADVANCE, 10);
        b.advance(AdvanceKind.TIME_ADVANCE, 10);
        Harness.equal(b.hear(), List.of("receive(6)", "timeAdvanceGrant(10)"));
        a.hear();
        Harness.refuses("MessageCanNoLongerBeRetracted", () -> a.act((federation, me) ->
                federation.retractions().retract(me, second)));
    }

    private void timedSave() throws Exception {
        Clock a = new Clock("a").both(1);
        Clock b = new Clock("b").both(1);
        Clock free = new Clock("free");
        Harness.refuses("FederateUnableToUseTime", () -> free.act((federation, me) ->
                federation.save().request(me, "s", bits(5))));
        a.act((federation, me) -> federation.save().request(me, "s", bits(5)));
        a.advance(AdvanceKind.TIME_ADVANCE, 4);
        b.advance(AdvanceKind.TIME_ADVANCE, 4);
        Harness.equal(a.hear(), List.of("timeAdvanceGrant(4)"));
        b.hear();
        a.send(1, 5);
        a.advance(AdvanceKind.TIME_ADVANCE, 8);
        Harness.equal(a.hear(), List.of());
        Harness.equal(free.hear(), List.of("receive"));
        b.advance(AdvanceKind.TIME_ADVANCE, 8);
        Harness.equal(b.hear(), List.of("receive(5)", "initiateFederateSave"));
        Harness.equal(free.hear(), List.of("initiateFederateSave"));
        Harness.equal(a.hear(), List.of("initiateFederateSave"));
        for (Clock each : List.of(a, b, free)) {
            each.session.call((federation, me) -> {
                federation.save().begun(me);
                federation.save().complete(me, true);
                return null;
            });
        }
        Harness.equal(b.hear(), List.of("federationSaved", "timeAdvanceGrant(8)"));
        Harness.equal(a.hear(), List.of("federationSaved", "timeAdvanceGrant(8)"));
        Harness.refuses("LogicalTimeAlreadyPassed", () -> a.act((federation, me) ->
                federation.save().request(me, "s", bits(5))));
    }

    /** Federates do whatever they may, in any order; then all go to one time, and nothing may be missing. */
    private void schedule(Random random) throws Exception {
        List<Clock> clocks = new ArrayList<>();
        for (int i = 0; i < 4; ++i) {
            Clock clock = new Clock("c" + i);
            if (i < 3) {
                clock.both(random.nextInt(3));
            }
            clocks.add(clock);
        }
        TreeSet<Integer> expected = new TreeSet<>();
        AdvanceKind[] kinds = AdvanceKind.values();
        for (int step = 0; step < 1500; ++step) {
            Clock clock = clocks.get(random.nextInt(clocks.size()));
            int number = step;
            switch (random.nextInt(5)) {
                case 0, 1 -> clock.told();
                case 2 -> {
                    if (!clock.waiting) {
                        clock.advance(kinds[random.nextInt(kinds.length)], Math.floor(clock.time) + 1 + random.nextInt(4));
                    }
                }
                case 3 -> {
                    double at = Math.floor(clock.time) + random.nextInt(8);
                    try {
                        int handle = clock.send(number, at);
                        if (handle != 0 && random.nextInt(4) == 0) {
                            clock.act((federation, me) -> federation.retractions().retract(me, handle));
                        } else {
                            expected.add(number);
                        }
                    } catch (hla.rti1516e.exceptions.InvalidLogicalTime tooEarly) {
                        Harness.that(clock.regulating, "only a regulating federate is bound: " + tooEarly);
                    }
                }
                default -> toggle(clock, random);
            }
        }
        settle(clocks);
        for (Clock clock : clocks) {
            for (int number : expected) {
                boolean own = !clock.received.containsKey(number);
                Harness.that(!own || clocks.stream().filter(each -> !each.received.containsKey(number)).count() == 1,
                        "message " + number + " is missing");
            }
        }
    }

    private void toggle(Clock clock, Random random) throws Exception {
        if (clock.waiting || random.nextInt(4) > 0) {
            return;
        }
        clock.told();
        if (random.nextBoolean()) {
            if (clock.regulating) {
                clock.act((federation, me) -> federation.time().modifyLookahead(me, bits(random.nextInt(3))));
            } else {
                clock.regulate(random.nextInt(3));
                clock.told();
            }
        } else if (clock.regulating && random.nextBoolean()) {
            clock.act((federation, me) -> federation.time().disableRegulation(me));
            clock.regulating = false;
        } else if (clock.constrained) {
            clock.constrained = false;
            clock.act((federation, me) -> federation.time().disableConstrained(me));
            clock.told();
            clock.lastMessage = Double.NEGATIVE_INFINITY;
        }
    }

    private void settle(List<Clock> clocks) throws Exception {
        double end = clocks.stream().mapToDouble(clock -> clock.time).max().orElseThrow() + 100;
        for (int round = 0; round < 200; ++round) {
            for (Clock clock : clocks) {
                clock.told();
                if (!clock.waiting && clock.time < end) {
                    clock.advance(AdvanceKind.TIME_ADVANCE, end);
                }
            }
        }
        for (Clock clock : clocks) {
            Harness.that(!clock.waiting && clock.time == end, "stuck at " + clock.time + " of " + end);
        }
    }
}
