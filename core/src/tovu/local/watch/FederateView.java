package tovu.local.watch;

import java.util.Map;
import java.util.TreeMap;
import java.util.concurrent.TimeUnit;
import java.util.function.IntFunction;
import tovu.local.model.exchange.Federate;
import tovu.local.model.exchange.FederateStatus;
import tovu.local.model.exchange.FederateStatus.Progress;
import tovu.local.model.exchange.Oversight;
import tovu.local.model.exchange.Tally;
import tovu.local.model.time.AdvanceKind;
import tovu.local.model.time.TimeManagement.GreatestAvailableTimes;
import tovu.local.model.value.LogicalTime;

/**
 * A federate at one moment. Times and intervals are null where there are none.
 *
 * @param state          where it is between one logical time and the next
 * @param advance        the service by which it has asked for an advance, or null
 * @param requested      the time that it has asked for
 * @param seconds        since it asked, or was told of the last grant
 * @param heldBy         the handle of the federate that its advance waits for; 0 for none
 * @param services       how many it has called
 * @param silent         seconds since it called one, as far as anybody has looked
 * @param updates        that it has sent, by object class
 * @param interactions   that it has sent, by interaction class
 */
record FederateView(int handle, String name, String type, boolean regulating, boolean constrained,
        LogicalTime lookahead, LogicalTime time, LogicalTime galt, Progress state, String advance,
        LogicalTime requested, double seconds, int heldBy, int receiveQueue, int timestampQueue, long services,
        double silent, Map<String, Long> updates, Map<String, Long> interactions, long reflectionsReceived,
        long interactionsReceived) {

    /**
     * @param available how far its federation's members may get
     * @param silent    seconds since it called a service
     */
    static FederateView of(Federate federate, GreatestAvailableTimes available, double silent) {
        FederateStatus status = federate.status();
        boolean waits = status.waitsForOthers();
        int holder = waits && available.heldBy(federate) instanceof Federate other ? other.handle() : 0;
        Oversight counted = federate.oversight();
        return new FederateView(federate.handle(), federate.name(), federate.type(), status.isRegulating(),
                status.isConstrained(), status.lookahead(), status.logicalTime(), available.time(federate),
                status.progress(), status.advance() == null ? null : service(status.advance()), status.requested(),
                status.unchangedFor() / (double) TimeUnit.SECONDS.toNanos(1), holder,
                status.receiveOrderQueued(), status.timestampOrderQueued(), counted.services(), silent,
                named(counted.updatesSent, handle -> federate.federation().objectModel().objectClass(handle).name()),
                named(counted.interactionsSent,
                        handle -> federate.federation().objectModel().interactionClass(handle).name()),
                Integer.toUnsignedLong(counted.reflectionsReceived.total()),
                Integer.toUnsignedLong(counted.interactionsReceived.total()));
    }

    private static String service(AdvanceKind kind) {
        return switch (kind) {
            case TIME_ADVANCE -> "timeAdvanceRequest";
            case TIME_ADVANCE_AVAILABLE -> "timeAdvanceRequestAvailable";
            case NEXT_MESSAGE -> "nextMessageRequest";
            case NEXT_MESSAGE_AVAILABLE -> "nextMessageRequestAvailable";
            case FLUSH_QUEUE -> "flushQueueRequest";
        };
    }

    private static Map<String, Long> named(Tally tally, IntFunction<String> name) {
        Map<Integer, Long> counts = new TreeMap<>();
        tally.addTo(counts);
        Map<String, Long> named = new TreeMap<>();
        counts.forEach((handle, count) -> named.put(name.apply(handle), count));
        return named;
    }

    long updatesSent() {
        return sum(updates);
    }

    long interactionsSent() {
        return sum(interactions);
    }

    private static long sum(Map<String, Long> counts) {
        return counts.values().stream().mapToLong(Long::longValue).sum();
    }
}
