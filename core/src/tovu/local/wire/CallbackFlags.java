package tovu.local.wire;

/** What a frame says of the callback in it. */
public final class CallbackFlags {
    /** It is made although the federate is no member any more. */
    public static final int OUTLIVES_MEMBERSHIP = 1;
    /** No review concerns it. */
    public static final int CERTAIN = 2;

    private CallbackFlags() {
    }
}
