package tovu.local.hub;

import io.netty.channel.Channel;
import java.util.Queue;
import java.util.concurrent.ConcurrentLinkedQueue;
import java.util.concurrent.TimeUnit;
import java.util.function.LongSupplier;

/**
 * Slows down who sends more than a federate takes, by not reading from it: the hub's memory stays bounded, and the
 * sender waits in its own service call. A federate that takes nothing at all holds nobody up for longer than a second;
 * it is lost when too much waits for it.
 */
final class Brake {
    private static final long PATIENCE_MILLIS = 1_000;
    /** Whose frames the thread serves. */
    private static final ThreadLocal<Brake> SERVED = new ThreadLocal<>();

    private final Channel channel;
    private final LongSupplier remembered;
    private final long much;
    private final Queue<Brake> held = new ConcurrentLinkedQueue<>();
    private FrameDecoder decoder; // of what comes from this one
    private volatile Brake awaited;
    private volatile boolean stuck;

    /**
     * @param remembered how many bytes are kept of callbacks that this one has not been given
     * @param much       from how many on there are too many of them
     */
    Brake(Channel channel, LongSupplier remembered, long much) {
        this.channel = channel;
        this.remembered = remembered;
        this.much = much;
    }

    void setDecoder(FrameDecoder theDecoder) {
        decoder = theDecoder;
    }

    /** Serves this one. What is left for federates meanwhile comes from it. */
    void serve(Runnable service) {
        SERVED.set(this);
        try {
            service.run();
        } finally {
            SERVED.set(null);
        }
    }

    private boolean isLoaded() {
        return !channel.isWritable() || remembered.getAsLong() > much;
    }

    /** Something is left for this one. */
    void burden() {
        if (!stuck && isLoaded()) {
            Brake sender = SERVED.get();
            if (sender != null && sender != this && sender.awaited == null) {
                sender.awaited = this;
                if (sender.channel.eventLoop().inEventLoop()) {
                    sender.await(this);
                } else {
                    sender.channel.eventLoop().execute(() -> sender.await(this));
                }
            }
        }
    }

    private void await(Brake receiver) {
        decoder.pause();
        receiver.held.add(this);
        receiver.relieve(); // if that has come meanwhile
        watch(receiver, receiver.inTheWay());
    }

    private long inTheWay() {
        return channel.bytesBeforeWritable() + remembered.getAsLong();
    }

    /** It waits on while there is less and less in the way. */
    private void watch(Brake receiver, long before) {
        channel.eventLoop().schedule(() -> {
            long now = receiver.inTheWay();
            if (awaited == receiver && now < before) {
                watch(receiver, now);
            } else if (awaited == receiver && receiver.held.remove(this)) {
                receiver.stuck = true;
                goOn();
            }
        }, PATIENCE_MILLIS, TimeUnit.MILLISECONDS);
    }

    /** It may have taken what was in the way. */
    void relieve() {
        if ((stuck || !held.isEmpty()) && !isLoaded()) {
            end();
        }
    }

    /** Nobody waits for it any more. */
    void end() {
        stuck = false;
        for (Brake next = held.poll(); next != null; next = held.poll()) {
            next.channel.eventLoop().execute(next::goOn);
        }
    }

    private void goOn() {
        awaited = null;
        decoder.resume();
    }
}
