package tovu.local.watch;

import java.util.HashMap;
import java.util.List;
import java.util.Map;
import tovu.local.management.Journal;

/**
 * All federations of the process at one moment.
 *
 * @param number  one more than that of the sample before
 * @param time    milliseconds since 1970
 * @param seconds since the sample before; 0 for the first
 * @param before  the federations of that by name, without which there is no rate
 * @param cluster what this process is a part of, or null
 */
record Sample(long number, long time, double seconds, List<FederationView> federations,
        Map<String, FederationView> before, ClusterView cluster, List<Journal.Event> events) {

    static Sample after(Sample previous, long time, List<FederationView> federations, ClusterView cluster) {
        Map<String, FederationView> before = new HashMap<>();
        previous.federations.forEach(each -> before.put(each.name(), each));
        return new Sample(previous.number + 1, time, (time - previous.time) / 1e3, federations, before,
                cluster, Journal.events());
    }

    static Sample first() {
        return new Sample(0, System.currentTimeMillis(), 0, List.of(), Map.of(), null, List.of());
    }

    /** Updates of a class each second. */
    double updateRate(FederationView federation, String ofClass) {
        FederationView past = before.get(federation.name());
        return past == null ? 0 : rate(federation.updates().get(ofClass), past.updates().get(ofClass));
    }

    /** Interactions of a class each second. */
    double interactionRate(FederationView federation, String ofClass) {
        FederationView past = before.get(federation.name());
        return past == null ? 0 : rate(federation.interactions().get(ofClass), past.interactions().get(ofClass));
    }

    /** Who resigns takes its counts along: there is no rate below 0. */
    private double rate(Long now, Long past) {
        long more = (now == null ? 0 : now) - (past == null ? 0 : past);
        return seconds > 0 ? Math.max(0, more) / seconds : 0;
    }
}
