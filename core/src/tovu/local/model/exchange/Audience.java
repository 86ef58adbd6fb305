package tovu.local.model.exchange;

import java.util.HashMap;
import java.util.LinkedHashSet;
import java.util.Map;
import java.util.Set;
import tovu.local.model.value.Saved;

/**
 * Which federates subscribe to a class: the index by which a message finds its receivers.
 *
 * @param <C> the kind of class
 */
@SuppressWarnings("serial") // read by what wrote it
final class Audience<C> implements Saved {
    private final Map<C, Set<Federate>> subscribers = new HashMap<>();

    Set<Federate> of(C theClass) {
        return subscribers.getOrDefault(theClass, Set.of());
    }

    void set(C theClass, Federate federate, boolean subscribed) {
        Set<Federate> federates = subscribers.get(theClass);
        if (subscribed) {
            if (federates == null) {
                federates = new LinkedHashSet<>();
                subscribers.put(theClass, federates);
            }
            federates.add(federate);
        } else if (federates != null) {
            federates.remove(federate);
        }
    }
}
