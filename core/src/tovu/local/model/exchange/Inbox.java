package tovu.local.model.exchange;

import java.util.ArrayDeque;
import java.util.Queue;
import java.util.SortedSet;
import java.util.TreeSet;
import tovu.local.model.time.MessageQueue;
import tovu.local.model.value.Saved;
import tovu.local.model.value.TimeFamily;

/** The messages that a federate is not to get yet. */
@SuppressWarnings("serial") // read by what wrote it
final class Inbox implements MessageQueue, Saved {
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

    @Override
    public long firstTime() {
        while (!timestamped.isEmpty() && !timestamped.first().isWanted()) {
            timestamped.remove(timestamped.first());
        }
        return timestamped.isEmpty() ? TimeFamily.NEVER : timestamped.first().sending.time();
    }

    @Override
    public long deliverUntil(long time, long nothing) {
        long last = nothing;
        while (!timestamped.isEmpty() && timestamped.first().sending.time() <= time) {
            Message message = timestamped.first();
            timestamped.remove(message);
            last = message.sending.time();
            message.post();
        }
        return last;
    }

    @Override
    public void releaseHeld() {
        for (Message next = held.poll(); next != null; next = held.poll()) {
            next.post();
        }
    }

    @Override
    public void flush() {
        while (!timestamped.isEmpty()) {
            Message message = timestamped.first();
            timestamped.remove(message);
            message.loseTimestampOrder();
            message.post();
        }
        releaseHeld();
    }
}
