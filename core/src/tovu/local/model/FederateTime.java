package tovu.local.model;

/**
 * One federate's logical time. What the federation decides (a grant, regulation, constraint) becomes the federate's own
 * view only when it is told so; until then both views are kept here.
 */
@SuppressWarnings("serial") // kept in memory only
final class FederateTime implements Saved {
    enum Switch {
        OFF, PENDING, ON
    }

    private final TimeFamily family;
    private long time;
    private boolean exclusive;
    private AdvanceKind kind; // null in the time granted state
    private long requested;
    private boolean decided;
    private long granted;
    private Switch regulation = Switch.OFF;
    private Switch constraint = Switch.OFF;
    private boolean constrained;
    private long lookahead;
    private long floor = Long.MIN_VALUE;
    private long start; // of regulation, while that is pending
    private long deliveredUntil = Long.MIN_VALUE;
    private boolean doubted;
    boolean asynchronousDelivery;
    final Stopwatch stopwatch = new Stopwatch();

    FederateTime(TimeFamily family) {
        this.family = family;
    }

    /** Whether nobody has doubted yet that the federate uses times of the right class; from now on somebody has. */
    boolean isFirstDoubt() {
        boolean first = !doubted;
        doubted = true;
        return first;
    }

    int condition() {
        return (constraint == Switch.ON ? Condition.CONSTRAINED : 0)
                | (regulation == Switch.ON ? Condition.REGULATING : 0)
                | (asynchronousDelivery ? Condition.ASYNCHRONOUS : 0) | (kind != null ? Condition.ADVANCING : 0);
    }

    long time() {
        return time;
    }

    boolean isAdvancing() {
        return kind != null;
    }

    /** Asked for an advance and not yet to be granted it. */
    boolean isWaiting() {
        return kind != null && !decided;
    }

    AdvanceKind kind() {
        return kind;
    }

    long requested() {
        return requested;
    }

    void request(AdvanceKind theKind, long theTime) {
        kind = theKind;
        requested = theTime;
        decided = false;
        stopwatch.run(true);
    }

    void decide(long theTime) {
        decided = true;
        granted = theTime;
    }

    /** The federate is told what was decided. */
    void reach() {
        time = granted;
        exclusive = kind.isExclusive();
        kind = null;
        decided = false;
        stopwatch.run(false);
    }

    Switch regulation() {
        return regulation;
    }

    Switch constraint() {
        return constraint;
    }

    /** Whether the federation counts on it as a regulating federate, told so or not. */
    boolean isRegulating() {
        return regulation != Switch.OFF;
    }

    /** Whether the federation orders its messages, told so or not. */
    boolean isConstrained() {
        return constrained;
    }

    /**
     * @param theStart the time that it will have when it regulates
     * @param from     the time from which it will send, at least
     */
    void beginRegulation(long theLookahead, long theStart, long from) {
        regulation = Switch.PENDING;
        lookahead = theLookahead;
        start = theStart;
        floor = from;
    }

    /** The federate is told that it regulates. */
    void completeRegulation() {
        regulation = Switch.ON;
        if (start > time) {
            time = start;
            exclusive = false;
        }
    }

    void endRegulation() {
        regulation = Switch.OFF;
        floor = Long.MIN_VALUE;
    }

    void requestConstraint() {
        constraint = Switch.PENDING;
    }

    void beginConstraint() {
        constrained = true;
        deliveredUntil = reached();
    }

    void completeConstraint() {
        constraint = Switch.ON;
    }

    void endConstraint() {
        constraint = Switch.OFF;
        constrained = false;
    }

    /** Receive-order messages of a constrained federate wait for an advance, unless it wants them at any time. */
    boolean holdsReceiveOrder() {
        return constrained && !asynchronousDelivery && !isWaiting();
    }

    void deliveredUntil(long theTime) {
        deliveredUntil = Math.max(deliveredUntil, theTime);
    }

    /** The time that it has, or has got and has yet to hear of. */
    long reached() {
        return decided ? granted : regulation == Switch.PENDING ? Math.max(time, start) : time;
    }

    /** The earliest time that a message for it may have, as far as its grants go. */
    long earliestNext() {
        long reached = reached();
        boolean without = decided ? kind.isExclusive() : exclusive && reached == time;
        return without && reached < TimeFamily.NEVER ? reached + 1 : reached;
    }

    /** Earlier than this no message may be sent to it any more: it is told what was before. */
    long promisedUntil() {
        return Math.max(deliveredUntil, earliestNext());
    }

    private long bound(long from, boolean without) {
        long earliest = lookahead == 0 && without && from < TimeFamily.NEVER ? from + 1 : family.plus(from, lookahead);
        return Math.max(floor, earliest);
    }

    /** The earliest time that it may send with now. */
    long sendBound() {
        return kind == null ? bound(time, exclusive) : bound(requested, kind.isExclusive());
    }

    /** The earliest time it will send with from now on, if the first message for it is of that time. */
    long outBound(long firstMessage) {
        if (kind == null) {
            return bound(time, exclusive);
        }
        if (decided) {
            return bound(granted, kind.isExclusive());
        }
        return bound(kind.stopsAtMessage() ? Math.min(requested, firstMessage) : requested, kind.isExclusive());
    }

    /** Whether what it will send depends on what it is sent. */
    boolean follows() {
        return isWaiting() && kind.stopsAtMessage() && constrained;
    }

    void modifyLookahead(long theLookahead) {
        floor = bound(time, exclusive);
        lookahead = theLookahead;
    }

    /** The lookahead in effect: one that was made shorter shrinks only as time advances. */
    long actualLookahead() {
        return family.plus(time, lookahead) >= floor ? lookahead : family.minus(floor, time);
    }
}
