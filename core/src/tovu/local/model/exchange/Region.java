package tovu.local.model.exchange;

import java.io.IOException;
import java.io.ObjectInputStream;
import java.util.Arrays;
import java.util.Comparator;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;
import java.util.stream.Collectors;
import tovu.local.fom.Dimension;
import tovu.local.fom.Dimensioned;
import tovu.local.fom.Range;
import tovu.local.model.value.Saved;

/**
 * A region of routing space. Its creator changes the draft at will; what counts for delivery is the
 * realization, which is the draft as it was committed last. Ranges contain their lower bound and not their
 * upper one.
 */
@SuppressWarnings("serial") // read by what wrote it
final class Region implements Saved {
    final int handle;
    final Federate creator;
    private final List<Dimension> dimensions; // in the order of their handles
    private final long[] draft; // a lower and an upper bound for each dimension
    private long[] realization;
    private int subscriptions;
    private transient Set<InstanceAttribute> sentWith = new LinkedHashSet<>();

    Region(int handle, Federate creator, Set<Dimension> dimensions) {
        this.handle = handle;
        this.creator = creator;
        this.dimensions = dimensions.stream().sorted(Comparator.comparingInt(Dimension::handle)).toList();
        draft = new long[2 * dimensions.size()];
        for (int i = 0; i < this.dimensions.size(); ++i) {
            draft[2 * i + 1] = this.dimensions.get(i).upperBound();
        }
        commit();
    }

    /** Regions as they are now, for messages on their way: a later commit does not change where these were sent. */
    static Set<Region> asRealized(Set<Region> regions) {
        return regions.isEmpty() ? regions : regions.stream().map(Region::new).collect(Collectors.toUnmodifiableSet());
    }

    private Region(Region original) {
        handle = original.handle;
        creator = original.creator;
        dimensions = original.dimensions;
        draft = original.realization;
        realization = original.realization;
    }

    List<Dimension> dimensions() {
        return dimensions;
    }

    /** The lower and the upper bound: as drafted for the creator, as committed for everyone else. */
    long[] bounds(Dimension dimension, Federate reader) {
        int i = 2 * dimensions.indexOf(dimension);
        return Arrays.copyOfRange(reader == creator ? draft : realization, i, i + 2);
    }

    void draft(Dimension dimension, long lower, long upper) {
        int i = 2 * dimensions.indexOf(dimension);
        draft[i] = lower;
        draft[i + 1] = upper;
    }

    void commit() {
        realization = draft.clone();
    }

    /** A snapshot would go down from region to region by way of what is sent with both. */
    private void readObject(ObjectInputStream in) throws IOException, ClassNotFoundException {
        in.defaultReadObject();
        sentWith = new LinkedHashSet<>();
    }

    /** The instance attributes whose updates its creator sends, or would as their owner, with this region. */
    Set<InstanceAttribute> sentWith() {
        return sentWith;
    }

    void subscribed() {
        ++subscriptions;
    }

    void unsubscribed() {
        --subscriptions;
    }

    boolean isSubscribed() {
        return subscriptions > 0;
    }

    boolean isInUse() {
        return isSubscribed() || !sentWith.isEmpty();
    }

    private long bound(Dimension dimension, boolean upper) {
        int i = dimensions.indexOf(dimension);
        Range unspecified = dimension.unspecified();
        return i >= 0 ? realization[2 * i + (upper ? 1 : 0)] : upper ? unspecified.upper() : unspecified.lower();
    }

    /** Whether it has the dimension, or a place in it all the same. */
    private boolean extendsIn(Dimension dimension) {
        return !dimension.unspecified().equals(Range.EXCLUDED) || dimensions.contains(dimension);
    }

    /** Whether the two meet in every dimension in which both extend; without a common one regions never meet. */
    boolean overlaps(Region other, Set<Dimension> available) {
        boolean common = false;
        for (Dimension each : available) {
            if (extendsIn(each) && other.extendsIn(each)) {
                common = true;
                if (bound(each, false) >= other.bound(each, true) || other.bound(each, false) >= bound(each, true)) {
                    return false;
                }
            }
        }
        return common;
    }

    /** Whether what is sent with some regions is wanted with others. */
    static boolean anyOverlap(Set<Region> some, Set<Region> others, Dimensioned what) {
        for (Region one : some) {
            for (Region other : others) {
                if (one.overlaps(other, what.dimensions())) {
                    return true;
                }
            }
        }
        return false;
    }
}
