package tovu.local.cluster;

import java.util.ArrayList;
import java.util.Comparator;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import org.apache.curator.framework.CuratorFramework;
import org.apache.curator.framework.api.CuratorWatcher;
import org.apache.zookeeper.KeeperException;
import org.apache.zookeeper.data.Stat;
import tovu.local.watch.ClusterView;

/** What ZooKeeper has of a cluster: a node for each hub that lives, and one for each federation. */
final class Registry {
    static final String HUBS = "/hubs";
    static final String FEDERATIONS = "/federations";

    /**
     * A federation's node as it was seen.
     *
     * @param version of the node, by which a change finds out that it comes too late
     * @param since   when its hub got it, in milliseconds
     */
    record Seen(String federation, FederationNode node, int version, long since) {
    }

    private final Ensemble ensemble;

    Registry(Ensemble ensemble) {
        this.ensemble = ensemble;
    }

    static String hubPath(String node) {
        return HUBS + "/" + node;
    }

    static String federationPath(String federation) {
        return FEDERATIONS + "/" + NodeName.of(federation);
    }

    /** What is read next, by the same session, is no older than now. */
    private static CuratorFramework current(CuratorFramework zookeeper) throws Exception {
        zookeeper.getZookeeperClient().getZooKeeper().sync("/", (code, path, context) -> { }, null);
        return zookeeper;
    }

    /** The nodes of the hubs that live. */
    List<String> hubs() throws Ensemble.Unreachable, KeeperException {
        return ensemble.ask(zookeeper -> current(zookeeper).getChildren().forPath(HUBS));
    }

    /** @param then hears, once, that there is another one or one less */
    List<String> hubs(CuratorWatcher then) throws Ensemble.Unreachable, KeeperException {
        return ensemble.ask(zookeeper -> zookeeper.getChildren().usingWatcher(then).forPath(HUBS));
    }

    /** @return null when it lives no longer */
    HubNode hub(String node) throws Ensemble.Unreachable, KeeperException {
        Stat stat = new Stat();
        try {
            byte[] content = ensemble.ask(zookeeper -> zookeeper.getData().storingStatIn(stat).forPath(hubPath(node)));
            return HubNode.of(content, stat.getCtime());
        } catch (KeeperException.NoNodeException e) {
            return null;
        }
    }

    /** @return null when there is none */
    Seen federation(String name) throws Ensemble.Unreachable, KeeperException {
        return seen(name, Registry::current);
    }

    private Seen seen(String name, Ensemble.Work<CuratorFramework> view) throws Ensemble.Unreachable, KeeperException {
        Stat stat = new Stat();
        try {
            byte[] content = ensemble.ask(zookeeper ->
                    view.in(zookeeper).getData().storingStatIn(stat).forPath(federationPath(name)));
            return new Seen(name, FederationNode.of(content), stat.getVersion(), stat.getMtime());
        } catch (KeeperException.NoNodeException e) {
            return null;
        }
    }

    List<Seen> federations() throws Ensemble.Unreachable, KeeperException {
        List<Seen> all = new ArrayList<>();
        for (String each : ensemble.ask(zookeeper -> current(zookeeper).getChildren().forPath(FEDERATIONS))) {
            Seen seen = seen(NodeName.original(each), zookeeper -> zookeeper); // which are read after those names
            if (seen != null) {
                all.add(seen);
            }
        }
        return all;
    }

    /** Hubs and federations by name, for whoever runs them. */
    ClusterView view(String here) throws Ensemble.Unreachable, KeeperException {
        List<Seen> seen = federations();
        Map<String, HubNode> living = new HashMap<>();
        for (String each : ensemble.ask(zookeeper -> zookeeper.getChildren().forPath(HUBS))) {
            HubNode hub = hub(each);
            if (hub != null) {
                living.put(each, hub);
            }
        }
        return new ClusterView(here, true,
                living.values().stream().map(each -> new ClusterView.Hub(each.name(), each.address(), each.load(),
                        each.version(), each.since())).sorted(Comparator.comparing(ClusterView.Hub::name)).toList(),
                seen.stream().map(each -> new ClusterView.Place(each.federation(), each.node().hubName(),
                        !living.containsKey(each.node().hub()), each.node().epoch(), each.since(), each.node().from()))
                        .sorted(Comparator.comparing(ClusterView.Place::federation)).toList());
    }
}
