package tovu.local.saves;

import java.io.BufferedInputStream;
import java.io.DataInputStream;
import java.io.IOException;
import java.nio.channels.Channels;
import java.nio.channels.FileChannel;
import java.nio.file.NoSuchFileException;
import java.nio.file.Path;
import java.util.zip.CRC32C;
import java.util.zip.CheckedInputStream;
import tovu.local.model.port.SaveStore;

/**
 * The saves of one federation, a file each: a head that tells what it is, what the model has written, and a checksum of
 * all that.
 */
final class FileSaves implements SaveStore {
    static final long MAGIC = 0x484c_4173_6176_650aL; // "HLAsave" and the end of the line
    static final int VERSION = 1;
    static final int HEAD = Long.BYTES + Integer.BYTES;
    private static final int CHECKSUM = Integer.BYTES;
    static final int BUFFER = 1 << 16;

    /** Makes sure of the folder before something is written there. */
    interface Preparation {
        void run() throws IOException;
    }

    private final Path path;
    private final Preparation preparation;

    FileSaves(Path path, Preparation preparation) {
        this.path = path;
        this.preparation = preparation;
    }

    private Path file(String label) {
        return path.resolve(FileName.of(label) + ".save");
    }

    @Override
    public boolean isQuick() {
        return false;
    }

    @Override
    public Draft draft(String label) throws IOException {
        preparation.run();
        return new FileDraft(file(label));
    }

    @Override
    public Found find(String label) throws IOException {
        Path file = file(label);
        FileChannel channel;
        try {
            channel = FileChannel.open(file);
        } catch (NoSuchFileException e) {
            return null;
        }
        try {
            requireIntact(channel, file);
            channel.position(HEAD);
            return new Found(new BufferedInputStream(Channels.newInputStream(channel), BUFFER), channel.size());
        } catch (IOException e) {
            channel.close();
            throw e;
        }
    }

    private static void requireIntact(FileChannel channel, Path file) throws IOException {
        CheckedInputStream checked = new CheckedInputStream(
                new BufferedInputStream(Channels.newInputStream(channel), BUFFER), new CRC32C());
        DataInputStream in = new DataInputStream(checked);
        long left = channel.size() - HEAD - CHECKSUM;
        if (left < 0 || in.readLong() != MAGIC) {
            throw new IOException("'" + file + "' is no save");
        }
        int version = in.readInt();
        if (version != VERSION) {
            throw new IOException("'" + file + "' is in version " + version + " of the format, and this core reads version "
                    + VERSION + " only; use the release that has written it");
        }
        byte[] buffer = new byte[BUFFER];
        while (left > 0) {
            int length = in.read(buffer, 0, (int) Math.min(left, buffer.length));
            if (length < 0) {
                break;
            }
            left -= length;
        }
        int sum = (int) checked.getChecksum().getValue();
        if (left > 0 || in.readInt() != sum) {
            throw new IOException("'" + file + "' is damaged; restore from another save");
        }
    }
}
