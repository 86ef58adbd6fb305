package tovu.local.model.time;

/** The save that waits for its time, if there is one, as those meet it who advance. */
public interface SaveBarrier {
    /** Whether a federate may not be granted that time before the save that is due. */
    boolean comesBefore(long time);

    /** The part of an advance to that time that comes before the save. */
    long limit(long time);

    /**
     * All that could come to the federate before the time of the save has come, and it wants to go on. How far others
     * let it must not count: they may be waiting for the save themselves.
     */
    void reached(TimedFederate federate);

    void beginIfDue();
}
