package tovu.local.model.save;

import java.util.concurrent.Callable;
import java.util.concurrent.CompletableFuture;
import java.util.function.BiConsumer;

/** Where snapshots are written and read: that goes down from federate to federate, and a stack holds a hundred or so. */
final class SnapshotThread {
    private static final long STACK_BYTES = 256L << 20; // which are taken as they are needed

    private SnapshotThread() {
    }

    /**
     * Does some work on such a thread. Called with a lock held, which others may take meanwhile unless it is quick work.
     *
     * @param outcome is told, under the same lock, what came of it or why nothing did
     */
    static <R> void run(Object lock, boolean quick, Callable<R> work, BiConsumer<R, Throwable> outcome) {
        CompletableFuture<Runnable> conclusion = new CompletableFuture<>();
        try {
            Thread thread = new Thread(null, () -> {
                Runnable concluding = conclusion(work, outcome);
                if (quick) {
                    conclusion.complete(concluding);
                } else {
                    synchronized (lock) {
                        concluding.run();
                    }
                }
            }, "snapshot", STACK_BYTES);
            thread.setDaemon(true);
            thread.start();
        } catch (OutOfMemoryError e) { // no room for a thread
            outcome.accept(null, e);
            return;
        }
        if (quick) {
            conclusion.join().run();
        }
    }

    private static <R> Runnable conclusion(Callable<R> work, BiConsumer<R, Throwable> outcome) {
        try {
            R result = work.call();
            return () -> outcome.accept(result, null);
        } catch (Throwable e) { // whatever it is: somebody waits
            return () -> outcome.accept(null, e);
        }
    }
}
