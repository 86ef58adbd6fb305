package tovu.local.model.exchange;

import java.util.LinkedHashMap;
import java.util.Map;
import java.util.Set;
import tovu.local.fom.Attribute;
import tovu.local.model.exchange.Interest.Terms;
import tovu.local.model.value.HandleSet;
import tovu.local.model.value.Saved;

/** One federate's interests in the attributes of one object class. */
@SuppressWarnings("serial") // read by what wrote it
final class AttributeInterests implements Saved {
    private final Map<Integer, Interest> interests = new LinkedHashMap<>();
    private HandleSet attributes; // null after a change, when the others do not count
    private boolean everywhere;
    private boolean rates;

    Map<Integer, Interest> byAttribute() {
        return interests;
    }

    /** @param where the regions to add, or null for everywhere */
    void add(Attribute attribute, Set<Region> where, Terms terms) {
        interests.computeIfAbsent(attribute.handle(), key -> new Interest(attribute)).add(where, terms);
        attributes = null;
    }

    /** @param where the regions to take away, or null for everything */
    void remove(int attribute, Set<Region> where) {
        Interest interest = interests.get(attribute);
        if (interest != null) {
            interest.remove(where);
            if (interest.isEmpty()) {
                interests.remove(attribute);
            }
            attributes = null;
        }
    }

    /** What is told of all interests is found out when it is asked for. */
    private void lookAtAll() {
        if (attributes == null) {
            attributes = HandleSet.of(interests.keySet());
            everywhere = interests.values().stream().allMatch(Interest::isEverywhere);
            rates = interests.values().stream().anyMatch(Interest::hasRate);
        }
    }

    /** Whether there is a largest rate for any attribute. */
    boolean hasRates() {
        lookAtAll();
        return rates;
    }

    /** The attributes whose values are wanted when they are sent with those regions; none for the default region. */
    HandleSet wanted(Set<Region> sentRegions) {
        lookAtAll();
        return everywhere || sentRegions.isEmpty() ? attributes : HandleSet.of(interests.keySet().stream()
                .filter(attribute -> interests.get(attribute).meets(sentRegions)).toList());
    }
}
