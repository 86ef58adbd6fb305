package tovu.local.cluster;

import java.io.IOException;
import org.apache.zookeeper.KeeperException;
import tovu.local.hub.Cluster;
import tovu.local.hub.ClusterSettings;

/** What the hub finds in this jar. */
public final class ZooKeeperProvider implements Cluster.Provider {
    @Override
    public Cluster find(ClusterSettings settings) throws IOException {
        return new ZooKeeperCluster(settings);
    }

    @Override
    public String list(ClusterSettings settings) throws IOException {
        Ensemble ensemble = new Ensemble(settings);
        try {
            ensemble.connect(new Ensemble.Events() {
                @Override
                public void connected() {
                    // that is awaited
                }

                @Override
                public void expired() {
                    // who only looks has nothing to lose
                }
            });
            return new Registry(ensemble).view("").text();
        } catch (KeeperException.NoNodeException e) {
            return "no hub\n";
        } catch (Ensemble.Unreachable | KeeperException e) {
            throw new IOException("the cluster cannot be listed: " + e.getMessage(), e);
        } finally {
            ensemble.close();
        }
    }
}
