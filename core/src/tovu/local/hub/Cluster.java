package tovu.local.hub;

import java.io.IOException;
import java.util.function.Consumer;
import java.util.function.IntSupplier;
import tovu.local.model.federation.Federations;
import tovu.local.model.federation.Placement;
import tovu.local.watch.ClusterView;

/** The hubs that are one service together with this one. */
public interface Cluster {
    /** Finds the cluster that the settings name; a service of the jar that has what a cluster needs. */
    interface Provider {
        Cluster find(ClusterSettings settings) throws IOException;

        /** The hubs of the cluster, and what is where, for whoever runs it. */
        String list(ClusterSettings settings) throws IOException;
    }

    /**
     * What a cluster is to know of a hub.
     *
     * @param address     where federates reach it
     * @param federations those that it hosts
     * @param connections how many it has
     * @param expel       ends all connections, telling the federates why
     */
    record Member(String address, Federations federations, IntSupplier connections, Consumer<String> expel) {
    }

    Placement placement();

    /** The hub listens: it may be given federations from now on. */
    void enter(Member hub) throws IOException;

    /** @return the address of the hub that is to get the next federation, or null for this one */
    String leastLoaded();

    /** What a page shows of the cluster, as it was seen last, or null. Nobody waits for it. */
    ClusterView view();

    /** The federations of this hub are over: others need not wait to find that out. */
    void leave();
}
