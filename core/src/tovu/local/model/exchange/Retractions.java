package tovu.local.model.exchange;

import hla.rti1516e.exceptions.InvalidMessageRetractionHandle;
import hla.rti1516e.exceptions.MessageCanNoLongerBeRetracted;
import hla.rti1516e.exceptions.TimeRegulationIsNotEnabled;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.SortedSet;
import java.util.TreeSet;
import tovu.local.model.value.Saved;

/** The time-stamped messages that their senders may still retract. */
@SuppressWarnings("serial") // read by what wrote it
public final class Retractions implements Saved {
    /** What one service call sent. */
    @SuppressWarnings("serial") // read by what wrote it
    static final class Sent implements Comparable<Sent>, Saved {
        final int handle;
        final Federate sender;
        final long time;
        final List<Message> messages = new ArrayList<>(1);
        /** The deletion that this is the news of, or null. */
        Deletion deletion;

        Sent(int handle, Federate sender, long time) {
            this.handle = handle;
            this.sender = sender;
            this.time = time;
        }

        @Override
        public int compareTo(Sent other) {
            int byTime = Long.compare(time, other.time);
            return byTime != 0 ? byTime : Integer.compare(handle, other.handle);
        }
    }

    private final Exchange federation;
    private final Map<Integer, Sent> retractable = new HashMap<>();
    private final Map<Federate, SortedSet<Sent>> bySender = new HashMap<>();
    private int lastHandle;

    Retractions(Exchange federation) {
        this.federation = federation;
    }

    /**
     * Sets numbers aside that a federate will give to what it sends.
     *
     * @return the first of them
     */
    public int setAside(int count) {
        int before = lastHandle > Integer.MAX_VALUE - count ? 0 : lastHandle;
        lastHandle = before + count;
        return before + 1;
    }

    /** @param number one that was set aside, or 0 */
    Sent register(Federate sender, long time, int number) {
        Sent sent = new Sent(number == 0 ? setAside(1) : number, sender, time);
        retractable.put(sent.handle, sent);
        bySender.computeIfAbsent(sender, key -> new TreeSet<>()).add(sent);
        return sent;
    }

    /** Lets go of what a federate sent with a time before that: it has passed it. */
    void expire(Federate sender, long before) {
        SortedSet<Sent> sent = bySender.get(sender);
        while (sent != null && !sent.isEmpty() && sent.first().time < before) {
            Sent first = sent.first();
            sent.remove(first);
            drop(first);
        }
    }

    void forget(Federate sender) {
        SortedSet<Sent> sent = bySender.remove(sender);
        if (sent != null) {
            sent.forEach(this::drop);
        }
    }

    private void drop(Sent sent) {
        retractable.remove(sent.handle);
        if (sent.deletion != null) {
            federation.objects().confirm(sent.deletion);
        }
    }

    public void retract(Federate federate, int handle) throws TimeRegulationIsNotEnabled,
            InvalidMessageRetractionHandle, MessageCanNoLongerBeRetracted {
        federation.time().requireRegulating(federate);
        Sent sent = retractable.get(handle);
        if (handle < 1 || handle > lastHandle || sent != null && sent.sender != federate) {
            throw new InvalidMessageRetractionHandle("Retraction handle " + handle + " was not given to " + federate);
        }
        if (sent == null || sent.time < federate.time.leastSendTime()) {
            throw new MessageCanNoLongerBeRetracted("The message with retraction handle " + handle
                    + " was sent with a time that " + federate + " has passed, or is retracted already");
        }
        retractable.remove(handle);
        bySender.get(federate).remove(sent);
        Map<Federate, List<Message>> delivered = new LinkedHashMap<>();
        for (Message message : sent.messages) {
            if (!message.receiver.inbox.remove(message) && federation.isMember(message.receiver)) {
                delivered.computeIfAbsent(message.receiver, key -> new ArrayList<>(1)).add(message);
            }
        }
        delivered.forEach((receiver, messages) -> receiver.retract(messages, to -> to.requestRetraction(handle)));
        if (sent.deletion != null) {
            federation.objects().undo(sent.deletion);
        }
    }
}
