package tovu.local.model;

import java.util.ArrayDeque;
import java.util.Queue;
import java.util.SortedSet;
import java.util.TreeSet;

/** The messages that a federate is not to get yet. */
@SuppressWarnings("serial") // kept in memory only
final class Inbox implements Saved {
    private final SortedSet<Message> timestamped = new TreeSet<>();
    private final Queue<Message> held = new ArrayDeque<>();
    private final Federate owner;

    Inbox(Federate owner) {
        this.owner = owner;
    }

    void accept(Message message) {
        if (message.isTimestamped()) {
            timestamped.add(message);
            owner.federation().time().messageQueued(owner);
        } else if (owner.time.holdsReceiveOrder()) {
            held.add(message);
        } else {
            message.post();
        }
    }

    /** Takes out a message that was sent in time-stamp order; false when it is not here any more. */
    boolean remove(Message message) {
        boolean here = timestamped.remove(message);
        if (here) {
            owner.federation().time().reconsider();
        }
        return here;
    }

    /** Drops everything, as befits a federate that leaves. */
    void clear() {
        held.clear();
        timestamped.clear();
    }

    int heldCount() {
        return held.size();
    }

    int timestampedCount() {
        return timestamped.size();
    }

    /**
     * The time of the first time-stamped message that is wanted, or never. What comes before it is dropped: whoever
     * asks promises something on the strength of the answer, which a change of mind must not belie.
     */
    long firstTime() {
        while (!timestamped.isEmpty() && !timestamped.first().isWanted()) {
            timestamped.remove(timestamped.first());
        }
        return timestamped.isEmpty() ? TimeFamily.NEVER : timestamped.first().sending.time();
    }

    /**
     * Delivers the time-stamped messages up to and including a time.
     *
     * @return the time of the last one delivered, or that of nothing yet
     */
    long deliverUntil(long time, long nothing) {
        long last = nothing;
        while (!timestamped.isEmpty() && timestamped.first().sending.time() <= time) {
            Message message = timestamped.first();
            timestamped.remove(message);
            last = message.sending.time();
            message.post();
        }
        return last;
    }

    void releaseHeld() {
        for (Message next = held.poll(); next != null; next = held.poll()) {
            next.post();
        }
    }

    /** Delivers everything, as befits a federate that is not constrained. */
    void flush() {
        while (!timestamped.isEmpty()) {
            Message message = timestamped.first();
            timestamped.remove(message);
            message.loseTimestampOrder();
            message.post();
        }
        releaseHeld();
    }
}
