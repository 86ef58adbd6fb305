package tovu.local.model;

import java.util.LinkedHashSet;
import java.util.Set;

/**
 * One federate's subscription to a class attribute or an interaction class: everywhere, or where certain regions are.
 * Being subscribed everywhere is being subscribed with the default region, which overlaps every other.
 */
final class Interest {
    private boolean everywhere;
    private final Set<Region> regions = new LinkedHashSet<>();
    private boolean active;
    private String updateRate = "";

    /** @param where the regions to add; null for everywhere */
    void add(Set<Region> where, boolean isActive, String theUpdateRate) {
        active = isActive;
        updateRate = theUpdateRate;
        if (where == null) {
            everywhere = true;
        } else {
            for (Region region : where) {
                if (regions.add(region)) {
                    region.retain();
                }
            }
        }
    }

    /** Takes away regions; null takes away everything. */
    void remove(Set<Region> where) {
        everywhere &= where != null;
        for (Region region : where == null ? Set.copyOf(regions) : where) {
            if (regions.remove(region)) {
                region.release();
            }
        }
    }

    boolean isEmpty() {
        return !everywhere && regions.isEmpty();
    }

    boolean isActive() {
        return active;
    }

    /** The designator of the rate at which updates are wanted; empty for all of them. */
    String updateRate() {
        return updateRate;
    }

    boolean uses(Region region) {
        return regions.contains(region);
    }

    /** @param sentRegions what a message is sent with; empty for the default region */
    boolean meets(Set<Region> sentRegions) {
        return everywhere || sentRegions.isEmpty() || Region.anyOverlap(regions, sentRegions);
    }
}
