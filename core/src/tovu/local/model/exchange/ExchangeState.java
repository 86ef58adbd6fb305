package tovu.local.model.exchange;

import java.io.IOException;
import java.io.ObjectInputStream;
import java.util.Map;
import java.util.TreeMap;
import tovu.local.model.time.TimeManagement;
import tovu.local.model.value.Saved;

/** What members exchange and have, as far as a save keeps it and a restore brings it back. */
@SuppressWarnings("serial") // read by what wrote it
public final class ExchangeState implements Saved {
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
    final DeclarationManagement declarations;
    final ObjectNames names = new ObjectNames();
    final ObjectRegistry objects;
    final RegionManagement regions;
    final Retractions retractions;
    final TimeManagement time;
    boolean autoProvide;
    final UpdateRates updateRates;
    Assigned assigned; // set when it is saved

    ExchangeState(Exchange federation) {
        declarations = new DeclarationManagement(federation);
        objects = new ObjectRegistry(federation);
        regions = new RegionManagement(federation);
        retractions = new Retractions(federation);
        time = new TimeManagement(federation);
        infrastructure = Federate.infrastructure(federation);
        autoProvide = federation.switches().autoProvide();
        updateRates = new UpdateRates(federation);
    }

    private void readObject(ObjectInputStream in) throws IOException, ClassNotFoundException {
        in.defaultReadObject();
        objects.restoreAssociations();
    }
}
