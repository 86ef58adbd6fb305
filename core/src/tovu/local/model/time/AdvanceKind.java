package tovu.local.model.time;

/** The five ways to ask for a time advance. */
public enum AdvanceKind {
    TIME_ADVANCE(true, false), TIME_ADVANCE_AVAILABLE(false, false), NEXT_MESSAGE(true, true),
    NEXT_MESSAGE_AVAILABLE(false, true), FLUSH_QUEUE(false, true);

    private final boolean exclusive;
    private final boolean stopsAtMessage;

    AdvanceKind(boolean exclusive, boolean stopsAtMessage) {
        this.exclusive = exclusive;
        this.stopsAtMessage = stopsAtMessage;
    }

    /** Whether the grant says that nothing more will come for the time granted. */
    boolean isExclusive() {
        return exclusive;
    }

    /** Whether the grant may be for a message's time, before the time asked for. */
    boolean stopsAtMessage() {
        return stopsAtMessage;
    }
}
