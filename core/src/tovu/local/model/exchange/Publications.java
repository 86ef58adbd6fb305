package tovu.local.model.exchange;

import java.util.HashMap;
import java.util.HashSet;
import java.util.LinkedHashMap;
import java.util.LinkedHashSet;
import java.util.Map;
import java.util.Set;
import java.util.TreeSet;
import tovu.local.fom.InteractionClass;
import tovu.local.fom.ObjectClass;
import tovu.local.fom.OrderType;
import tovu.local.fom.Transportation;
import tovu.local.model.value.Saved;

/** What one federate publishes, and what it was told about whether that is wanted. */
@SuppressWarnings("serial") // read by what wrote it
final class Publications implements Saved {
    /** How a federate sends interactions of a class when that is not what the object model says. */
    @SuppressWarnings("serial") // read by what wrote it
    static final class Sending implements Saved {
        Transportation transportation;
        OrderType order;
        boolean transportationChanging;

        Sending(InteractionClass theClass) {
            transportation = theClass.transportation();
            order = theClass.order();
        }
    }

    final Map<ObjectClass, Set<Integer>> objectClasses = new LinkedHashMap<>();
    final Set<InteractionClass> interactionClasses = new LinkedHashSet<>();
    final Set<ObjectClass> registrationStarted = new HashSet<>();
    final Set<InteractionClass> interactionsOn = new HashSet<>();
    private final Map<InteractionClass, Sending> sendings = new HashMap<>();
    private final int privilegeToDelete;

    Publications(int privilegeToDelete) {
        this.privilegeToDelete = privilegeToDelete;
    }

    /** Publishes attributes, and with them the privilege to delete instances. */
    void add(ObjectClass theClass, Set<Integer> attributes) {
        if (!attributes.isEmpty()) {
            Set<Integer> published = objectClasses.computeIfAbsent(theClass, key -> new TreeSet<>());
            published.addAll(attributes);
            published.add(privilegeToDelete);
        }
    }

    /** What goes with those attributes: once nothing else of a class is left, the privilege to delete instances too. */
    Set<Integer> goneWith(ObjectClass theClass, Set<Integer> attributes) {
        Set<Integer> gone = new TreeSet<>(attributes(theClass));
        Set<Integer> left = new TreeSet<>(gone);
        gone.retainAll(attributes);
        left.removeAll(attributes);
        if (!gone.isEmpty() && left.equals(Set.of(privilegeToDelete))) {
            gone.addAll(left);
        }
        return gone;
    }

    void remove(ObjectClass theClass, Set<Integer> attributes) {
        Set<Integer> published = objectClasses.get(theClass);
        if (published != null) {
            published.removeAll(attributes);
            if (published.isEmpty()) {
                objectClasses.remove(theClass);
            }
        }
    }

    boolean publishes(ObjectClass theClass) {
        return objectClasses.containsKey(theClass);
    }

    boolean publishes(ObjectClass theClass, int attribute) {
        return attributes(theClass).contains(attribute);
    }

    Set<Integer> attributes(ObjectClass theClass) {
        return objectClasses.getOrDefault(theClass, Set.of());
    }

    boolean publishes(InteractionClass theClass) {
        return interactionClasses.contains(theClass);
    }

    Sending sending(InteractionClass theClass) {
        return sendings.computeIfAbsent(theClass, Sending::new);
    }
}
