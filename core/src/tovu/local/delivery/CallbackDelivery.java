package tovu.local.delivery;

import hla.rti1516e.exceptions.CallNotAllowedFromWithinCallback;
import hla.rti1516e.exceptions.FederateInternalError;
import java.util.ArrayDeque;
import java.util.HashMap;
import java.util.Map;
import java.util.Queue;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.locks.LockSupport;
import java.util.concurrent.locks.ReentrantLock;
import java.util.function.BooleanSupplier;
import java.util.function.Supplier;
import tovu.local.model.exchange.Federate;
import tovu.local.model.port.Callback;
import tovu.local.model.port.CallbackSink;
import tovu.local.model.port.FederateCallbacks;
import tovu.local.trace.CallbackTrace;
import tovu.local.trace.Trace;

/**
 * The callbacks of one ambassador: a queue, and the delivery of what is in it, one callback at a time and in order. An
 * evoked delivery runs on the threads that evoke, an immediate one on a thread of its own. The queue's own monitor is
 * held for a put or a take only; the delivery lock is held while the federate's callback runs, and nothing that the
 * model does ever waits for it.
 */
public final class CallbackDelivery implements CallbackSink, EvokeReminder.Waiting {
    private static final long AT_ONCE = Long.MIN_VALUE;
    private static final long NEVER = Long.MAX_VALUE;
    private static final CallbackSource ASLEEP = (posted, nanos) -> {
        if (nanos > 0) {
            LockSupport.parkNanos(nanos); // whoever posts wakes it
        }
    };

    /** By which thread each delivery is awaited that is awaited now. Guarded by itself. */
    private static final Map<Thread, CallbackDelivery> AWAITED = new HashMap<>();

    private final Queue<Callback> pending = new ArrayDeque<>();
    private final DeliveryLock delivering = new DeliveryLock();
    private final FederateCallbacks federate;
    private final FederateCallbacks reported;
    private final Supplier<?> member;
    private final EvokeReminder reminder = new EvokeReminder(this);
    private boolean enabled = true;
    private final BooleanSupplier posted = this::isPosted;
    private volatile CallbackSource source = ASLEEP;
    private volatile Thread waiting; // for callbacks; there is at most one
    private volatile boolean closed; // written under the monitor only
    private volatile boolean immediate;

    @SuppressWarnings("serial") // never written
    private static final class DeliveryLock extends ReentrantLock {
        Thread owner() {
            return getOwner();
        }
    }

    /** Marks what outlives a membership. */
    private record ConnectionCallback(Callback callback) implements Callback {
        @Override
        public void deliver(FederateCallbacks to) throws FederateInternalError {
            callback.deliver(to);
        }
    }

    private CallbackDelivery(FederateCallbacks federate, FederateCallbacks reported, Supplier<?> member) {
        this.federate = federate;
        this.member = member;
        this.reported = reported;
    }

    /**
     * Delivery to the ambassador with that callback context.
     *
     * @param port   what calls it
     * @param member who that is at the moment, or null; asked for to name it in what is printed
     */
    public static CallbackDelivery toContext(int context, CallbackPort port, Supplier<Federate> member) {
        FederateCallbacks federate = encoder(context, port, member);
        return new CallbackDelivery(federate, reporting(federate, member), member);
    }

    /** The same callbacks, each of which management is to report. */
    public static FederateCallbacks reporting(FederateCallbacks federate, Supplier<Federate> member) {
        return CallbackTrace.around(federate, member, new CallbackReports());
    }

    /** What makes messages of callbacks, and hands them on. */
    public static FederateCallbacks encoder(int context, CallbackPort port, Supplier<Federate> member) {
        CallbackEncoder encoder = new CallbackEncoder(context, port);
        return Trace.ON ? CallbackTrace.around(encoder, member, Trace.CALLBACKS) : encoder;
    }

    /**
     * Delivery of callbacks that know by themselves whom they call.
     *
     * @param member who that is, to name it in what is printed
     */
    public static CallbackDelivery ofSelfDelivering(Supplier<String> member) {
        return new CallbackDelivery(null, null, member);
    }

    /** From now on callbacks come from there, too. */
    public void setSource(CallbackSource theSource) {
        source = theSource;
        wake();
    }

    @Override
    public void post(Callback callback) {
        synchronized (this) {
            if (closed) {
                return;
            }
            pending.add(callback);
        }
        wake();
        reminder.posted();
    }

    private void wake() {
        Thread thread = waiting;
        if (thread != null && thread != Thread.currentThread()) {
            LockSupport.unpark(thread);
        }
    }

    @Override
    public void postToConnection(Callback callback) {
        post(new ConnectionCallback(callback));
    }

    @Override
    public synchronized void dropMembership() {
        pending.removeIf(callback -> !(callback instanceof ConnectionCallback));
    }

    public void setEnabled(boolean on) {
        synchronized (this) {
            enabled = on;
        }
        wake();
    }

    /** Ends delivery for good: what is pending is dropped, and a delivering thread ends. */
    public void close() {
        synchronized (this) {
            closed = true;
            pending.clear();
        }
        reminder.cancel();
        wake();
    }

    /**
     * After a close: returns when no callback runs any more, and none will. Whoever waits must hold nothing that a
     * callback may want, and must not be in one of this ambassador's. Where callbacks wait for each other in a circle,
     * the one that would close it returns at once.
     */
    public void awaitEnd() {
        Thread self = Thread.currentThread();
        synchronized (AWAITED) {
            if (waitsFor(self)) {
                return;
            }
            AWAITED.put(self, this);
        }
        delivering.lock();
        delivering.unlock();
        synchronized (AWAITED) {
            AWAITED.remove(self);
        }
    }

    /** Whether the callback that runs waits, be it by way of others, for one that runs on that thread. */
    private boolean waitsFor(Thread thread) {
        Thread runner = delivering.owner();
        while (runner != null && runner != thread) {
            CallbackDelivery awaited = AWAITED.get(runner);
            runner = awaited == null ? null : awaited.delivering.owner();
        }
        return runner == thread;
    }

    /** Starts the thread that delivers whenever there is something to deliver. */
    public void deliverImmediately() {
        immediate = true;
        reminder.cancel();
        Thread thread = new Thread(() -> {
            for (Callback next = take(NEVER); next != null; next = take(NEVER)) {
                deliver(next);
            }
        }, "callbacks");
        thread.setDaemon(true);
        thread.start();
    }

    /** @throws CallNotAllowedFromWithinCallback when the calling thread is inside a callback of this ambassador */
    public void requireOutsideCallback(String service) throws CallNotAllowedFromWithinCallback {
        if (delivering.isHeldByCurrentThread()) {
            throw new CallNotAllowedFromWithinCallback(service
                    + " was called from within a callback; return from the callback first");
        }
    }

    /**
     * Delivers one callback, for which it waits no longer than that. Immediate delivery needs no evoking, and
     * ignores it.
     *
     * @return whether more are pending
     */
    public boolean evoke(double seconds) {
        reminder.cancel();
        long deadline = deadline(seconds);
        if (!immediate && begin(deadline)) {
            try {
                deliverNext(deadline);
            } finally {
                delivering.unlock();
            }
        }
        return isPending();
    }

    /**
     * Delivers callbacks for the minimum time, and on while there are any until the maximum time is over.
     *
     * @return whether more are pending
     */
    public boolean evokeMultiple(double minimumSeconds, double maximumSeconds) {
        reminder.cancel();
        long minimum = deadline(minimumSeconds);
        long maximum = deadline(maximumSeconds);
        if (!immediate && begin(minimum)) {
            try {
                while (deliverNext(minimum) && left(maximum) > 0) {
                    // until the queue stays empty or the time is over
                }
            } finally {
                delivering.unlock();
            }
        }
        return isPending();
    }

    /** The end of a span that begins now; what is not a sensible time is none at all. */
    private static long deadline(double seconds) {
        return seconds > 0 ? System.nanoTime() + (long) Math.min(seconds * 1e9, Long.MAX_VALUE / 4.0) : AT_ONCE;
    }

    private static long left(long deadline) {
        return deadline == AT_ONCE ? 0 : deadline == NEVER ? Long.MAX_VALUE : deadline - System.nanoTime();
    }

    private boolean begin(long deadline) {
        try {
            return delivering.tryLock() || delivering.tryLock(left(deadline), TimeUnit.NANOSECONDS);
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
            return false;
        }
    }

    private boolean deliverNext(long deadline) {
        Callback next = take(deadline);
        if (next != null) {
            deliver(next);
        }
        return next != null;
    }

    /** The next callback, or null when there is none until the deadline, or none will come any more. */
    private Callback take(long deadline) {
        Callback next = poll();
        if (next != null) {
            return next;
        }
        waiting = Thread.currentThread();
        try {
            for (long left = Long.MAX_VALUE; left > 0 && !Thread.currentThread().isInterrupted(); ) {
                left = left(deadline);
                next = poll();
                if (next != null || closed) {
                    return next;
                }
                (isEnabled() ? source : ASLEEP).await(posted, left);
            }
        } finally {
            waiting = null;
        }
        return poll();
    }

    private synchronized Callback poll() {
        return enabled ? pending.poll() : null;
    }

    private synchronized boolean isEnabled() {
        return enabled;
    }

    private synchronized boolean isPosted() {
        return closed || !pending.isEmpty();
    }

    /** Whether evoking again would deliver something. */
    @Override
    public synchronized boolean isPending() {
        return enabled && !immediate && !pending.isEmpty();
    }

    private boolean isReported(Callback callback) {
        return member.get() instanceof Federate current && current.oversight().reportsServices
                && !callback.isByManagement();
    }

    /** A callback that fails is told and is over; the ones behind it are delivered all the same. */
    private void deliver(Callback callback) {
        delivering.lock();
        try {
            if (!closed) {
                callback.deliver(isReported(callback) ? reported : federate);
            }
        } catch (FederateInternalError e) {
            StackTraceElement[] trace = e.getStackTrace();
            System.err.println(member() + " failed in callback "
                    + (trace.length == 0 ? "" : trace[0].getMethodName().replaceFirst("_.*", "")) + ": "
                    + e.getMessage());
        } catch (RuntimeException | Error e) {
            System.err.println(member() + " cannot be told something: " + e);
        } finally {
            delivering.unlock();
        }
    }

    @Override
    public String member() {
        Object current = member.get();
        return current == null ? "A federate that is not joined" : current.toString();
    }
}
