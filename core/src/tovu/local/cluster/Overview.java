package tovu.local.cluster;

import java.util.Map;
import java.util.function.Function;
import java.util.stream.Collectors;
import org.apache.zookeeper.KeeperException;
import tovu.local.management.Journal;
import tovu.local.watch.ClusterView;

/** What a page shows of the cluster. It is looked up only once somebody has asked for it, and never while he waits. */
final class Overview {
    private final Registry registry;
    private volatile boolean wanted;
    private volatile ClusterView latest;

    Overview(Registry registry) {
        this.registry = registry;
    }

    /** @return null before anything was seen */
    ClusterView latest(boolean reachable) {
        wanted = true;
        ClusterView seen = latest;
        return seen == null || reachable ? seen
                : new ClusterView(seen.here(), false, seen.hubs(), seen.federations());
    }

    /** Looks, and remembers what other hubs have taken over since it looked before. */
    void refresh(String here) throws Ensemble.Unreachable, KeeperException {
        if (!wanted) {
            return;
        }
        ClusterView now = registry.view(here);
        if (latest != null) {
            Map<String, ClusterView.Place> before = latest.federations().stream()
                    .collect(Collectors.toMap(ClusterView.Place::federation, Function.identity()));
            for (ClusterView.Place each : now.federations()) {
                ClusterView.Place past = before.get(each.federation());
                if (!each.from().isEmpty() && !each.hub().equals(here)
                        && (past == null || past.epoch() != each.epoch())) {
                    takenOver(each.federation(), each.hub(), each.from());
                }
            }
        }
        latest = now;
    }

    static void takenOver(String federation, String by, String from) {
        Journal.add(Journal.Kind.TAKEN_OVER, federation, by, "from the lost hub " + from);
    }
}
