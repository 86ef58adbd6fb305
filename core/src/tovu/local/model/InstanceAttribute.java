package tovu.local.model;

import java.util.ArrayList;
import java.util.HashMap;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;
import tovu.local.fom.Attribute;
import tovu.local.fom.OrderType;
import tovu.local.fom.Transportation;

/** One attribute of one object instance: who owns it, who wants it, and how its updates travel. */
@SuppressWarnings("serial") // kept in memory only
final class InstanceAttribute implements Saved {
    /** What an owner who wants to be rid of the attribute has come to. */
    enum Divestiture {
        NONE, OFFERED, CONFIRMATION_REQUESTED
    }

    /**
     * A federate that wants to own the attribute.
     *
     * @param federate    who
     * @param ifAvailable whether only if nobody has to give it up against its will
     * @param tag         what it told the owner
     */
    record Candidate(Federate federate, boolean ifAvailable, byte[] tag) implements Saved {
    }

    /**
     * What an owner has made of the attribute, for the case that it gets it back.
     *
     * @param attribute      the attribute
     * @param transportation how its updates travelled
     * @param order          how they were ordered
     * @param regions        where they were sent
     */
    record Possession(InstanceAttribute attribute, Transportation transportation, OrderType order,
            Set<Region> regions) implements Saved {
    }

    final Attribute definition;
    final List<Candidate> candidates = new ArrayList<>(0);
    private final Map<Federate, Set<Region>> associations = new HashMap<>(0);
    private Federate owner;
    private int tenure;
    private Transportation transportation;
    private OrderType order;
    Divestiture divestiture = Divestiture.NONE;
    /** Whether it is up for anyone who may own it: it had an owner who left it. */
    boolean abandoned;
    boolean transportationChanging;
    /** The update rate at which the owner was told to update, or null when it was told not to, or nothing. */
    String updatesOn;

    InstanceAttribute(Attribute definition) {
        this.definition = definition;
        resetDelivery();
    }

    private void resetDelivery() {
        transportation = definition.transportation();
        order = definition.order();
        transportationChanging = false;
    }

    int handle() {
        return definition.handle();
    }

    Federate owner() {
        return owner;
    }

    /** Another number for each time that it was handed to somebody, or to nobody. */
    int tenure() {
        return tenure;
    }

    /** Hands it to a federate, or to nobody; how it travels is the object model's choice again. */
    void giveTo(Federate newOwner) {
        if (owner != null) {
            associate(owner, Set.of());
        }
        owner = newOwner;
        ++tenure;
        divestiture = Divestiture.NONE;
        abandoned = newOwner == null;
        updatesOn = null;
        resetDelivery();
    }

    Possession possession() {
        return new Possession(this, transportation, order, updateRegions());
    }

    /** Hands it to a federate as that had it before, but for regions that are deleted since. */
    void giveBack(Federate formerOwner, Possession possession) {
        giveTo(formerOwner);
        transportation = possession.transportation;
        order = possession.order;
        Set<Region> left = new LinkedHashSet<>(possession.regions);
        left.removeIf(region -> !formerOwner.federation().regions().has(region));
        associate(formerOwner, left);
    }

    Transportation transportation() {
        return transportation;
    }

    void transportBy(Transportation type) {
        transportation = type;
        transportationChanging = false;
    }

    OrderType order() {
        return order;
    }

    void orderBy(OrderType type) {
        order = type;
    }

    /** The regions that its owner's updates are sent with; empty for the default region. */
    Set<Region> updateRegions() {
        return owner == null ? Set.of() : associationsOf(owner);
    }

    Set<Region> associationsOf(Federate federate) {
        return associations.getOrDefault(federate, Set.of());
    }

    void associate(Federate federate, Set<Region> regions) {
        regions.forEach(Region::retain);
        Set<Region> old = regions.isEmpty() ? associations.remove(federate) : associations.put(federate, regions);
        if (old != null) {
            old.forEach(Region::release);
        }
    }

    Candidate candidate(Federate federate) {
        for (Candidate each : candidates) {
            if (each.federate() == federate) {
                return each;
            }
        }
        return null;
    }

    boolean isDivesting() {
        return divestiture != Divestiture.NONE;
    }

    /** Whether anyone who may own it can have it. */
    boolean isFree() {
        return abandoned || isDivesting();
    }

    void forget(Federate federate) {
        candidates.removeIf(each -> each.federate() == federate);
        associate(federate, Set.of());
    }
}
