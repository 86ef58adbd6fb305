package tovu.local.model.exchange;

import java.util.ArrayList;
import java.util.Collection;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;
import tovu.local.model.time.Clock;
import tovu.local.model.value.HandleSet;
import tovu.local.model.value.HandleValues;
import tovu.local.model.value.Saved;

/**
 * Holds best-effort updates to the rates at which subscribers want them at most. What comes too early waits until its
 * attribute's interval is over, and gives way to a newer value: so the newest one is the last, however fast they come.
 */
@SuppressWarnings("serial") // read by what wrote it
final class UpdateRates implements Saved {
    private static final long NANOSECONDS = 1_000_000_000;
    private static final long LOOK_AGAIN_NANOSECONDS = NANOSECONDS / 10; // while a save or a restore is under way

    private final Exchange federation;
    private final Set<Knowledge> waiting = new LinkedHashSet<>(); // those with updates that wait
    private transient boolean scheduled;
    private transient long wakeUp;

    UpdateRates(Exchange federation) {
        this.federation = federation;
    }

    /** What of an update in receive order a federate gets at once; the rest waits. */
    HandleValues admit(Knowledge to, Message.Origin sending, Content content, HandleValues wanted) {
        long now = System.nanoTime();
        to.pacing = to.pacing == null ? new Pacing() : to.pacing;
        List<Integer> admitted = new ArrayList<>();
        for (int i = 0; i < wanted.size(); ++i) {
            int attribute = wanted.handle(i);
            double rate = content.transportation.isReliable() ? 0
                    : federation.lookup().rate(to.interest(attribute).terms(content.regions));
            if (to.pacing.admits(attribute, now, rate == 0 ? 0 : (long) (NANOSECONDS / rate))) {
                admitted.add(attribute);
            } else {
                waiting.add(to);
                wakeUpAt(to.pacing.hold(attribute, sending, content), now);
            }
        }
        return admitted.size() == wanted.size() ? wanted : wanted.select(HandleSet.of(admitted));
    }

    private void wakeUpAt(long time, long now) {
        if (!scheduled || time - wakeUp < 0) {
            scheduled = true;
            wakeUp = time;
            Clock.after(Math.max(0, time - now), this::wake);
        }
    }

    private void wake() {
        synchronized (federation) {
            scheduled = false;
            if (federation.updateRates() == this) { // and not what a restore has replaced
                deliverDue();
            }
        }
    }

    /** After a restore, which brings back what waited. */
    void resume() {
        if (!waiting.isEmpty()) {
            long now = System.nanoTime();
            wakeUpAt(now, now);
        }
    }

    private void deliverDue() {
        long now = System.nanoTime();
        if (federation.isSavingOrRestoring() && !waiting.isEmpty()) {
            wakeUpAt(now + LOOK_AGAIN_NANOSECONDS, now);
            return;
        }
        waiting.removeIf(each -> each.isOver() || !federation.isMember(each.federate));
        for (Knowledge each : List.copyOf(waiting)) {
            for (Collection<Pacing.Update> alike : each.pacing.due(now)) {
                deliver(each, alike);
            }
            if (each.pacing.isEmpty()) {
                waiting.remove(each);
            } else {
                wakeUpAt(each.pacing.next(), now);
            }
        }
    }

    /** Delivers what waited of one update, as far as it is still wanted. */
    private static void deliver(Knowledge to, Collection<Pacing.Update> alike) {
        Pacing.Update first = alike.iterator().next();
        HandleSet wanted = to.wanted(first.content().regions);
        HandleValues values = first.content().values.select(HandleSet.of(alike.stream()
                .map(Pacing.Update::attribute).filter(wanted::contains).toList()));
        if (values.size() > 0) {
            to.federate.inbox.accept(new Reflection(to, first.sending(), first.content().part(values), values));
        }
    }
}
