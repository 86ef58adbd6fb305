package tovu.local.watch;

import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;
import tovu.local.model.exchange.FederateStatus.Progress;

/** Who holds the others up, in words. */
final class Waits {
    private static final double SHORT = 1; // seconds that are not worth a word

    private Waits() {
    }

    /** A sentence for each one that others wait for; none when all go on. */
    static List<String> of(FederationView federation) {
        List<String> sentences = new ArrayList<>();
        undertaking(federation.save(), "saved", sentences);
        undertaking(federation.restore(), "restored", sentences);
        if (!sentences.isEmpty()) {
            return sentences; // nobody's time advances meanwhile
        }
        Map<FederateView, List<String>> waiting = new LinkedHashMap<>();
        Set<Set<String>> circles = new LinkedHashSet<>();
        for (FederateView each : federation.federates()) {
            if (each.heldBy() != 0 && each.seconds() >= SHORT) {
                Set<FederateView> way = new LinkedHashSet<>(Set.of(each));
                FederateView holder = federation.federate(each.heldBy());
                while (holder != null && holder.heldBy() != 0 && way.add(holder)) {
                    holder = federation.federate(holder.heldBy());
                }
                if (way.contains(holder)) {
                    circles.add(circle(federation, holder));
                } else if (holder != null) {
                    waiting.computeIfAbsent(holder, key -> new ArrayList<>()).add(each.name());
                }
            }
        }
        waiting.forEach((holder, names) -> sentences.add(all(names) + (names.size() == 1 ? " waits" : " wait") + " for "
                + holder.name() + ", which " + why(holder)));
        circles.forEach(names -> sentences.add(all(List.copyOf(names))
                + " wait for each other: none of them has a lookahead that lets the next one go on"));
        return sentences;
    }

    private static void undertaking(FederationView.Undertaking of, String what, List<String> sentences) {
        if (!of.label().isEmpty()) {
            sentences.add("The federation is being " + what + " ('" + of.label() + "')"
                    + (of.awaited().isEmpty() ? "" : " and waits for " + all(of.awaited())));
        }
    }

    private static Set<String> circle(FederationView federation, FederateView on) {
        Set<String> names = new java.util.TreeSet<>();
        for (FederateView each = on; names.add(each.name()); each = federation.federate(each.heldBy())) {
            // until it has come round
        }
        return names;
    }

    private static String why(FederateView holder) {
        return (holder.state() == Progress.TO_BE_TOLD
                ? "has been granted an advance and not taken the callback, since it asked for that "
                : "has not asked for an advance for ") + Math.round(holder.seconds()) + " s"
                + (holder.state() == Progress.TO_BE_TOLD ? " ago" : "");
    }

    private static String all(List<String> names) {
        return names.size() == 1 ? names.get(0)
                : String.join(", ", names.subList(0, names.size() - 1)) + " and " + names.get(names.size() - 1);
    }
}
