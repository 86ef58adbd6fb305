package tovu.local.model.exchange;

import hla.rti1516e.exceptions.ObjectInstanceNotKnown;
import java.util.ArrayList;
import java.util.Collection;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.TreeMap;
import java.util.TreeSet;
import tovu.local.fom.InteractionClass;
import tovu.local.model.exchange.Interest.Terms;
import tovu.local.model.time.AdvanceKind;
import tovu.local.model.time.FederateTime.Switch;
import tovu.local.model.value.LogicalTime;

/** How a federate stands, for management to tell of it. */
public final class FederateStatus {
    /**
     * What a federate subscribes to of an object class on the same terms.
     *
     * @param objectClass the class's handle
     * @param active      whether updates are to be made for it
     * @param updateRate  the designator of the rate, or an empty text
     * @param attributes  the attributes' handles
     */
    public record Subscription(int objectClass, boolean active, String updateRate, Set<Integer> attributes) {
    }

    /**
     * What a federate knows of an object.
     *
     * @param owned           the handles of the attributes that it owns
     * @param registeredClass the handle of the class that the object was registered as
     * @param knownClass      the handle of the class that the federate knows it as
     */
    public record Acquaintance(List<Integer> owned, int registeredClass, int knownClass) {
    }

    /** Where a federate is between one logical time and the next. */
    public enum Progress {
        /** It has the time that it was granted last. */
        GRANTED,
        /** It has asked for an advance that cannot be granted yet. */
        WAITING,
        /** It has been granted an advance, and has not been told yet. */
        TO_BE_TOLD
    }

    private final Exchange federation;
    private final Federate federate;

    FederateStatus(Federate federate) {
        this.federate = federate;
        federation = federate.federation();
    }

    public LogicalTime logicalTime() {
        return federation.time().logicalTime(federate);
    }

    /** Null when it does not regulate. */
    public LogicalTime lookahead() {
        return federate.time.regulation() == Switch.ON
                ? new LogicalTime(federation.timeFamily(), federate.time.actualLookahead()) : null;
    }

    public boolean isRegulating() {
        return federate.time.regulation() == Switch.ON;
    }

    public boolean isConstrained() {
        return federate.time.constraint() == Switch.ON;
    }

    public Progress progress() {
        return federate.time.isWaiting() ? Progress.WAITING
                : federate.time.isAdvancing() ? Progress.TO_BE_TOLD : Progress.GRANTED;
    }

    /** How it has asked for an advance, or null when it has not. */
    public AdvanceKind advance() {
        return federate.time.kind();
    }

    /** What it has asked for, or null. */
    public LogicalTime requested() {
        return federate.time.isAdvancing()
                ? new LogicalTime(federation.timeFamily(), federate.time.requested()) : null;
    }

    /** Nanoseconds since it asked for an advance, or was told of the last one. */
    public long unchangedFor() {
        return federate.time.unchangedFor();
    }

    /** Whether it has asked for an advance that depends on the times of others. */
    public boolean waitsForOthers() {
        return federate.time.isWaiting() && federate.time.isConstrained();
    }

    public LogicalTime galt() {
        return federation.time().galt(federate);
    }

    public LogicalTime lits() {
        return federation.time().lits(federate);
    }

    public int receiveOrderQueued() {
        return federate.inbox.heldCount() + federate.oversight.underWay(false);
    }

    public int timestampOrderQueued() {
        return federate.inbox.timestampedCount() + federate.oversight.underWay(true);
    }

    /** Milliseconds in the time granted or the time advancing state since this was last asked for. */
    public int takeMilliseconds(boolean advancing) {
        return federate.time.takeMilliseconds(advancing);
    }

    /** The published attributes of object classes, by handle. */
    public Map<Integer, Set<Integer>> publishedClasses() {
        Map<Integer, Set<Integer>> published = new TreeMap<>();
        federate.publications.objectClasses.forEach((theClass, attributes) ->
                published.put(theClass.handle(), attributes));
        return published;
    }

    public Collection<Integer> publishedInteractions() {
        return federate.publications.interactionClasses.stream().map(InteractionClass::handle).sorted().toList();
    }

    public List<Subscription> subscriptions() {
        List<Subscription> subscriptions = new ArrayList<>();
        for (var theClass : federate.subscriptions.objectClasses()) {
            Map<Terms, Set<Integer>> attributes = new LinkedHashMap<>();
            federate.subscriptions.interests(theClass).forEach((attribute, interest) -> interest.terms(Set.of())
                    .forEach(terms -> attributes.computeIfAbsent(terms, key -> new TreeSet<>()).add(attribute)));
            attributes.forEach((terms, set) -> subscriptions.add(
                    new Subscription(theClass.handle(), terms.active(), terms.updateRate(), set)));
        }
        return subscriptions;
    }

    /** By the handle of an interaction class whether the subscription to it is active. */
    public Map<Integer, Boolean> interactionSubscriptions() {
        Map<Integer, Boolean> active = new TreeMap<>();
        for (InteractionClass each : federate.subscriptions.interactionClasses()) {
            active.put(each.handle(), federate.subscriptions.interest(each).isActive());
        }
        return active;
    }

    /** How many objects it may delete, by the handle of their class. */
    public Map<Integer, Integer> deletable() {
        Map<Integer, Integer> counts = new TreeMap<>();
        for (ObjectInstance object : federate.knownObjects) {
            if (object.attribute(federation.privilegeToDelete()).owner() == federate) {
                counts.merge(object.objectClass.handle(), 1, Integer::sum);
            }
        }
        return counts;
    }

    public Acquaintance acquaintance(int object) throws ObjectInstanceNotKnown {
        Knowledge knowledge = federation.objects().known(federate, object);
        return new Acquaintance(
                knowledge.object.attributes(each -> each.owner() == federate).stream().map(InstanceAttribute::handle)
                        .sorted().toList(),
                knowledge.object.objectClass.handle(), knowledge.knownClass.handle());
    }
}
