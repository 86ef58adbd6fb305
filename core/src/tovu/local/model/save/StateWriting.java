package tovu.local.model.save;

import java.io.FilterOutputStream;
import java.io.IOException;
import java.io.InterruptedIOException;
import java.io.OutputStream;
import java.util.concurrent.CompletableFuture;
import tovu.local.model.port.SaveStore;

/**
 * A federation's state on its way into a save, without the federation's lock where that may take long, so that nobody
 * waits for a disk. The state stands still meanwhile: whoever has to change it stops the writing before.
 */
final class StateWriting {
    private final CompletableFuture<Void> stateWritten = new CompletableFuture<>();
    private volatile boolean stopped;

    /** @return the whole save, which is still to be published */
    SaveStore.Draft write(SaveStore saves, String label, Snapshot snapshot) throws IOException {
        try {
            SaveStore.Draft draft = saves.draft(label);
            try {
                snapshot.write(new Stoppable(draft.content()));
                stateWritten.complete(null);
                draft.complete();
                return draft;
            } catch (IOException | RuntimeException | Error e) {
                draft.close();
                throw e;
            }
        } finally {
            stateWritten.complete(null);
        }
    }

    boolean isStopped() {
        return stopped;
    }

    /** Under the federation's lock: nothing comes of it, and when this returns the state may change. */
    void stop() {
        stopped = true;
        stateWritten.join();
    }

    private final class Stoppable extends FilterOutputStream {
        Stoppable(OutputStream out) {
            super(out);
        }

        @Override
        public void write(int octet) throws IOException {
            requireWanted();
            out.write(octet);
        }

        @Override
        public void write(byte[] bytes, int offset, int length) throws IOException {
            requireWanted();
            out.write(bytes, offset, length);
        }

        private void requireWanted() throws InterruptedIOException {
            if (stopped) {
                throw new InterruptedIOException("stopped");
            }
        }
    }
}
