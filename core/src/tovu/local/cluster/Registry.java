package tovu.local.cluster;

import java.util.ArrayList;
import java.util.List;
import org.apache.curator.framework.CuratorFramework;
import org.apache.curator.framework.api.CuratorWatcher;
import org.apache.zookeeper.KeeperException;
import org.apache.zookeeper.data.Stat;

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

    /** What is read next is no older than now. */
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
        try {
            return HubNode.of(ensemble.ask(zookeeper -> zookeeper.getData().forPath(hubPath(node))));
        } catch (KeeperException.NoNodeException e) {
            return null;
        }
    }

    /** @return null when there is none */
    Seen federation(String name) throws Ensemble.Unreachable, KeeperException {
        Stat stat = new Stat();
        try {
            byte[] content = ensemble.ask(zookeeper ->
                    current(zookeeper).getData().storingStatIn(stat).forPath(federationPath(name)));
            return new Seen(name, FederationNode.of(content), stat.getVersion(), stat.getMtime());
        } catch (KeeperException.NoNodeException e) {
            return null;
        }
    }

    List<Seen> federations() throws Ensemble.Unreachable, KeeperException {
        List<Seen> all = new ArrayList<>();
        for (String each : ensemble.ask(zookeeper -> current(zookeeper).getChildren().forPath(FEDERATIONS))) {
            Seen seen = federation(NodeName.original(each));
            if (seen != null) {
                all.add(seen);
            }
        }
        return all;
    }
}
