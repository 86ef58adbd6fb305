package tovu.local.hub;

import tovu.local.model.federation.Placement;
import tovu.local.saves.SaveFolder;
import tovu.local.watch.ClusterView;

/** A hub that is a service of its own. */
final class Alone implements Cluster {
    @Override
    public Placement placement() {
        return Placement.alone(SaveFolder.stores());
    }

    @Override
    public void enter(Member hub) {
        // nobody is there
    }

    @Override
    public String leastLoaded() {
        return null;
    }

    @Override
    public ClusterView view() {
        return null;
    }

    @Override
    public void leave() {
        // nobody minds
    }
}
