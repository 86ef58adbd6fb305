package tovu.local.model.exchange;

import java.util.ArrayList;
import java.util.HashMap;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;
import tovu.local.fom.Attribute;
import tovu.local.fom.OrderType;
import tovu.local.fom.Transportation;
import tovu.local.model.value.Saved;

/** One attribute of one object instance: who owns it, who wants it, and how its updates travel. */
@SuppressWarnings("serial") // read by what wrote it
final class InstanceAttribute implements Saved {
    /** What an owner who wants to be rid of the attribute has come to; abandoned is what has an owner no more. */
    enum Divestiture {
        NONE, OFFERED, CONFIRMATION_REQUESTED, ABANDONED
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
     * How updates travel when that is not what the object model says.
     *
     * @param transportation the transportation type
     * @param order          the order in which they are sent
     * @param changing       whether another transportation type is asked for
     */
    private record Delivery(Transportation transportation, OrderType order, boolean changing) implements Saved {
    }

    /**
     * What an owner has made of the attribute, for the case that it gets it back.
     *
     * @param attribute the attribute
     * @param delivery  how its updates travelled
     * @param regions   where they were sent
     */
    record Possession(InstanceAttribute attribute, Delivery delivery, Set<Region> regions) implements Saved {
    }

    // There are very many of these, and next to all are owned and nothing else: what is rare is made when it comes.
    final ObjectInstance object;
    final Attribute definition;
    private List<Candidate> candidates = List.of();
    private Map<Federate, Set<Region>> associations = Map.of();
    private Federate owner;
    private int tenure;
    private Delivery delivery; // null for the object model's
    Divestiture divestiture = Divestiture.NONE;
    /** The update rate at which the owner was told to update, or null when it was told not to, or nothing. */
    String updatesOn;

    InstanceAttribute(ObjectInstance object, Attribute definition) {
        this.object = object;
        this.definition = definition;
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
            owner.revokeLicences(object.handle);
        }
        owner = newOwner;
        ++tenure;
        divestiture = newOwner == null ? Divestiture.ABANDONED : Divestiture.NONE;
        updatesOn = null;
        delivery = null;
    }

    Possession possession() {
        Delivery settled = delivery == null ? null : new Delivery(transportation(), order(), false);
        return new Possession(this, settled, updateRegions());
    }

    /** Hands it to a federate as that had it before, but for regions that are deleted since. */
    void giveBack(Federate formerOwner, Possession possession) {
        giveTo(formerOwner);
        delivery = possession.delivery;
        Set<Region> left = new LinkedHashSet<>(possession.regions);
        left.removeIf(region -> !formerOwner.federation().regions().has(region));
        associate(formerOwner, left);
    }

    Transportation transportation() {
        return delivery == null ? definition.transportation() : delivery.transportation;
    }

    boolean isTransportationChanging() {
        return delivery != null && delivery.changing;
    }

    void beginTransportationChange() {
        delivery = new Delivery(transportation(), order(), true);
    }

    void transportBy(Transportation type) {
        delivery = new Delivery(type, order(), false);
    }

    OrderType order() {
        return delivery == null ? definition.order() : delivery.order;
    }

    void orderBy(OrderType type) {
        owner.revokeLicences(object.handle);
        delivery = new Delivery(transportation(), type, isTransportationChanging());
    }

    /** The regions that its owner's updates are sent with; empty for the default region. */
    Set<Region> updateRegions() {
        return owner == null ? Set.of() : associationsOf(owner);
    }

    Set<Region> associationsOf(Federate federate) {
        return associations.getOrDefault(federate, Set.of());
    }

    void associate(Federate federate, Set<Region> regions) {
        Set<Region> old = associationsOf(federate);
        if (!old.isEmpty() || !regions.isEmpty()) {
            old.forEach(each -> each.sentWith().remove(this));
            regions.forEach(each -> each.sentWith().add(this));
            associations = associations.isEmpty() ? new HashMap<>() : associations;
            associations.put(federate, regions);
            associations.values().removeIf(Set::isEmpty);
        }
    }

    /** Has the regions know again what is sent with them. */
    void restoreAssociations() {
        associations.values().forEach(regions -> regions.forEach(each -> each.sentWith().add(this)));
    }

    /** Who wants to own it, in the order of its turn. */
    List<Candidate> candidates() {
        return candidates;
    }

    void addCandidate(Candidate candidate) {
        candidates = candidates.isEmpty() ? new ArrayList<>(1) : candidates;
        candidates.add(candidate);
    }

    void removeCandidate(Federate federate) {
        if (candidate(federate) != null) {
            candidates.removeIf(each -> each.federate() == federate);
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
        return divestiture == Divestiture.OFFERED || divestiture == Divestiture.CONFIRMATION_REQUESTED;
    }

    /** Whether anyone who may own it can have it. */
    boolean isFree() {
        return divestiture != Divestiture.NONE;
    }

    void forget(Federate federate) {
        removeCandidate(federate);
        associate(federate, Set.of());
    }
}
