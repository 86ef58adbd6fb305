package tovu.local.remote;

import java.util.concurrent.Executors;
import java.util.concurrent.ScheduledExecutorService;
import java.util.concurrent.ScheduledThreadPoolExecutor;

/** The one timer of all connections to hubs. Made when the first of them is. */
final class HubClock {
    static final ScheduledExecutorService INSTANCE = make();

    private HubClock() {
    }

    private static ScheduledExecutorService make() {
        ScheduledThreadPoolExecutor clock = new ScheduledThreadPoolExecutor(1, task -> {
            Thread thread = Executors.defaultThreadFactory().newThread(task);
            thread.setName("hub clock");
            thread.setDaemon(true);
            return thread;
        });
        clock.setRemoveOnCancelPolicy(true);
        return clock;
    }
}
