package tovu.local.saves;

import java.io.IOException;
import java.nio.channels.FileChannel;
import java.nio.channels.OverlappingFileLockException;
import java.nio.file.DirectoryStream;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.StandardOpenOption;
import java.util.function.Function;
import tovu.local.model.port.SaveStore;
import tovu.local.model.save.MemorySaves;

/** A folder that has a folder for the saves of each federation. One process at a time writes there. */
public final class SaveFolder {
    /** The system property that names the folder of this process. */
    public static final String PROPERTY = "tovu.saves";

    static final String UNFINISHED = ".part";
    private static final String LOCK = ".lock"; // no federation's folder has a name like that
    private static final SaveFolder CONFIGURED = System.getProperty(PROPERTY) == null ? null
            : new SaveFolder(Path.of(System.getProperty(PROPERTY)));

    private final Path path;
    private FileChannel lock; // null until the folder is this process's; open until that ends

    private SaveFolder(Path path) {
        this.path = path;
    }

    /** Where this process has the saves of a federation of some name. */
    public static Function<String, SaveStore> stores() {
        return CONFIGURED == null ? name -> new MemorySaves()
                : name -> CONFIGURED.store(CONFIGURED.path.resolve(FileName.of(name)));
    }

    private SaveStore store(Path federation) {
        return new FileSaves(federation, () -> prepare(federation));
    }

    /** Makes sure that saves can be written, where there is a folder for them; they do that themselves, but later. */
    public static void openConfigured() throws IOException {
        if (CONFIGURED != null) {
            CONFIGURED.open();
        }
    }

    synchronized void open() throws IOException {
        if (lock != null) {
            return;
        }
        try {
            if (!Files.isDirectory(path)) {
                Files.createDirectories(path);
                sync(path.toAbsolutePath().getParent());
            }
            FileChannel mine = FileChannel.open(path.resolve(LOCK), StandardOpenOption.CREATE, StandardOpenOption.WRITE);
            if (!locks(mine)) {
                mine.close();
                throw new IOException("another process uses it; give each one a folder of its own");
            }
            lock = mine;
            removeUnfinished();
        } catch (IOException e) {
            throw new IOException("saves cannot be written to '" + path + "': " + SaveStore.reason(e), e);
        }
    }

    private static boolean locks(FileChannel channel) throws IOException {
        try {
            return channel.tryLock() != null;
        } catch (OverlappingFileLockException e) {
            return false; // a second core in this process has it
        }
    }

    /** What a process has not finished when it ended nobody ever asks for. */
    private void removeUnfinished() throws IOException {
        try (DirectoryStream<Path> federations = Files.newDirectoryStream(path, Files::isDirectory)) {
            for (Path federation : federations) {
                try (DirectoryStream<Path> files = Files.newDirectoryStream(federation, "*" + UNFINISHED)) {
                    for (Path each : files) {
                        Files.delete(each);
                    }
                }
            }
        }
    }

    /** Opens the folder, and makes that of a federation. */
    private void prepare(Path federation) throws IOException {
        open();
        if (!Files.isDirectory(federation)) {
            Files.createDirectory(federation);
            sync(path);
        }
    }

    /** Has what was done in a folder outlive a loss of power. */
    static void sync(Path folder) throws IOException {
        try (FileChannel channel = FileChannel.open(folder)) {
            channel.force(true);
        }
    }
}
