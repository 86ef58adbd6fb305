package tovu.local.model;

import java.util.HashMap;
import java.util.LinkedHashMap;
import java.util.Map;
import java.util.Set;
import tovu.local.fom.InteractionClass;
import tovu.local.fom.ObjectClass;
import tovu.local.model.Interest.Terms;

/** What one federate subscribes to. */
@SuppressWarnings("serial") // kept in memory only
final class Subscriptions implements Saved {
    private final Map<ObjectClass, Map<Integer, Interest>> objectClasses = new HashMap<>();
    private final Map<InteractionClass, Interest> interactionClasses = new HashMap<>();

    /** The interest in an attribute at exactly that class, or null. */
    Interest interest(ObjectClass theClass, int attribute) {
        Map<Integer, Interest> interests = objectClasses.get(theClass);
        return interests == null ? null : interests.get(attribute);
    }

    Map<Integer, Interest> interests(ObjectClass theClass) {
        return objectClasses.getOrDefault(theClass, Map.of());
    }

    Interest interest(InteractionClass theClass) {
        return interactionClasses.get(theClass);
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
        objectClasses.computeIfAbsent(theClass, key -> new LinkedHashMap<>())
                .computeIfAbsent(attribute, key -> new Interest()).add(where, terms);
    }

    /** @param where null for everything */
    void remove(ObjectClass theClass, int attribute, Set<Region> where) {
        Map<Integer, Interest> interests = objectClasses.get(theClass);
        Interest interest = interests == null ? null : interests.get(attribute);
        if (interest != null) {
            interest.remove(where);
            if (interest.isEmpty()) {
                interests.remove(attribute);
            }
            if (interests.isEmpty()) {
                objectClasses.remove(theClass);
            }
        }
    }

    void add(InteractionClass theClass, Set<Region> where, boolean active) {
        interactionClasses.computeIfAbsent(theClass, key -> new Interest()).add(where, new Terms(active, ""));
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
