package tovu.local.record;

import java.io.IOException;
import java.io.OutputStream;
import java.nio.ByteBuffer;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.time.Instant;
import java.time.temporal.ChronoUnit;
import java.util.List;
import java.util.concurrent.TimeUnit;
import java.util.zip.Deflater;
import java.util.zip.DeflaterOutputStream;
import tovu.local.record.Recording.Kind;
import tovu.local.wire.FrameWriter;
import tovu.local.wire.Result;

/**
 * Writes a recording. Who has something to record only puts it into a block; a thread of its own compresses and
 * writes that, a few times a second, so that a crash costs no more than what came after the last time. When the file
 * cannot be written fast enough those who record wait, and when it cannot be written at all it ends there.
 */
public final class Recorder implements AutoCloseable {
    private static final long PERIOD_MILLIS = 250;
    private static final int EAGER = 1 << 20; // bytes that are worth writing at once
    private static final int GREATEST = 1 << 26; // bytes that may wait
    private static final int BUFFER = 1 << 16;

    private final Path file;
    private final OutputStream out;
    private final Thread writer = new Thread(this::write, "recorder");
    private final Deflater deflater = new Deflater(Deflater.BEST_SPEED);
    private Block filling = new Block(); // guarded by the monitor, like all below
    private final Block record = new Block();
    private long last = System.nanoTime();
    private int connections;
    private boolean closed;
    private String failure;

    /** @throws IOException when the file cannot be made */
    public Recorder(Path file) throws IOException {
        this.file = file;
        try {
            OutputStream plain = Files.newOutputStream(file);
            plain.write(Recording.MAGIC);
            plain.write(ByteBuffer.allocate(Integer.BYTES + Long.BYTES).putInt(Recording.VERSION)
                    .putLong(ChronoUnit.MICROS.between(Instant.EPOCH, Instant.now())).array());
            out = new DeflaterOutputStream(plain, deflater, BUFFER, true);
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
            begin(Kind.OPENED, number);
            record.bytes(address.getBytes(StandardCharsets.UTF_8));
            end();
        }
        return new Connection(number);
    }

    private void begin(Kind kind, int connection) {
        while (filling.length() > GREATEST && failure == null && !closed) {
            try {
                wait();
            } catch (InterruptedException e) {
                Thread.currentThread().interrupt();
                break;
            }
        }
        long now = System.nanoTime();
        long micros = TimeUnit.NANOSECONDS.toMicros(now - last);
        last += TimeUnit.MICROSECONDS.toNanos(micros);
        record.clear();
        record.octet(kind.ordinal());
        record.number(micros);
        record.number(connection);
    }

    private void end() {
        if (failure == null && !closed) {
            filling.number(record.length());
            filling.append(record);
            if (filling.length() > EAGER) {
                notifyAll();
            }
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
                    writing.writeTo(out);
                    out.flush();
                    writing.clear();
                }
            }
        } catch (IOException e) {
            synchronized (this) {
                failure = e.toString();
                notifyAll();
            }
            System.err.println("the recording '" + file + "' ends here: " + e);
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
        } finally {
            deflater.end();
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
        public void request(int request, int service, long begun, long ended, byte[] message) {
            synchronized (Recorder.this) {
                begin(Kind.REQUEST, number);
                record.octet(request);
                record.number(service);
                record.number(begun);
                record.number(begun - ended);
                record.bytes(message);
                end();
            }
        }

        @Override
        public void result(int request, Object result) {
            byte[] encoded = null;
            if (result != null) {
                FrameWriter writing = FrameWriter.withoutFrame();
                Result.write(writing, result);
                encoded = writing.content();
            }
            synchronized (Recorder.this) {
                begin(Kind.RESULT, number);
                record.octet(request);
                if (encoded != null) {
                    record.bytes(encoded);
                }
                end();
            }
        }

        @Override
        public void failure(int request, String exception, String text) {
            synchronized (Recorder.this) {
                begin(Kind.FAILURE, number);
                record.octet(request);
                record.bytes((exception + ": " + text).getBytes(StandardCharsets.UTF_8));
                end();
            }
        }

        @Override
        public void callback(long callback, boolean late, int method, byte[] message) {
            synchronized (Recorder.this) {
                begin(late ? Kind.LATE_CALLBACK : Kind.CALLBACK, number);
                record.number(callback);
                record.number(method);
                record.bytes(message, Recording.ENVELOPE_BEGIN, message.length - Recording.ENVELOPE);
                end();
            }
        }

        @Override
        public void retracted(List<Long> callbacks) {
            synchronized (Recorder.this) {
                begin(Kind.RETRACTED, number);
                callbacks.forEach(record::number);
                end();
            }
        }

        @Override
        public void closed(String reason) {
            synchronized (Recorder.this) {
                begin(Kind.CLOSED, number);
                record.bytes(reason.getBytes(StandardCharsets.UTF_8));
                end();
            }
        }
    }
}
