package tovu.local.record;

import java.io.BufferedInputStream;
import java.io.DataInputStream;
import java.io.EOFException;
import java.io.IOException;
import java.nio.BufferUnderflowException;
import java.nio.ByteBuffer;
import java.nio.file.Files;
import java.nio.file.NoSuchFileException;
import java.nio.file.Path;
import java.time.Instant;
import java.time.temporal.ChronoUnit;
import java.util.ArrayDeque;
import java.util.Arrays;
import java.util.HashMap;
import java.util.Map;
import java.util.Queue;
import java.util.zip.CRC32C;
import net.jpountz.lz4.LZ4Factory;
import net.jpountz.lz4.LZ4SafeDecompressor;

/** Reads a recording from its beginning to its end, which may be where its hub has crashed. */
final class RecordingReader implements AutoCloseable {
    private final DataInputStream in;
    private final Instant begin;
    private final Map<Integer, RecordedFrames> connections = new HashMap<>();
    private final Queue<Entry> entries = new ArrayDeque<>();
    private final LZ4SafeDecompressor decompressor = LZ4Factory.fastestInstance().safeDecompressor();
    private ByteBuffer block = ByteBuffer.allocate(0);
    private long micros;
    private boolean ended;
    private boolean cut;

    RecordingReader(Path file) throws IOException {
        try {
            in = new DataInputStream(new BufferedInputStream(Files.newInputStream(file), 1 << 16));
        } catch (NoSuchFileException e) {
            throw new IOException("'" + file + "' does not exist", e);
        }
        if (!Arrays.equals(in.readNBytes(Recording.MAGIC.length), Recording.MAGIC)) {
            throw new IOException("'" + file + "' is no recording of a hub");
        }
        int version = in.readInt();
        if (version != Recording.VERSION) {
            throw new IOException("'" + file + "' is of version " + version + ", and this program reads version "
                    + Recording.VERSION + "; take the one of the release that recorded it");
        }
        begin = Instant.EPOCH.plus(in.readLong(), ChronoUnit.MICROS);
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
        while (entries.isEmpty() && hasRecord()) {
            record();
        }
        return entries.poll();
    }

    private boolean hasRecord() throws IOException {
        if (!block.hasRemaining() && !ended) {
            try {
                block = readBlock();
                ended = !block.hasRemaining();
            } catch (EOFException e) {
                ended = true;
                cut = true;
            }
        }
        return !ended;
    }

    private ByteBuffer readBlock() throws IOException {
        int expected = in.readInt();
        int size = in.readInt();
        int length = in.readInt();
        byte[] compressed = in.readNBytes(Math.max(0, size));
        if (compressed.length < size) {
            throw new EOFException();
        }
        CRC32C sum = new CRC32C();
        sum.update(ByteBuffer.allocate(2 * Integer.BYTES).putInt(size).putInt(length).flip());
        sum.update(compressed);
        if ((int) sum.getValue() != expected) {
            throw damaged();
        }
        return ByteBuffer.wrap(decompressor.decompress(compressed, length));
    }

    private static IOException damaged() {
        return new IOException("the recording is damaged: it has something in it that no hub records");
    }

    private void record() throws IOException {
        try {
            Recording.Kind kind = Recording.Kind.of(block.get());
            if (kind == null) {
                throw damaged();
            }
            micros += number();
            int connection = (int) number();
            RecordedFrames its = connections.computeIfAbsent(connection, one -> new RecordedFrames(one, entries::add));
            int length = (int) number();
            its.record(kind, micros, block.slice(block.position(), length));
            block.position(block.position() + length);
            if (kind == Recording.Kind.CLOSED) {
                connections.remove(connection);
            }
        } catch (BufferUnderflowException | IllegalArgumentException | IndexOutOfBoundsException e) {
            throw new IOException(damaged().getMessage(), e);
        }
    }

    private long number() {
        long number = 0;
        int next = 0x80;
        for (int shift = 0; (next & 0x80) != 0; shift += 7) {
            next = block.get();
            number |= (next & 0x7FL) << shift;
        }
        return number;
    }

    @Override
    public void close() throws IOException {
        in.close();
    }
}
