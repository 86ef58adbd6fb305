package tovu.local.remote;

import java.util.concurrent.locks.LockSupport;
import tovu.local.wire.FrameReader;

/** What one thread waits for: the frame that answers its request, or the loss of the hub. */
final class Answer {
    private static final FrameReader LOST = null;

    private final Thread waiting = Thread.currentThread();
    private volatile boolean done;
    private FrameReader frame = LOST;

    /** @param theFrame null when none will come any more */
    void give(FrameReader theFrame) {
        frame = theFrame;
        done = true;
        LockSupport.unpark(waiting);
    }

    /** Interrupts wait until it is there. @return null when the hub is lost */
    FrameReader await() {
        boolean interrupted = false;
        while (!done) {
            LockSupport.park(this);
            interrupted |= Thread.interrupted();
        }
        if (interrupted) {
            Thread.currentThread().interrupt();
        }
        return frame;
    }
}
