package tovu.local.saves;

import java.io.IOException;
import java.nio.file.DirectoryNotEmptyException;
import java.nio.file.DirectoryStream;
import java.nio.file.FileAlreadyExistsException;
import java.nio.file.Files;
import java.nio.file.NoSuchFileException;
import java.nio.file.Path;
import java.nio.file.StandardCopyOption;
import java.util.Map;
import java.util.TreeSet;
import java.util.concurrent.ConcurrentHashMap;
import tovu.local.model.port.SaveStore;

/**
 * A folder that several processes have federations' saves in, of which each federation is one process's at a time. That
 * of a federation has a single folder, whose name is a number that grows with each process that takes it. Taking renames
 * it: whoever had it before, and does not know it yet, finds nowhere to write any more.
 */
public final class SharedSaves {
    private static final String PLAN = "federation";

    private final Path path;
    private final Map<String, Path> taken = new ConcurrentHashMap<>();

    public SharedSaves(Path path) throws IOException {
        this.path = path;
        try {
            Files.createDirectories(path);
            Files.delete(Files.createTempFile(path, "", SaveFolder.UNFINISHED));
        } catch (IOException e) {
            throw new IOException("saves cannot be written to '" + path + "': " + SaveStore.reason(e), e);
        }
    }

    private Path folder(String federation) {
        return path.resolve(FileName.of(federation));
    }

    private static TreeSet<Long> epochs(Path folder) throws IOException {
        TreeSet<Long> epochs = new TreeSet<>();
        try (DirectoryStream<Path> each = Files.newDirectoryStream(folder, file ->
                file.getFileName().toString().matches("\\d{1,18}"))) {
            each.forEach(file -> epochs.add(Long.parseLong(file.getFileName().toString())));
        } catch (NoSuchFileException e) {
            // nothing was ever saved
        }
        return epochs;
    }

    /** The last epoch in which anybody had the federation; 0 for nobody ever. */
    public long lastEpoch(String federation) throws IOException {
        TreeSet<Long> epochs = epochs(folder(federation));
        return epochs.isEmpty() ? 0 : epochs.last();
    }

    /**
     * Makes the saves of a federation this process's, and no other's.
     *
     * @param epoch is greater than that of whoever had them before
     * @throws IOException when another process has them in a later one
     */
    public SaveStore take(String federation, long epoch) throws IOException {
        Path folder = folder(federation);
        Path mine = folder.resolve(Long.toString(epoch));
        Files.createDirectories(mine);
        for (TreeSet<Long> epochs = epochs(folder); epochs.size() > 1; epochs = epochs(folder)) {
            if (epochs.last() > epoch) {
                Files.deleteIfExists(mine);
                throw new IOException("another hub has taken over the saves in '" + folder + "'");
            }
            bequeath(folder.resolve(Long.toString(epochs.lower(epoch))), mine);
        }
        try (DirectoryStream<Path> unfinished = Files.newDirectoryStream(mine, "*" + SaveFolder.UNFINISHED)) {
            for (Path each : unfinished) {
                Files.delete(each);
            }
        }
        SaveFolder.sync(folder);
        taken.put(federation, mine);
        return new FileSaves(mine, () -> { });
    }

    /** An empty folder may be one that somebody has made too late; a full one takes the place of an empty one. */
    private static void bequeath(Path earlier, Path mine) throws IOException {
        try {
            Files.deleteIfExists(earlier);
        } catch (DirectoryNotEmptyException e) {
            try {
                Files.move(earlier, mine, StandardCopyOption.ATOMIC_MOVE);
            } catch (NoSuchFileException gone) {
                // somebody has taken it in a later epoch
            } catch (FileAlreadyExistsException | DirectoryNotEmptyException both) {
                throw new IOException("both '" + earlier + "' and '" + mine + "' hold files; remove one of them", both);
            }
        }
    }

    /** Keeps what the federation is made of beside its saves. */
    public void keepPlan(String federation, byte[] plan) throws IOException {
        Path mine = taken.get(federation);
        Path unfinished = Files.createTempFile(mine, "", SaveFolder.UNFINISHED);
        Files.write(unfinished, plan);
        Files.move(unfinished, mine.resolve(PLAN), StandardCopyOption.ATOMIC_MOVE);
        SaveFolder.sync(mine);
    }

    /** @return null for a federation that was destroyed, or never quite was */
    public byte[] plan(String federation) throws IOException {
        try {
            return Files.readAllBytes(taken.get(federation).resolve(PLAN));
        } catch (NoSuchFileException e) {
            return null;
        }
    }

    /** The federation is destroyed; its saves stay. */
    public void release(String federation) throws IOException {
        Path mine = taken.remove(federation);
        if (mine != null) {
            Files.deleteIfExists(mine.resolve(PLAN));
        }
    }

    /** Whether others have taken any of what this process has. */
    public boolean isTakenOver() {
        return taken.values().stream().anyMatch(Files::notExists);
    }

    /** This process has none of the federations any more. */
    public void clear() {
        taken.clear();
    }
}
