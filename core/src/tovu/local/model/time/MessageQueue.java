package tovu.local.model.time;

/** The messages that a federate is not to get yet. */
public interface MessageQueue {
    /**
     * The time of the first time-stamped message that is wanted, or never. What comes before it is dropped: whoever
     * asks promises something on the strength of the answer, which a change of mind must not belie.
     */
    long firstTime();

    /**
     * Delivers the time-stamped messages up to and including a time.
     *
     * @return the time of the last one delivered, or that of nothing yet
     */
    long deliverUntil(long time, long nothing);

    /** Delivers those in receive order. */
    void releaseHeld();

    /** Delivers everything, as befits a federate that is not constrained. */
    void flush();
}
