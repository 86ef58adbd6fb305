package tovu.local.model.exchange;

import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Set;
import tovu.local.fom.Dimensioned;
import tovu.local.model.value.Saved;

/**
 * One federate's subscription to a class attribute or an interaction class: everywhere, or where certain regions are.
 * Being subscribed everywhere is being subscribed with the default region, which overlaps every other.
 */
@SuppressWarnings("serial") // read by what wrote it
final class Interest implements Saved {
    /**
     * How updates are wanted.
     *
     * @param active     whether they are to be made for this subscription
     * @param updateRate the designator of the rate at which they are wanted; empty for all of them
     */
    record Terms(boolean active, String updateRate) implements Saved {
    }

    private final Dimensioned subject;
    private Terms everywhere; // null when it is not
    private final Map<Region, Terms> regions = new LinkedHashMap<>();

    Interest(Dimensioned subject) {
        this.subject = subject;
    }

    /** @param where the regions to add, or to give other terms; null for everywhere */
    void add(Set<Region> where, Terms terms) {
        if (where == null) {
            everywhere = terms;
        } else {
            for (Region region : where) {
                if (regions.put(region, terms) == null) {
                    region.subscribed();
                }
            }
        }
    }

    /** Takes away regions; null takes away everything. */
    void remove(Set<Region> where) {
        everywhere = where == null ? null : everywhere;
        for (Region region : where == null ? Set.copyOf(regions.keySet()) : where) {
            if (regions.remove(region) != null) {
                region.unsubscribed();
            }
        }
    }

    boolean isEmpty() {
        return everywhere == null && regions.isEmpty();
    }

    boolean isEverywhere() {
        return everywhere != null;
    }

    /** Whether updates are wanted at some rate at most, anywhere. */
    boolean hasRate() {
        return terms(Set.of()).stream().anyMatch(each -> !each.updateRate().isEmpty());
    }

    /** Whether it is active anywhere. */
    boolean isActive() {
        return terms(Set.of()).stream().anyMatch(Terms::active);
    }

    /** @param sentRegions where updates are sent; empty for the default region */
    List<Terms> terms(Set<Region> sentRegions) {
        List<Terms> met = new ArrayList<>();
        if (everywhere != null) {
            met.add(everywhere);
        }
        regions.forEach((region, terms) -> {
            if (sentRegions.isEmpty() || Region.anyOverlap(Set.of(region), sentRegions, subject)) {
                met.add(terms);
            }
        });
        return met;
    }

    /** @param sentRegions what a message is sent with; empty for the default region */
    boolean meets(Set<Region> sentRegions) {
        return everywhere != null || sentRegions.isEmpty()
                || Region.anyOverlap(regions.keySet(), sentRegions, subject);
    }
}
