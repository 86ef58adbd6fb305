package tovu.local.model.exchange;

import java.util.concurrent.atomic.AtomicInteger;

/**
 * The handles of what federates make while a federation runs: object instances and regions. No two federations
 * of a process ever have the same one, so that a handle that belongs to another federation is told from one's own;
 * but for those that come back with a save of another process.
 */
final class RuntimeHandles {
    private static final AtomicInteger LAST = new AtomicInteger();

    private RuntimeHandles() {
    }

    static int next() {
        int handle = LAST.incrementAndGet();
        return handle != 0 ? handle : next(); // 0 is no handle
    }

    static int last() {
        return LAST.get();
    }

    /** Gives out none of those up to that one. */
    static void passOver(int handle) {
        LAST.accumulateAndGet(handle, (one, other) -> Integer.compareUnsigned(one, other) > 0 ? one : other);
    }
}
