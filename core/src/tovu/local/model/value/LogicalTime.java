package tovu.local.model.value;

/**
 * A logical time or interval on its way out of the model.
 *
 * @param family  its family
 * @param ordinal which of the family's times it is
 */
public record LogicalTime(TimeFamily family, long ordinal) {
    /** The eight bytes of its own encoding, most significant first. */
    public long bits() {
        return family.bits(ordinal);
    }

    @Override
    public String toString() {
        return family.text(ordinal);
    }
}
