package tovu.local.cluster;

import java.io.IOException;
import tovu.local.hub.Cluster;
import tovu.local.hub.ClusterSettings;

/** What the hub finds in this jar. */
public final class ZooKeeperProvider implements Cluster.Provider {
    @Override
    public Cluster find(ClusterSettings settings) throws IOException {
        return new ZooKeeperCluster(settings);
    }
}
