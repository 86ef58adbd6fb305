package tovu.local.model.value;

/** The bits of a federate's condition: what others are told of it at each change. */
public final class Condition {
    public static final int CONSTRAINED = 1;
    public static final int REGULATING = 2;
    public static final int ASYNCHRONOUS = 4;
    public static final int ADVANCING = 8;
    public static final int CONVEYS_REGIONS = 16;
    public static final int CONVEYS_PRODUCER = 32;
    public static final int SAVING = 64;
    public static final int RESTORING = 128;

    private Condition() {
    }
}
