package tovu.local.model;

import java.util.ArrayList;
import java.util.List;
import tovu.local.fom.Switches;

/** What management keeps of one federate: how it is to be reported on, and what has been counted. */
@SuppressWarnings("serial") // kept in memory only
public final class Oversight implements Saved {
    /** The designators of the modules that the federate brought along. */
    public final List<String> modules = new ArrayList<>();
    /** The handle of the object that stands for the federate. */
    public int object;
    /** The handles of the regions that reports about the federate are sent with, by service group; 0 for none yet. */
    public final int[] regions = new int[8];
    /** Seconds from one periodic update to the next; 0 for none. */
    public int reportPeriod;
    public boolean conveysRegions;
    public boolean conveysProducer;
    /** Read without a lock at each service and callback. */
    public volatile boolean reportsServices;
    public volatile boolean reportsExceptions;
    public int lastSerialNumber;
    /** The federate's condition as it was told last. */
    public int toldCondition;

    public final Tally updatesSent = new Tally();
    public final Tally reflectionsReceived = new Tally();
    public final Tally interactionsSent = new Tally();
    public final Tally interactionsReceived = new Tally();
    public final Tally objectsUpdated = new Tally();
    public final Tally objectsReflected = new Tally();
    public final Tally objectsRegistered = new Tally();
    public final Tally objectsDiscovered = new Tally();
    public final Tally objectsDeleted = new Tally();
    public final Tally objectsRemoved = new Tally();

    Oversight(Switches switches) {
        conveysRegions = switches.conveyRegionDesignatorSets();
        conveysProducer = switches.conveyProducingFederate();
        reportsServices = switches.serviceReporting();
        reportsExceptions = switches.exceptionReporting();
    }

    int condition() {
        return (conveysRegions ? Condition.CONVEYS_REGIONS : 0) | (conveysProducer ? Condition.CONVEYS_PRODUCER : 0);
    }

    /** Whether anyone wants to hear of each of its services, or of those that fail. */
    public boolean reportsAnything() {
        return reportsServices || reportsExceptions;
    }
}
