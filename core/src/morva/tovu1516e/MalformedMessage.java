package morva.tovu1516e;

/** A message that is shorter than what it holds. The library makes none; what comes from elsewhere may be one. */
public final class MalformedMessage extends RuntimeException {
    private static final long serialVersionUID = 1;

    MalformedMessage() {
        super("a message that is shorter than what it holds");
    }
}
