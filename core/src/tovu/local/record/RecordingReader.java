package tovu.local.record;

import java.io.BufferedInputStream;
import java.io.DataInputStream;
import java.io.EOFException;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.NoSuchFileException;
import java.nio.file.Path;
import java.time.Instant;
import java.time.temporal.ChronoUnit;
import java.util.Arrays;
import java.util.zip.InflaterInputStream;
import java.util.zip.ZipException;
import tovu.local.record.Recording.Kind;

/** Reads a recording from its beginning to its end, which may be where its hub has crashed. */
final class RecordingReader implements AutoCloseable {
    /**
     * Something that was recorded.
     *
     * @param micros     since the recording began
     * @param connection its number
     * @param tag        of a request and its answer: the same for both
     * @param code       of the service, or of the callback
     * @param number     of the callback; in a request of the last one that had begun
     * @param content    a message, a result or a text
     */
    record Entry(Kind kind, long micros, int connection, int tag, int code, long number, byte[] content) {
        String text() {
            return new String(content, StandardCharsets.UTF_8);
        }
    }

    private final DataInputStream in;
    private final Instant begin;
    private long micros;
    private boolean cut;
    private byte[] record;
    private int position;

    RecordingReader(Path file) throws IOException {
        BufferedInputStream plain;
        try {
            plain = new BufferedInputStream(Files.newInputStream(file), 1 << 16);
        } catch (NoSuchFileException e) {
            throw new IOException("'" + file + "' does not exist", e);
        }
        DataInputStream header = new DataInputStream(plain);
        if (!Arrays.equals(header.readNBytes(Recording.MAGIC.length), Recording.MAGIC)) {
            throw new IOException("'" + file + "' is no recording of a hub");
        }
        int version = header.readInt();
        if (version != Recording.VERSION) {
            throw new IOException("'" + file + "' is of version " + version + ", and this program reads version "
                    + Recording.VERSION + "; take the one of the release that recorded it");
        }
        begin = Instant.EPOCH.plus(header.readLong(), ChronoUnit.MICROS);
        in = new DataInputStream(new BufferedInputStream(new InflaterInputStream(plain), 1 << 16));
    }

    /** When it began. */
    Instant begin() {
        return begin;
    }

    /** Whether it ended otherwise than by its hub's end. */
    boolean isCut() {
        return cut;
    }

    /** The next one, or null at the end. */
    Entry next() throws IOException {
        try {
            int first = in.read();
            if (first < 0) {
                return null;
            }
            record = in.readNBytes(length(first));
            position = 0;
            return entry();
        } catch (EOFException | ZipException | ArrayIndexOutOfBoundsException e) {
            cut = true;
            return null;
        }
    }

    private int length(int first) throws IOException {
        int length = first & 0x7F;
        for (int next = first, shift = 7; (next & 0x80) != 0; shift += 7) {
            next = in.readUnsignedByte();
            length |= (next & 0x7F) << shift;
        }
        return length;
    }

    private Entry entry() throws IOException {
        Kind kind = Kind.of(octet());
        if (kind == null) {
            throw new IOException("the recording has something in it that no hub records");
        }
        micros += number();
        int connection = (int) number();
        return switch (kind) {
            case OPENED, RETRACTED, CLOSED -> new Entry(kind, micros, connection, 0, 0, 0, rest());
            case REQUEST -> {
                int tag = octet();
                int service = (int) number();
                long begun = number();
                number(); // how many of these have not ended
                yield new Entry(kind, micros, connection, tag, service, begun, rest());
            }
            case RESULT, FAILURE -> new Entry(kind, micros, connection, octet(), 0, 0, rest());
            case CALLBACK, LATE_CALLBACK -> {
                long number = number();
                yield new Entry(kind, micros, connection, 0, (int) number(), number, rest());
            }
        };
    }

    private int octet() {
        return record[position++] & 0xFF;
    }

    private long number() {
        long number = 0;
        int next = 0x80;
        for (int shift = 0; (next & 0x80) != 0; shift += 7) {
            next = octet();
            number |= (next & 0x7FL) << shift;
        }
        return number;
    }

    private byte[] rest() {
        return Arrays.copyOfRange(record, position, record.length);
    }

    @Override
    public void close() throws IOException {
        in.close();
    }
}
