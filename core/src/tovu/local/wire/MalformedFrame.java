package tovu.local.wire;

/** A frame that cannot be what it says it is. Whoever reads one ends the connection. */
public final class MalformedFrame extends RuntimeException {
    private static final long serialVersionUID = 1;

    public MalformedFrame(String what) {
        super(what);
    }
}
