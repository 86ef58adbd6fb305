package tovu.local.remote;

import java.io.IOException;
import java.io.OutputStream;
import java.util.Arrays;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.locks.LockSupport;
import java.util.concurrent.locks.ReentrantLock;
import java.util.function.Consumer;

/**
 * Frames on their way out. What comes while others are being written waits, and leaves together with whatever else
 * does. Whoever is faster than the stream waits until there is room.
 */
final class Outbox {
    private static final int ROOM = 1 << 18; // bytes that may wait
    private static final int KEPT = 2 * ROOM; // of a buffer
    private static final long BUSY_NANOS = 50_000; // after a write

    private final OutputStream out;
    private final Consumer<IOException> onFailure;
    private final ReentrantLock writing = new ReentrantLock();
    private byte[] waiting = new byte[1 << 12]; // guarded by the monitor, like the two below
    private int size;
    private boolean ended;
    private byte[] spare = new byte[1 << 12]; // of who writes
    private volatile long written = System.nanoTime() - BUSY_NANOS;
    private Thread writer; // guarded by the monitor; made when the first frame has to be left
    private volatile boolean idle;

    /** @param onFailure is told, by whoever writes, when that fails; what comes then is dropped */
    Outbox(OutputStream out, Consumer<IOException> onFailure) {
        this.out = out;
        this.onFailure = onFailure;
    }

    /** Returns when the frame has left, and all before it. */
    void send(byte[] frame) {
        add(frame);
        writing.lock();
        try {
            flush();
        } finally {
            writing.unlock();
        }
    }

    /** Sends a frame at once if the stream is idle; else it leaves with the others. */
    void leave(byte[] frame) {
        add(frame);
        if (System.nanoTime() - written > BUSY_NANOS && writing.tryLock()) {
            try {
                flush();
            } finally {
                writing.unlock();
            }
        } else {
            wakeWriter();
        }
    }

    private synchronized void add(byte[] frame) {
        boolean interrupted = false;
        while (size > ROOM && !ended) {
            try {
                wait();
            } catch (InterruptedException e) {
                interrupted = true;
            }
        }
        if (interrupted) {
            Thread.currentThread().interrupt();
        }
        if (size + frame.length > waiting.length) {
            waiting = Arrays.copyOf(waiting, Math.max(size + frame.length, 2 * waiting.length));
        }
        System.arraycopy(frame, 0, waiting, size, frame.length);
        size += frame.length;
    }

    /** Writes what waits. */
    private void flush() {
        byte[] frames;
        int length;
        synchronized (this) {
            frames = waiting;
            length = ended ? 0 : size;
            waiting = spare;
            size = 0;
            notifyAll();
        }
        if (length > 0) {
            try {
                out.write(frames, 0, length);
                out.flush();
            } catch (IOException e) {
                end();
                onFailure.accept(e);
            }
            written = System.nanoTime();
        }
        spare = frames.length > KEPT ? new byte[1 << 12] : frames; // a huge frame must not cost its memory for ever
    }

    private void wakeWriter() {
        synchronized (this) {
            if (writer == null && !ended) {
                writer = new Thread(this::write, "hub writer");
                writer.setDaemon(true);
                writer.start();
            }
        }
        if (idle) {
            idle = false;
            LockSupport.unpark(writer);
        }
    }

    private void write() {
        while (!isEnded()) {
            idle = true;
            if (isEmpty()) {
                LockSupport.parkNanos(this, TimeUnit.SECONDS.toNanos(1));
            }
            idle = false;
            while (!isEmpty()) {
                writing.lock();
                try {
                    flush();
                } finally {
                    writing.unlock();
                }
            }
        }
    }

    private synchronized boolean isEmpty() {
        return size == 0;
    }

    private synchronized boolean isEnded() {
        return ended;
    }

    /** Nobody waits any more, and nothing leaves. */
    synchronized void end() {
        ended = true;
        size = 0;
        notifyAll();
        LockSupport.unpark(writer);
    }
}
