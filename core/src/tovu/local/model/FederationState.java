package tovu.local.model;

import java.io.IOException;
import java.io.ObjectInputStream;
import java.util.Map;
import java.util.TreeMap;

/** All of a federation that a save keeps and a restore brings back. */
@SuppressWarnings("serial") // kept in memory only
final class FederationState implements Saved {
    /**
     * The last numbers that were given out, which are never given out again.
     *
     * @param federate      a federate's handle
     * @param sequence      a message's number
     * @param runtimeHandle the handle of an object or region
     */
    record Assigned(int federate, long sequence, int runtimeHandle) implements Saved {
    }

    final Federate infrastructure;
    final Map<Integer, Federate> members = new TreeMap<>();
    final SynchronizationPoints synchronizationPoints;
    final DeclarationManagement declarations;
    final ObjectNames names = new ObjectNames();
    final ObjectRegistry objects;
    final RegionManagement regions;
    final Retractions retractions;
    final TimeManagement time;
    boolean autoProvide;
    final UpdateRates updateRates;
    Assigned assigned; // set when it is saved

    FederationState(Federation federation, CallbackSink sink) {
        synchronizationPoints = new SynchronizationPoints(federation);
        declarations = new DeclarationManagement(federation);
        objects = new ObjectRegistry(federation);
        regions = new RegionManagement(federation);
        retractions = new Retractions(federation);
        time = new TimeManagement(federation);
        infrastructure = Federate.infrastructure(federation, sink);
        autoProvide = federation.switches().autoProvide();
        updateRates = new UpdateRates(federation);
    }

    private void readObject(ObjectInputStream in) throws IOException, ClassNotFoundException {
        in.defaultReadObject();
        objects.restoreAssociations();
    }
}
