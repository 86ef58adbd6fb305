package tovu.local.model.time;

import java.util.concurrent.Future;
import java.util.concurrent.ScheduledThreadPoolExecutor;
import java.util.concurrent.TimeUnit;

/**
 * The one clock of the process, by which updates that came too early are delivered and federates are reported on. Its
 * thread, which begins when it is first needed, takes a federation's lock when something is due, never while it waits.
 */
public final class Clock {
    private static final ScheduledThreadPoolExecutor EXECUTOR = new ScheduledThreadPoolExecutor(1, task -> {
        Thread thread = new Thread(task, "clock");
        thread.setDaemon(true);
        return thread;
    });

    static {
        EXECUTOR.setRemoveOnCancelPolicy(true);
    }

    private Clock() {
    }

    public static void after(long nanoseconds, Runnable task) {
        EXECUTOR.schedule(task, nanoseconds, TimeUnit.NANOSECONDS);
    }

    /** @return by which it is ended */
    public static Future<?> every(int seconds, Runnable task) {
        return EXECUTOR.scheduleAtFixedRate(task, seconds, seconds, TimeUnit.SECONDS);
    }
}
