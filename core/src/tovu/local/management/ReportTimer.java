package tovu.local.management;

import java.util.concurrent.Future;
import java.util.concurrent.ScheduledThreadPoolExecutor;
import java.util.concurrent.TimeUnit;

/** The one clock of the process by which federates are reported on again and again. */
final class ReportTimer {
    private static final ScheduledThreadPoolExecutor CLOCK = clock();

    private ReportTimer() {
    }

    private static ScheduledThreadPoolExecutor clock() {
        ScheduledThreadPoolExecutor clock = new ScheduledThreadPoolExecutor(1, task -> {
            Thread thread = new Thread(task, "reports");
            thread.setDaemon(true);
            return thread;
        });
        clock.setRemoveOnCancelPolicy(true);
        return clock;
    }

    static Future<?> every(int seconds, Runnable task) {
        return CLOCK.scheduleAtFixedRate(task, seconds, seconds, TimeUnit.SECONDS);
    }
}
