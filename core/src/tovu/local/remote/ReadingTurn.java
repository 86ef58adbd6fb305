package tovu.local.remote;

import java.util.Queue;
import java.util.concurrent.ConcurrentLinkedQueue;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.locks.LockSupport;
import java.util.concurrent.locks.ReentrantLock;
import java.util.function.BooleanSupplier;
import java.util.function.LongConsumer;

/**
 * Whose turn it is to read what comes from a hub. Of the threads that wait for something, one reads for all: it need not be
 * woken for what it waits for itself. The others sleep until somebody else's reading has brought what they wait for, or
 * the turn is free. When nobody waits, a thread reads that stands by.
 */
final class ReadingTurn {
    private static final long STANDING_BACK_NANOS = TimeUnit.MILLISECONDS.toNanos(20);

    private final BooleanSupplier over;
    private final LongConsumer reading;
    private final ReentrantLock turn = new ReentrantLock();
    private final Queue<Thread> sleeping = new ConcurrentLinkedQueue<>();
    private volatile int taken; // by those who wait; changes under the lock

    /**
     * @param over    whether nothing comes any more
     * @param reading takes what has come, for which it waits no longer than so many nanoseconds
     */
    ReadingTurn(BooleanSupplier over, LongConsumer reading) {
        this.over = over;
        this.reading = reading;
    }

    /**
     * Returns when that is so, the time is over, or nothing comes any more. Whoever makes it so without reading wakes the
     * thread.
     *
     * @param nanos 0 to take what has come already
     */
    void await(BooleanSupplier so, long nanos) {
        long begin = System.nanoTime();
        long left = nanos;
        boolean interrupted = false;
        do {
            if (turn.tryLock()) {
                readUntil(so, begin, nanos);
            } else if (left > 0) {
                sleepUnless(so, left);
                interrupted |= Thread.interrupted();
            }
            left = left(begin, nanos);
        } while (left > 0 && !so.getAsBoolean() && !over.getAsBoolean());
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
            for (long left = nanos; !so.getAsBoolean() && !over.getAsBoolean(); left = left(begin, nanos)) {
                reading.accept(left);
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
            if (!so.getAsBoolean() && turn.isLocked() && !over.getAsBoolean()) {
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
     * Reads until nothing comes any more, whenever nobody else does. It gives way to those who wait with the next thing that
     * comes, and comes back some time after the last of them has gone: to be called back would cost each of them the wake-up
     * that reading spares.
     */
    void standBy() {
        while (!over.getAsBoolean()) {
            int before = taken;
            LockSupport.parkNanos(this, STANDING_BACK_NANOS);
            if (before == taken && turn.tryLock()) {
                try {
                    do {
                        reading.accept(Long.MAX_VALUE);
                    } while (!over.getAsBoolean() && sleeping.isEmpty());
                } finally {
                    pass();
                }
            }
        }
    }
}
