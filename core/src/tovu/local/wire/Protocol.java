package tovu.local.wire;

/** What both sides have to agree in. */
public final class Protocol {
    /** The first four bytes that a federate's side says after the length and type of its first frame. */
    public static final int MAGIC = 0x48554231;
    /** Goes up with each change that one side would not understand of the other. */
    public static final int VERSION = 3;
    /** Of the frame's length, which counts what comes after it. */
    public static final int LENGTH_BYTES = Integer.BYTES;
    /** The default limit of a frame, in bytes. */
    public static final int GREATEST_FRAME = 64 << 20;
    public static final int DEFAULT_PORT = 15160;

    private Protocol() {
    }
}
