package tovu.local.model.exchange;

import java.util.HashMap;
import java.util.Map;
import java.util.Set;
import tovu.local.fom.InteractionClass;
import tovu.local.fom.ObjectClass;
import tovu.local.model.exchange.Interest.Terms;
import tovu.local.model.value.HandleSet;
import tovu.local.model.value.Saved;

/** What one federate subscribes to. */
@SuppressWarnings("serial") // read by what wrote it
final class Subscriptions implements Saved {
    private final Map<ObjectClass, AttributeInterests> objectClasses = new HashMap<>();
    private final Map<InteractionClass, Interest> interactionClasses = new HashMap<>();

    /** The interest in an attribute at exactly that class, or null. */
    Interest interest(ObjectClass theClass, int attribute) {
        return interests(theClass).get(attribute);
    }

    Map<Integer, Interest> interests(ObjectClass theClass) {
        AttributeInterests interests = objectClasses.get(theClass);
        return interests == null ? Map.of() : interests.byAttribute();
    }

    /** The attributes wanted, at exactly that class, of what is sent with those regions; empty for the default one. */
    HandleSet wanted(ObjectClass theClass, Set<Region> sentRegions) {
        AttributeInterests interests = objectClasses.get(theClass);
        return interests == null ? HandleSet.NONE : interests.wanted(sentRegions);
    }

    /** Whether there is a largest rate, at exactly that class, for any attribute. */
    boolean hasRates(ObjectClass theClass) {
        AttributeInterests interests = objectClasses.get(theClass);
        return interests != null && interests.hasRates();
    }

    Interest interest(InteractionClass theClass) {
        return interactionClasses.get(theClass);
    }

    /** The most specific class as which an interaction that is sent with those regions is wanted, or null. */
    InteractionClass receivedClass(InteractionClass sentClass, Set<Region> sentRegions) {
        for (InteractionClass each = sentClass; each != null; each = each.parent()) {
            Interest interest = interest(each);
            if (interest != null && interest.meets(sentRegions)) {
                return each;
            }
        }
        return null;
    }

    boolean isSubscribed(ObjectClass theClass) {
        return objectClasses.containsKey(theClass);
    }

    Set<ObjectClass> objectClasses() {
        return objectClasses.keySet();
    }

    Set<InteractionClass> interactionClasses() {
        return interactionClasses.keySet();
    }

    /** @param where null for everywhere */
    void add(ObjectClass theClass, int attribute, Set<Region> where, Terms terms) {
        objectClasses.computeIfAbsent(theClass, key -> new AttributeInterests())
                .add(theClass.member(attribute), where, terms);
    }

    /** @param where null for everything */
    void remove(ObjectClass theClass, int attribute, Set<Region> where) {
        AttributeInterests interests = objectClasses.get(theClass);
        if (interests != null) {
            interests.remove(attribute, where);
            if (interests.byAttribute().isEmpty()) {
                objectClasses.remove(theClass);
            }
        }
    }

    void add(InteractionClass theClass, Set<Region> where, boolean active) {
        interactionClasses.computeIfAbsent(theClass, key -> new Interest(theClass)).add(where, new Terms(active, ""));
    }

    void remove(InteractionClass theClass, Set<Region> where) {
        Interest interest = interactionClasses.get(theClass);
        if (interest != null) {
            interest.remove(where);
            if (interest.isEmpty()) {
                interactionClasses.remove(theClass);
            }
        }
    }
}
