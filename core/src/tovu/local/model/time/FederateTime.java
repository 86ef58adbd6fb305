package tovu.local.model.time;

import tovu.local.model.value.Condition;
import tovu.local.model.value.Saved;
import tovu.local.model.value.TimeFamily;

/**
 * One federate's logical time. What the federation decides (a grant, regulation, constraint) becomes the federate's own
 * view only when it is told so; until then both views are kept here.
 */
@SuppressWarnings("serial") // read by what wrote it
public final class FederateTime implements Saved {
    public enum Switch {
        OFF, PENDING, ON
    }

    private final TimeFamily family;
    private long time;
    private boolean timeExcluded; // nothing more is sent or received for the time that it has
    private AdvanceKind kind; // null in the time granted state
    private long requested;
    private boolean decided;
    private long granted;
    private Switch regulation = Switch.OFF;
    private Switch constraint = Switch.OFF;
    private boolean constrained;
    private long lookahead;
    private long promised = Long.MIN_VALUE; // to send nothing before, whatever the lookahead has become
    private long start; // of regulation, while that is pending
    private long deliveredUntil = Long.MIN_VALUE;
    private boolean doubted;
    private boolean asynchronousDelivery;
    private boolean changed;
    private final Stopwatch stopwatch = new Stopwatch();

    public FederateTime(TimeFamily family) {
        this.family = family;
    }

    /** Milliseconds in the time granted or the time advancing state since this was last asked for. */
    public int takeMilliseconds(boolean advancing) {
        return stopwatch.take(advancing);
    }

    /** Nanoseconds since it asked for an advance, or was told of the last one. */
    public long unchangedFor() {
        return stopwatch.running();
    }

    /** Whether nobody has doubted yet that the federate uses times of the right class; from now on somebody has. */
    boolean isFirstDoubt() {
        boolean first = !doubted;
        doubted = true;
        return first;
    }

    boolean isAsynchronous() {
        return asynchronousDelivery;
    }

    void deliverAsynchronously(boolean on) {
        asynchronousDelivery = on;
        changed = true;
    }

    /** Whether something that others are told of has changed since this was last asked. */
    public boolean takeChanged() {
        if (!changed) {
            return false;
        }
        changed = false;
        return true;
    }

    public int condition() {
        return (constraint == Switch.ON ? Condition.CONSTRAINED : 0)
                | (regulation == Switch.ON ? Condition.REGULATING : 0)
                | (asynchronousDelivery ? Condition.ASYNCHRONOUS : 0) | (kind != null ? Condition.ADVANCING : 0);
    }

    long time() {
        return time;
    }

    public boolean isAdvancing() {
        return kind != null;
    }

    /** Asked for an advance and not yet to be granted it. */
    public boolean isWaiting() {
        return kind != null && !decided;
    }

    public AdvanceKind kind() {
        return kind;
    }

    public long requested() {
        return requested;
    }

    void request(AdvanceKind theKind, long theTime) {
        changed = true;
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
        changed = true;
        timeExcluded = excludes(kind, granted);
        time = granted;
        kind = null;
        decided = false;
        stopwatch.run(false);
    }

    public Switch regulation() {
        return regulation;
    }

    public Switch constraint() {
        return constraint;
    }

    /** Whether the federation counts on it as a regulating federate, told so or not. */
    public boolean isRegulating() {
        return regulation != Switch.OFF;
    }

    /** Whether the federation orders its messages, told so or not. */
    public boolean isConstrained() {
        return constrained;
    }

    /** Whether nothing more is sent or received for that time once it is granted; no later request takes that back. */
    private boolean excludes(AdvanceKind by, long theTime) {
        return by.isExclusive() || timeExcluded && theTime == time;
    }

    /**
     * @param theStart the time that it will have when it regulates
     * @param from     the time that others count on to hear nothing of before
     */
    void beginRegulation(long theLookahead, long theStart, long from) {
        regulation = Switch.PENDING;
        lookahead = theLookahead;
        start = theStart;
        promised = Math.max(from, family.plus(start, lookahead));
    }

    /** The federate is told that it regulates. */
    void completeRegulation() {
        changed = true;
        regulation = Switch.ON;
        if (start > time) {
            time = start;
            timeExcluded = false;
        }
    }

    void endRegulation() {
        changed = true;
        regulation = Switch.OFF;
        promised = Long.MIN_VALUE;
    }

    void requestConstraint() {
        constraint = Switch.PENDING;
    }

    void beginConstraint() {
        constrained = true;
        deliveredUntil = reached();
    }

    void completeConstraint() {
        changed = true;
        constraint = Switch.ON;
    }

    void endConstraint() {
        changed = true;
        constraint = Switch.OFF;
        constrained = false;
    }

    /** Receive-order messages of a constrained federate wait for an advance, unless it wants them at any time. */
    public boolean holdsReceiveOrder() {
        return constrained && !asynchronousDelivery && !isWaiting();
    }

    void deliveredUntil(long theTime) {
        deliveredUntil = Math.max(deliveredUntil, theTime);
    }

    /** The time that it has, or has got and has yet to hear of. */
    public long reached() {
        return decided ? granted : regulation == Switch.PENDING ? Math.max(time, start) : time;
    }

    /** The least time that a message for it may have, as far as its grants go. */
    long leastReceiveTime() {
        long reached = reached();
        boolean excluded = decided ? excludes(kind, reached) : timeExcluded && reached == time;
        return excluded ? next(reached) : reached;
    }

    /** Earlier than this no message may be sent to it any more: it is told what was before. */
    long promisedUntil() {
        return Math.max(deliveredUntil, leastReceiveTime());
    }

    private static long next(long time) {
        return time < TimeFamily.NEVER ? time + 1 : time;
    }

    private long leastSendTime(long at, boolean excluded) {
        return Math.max(promised, lookahead == 0 && excluded ? next(at) : family.plus(at, lookahead));
    }

    /** The least time that it may send with now; while it advances, as if it had been granted what it asked for. */
    public long leastSendTime() {
        return kind == null ? leastSendTime(time, timeExcluded) : leastSendTime(requested, excludes(kind, requested));
    }

    /** The least time from the initial one on that it may send with for sure. */
    public long leastLicensedTime() {
        return regulation == Switch.ON ? Math.max(0, leastSendTime()) : 0;
    }

    /** The least time that it may send with from now on, if the first message for it is of that time. */
    long leastFutureSendTime(long firstMessage) {
        if (kind == null) {
            return leastSendTime();
        }
        long next = decided ? granted : kind.stopsAtMessage() ? Math.min(requested, firstMessage) : requested;
        return leastSendTime(next, excludes(kind, next));
    }

    /** Whether what it will send depends on what it is sent. */
    boolean follows() {
        return isWaiting() && kind.stopsAtMessage() && constrained;
    }

    void modifyLookahead(long theLookahead) {
        promised = Math.max(promised, family.plus(time, lookahead));
        lookahead = theLookahead;
    }

    /** The lookahead in effect: one that was made shorter shrinks only as time advances. */
    public long actualLookahead() {
        return family.plus(time, lookahead) >= promised ? lookahead : family.minus(promised, time);
    }
}
