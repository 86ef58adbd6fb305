package tovu.local.delivery;

import java.util.concurrent.Executors;
import java.util.concurrent.ScheduledExecutorService;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.atomic.AtomicBoolean;

/**
 * Tells the author of a federate, once, that callbacks are waiting although it has never evoked any: nothing else
 * would show why nothing ever happens.
 */
final class EvokeReminder {
    private static final String PATIENCE_PROPERTY = "tovu.local.evokeReminder";
    private static final long PATIENCE_SECONDS = Long.getLong(PATIENCE_PROPERTY, 10);

    /** Made when the first callback is posted that may have to wait. */
    private static final class Clock {
        private static final ScheduledExecutorService INSTANCE = Executors.newSingleThreadScheduledExecutor(task -> {
            Thread thread = new Thread(task, "reminder to evoke");
            thread.setDaemon(true);
            return thread;
        });
    }

    /** What the reminder is about. */
    interface Waiting {
        boolean isPending();

        String member();
    }

    private final Waiting callbacks;
    private final AtomicBoolean scheduled = new AtomicBoolean(PATIENCE_SECONDS <= 0);
    private volatile boolean needless;

    EvokeReminder(Waiting callbacks) {
        this.callbacks = callbacks;
    }

    /** There is a callback to be evoked. */
    void posted() {
        if (!needless && !scheduled.get() && scheduled.compareAndSet(false, true)) {
            Clock.INSTANCE.schedule(this::remind, PATIENCE_SECONDS, TimeUnit.SECONDS);
        }
    }

    /** The federate knows how callbacks are evoked, or need not. */
    void cancel() {
        needless = true;
    }

    private void remind() {
        if (!needless && callbacks.isPending()) {
            System.err.println(callbacks.member() + " has callbacks waiting and has evoked none for "
                    + PATIENCE_SECONDS + " s; call evokeCallback or evokeMultipleCallbacks again and again, or connect"
                    + " with HLA_IMMEDIATE (-D" + PATIENCE_PROPERTY + "=0 turns this reminder off)");
        }
    }
}
