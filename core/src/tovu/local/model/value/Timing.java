package tovu.local.model.value;

/**
 * Whether a message is sent with a time, and with which.
 *
 * @param isTimed    whether it is
 * @param bits       the bytes of the time
 * @param retraction the number by which it may be retracted if it may; 0 for any
 */
public record Timing(boolean isTimed, long bits, int retraction) {
    public static final Timing NONE = new Timing(false, 0, 0);

    public static Timing at(long bits) {
        return new Timing(true, bits, 0);
    }
}
