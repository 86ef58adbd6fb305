package tovu.local.saves;

import java.io.BufferedOutputStream;
import java.io.DataOutputStream;
import java.io.IOException;
import java.io.OutputStream;
import java.nio.channels.Channels;
import java.nio.channels.FileChannel;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.StandardCopyOption;
import java.nio.file.StandardOpenOption;
import java.util.zip.CRC32C;
import java.util.zip.CheckedOutputStream;
import tovu.local.model.port.SaveStore;

/** A file of another name until it is whole and on the disk. */
final class FileDraft implements SaveStore.Draft {
    private final Path target;
    private final Path unfinished;
    private final FileChannel channel;
    private final CheckedOutputStream checked;
    private final DataOutputStream out;

    FileDraft(Path target) throws IOException {
        this.target = target;
        unfinished = Files.createTempFile(target.getParent(), "", SaveFolder.UNFINISHED); // for its owner's eyes only
        channel = FileChannel.open(unfinished, StandardOpenOption.WRITE);
        checked = new CheckedOutputStream(
                new BufferedOutputStream(Channels.newOutputStream(channel), FileSaves.BUFFER), new CRC32C());
        out = new DataOutputStream(checked);
        out.writeLong(FileSaves.MAGIC);
        out.writeInt(FileSaves.VERSION);
    }

    @Override
    public OutputStream content() {
        return out;
    }

    @Override
    public void complete() throws IOException {
        out.writeInt((int) checked.getChecksum().getValue());
        out.flush();
        channel.force(true);
        channel.close();
    }

    /** The one step from nothing to a save: whoever may not write any more has to be found out before it. */
    @Override
    public void publish() throws IOException {
        Files.move(unfinished, target, StandardCopyOption.ATOMIC_MOVE);
        SaveFolder.sync(target.getParent());
    }

    @Override
    public void close() {
        try (channel) {
            Files.deleteIfExists(unfinished);
        } catch (IOException e) {
            // it goes when the folder is opened the next time
        }
    }
}
