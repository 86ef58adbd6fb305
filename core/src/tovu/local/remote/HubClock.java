package tovu.local.remote;

import java.util.concurrent.Executor;
import java.util.concurrent.Executors;
import java.util.concurrent.ScheduledExecutorService;
import java.util.concurrent.ScheduledThreadPoolExecutor;
import java.util.concurrent.ThreadFactory;

/**
 * The one timer of all connections to hubs, made when the first of them is. It never waits for a hub: what may have to
 * wait does so in threads of its own.
 */
final class HubClock {
    static final ScheduledExecutorService INSTANCE = make();
    static final Executor WAITERS = Executors.newCachedThreadPool(daemons("hub waiter"));

    private HubClock() {
    }

    private static ScheduledExecutorService make() {
        ScheduledThreadPoolExecutor clock = new ScheduledThreadPoolExecutor(1, daemons("hub clock"));
        clock.setRemoveOnCancelPolicy(true);
        return clock;
    }

    private static ThreadFactory daemons(String name) {
        return task -> {
            Thread thread = new Thread(task, name);
            thread.setDaemon(true);
            return thread;
        };
    }
}
