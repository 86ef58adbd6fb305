package tovu.local.model.exchange;

import java.util.List;
import tovu.local.fom.FomModule;
import tovu.local.fom.Switches;
import tovu.local.model.value.Condition;
import tovu.local.model.value.Saved;

/** What management keeps of one federate: how it is to be reported on, and what has been counted. */
@SuppressWarnings("serial") // read by what wrote it
public final class Oversight implements Saved {
    /**
     * A FOM module.
     *
     * @param designator by which the federate named it
     * @param text       the file's text
     */
    public record Module(String designator, String text) implements Saved {
    }

    /** The FOM modules that the federate brought along, in their order. */
    public final List<Module> modules;
    /** The handle of the object that stands for the federate. */
    public int object;
    /** The handles of the regions that reports about the federate are sent with, by service group; 0 for none yet. */
    public final int[] regions = new int[8];
    /** Seconds from one periodic update to the next; 0 for none. */
    public int reportPeriod;
    private long services;
    private int posted; // in receive order
    private int timestampedPosted;
    private int delivered; // written where callbacks are made, as is the next one
    private int timestampedDelivered;
    // The switches are read without a lock, at each service and callback.
    public volatile boolean conveysRegions;
    public volatile boolean conveysProducer;
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

    Oversight(Switches switches, List<FomModule> modules) {
        this.modules = modules.stream().map(each -> new Module(each.designator(), each.text())).toList();
        conveysRegions = switches.conveyRegionDesignatorSets();
        conveysProducer = switches.conveyProducingFederate();
        reportsServices = switches.serviceReporting();
        reportsExceptions = switches.exceptionReporting();
    }

    /** The federate calls a service. */
    public void served() {
        ++services;
    }

    /** How many services it has called. */
    public long services() {
        return services;
    }

    /** A message is left with the delivery. */
    void posted(boolean timestamped) {
        if (timestamped) {
            ++timestampedPosted;
        } else {
            ++posted;
        }
    }

    /** It is delivered, or turns out not to be wanted any more. */
    void delivered(boolean timestamped) {
        if (timestamped) {
            ++timestampedDelivered;
        } else {
            ++delivered;
        }
    }

    /** How many messages are with the delivery. */
    int underWay(boolean timestamped) {
        return timestamped ? timestampedPosted - timestampedDelivered : posted - delivered;
    }

    int condition() {
        return (conveysRegions ? Condition.CONVEYS_REGIONS : 0) | (conveysProducer ? Condition.CONVEYS_PRODUCER : 0);
    }

    /** Whether anyone wants to hear of each of its services, or of those that fail. */
    public boolean reportsAnything() {
        return reportsServices || reportsExceptions;
    }
}
