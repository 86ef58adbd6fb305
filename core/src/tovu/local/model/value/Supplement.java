package tovu.local.model.value;

/**
 * What a message tells of its origin, as far as its receiver's switches convey it.
 *
 * @param producer    the sending federate's handle, or 0
 * @param sentRegions the regions it was sent with, or null
 */
public record Supplement(int producer, int[] sentRegions) implements Saved {
    public static final Supplement NONE = new Supplement(0, null);
}
