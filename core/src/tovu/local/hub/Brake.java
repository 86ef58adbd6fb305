package tovu.local.hub;

import io.netty.channel.Channel;
import java.util.Queue;
import java.util.concurrent.ConcurrentLinkedQueue;
import java.util.concurrent.TimeUnit;

/**
 * Slows down who sends more than a federate's process takes, by not reading from it: the hub's memory stays bounded, and
 * the sender waits in its own service call. A process that takes nothing at all holds nobody up for longer than a
 * second; it is lost when too much waits for it.
 */
final class Brake {
    private static final long PATIENCE_MILLIS = 1_000;
    /** Whose frames the thread serves. */
    private static final ThreadLocal<Brake> SERVED = new ThreadLocal<>();

    private final Channel channel;
    private final Queue<Brake> held = new ConcurrentLinkedQueue<>();
    private volatile boolean stuck;
    private Brake awaited; // for this one's thread

    Brake(Channel channel) {
        this.channel = channel;
    }

    /** What is left for federates until the end comes from this one. */
    void beginServing() {
        SERVED.set(this);
    }

    void endServing() {
        SERVED.set(null);
    }

    /** Something is left for this one. */
    void burden() {
        if (!channel.isWritable() && !stuck) {
            Brake sender = SERVED.get();
            if (sender != null && sender != this && sender.awaited == null) {
                sender.await(this);
            }
        }
    }

    private void await(Brake receiver) {
        awaited = receiver;
        channel.config().setAutoRead(false);
        receiver.held.add(this);
        if (receiver.channel.isWritable()) {
            receiver.relieved(); // just before it could know
        }
        watch(receiver, receiver.channel.bytesBeforeWritable());
    }

    /** It waits on while there is less and less in the way. */
    private void watch(Brake receiver, long inTheWay) {
        channel.eventLoop().schedule(() -> {
            long now = receiver.channel.bytesBeforeWritable();
            if (awaited == receiver && now < inTheWay) {
                watch(receiver, now);
            } else if (awaited == receiver) {
                receiver.stuck = true;
                receiver.held.remove(this);
                goOn();
            }
        }, PATIENCE_MILLIS, TimeUnit.MILLISECONDS);
    }

    /** It has taken what was in the way. */
    void relieved() {
        stuck = false;
        for (Brake next = held.poll(); next != null; next = held.poll()) {
            next.channel.eventLoop().execute(next::goOn);
        }
    }

    private void goOn() {
        awaited = null;
        channel.config().setAutoRead(true);
    }
}
