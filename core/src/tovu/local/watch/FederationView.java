package tovu.local.watch;

import java.util.ArrayList;
import java.util.Collection;
import java.util.List;
import java.util.Map;
import java.util.TreeMap;
import java.util.function.Function;
import java.util.function.ToDoubleFunction;
import tovu.local.model.exchange.Federate;
import tovu.local.model.federation.Federation;
import tovu.local.model.time.TimeManagement.GreatestAvailableTimes;
import tovu.local.model.value.LogicalTime;

/**
 * A federation at one moment, as its model and management tell. All that is shown of one, in whatever form, comes
 * from here.
 *
 * @param members      its federates by handle
 * @param objects      how many there are, by class
 * @param updates      that its members have sent, by object class
 * @param interactions that its members have sent, by interaction class
 */
record FederationView(String name, String timeImplementation, Map<Integer, FederateView> members,
        Map<String, Long> objects, Map<String, Long> updates, Map<String, Long> interactions, List<Point> points,
        Undertaking save, Undertaking restore, Saves saves) {
    /**
     * A synchronization point that is not reached.
     *
     * @param achieved the names of those that have achieved it
     * @param awaited  the names of those that have not
     */
    record Point(String label, List<String> achieved, List<String> awaited) {
    }

    /**
     * A save or restore.
     *
     * @param label   of the one in progress; empty for none
     * @param awaited the names of the federates that have not completed theirs
     */
    record Undertaking(String label, List<String> awaited) {
        private static Undertaking of(String label, List<Federate> awaited) {
            return new Undertaking(label, awaited.stream().map(Federate::name).toList());
        }
    }

    /**
     * Saves before and after.
     *
     * @param last     the label of the last one that succeeded; empty for none
     * @param lastTime its logical time, or null
     * @param next     the label of the one that waits for its time; empty for none
     * @param nextTime that time, or null
     */
    record Saves(String last, LogicalTime lastTime, String next, LogicalTime nextTime) {
    }

    /** @param silence seconds since a federate called a service */
    static FederationView of(Federation of, ToDoubleFunction<Federate> silence) {
        synchronized (of) {
            GreatestAvailableTimes available = of.time().greatestAvailableTimes();
            Map<Integer, FederateView> members = new TreeMap<>();
            of.members().forEach(each ->
                    members.put(each.handle(), FederateView.of(each, available, silence.applyAsDouble(each))));
            Map<String, Long> objects = new TreeMap<>();
            of.objects().counts().forEach((handle, count) ->
                    objects.put(of.objectModel().objectClass(handle).name(), (long) count));
            return new FederationView(of.name(), of.timeFamily().implementationName(), members, objects,
                    sum(members.values(), FederateView::updates), sum(members.values(), FederateView::interactions), points(of),
                    Undertaking.of(of.save().currentName(), of.save().awaited()),
                    Undertaking.of(of.restore().currentName(), of.restore().awaited()),
                    new Saves(of.save().lastName(), of.save().lastTime(), of.save().nextName(),
                            of.save().nextTime()));
        }
    }

    private static Map<String, Long> sum(Collection<FederateView> federates,
            Function<FederateView, Map<String, Long>> counts) {
        Map<String, Long> sum = new TreeMap<>();
        federates.forEach(each -> counts.apply(each).forEach((name, count) -> sum.merge(name, count, Long::sum)));
        return sum;
    }

    private static List<Point> points(Federation of) {
        List<Point> points = new ArrayList<>();
        for (String label : of.synchronizationPoints().labels()) {
            List<String> achieved = new ArrayList<>();
            List<String> awaited = new ArrayList<>();
            of.synchronizationPoints().achievements(label).forEach((handle, done) ->
                    (done ? achieved : awaited).add(of.member(handle).name()));
            points.add(new Point(label, achieved, awaited));
        }
        return points;
    }

    Collection<FederateView> federates() {
        return members.values();
    }

    /** The member with that handle, or null. */
    FederateView federate(int handle) {
        return members.get(handle);
    }
}
