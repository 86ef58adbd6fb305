package tovu.local.record;

import java.io.IOException;
import java.nio.ByteBuffer;
import java.nio.channels.FileChannel;
import java.nio.file.Path;
import java.nio.file.StandardOpenOption;
import java.time.Instant;
import java.time.temporal.ChronoUnit;
import java.util.zip.CRC32C;
import net.jpountz.lz4.LZ4Compressor;
import net.jpountz.lz4.LZ4Factory;

/** The file of a recording that is written: blocks, each compressed, which costs less than to write it as it is. */
final class BlockWriter implements AutoCloseable {
    private static final int HEADER = 3 * Integer.BYTES;

    private final FileChannel out;
    private final LZ4Compressor compressor = LZ4Factory.fastestInstance().fastCompressor();
    private ByteBuffer compressed = ByteBuffer.allocateDirect(HEADER);

    /** @throws IOException when the file cannot be made */
    BlockWriter(Path file) throws IOException {
        out = FileChannel.open(file, StandardOpenOption.CREATE, StandardOpenOption.WRITE,
                StandardOpenOption.TRUNCATE_EXISTING);
        write(ByteBuffer.wrap(Recording.MAGIC));
        write(ByteBuffer.allocate(Integer.BYTES + Long.BYTES).putInt(Recording.VERSION)
                .putLong(ChronoUnit.MICROS.between(Instant.EPOCH, Instant.now())).flip());
    }

    void write(Block block) throws IOException {
        int greatest = HEADER + compressor.maxCompressedLength(block.length());
        if (compressed.capacity() < greatest) {
            compressed = ByteBuffer.allocateDirect(greatest);
        }
        compressed.clear().position(HEADER);
        compressor.compress(block.content(), compressed);
        compressed.putInt(Integer.BYTES, compressed.position() - HEADER).putInt(2 * Integer.BYTES, block.length());
        CRC32C sum = new CRC32C();
        sum.update(compressed.flip().position(Integer.BYTES));
        write(compressed.rewind().putInt(0, (int) sum.getValue()));
    }

    /** Writes the end, which is a block of nothing. */
    void end() throws IOException {
        write(new Block());
    }

    private void write(ByteBuffer bytes) throws IOException {
        while (bytes.hasRemaining()) {
            out.write(bytes);
        }
    }

    @Override
    public void close() throws IOException {
        out.close();
    }
}
