package tovu.local.hub;

import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.Deque;
import java.util.HashMap;
import java.util.IdentityHashMap;
import java.util.List;
import java.util.Map;
import java.util.function.Consumer;
import java.util.function.Supplier;
import tovu.local.model.exchange.Federate;
import tovu.local.model.port.Callback;
import tovu.local.model.port.CallbackSink;
import tovu.local.model.port.RetractableCallback;
import tovu.local.wire.CallbackFlags;
import tovu.local.wire.FrameType;
import tovu.local.wire.FrameWriter;

/**
 * The callbacks of a federate that is elsewhere. Each has a number and is sent at once, so that it waits where the
 * federate is. What is not certain yet is remembered until the federate says that its code has been given it; what only
 * its turn will show is asked for then.
 */
final class RemoteSink implements CallbackSink {
    private static final int REMEMBERING = 200; // bytes, about, beside what the callback tells

    /** A callback that was sent and may still matter to the model. */
    private static final class Sent {
        final long number;
        final Callback callback;
        final int size;
        boolean begun;

        Sent(long number, Callback callback, int size) {
            this.number = number;
            this.callback = callback;
            this.size = size;
        }
    }

    private final Consumer<byte[]> out;
    private final IssuedLicences licences;
    private final Deque<Sent> unsettled = new ArrayDeque<>();
    private final Map<Callback, Sent> retractable = new IdentityHashMap<>();
    private final Map<Long, Sent> retracted = new HashMap<>(); // and maybe begun before the federate knew
    private long last;
    private volatile long remembered; // bytes; changes under the monitor only
    private final EncodedCallback told;
    private final EncodedCallback answer; // for the connection's own thread

    /**
     * @param context by which the federate's library finds its ambassador
     * @param member  whose callbacks they are, or null
     * @param out     takes the frames, in order
     */
    RemoteSink(int context, Supplier<Federate> member, Consumer<byte[]> out) {
        this.out = out;
        licences = new IssuedLicences(out);
        told = new EncodedCallback(context, member);
        answer = new EncodedCallback(context, member);
    }

    IssuedLicences licences() {
        return licences;
    }

    @Override
    public void revoke(int object) {
        licences.revoke(object);
    }

    @Override
    public void limitTimes(long first, long last) {
        licences.limit(first, last);
    }

    @Override
    public synchronized void post(Callback callback) {
        send(callback, 0);
    }

    @Override
    public synchronized void postToConnection(Callback callback) {
        send(callback, CallbackFlags.OUTLIVES_MEMBERSHIP);
    }

    private void send(Callback callback, int flags) {
        Callback.Foresight foresight = callback.foresight();
        byte[] frame;
        if (foresight == Callback.Foresight.NONE) {
            frame = new FrameWriter(FrameType.LATE_CALLBACK).longInteger(++last).octet(flags).end();
        } else if (told.foretell(callback)) {
            frame = told.put(told.frame(FrameType.CALLBACK).longInteger(++last)
                    .octet(foresight == Callback.Foresight.CERTAIN ? flags | CallbackFlags.CERTAIN : flags)).end();
        } else {
            return;
        }
        if (foresight != Callback.Foresight.CERTAIN) {
            Sent sent = new Sent(last, callback, frame.length + REMEMBERING);
            unsettled.add(sent);
            remembered += sent.size;
            if (callback instanceof RetractableCallback message && message.isRetractable()) {
                retractable.put(callback, sent);
            }
        }
        out.accept(frame);
    }

    /** About how many bytes are kept of callbacks until the federate's code has been given them. */
    long remembered() {
        return remembered;
    }

    /** The federate's code has been given the callbacks up to one number, and has returned from those up to another. */
    void progress(long begun, long ended) {
        for (Sent next = nextOf(begun, ended); next != null; next = nextOf(begun, ended)) {
            if (!next.begun) {
                next.begun = true;
                next.callback.begin();
            }
            if (next.number <= ended) {
                next.callback.end();
            }
        }
    }

    /** The first one that has to learn something from that. */
    private synchronized Sent nextOf(long begun, long ended) {
        Sent first = unsettled.peek();
        if (first == null || first.number > begun || first.number > ended && first.begun) {
            return null; // nobody, or it has learnt all there is
        }
        retractable.remove(first.callback);
        if (first.number <= ended) {
            unsettled.remove();
            remembered -= first.size;
        }
        return first;
    }

    /**
     * It is the turn of a callback that was not known before.
     *
     * @return the frame that tells it
     */
    byte[] resolve(int request, long number) {
        progress(number - 1, number - 1);
        Sent sent;
        synchronized (this) {
            sent = unsettled.peek();
            if (sent == null || sent.number != number || sent.begun) {
                return answer(request, false);
            }
            sent.begun = true;
            retractable.remove(sent.callback);
        }
        Callback callback = sent.callback;
        return answer(request, callback.foresight() == Callback.Foresight.NONE ? answer.deliver(callback)
                : callback.begin() && answer.foretell(callback));
    }

    private byte[] answer(int request, boolean something) {
        FrameWriter frame = answer.frame(FrameType.RESOLVED).integer(request);
        return (something ? answer.put(frame) : frame).end();
    }

    @Override
    public synchronized void retract(List<? extends RetractableCallback> messages, Callback instead) {
        List<Long> numbers = new ArrayList<>(1);
        boolean known = false;
        for (RetractableCallback each : messages) {
            Sent sent = retractable.remove(each);
            boolean unseen = each.retract();
            if (sent == null) {
                known |= !unseen;
            } else {
                unsettled.remove(sent);
                retracted.put(sent.number, sent);
                numbers.add(sent.number);
            }
        }
        if (known) {
            post(instead);
        } else if (!numbers.isEmpty() && told.foretell(instead)) {
            FrameWriter frame = told.frame(FrameType.RETRACT).integer(numbers.size());
            numbers.forEach(frame::longInteger);
            out.accept(told.put(frame.longInteger(++last)).end());
        }
    }

    /** What the federate says of a callback that was retracted. */
    synchronized void retracted(long number, boolean begun) {
        Sent sent = retracted.remove(number);
        if (sent != null && begun) {
            sent.begun = true;
            unsettled.addFirst(sent); // it has still to end
        } else if (sent != null) {
            remembered -= sent.size;
        }
    }

    @Override
    public synchronized void review() {
        if (!unsettled.isEmpty()) {
            out.accept(new FrameWriter(FrameType.REVIEW).longInteger(last).end());
        }
    }

    @Override
    public synchronized void dropMembership() {
        unsettled.clear();
        retractable.clear();
        retracted.clear();
        licences.clear();
        remembered = 0;
        out.accept(new FrameWriter(FrameType.DROP).end());
    }
}
