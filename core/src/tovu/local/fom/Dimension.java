package tovu.local.fom;

/** A dimension of routing space. */
public final class Dimension {
    private final int handle;
    private final String name;
    final Property<Long> upperBound = new Property<>();
    final Property<Range> unspecified = new Property<>();

    Dimension(int handle, String name) {
        this.handle = handle;
        this.name = name;
    }

    public int handle() {
        return handle;
    }

    public String name() {
        return name;
    }

    /** Values run from 0 up to, but not including, this one. */
    public long upperBound() {
        return upperBound.or((long) Integer.MAX_VALUE);
    }

    /** Where a region is that does not have the dimension, if it is used with something that has. */
    public Range unspecified() {
        return unspecified.or(Range.EXCLUDED);
    }

    @Override
    public String toString() {
        return name;
    }
}
