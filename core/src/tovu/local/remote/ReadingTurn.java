package tovu.local.remote;

import java.util.Queue;
import java.util.concurrent.ConcurrentLinkedQueue;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.locks.LockSupport;
import java.util.concurrent.locks.ReentrantLock;
import java.util.function.BooleanSupplier;

/**
 * Whose turn it is to read what comes from a hub. Of the threads that wait for something, one reads for all: it need not be
 * woken for what it waits for itself. The others sleep until somebody else's reading has brought what they wait for, or
 * the turn is free. When nobody waits, a thread reads that stands by.
 */
final class ReadingTurn {
    /** What is read. */
    interface Source {
        boolean isOver();

        /** Takes what has come, for which it waits no longer than that. */
        void read(long nanos);
    }

    private static final long STANDING_BACK_NANOS = TimeUnit.MILLISECONDS.toNanos(20);

    private final Source source;
    private final boolean shared;
    private final ReentrantLock turn = new ReentrantLock();
    private final Queue<Thread> sleeping = new ConcurrentLinkedQueue<>();
    private volatile int taken; // by those who wait; changes under the lock

    /** @param shared whether those who wait read; else only who stands by does */
    ReadingTurn(Source source, boolean shared) {
        this.source = source;
        this.shared = shared;
    }

    /**
     * Returns when that is so, the time is over, or the source is. Whoever makes it so and does not read the source wakes
     * the thread.
     *
     * @param nanos 0 to take what has come already
     */
    void await(BooleanSupplier so, long nanos) {
        long begin = System.nanoTime();
        long left = nanos;
        boolean interrupted = false;
        do {
            if (shared && turn.tryLock()) {
                readUntil(so, begin, nanos);
            } else if (left > 0) {
                sleepUnless(so, left);
                interrupted |= Thread.interrupted();
            }
            left = left(begin, nanos);
        } while (left > 0 && !so.getAsBoolean() && !source.isOver());
        if (interrupted) {
            Thread.currentThread().interrupt();
        }
    }

    private static long left(long begin, long nanos) {
        return nanos == Long.MAX_VALUE ? nanos : nanos - (System.nanoTime() - begin);
    }

    private void readUntil(BooleanSupplier so, long begin, long nanos) {
        try {
            ++taken;
            for (long left = nanos; !so.getAsBoolean() && !source.isOver(); left = left(begin, nanos)) {
                source.read(left);
                if (left <= 0) {
                    break;
                }
            }
        } finally {
            pass();
        }
    }

    private void sleepUnless(BooleanSupplier so, long nanos) {
        Thread self = Thread.currentThread();
        sleeping.add(self);
        try {
            if (!so.getAsBoolean() && (!shared || turn.isLocked()) && !source.isOver()) {
                LockSupport.parkNanos(this, nanos);
            }
        } finally {
            sleeping.remove(self);
        }
    }

    private void pass() {
        turn.unlock();
        sleeping.forEach(LockSupport::unpark);
    }

    /**
     * Reads until the source is over, whenever nobody else does. It gives way to those who wait with the next thing that
     * comes, and comes back some time after the last of them has gone: to be called back would cost each of them the wake-up
     * that reading spares.
     */
    void standBy() {
        while (!source.isOver()) {
            int before = taken;
            if (shared) {
                LockSupport.parkNanos(this, STANDING_BACK_NANOS);
            }
            if (before == taken && turn.tryLock()) {
                try {
                    do {
                        source.read(Long.MAX_VALUE);
                    } while (!source.isOver() && (!shared || sleeping.isEmpty()));
                } finally {
                    pass();
                }
            }
        }
    }
}
