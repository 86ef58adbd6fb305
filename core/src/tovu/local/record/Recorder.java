package tovu.local.record;

import java.io.IOException;
import java.nio.ByteBuffer;
import java.nio.charset.StandardCharsets;
import java.nio.file.Path;
import java.util.concurrent.TimeUnit;
import tovu.local.record.Recording.Kind;

/**
 * Writes a recording. Who has something to record only puts it into a block; a thread of its own writes that, a few
 * times a second, so that a crash costs no more than what came after the last time. When the file cannot be written fast enough those who record wait, and when it cannot be
 * written at all it ends there.
 */
public final class Recorder implements AutoCloseable {
    private static final long PERIOD_MILLIS = 250;
    private static final int EAGER = 1 << 18; // bytes that are worth writing at once
    private static final int GREATEST = 1 << 26; // bytes that may wait

    private final Path file;
    private final BlockWriter out;
    private final Thread writer = new Thread(this::write, "recorder");
    private Block filling = new Block(); // guarded by the monitor, like all below
    private long last = System.nanoTime();
    private int connections;
    private boolean closed;
    private String failure;

    /** @throws IOException when the file cannot be made */
    public Recorder(Path file) throws IOException {
        this.file = file;
        try {
            out = new BlockWriter(file);
        } catch (IOException e) {
            throw new IOException("'" + file + "' cannot be written (" + e + ")", e);
        }
        writer.setDaemon(true);
        writer.start();
    }

    /** Records a connection from here on. */
    public RecordedConnection opened(String address) {
        int number;
        synchronized (this) {
            number = connections++;
        }
        record(Kind.OPENED, number, ByteBuffer.wrap(address.getBytes(StandardCharsets.UTF_8)));
        return new Connection(number);
    }

    private synchronized void record(Kind kind, int connection, ByteBuffer content) {
        while (filling.length() > GREATEST && failure == null && !closed) {
            try {
                wait();
            } catch (InterruptedException e) {
                Thread.currentThread().interrupt();
                break;
            }
        }
        if (failure != null || closed) {
            return;
        }
        long micros = TimeUnit.NANOSECONDS.toMicros(System.nanoTime() - last);
        last += TimeUnit.MICROSECONDS.toNanos(micros);
        filling.octet(kind.ordinal());
        filling.number(micros);
        filling.number(connection);
        filling.number(content.remaining());
        filling.bytes(content);
        if (filling.length() > EAGER) {
            notifyAll();
        }
    }

    private void write() {
        Block writing = new Block();
        try (out) {
            boolean more = true;
            while (more) {
                synchronized (this) {
                    if (filling.length() <= EAGER && !closed) {
                        wait(PERIOD_MILLIS);
                    }
                    more = !closed || filling.length() > 0;
                    Block full = filling;
                    filling = writing;
                    writing = full;
                    notifyAll();
                }
                if (writing.length() > 0) {
                    out.write(writing);
                    writing.clear();
                }
            }
            out.end();
        } catch (IOException | RuntimeException | Error e) { // or those who record would wait for ever
            synchronized (this) {
                failure = e.toString();
                notifyAll();
            }
            System.err.println("the recording '" + file + "' ends here: " + e);
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
        }
    }

    /** Returns when all is written. */
    @Override
    public void close() {
        synchronized (this) {
            closed = true;
            notifyAll();
        }
        try {
            writer.join();
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
        }
    }

    private final class Connection implements RecordedConnection {
        private final int number;

        Connection(int number) {
            this.number = number;
        }

        @Override
        public void received(ByteBuffer bytes) {
            record(Kind.RECEIVED, number, bytes);
        }

        @Override
        public void sent(ByteBuffer bytes) {
            record(Kind.SENT, number, bytes);
        }

        @Override
        public void dropped(int service, byte[] message, String exception, String text) {
            byte[] failure = (exception + ": " + text).getBytes(StandardCharsets.UTF_8);
            record(Kind.DROPPED, number, ByteBuffer.allocate(2 * Integer.BYTES + message.length + failure.length)
                    .putInt(service).putInt(message.length).put(message).put(failure).flip());
        }

        @Override
        public void closed(String reason) {
            record(Kind.CLOSED, number, ByteBuffer.wrap(reason.getBytes(StandardCharsets.UTF_8)));
        }
    }
}
