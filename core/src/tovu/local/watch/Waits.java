package tovu.local.watch;

import java.util.ArrayList;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.TreeMap;
import java.util.TreeSet;
import tovu.local.model.value.LogicalTime;

/** Who holds the others up, in words. */
final class Waits {
    private static final double SHORT = 1; // seconds that are not worth a word

    private final FederationView federation;

    private Waits(FederationView federation) {
        this.federation = federation;
    }

    /** A sentence for each one that others wait for; none when all go on. */
    static List<String> of(FederationView federation) {
        List<String> sentences = new ArrayList<>();
        undertaking(federation.save(), "saved", sentences);
        undertaking(federation.restore(), "restored", sentences);
        // Nobody's time advances meanwhile.
        return sentences.isEmpty() ? new Waits(federation).forTimes() : sentences;
    }

    private static void undertaking(FederationView.Undertaking of, String what, List<String> sentences) {
        if (!of.label().isEmpty()) {
            sentences.add("The federation is being " + what + " ('" + of.label() + "')"
                    + (of.awaited().isEmpty() ? "" : " and waits for " + all(of.awaited())));
        }
    }

    /** Whoever waits for one that waits itself waits for the one at the end of that chain. */
    private List<String> forTimes() {
        Map<Integer, List<String>> waiting = new TreeMap<>(); // by the handle of the one that they wait for
        Set<Set<String>> circles = new LinkedHashSet<>();
        for (FederateView each : federation.federates()) {
            if (heldBy(each) != null && each.seconds() >= SHORT) {
                Set<Integer> way = new TreeSet<>();
                FederateView last = each;
                while (heldBy(last) != null && way.add(last.handle())) {
                    last = heldBy(last);
                }
                if (way.contains(last.handle())) {
                    circles.add(circle(last));
                } else {
                    waiting.computeIfAbsent(last.handle(), key -> new ArrayList<>()).add(each.name());
                }
            }
        }
        List<String> sentences = new ArrayList<>();
        waiting.forEach((handle, names) -> sentences.add(all(names) + (names.size() == 1 ? " waits" : " wait") + " for "
                + federation.federate(handle).name() + ", which " + state(federation.federate(handle))));
        circles.forEach(names -> sentences.add(all(List.copyOf(names))
                + " wait for each other: none of them has a lookahead that lets the next one go on"));
        return sentences;
    }

    private FederateView heldBy(FederateView federate) {
        return waitsForSave(federate) ? null : federation.federate(federate.heldBy());
    }

    /** Whether others would let it go on, but not the save that is due before. */
    private boolean waitsForSave(FederateView federate) {
        LogicalTime save = federation.saves().nextTime();
        LogicalTime galt = federate.galt();
        return save != null && federate.heldBy() != 0 && federate.requested().ordinal() >= save.ordinal()
                && (galt == null || galt.ordinal() >= save.ordinal());
    }

    private Set<String> circle(FederateView on) {
        Set<String> names = new TreeSet<>();
        for (FederateView each = on; names.add(each.name()); each = heldBy(each)) {
            // until it has come round
        }
        return names;
    }

    private String state(FederateView of) {
        String seconds = Math.round(of.seconds()) + " s";
        return switch (of.state()) {
            case TO_BE_TOLD -> "asked for an advance " + seconds + " ago, has got it and has not taken the callback";
            case WAITING -> "waits for the save '" + federation.saves().next() + "'";
            case GRANTED -> of.seconds() < SHORT ? "has got to " + of.time() + " and goes on"
                    : "has not asked for an advance for " + seconds;
        };
    }

    private static String all(List<String> names) {
        return names.size() == 1 ? names.get(0)
                : String.join(", ", names.subList(0, names.size() - 1)) + " and " + names.get(names.size() - 1);
    }
}
