package tovu.local.watch;

import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.Collection;
import java.util.Deque;
import java.util.List;
import java.util.Map;
import java.util.WeakHashMap;
import java.util.concurrent.TimeUnit;
import java.util.function.Supplier;
import tovu.local.model.exchange.Federate;
import tovu.local.model.federation.Federation;

/**
 * Looks at all federations once a second. However many look on, a federation's lock is taken no more often, and only
 * for as long as it takes to read its counters.
 */
final class Watch {
    private static final long PERIOD_MILLIS = 1_000;
    private static final int REMEMBERED = 300;

    /** How many services a federate had called when that was first seen, and when that was. */
    private record Activity(long services, long since) {
    }

    private final Supplier<Collection<Federation>> federations;
    private final Supplier<ClusterView> cluster;
    private final Map<Federate, Activity> activities = new WeakHashMap<>();
    private final Deque<String> history = new ArrayDeque<>();
    private Sample latest = Sample.first();

    Watch(Supplier<Collection<Federation>> federations, Supplier<ClusterView> cluster) {
        this.federations = federations;
        this.cluster = cluster;
        look();
        Thread thread = new Thread(this::run, "watch");
        thread.setDaemon(true);
        thread.start();
    }

    private void run() {
        try {
            for (;;) {
                Thread.sleep(PERIOD_MILLIS);
                look();
            }
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
        }
    }

    private void look() {
        List<FederationView> views = new ArrayList<>();
        for (Federation each : federations.get()) {
            views.add(FederationView.of(each, this::silence));
        }
        add(Sample.after(latest(), System.currentTimeMillis(), views, cluster.get()));
    }

    private double silence(Federate federate) {
        long services = federate.oversight().services();
        Activity seen = activities.get(federate);
        if (seen == null || seen.services != services) {
            seen = new Activity(services, System.nanoTime());
            activities.put(federate, seen);
        }
        return (System.nanoTime() - seen.since) / (double) TimeUnit.SECONDS.toNanos(1);
    }

    private synchronized void add(Sample sample) {
        latest = sample;
        history.addLast(StateJson.moment(sample));
        if (history.size() > REMEMBERED) {
            history.removeFirst();
        }
        notifyAll();
    }

    synchronized Sample latest() {
        return latest;
    }

    /** What the charts need of the last minutes, as JSON. */
    synchronized String history() {
        return "{\"samples\":[" + String.join(",", history) + "]}";
    }

    /** Waits for one that comes after that. */
    synchronized Sample after(Sample seen) throws InterruptedException {
        while (latest.number() <= seen.number()) {
            wait();
        }
        return latest;
    }
}
