package tovu.local.model.synchronization;

import hla.rti1516e.exceptions.InvalidFederateHandle;
import hla.rti1516e.exceptions.SynchronizationPointLabelNotAnnounced;
import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.TreeMap;
import java.util.TreeSet;
import tovu.local.model.exchange.Exchange;
import tovu.local.model.exchange.Federate;
import tovu.local.model.value.Saved;
import tovu.local.model.value.SynchronizationPointFailureReason;

/** The synchronization points of a federation that are not reached yet. */
@SuppressWarnings("serial") // read by what wrote it
public final class SynchronizationPoints implements Saved {
    private enum Progress {
        ANNOUNCED, SUCCEEDED, FAILED
    }

    @SuppressWarnings("serial") // read by what wrote it
    private static final class Point implements Saved {
        final String label;
        final byte[] tag;
        final boolean forEveryone;
        final Map<Integer, Progress> progress = new TreeMap<>();

        Point(String label, byte[] tag, boolean forEveryone) {
            this.label = label;
            this.tag = tag;
            this.forEveryone = forEveryone;
        }

        void announceTo(Federate federate) {
            progress.put(federate.handle(), Progress.ANNOUNCED);
            federate.post(to -> to.announceSynchronizationPoint(label, tag));
        }
    }

    private final Exchange federation;
    private final Map<String, Point> points = new LinkedHashMap<>();

    public SynchronizationPoints(Exchange federation) {
        this.federation = federation;
    }

    /** @param set the federates to synchronize; empty for all, those that join later included */
    public void register(Federate registrant, String label, byte[] tag, Set<Integer> set)
            throws InvalidFederateHandle {
        for (int handle : set) {
            if (!federation.hasAssigned(handle)) {
                throw new InvalidFederateHandle("The synchronization set has handle " + handle
                        + ", which was never given to a federate of federation '" + federation.name() + "'");
            }
        }
        if (points.containsKey(label)) {
            fail(registrant, label, SynchronizationPointFailureReason.LABEL_NOT_UNIQUE);
        } else if (set.stream().anyMatch(handle -> federation.member(handle) == null)) {
            fail(registrant, label, SynchronizationPointFailureReason.SYNCHRONIZATION_SET_MEMBER_NOT_JOINED);
        } else {
            registrant.post(to -> to.synchronizationPointRegistrationSucceeded(label));
            Point point = new Point(label, tag, set.isEmpty());
            points.put(label, point);
            federation.members().stream().filter(each -> set.isEmpty() || set.contains(each.handle()))
                    .forEach(point::announceTo);
        }
    }

    private static void fail(Federate registrant, String label, SynchronizationPointFailureReason reason) {
        registrant.post(to -> to.synchronizationPointRegistrationFailed(label, reason));
    }

    public void achieved(Federate federate, String label, boolean successfully)
            throws SynchronizationPointLabelNotAnnounced {
        Point point = points.get(label);
        if (point == null || point.progress.get(federate.handle()) != Progress.ANNOUNCED) {
            throw new SynchronizationPointLabelNotAnnounced("Synchronization point '" + label + "' is not announced to "
                    + federate + (point == null || !point.progress.containsKey(federate.handle()) ? ""
                            : " any more: it has achieved it already"));
        }
        point.progress.put(federate.handle(), successfully ? Progress.SUCCEEDED : Progress.FAILED);
        finishIfReached(point);
    }

    public Set<String> labels() {
        return points.keySet();
    }

    /** By the handle of each federate that is to achieve that point whether it has; empty for no such point. */
    public Map<Integer, Boolean> achievements(String label) {
        Map<Integer, Boolean> achieved = new TreeMap<>();
        if (points.containsKey(label)) {
            points.get(label).progress.forEach((federate, progress) ->
                    achieved.put(federate, progress != Progress.ANNOUNCED));
        }
        return achieved;
    }

    public void joined(Federate federate) {
        points.values().stream().filter(point -> point.forEveryone).forEach(point -> point.announceTo(federate));
    }

    public void resigned(Federate federate) {
        for (Point point : new ArrayList<>(points.values())) {
            if (point.progress.remove(federate.handle()) != null) {
                finishIfReached(point);
            }
        }
    }

    private void finishIfReached(Point point) {
        if (point.progress.containsValue(Progress.ANNOUNCED)) {
            return;
        }
        points.remove(point.label);
        Set<Integer> failed = new TreeSet<>();
        point.progress.forEach((handle, progress) -> {
            if (progress == Progress.FAILED) {
                failed.add(handle);
            }
        });
        int[] failedFederates = failed.stream().mapToInt(Integer::intValue).toArray();
        List<Federate> synchronizedFederates = point.progress.keySet().stream().map(federation::member).toList();
        synchronizedFederates.forEach(each -> each.post(to -> to.federationSynchronized(point.label, failedFederates)));
    }
}
