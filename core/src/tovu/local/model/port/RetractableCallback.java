package tovu.local.model.port;

/** A callback that whoever caused it may take back until it is told. */
public interface RetractableCallback extends RevocableCallback {
    /** Whether it ever may be taken back. */
    boolean isRetractable();

    /** Takes it back from the delivery; false when the receiver is told already. */
    boolean retract();
}
