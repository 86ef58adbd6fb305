package tovu.local.model.time;

import hla.rti1516e.exceptions.AsynchronousDeliveryAlreadyDisabled;
import hla.rti1516e.exceptions.AsynchronousDeliveryAlreadyEnabled;
import hla.rti1516e.exceptions.InTimeAdvancingState;
import hla.rti1516e.exceptions.InvalidLogicalTime;
import hla.rti1516e.exceptions.LogicalTimeAlreadyPassed;
import hla.rti1516e.exceptions.RTIexception;
import hla.rti1516e.exceptions.RequestForTimeConstrainedPending;
import hla.rti1516e.exceptions.RequestForTimeRegulationPending;
import hla.rti1516e.exceptions.TimeConstrainedAlreadyEnabled;
import hla.rti1516e.exceptions.TimeConstrainedIsNotEnabled;
import hla.rti1516e.exceptions.TimeRegulationAlreadyEnabled;
import hla.rti1516e.exceptions.TimeRegulationIsNotEnabled;
import java.util.ArrayList;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;
import tovu.local.model.time.FederateTime.Switch;
import tovu.local.model.value.LogicalTime;
import tovu.local.model.value.Saved;
import tovu.local.model.value.TimeFamily;

/**
 * Grants time. A constrained federate's GALT is the earliest time that any other regulating federate may still send
 * with; a request is granted once nothing can come any more that should have come before it.
 */
@SuppressWarnings("serial") // read by what wrote it
public final class TimeManagement implements Saved {
    private final TimedFederation federation;
    private final TimeFamily family;
    private final List<TimedFederate> regulating = new ArrayList<>();
    private final Set<TimedFederate> waiting = new LinkedHashSet<>(); // for a grant, or for constraint
    private boolean stale;

    public TimeManagement(TimedFederation federation) {
        this.federation = federation;
        family = federation.timeFamily();
    }

    private LogicalTime time(long ordinal) {
        return new LogicalTime(family, ordinal);
    }

    /** The ordinal of a time that the federate gives. */
    public long time(TimedFederate federate, long bits) throws InvalidLogicalTime {
        remindOfFamily(federate, bits);
        return family.time(bits);
    }

    /** Nothing in the bytes tells the class of a time. Whoever seems to use the wrong one is told so, once. */
    private void remindOfFamily(TimedFederate federate, long bits) {
        if (family.looksForeign(bits) && federate.time().isFirstDoubt()) {
            System.err.println(federate + " " + family.doubtAbout(bits));
        }
    }

    /** @param lookahead the bytes of the interval */
    public void enableRegulation(TimedFederate federate, long lookahead) throws RTIexception {
        FederateTime own = federate.time();
        if (own.regulation() == Switch.ON) {
            throw new TimeRegulationAlreadyEnabled(federate
                    + " is time-regulating already; change its lookahead with modifyLookahead");
        }
        requireNoRegulationPending(federate);
        requireNotAdvancing(federate);
        remindOfFamily(federate, lookahead);
        long interval = family.lookahead(lookahead);
        long promised = own.time();
        for (TimedFederate each : federation.members()) {
            if (each != federate && each.time().isConstrained()) {
                promised = Math.max(promised, each.time().promisedUntil());
            }
        }
        long start = Math.max(own.time(), family.earliestReaching(promised, interval));
        if (own.isConstrained() && start > own.time()) {
            own.deliveredUntil(federate.inbox().deliverUntil(start, Long.MIN_VALUE));
        }
        own.beginRegulation(interval, start, promised);
        regulating.add(federate);
        federate.postChange(() -> {
            own.completeRegulation();
            regulationChanged(federate);
        }, to -> to.timeRegulationEnabled(time(own.time())));
    }

    public void disableRegulation(TimedFederate federate) throws TimeRegulationIsNotEnabled {
        requireRegulating(federate);
        stopRegulating(federate);
        evaluate();
    }

    /** It depends on that whether what is sent may be retracted. */
    private static void regulationChanged(TimedFederate federate) {
        federate.revokeLicences(0);
        federate.limitTimes();
    }

    private void stopRegulating(TimedFederate federate) {
        federate.time().endRegulation();
        regulationChanged(federate);
        regulating.remove(federate);
        federate.forgetRetractions();
    }

    public void enableConstrained(TimedFederate federate) throws RTIexception {
        if (federate.time().constraint() == Switch.ON) {
            throw new TimeConstrainedAlreadyEnabled(federate + " is time-constrained already");
        }
        requireNoConstraintPending(federate);
        requireNotAdvancing(federate);
        federate.time().requestConstraint();
        waiting.add(federate);
        evaluate();
    }

    public void disableConstrained(TimedFederate federate) throws TimeConstrainedIsNotEnabled {
        if (federate.time().constraint() != Switch.ON) {
            throw new TimeConstrainedIsNotEnabled(federate + " is not time-constrained");
        }
        federate.time().endConstraint();
        federate.invalidateMessages();
        federate.inbox().flush();
        evaluate();
    }

    /** @param requestedTime the bytes of the time */
    public void advance(TimedFederate federate, AdvanceKind kind, long requestedTime) throws RTIexception {
        requireNoConstraintPending(federate);
        requireNoRegulationPending(federate);
        requireNotAdvancing(federate);
        long requested = time(federate, requestedTime);
        if (requested < federate.time().time()) {
            throw new LogicalTimeAlreadyPassed(federate + " asks for time " + family.text(requested)
                    + " but has reached " + family.text(federate.time().time())
                    + " already; ask for that or a later one");
        }
        federate.time().request(kind, requested);
        federate.limitTimes();
        federate.inbox().releaseHeld();
        waiting.add(federate);
        evaluate();
    }

    public void setAsynchronousDelivery(TimedFederate federate, boolean on) throws RTIexception {
        if (federate.time().isAsynchronous() == on) {
            String message = "Asynchronous delivery to " + federate + " is " + (on ? "enabled" : "disabled")
                    + " already";
            throw on ? new AsynchronousDeliveryAlreadyEnabled(message)
                    : new AsynchronousDeliveryAlreadyDisabled(message);
        }
        federate.time().deliverAsynchronously(on);
        if (on) {
            federate.inbox().releaseHeld();
        }
    }

    public LogicalTime logicalTime(TimedFederate federate) {
        return time(federate.time().time());
    }

    /** The greatest available logical time, or null when nobody else regulates. */
    public LogicalTime galt(TimedFederate federate) {
        return new GreatestAvailableTimes().time(federate);
    }

    /** How far each federate may get as things stand. */
    public GreatestAvailableTimes greatestAvailableTimes() {
        return new GreatestAvailableTimes();
    }

    /** The least incoming time stamp, or null when nothing can come in. */
    public LogicalTime lits(TimedFederate federate) {
        long lits = Math.min(new GreatestAvailableTimes().of(federate), federate.inbox().firstTime());
        return lits == TimeFamily.NEVER ? null : time(lits);
    }

    public void modifyLookahead(TimedFederate federate, long lookahead) throws RTIexception {
        requireRegulating(federate);
        requireNotAdvancing(federate);
        remindOfFamily(federate, lookahead);
        federate.time().modifyLookahead(family.lookahead(lookahead));
        federate.limitTimes();
        evaluate();
    }

    public LogicalTime lookahead(TimedFederate federate) throws TimeRegulationIsNotEnabled {
        requireRegulating(federate);
        return time(federate.time().actualLookahead());
    }

    public void requireRegulating(TimedFederate federate) throws TimeRegulationIsNotEnabled {
        if (federate.time().regulation() != Switch.ON) {
            throw new TimeRegulationIsNotEnabled(federate + " is not time-regulating; enable time regulation first");
        }
    }

    private static void requireNotAdvancing(TimedFederate federate) throws InTimeAdvancingState {
        if (federate.time().isAdvancing()) {
            throw new InTimeAdvancingState(federate + " is advancing its time; wait for the grant");
        }
    }

    private static void requireNoRegulationPending(TimedFederate federate) throws RequestForTimeRegulationPending {
        if (federate.time().regulation() == Switch.PENDING) {
            throw new RequestForTimeRegulationPending(federate
                    + " waits to become time-regulating; wait for the callback");
        }
    }

    private static void requireNoConstraintPending(TimedFederate federate) throws RequestForTimeConstrainedPending {
        if (federate.time().constraint() == Switch.PENDING) {
            throw new RequestForTimeConstrainedPending(federate
                    + " waits to become time-constrained; wait for the callback");
        }
    }

    /** The ordinal of a time that the federate sends with; a regulating federate must not send too early. */
    public long sendingTime(TimedFederate federate, long bits) throws InvalidLogicalTime {
        long time = time(federate, bits);
        if (federate.time().regulation() == Switch.ON && time < federate.time().leastSendTime()) {
            throw new InvalidLogicalTime(federate + " sends with time " + family.text(time)
                    + " but promised to send nothing before " + family.text(federate.time().leastSendTime())
                    + "; send with that time or a later one");
        }
        return time;
    }

    /** A message for a federate that waits for just that may end its wait. */
    public void messageQueued(TimedFederate federate) {
        if (federate.time().isWaiting() && federate.time().kind() == AdvanceKind.NEXT_MESSAGE_AVAILABLE) {
            reconsider();
        }
    }

    /** Messages may have ceased to count that somebody who follows them waits for. */
    public void messagesChanged(TimedFederate federate) {
        if (federate.time().follows()) {
            reconsider();
        }
    }

    /** Messages have come or gone that decide how far somebody can get: at the end of this service it is looked at. */
    public void reconsider() {
        stale = true;
    }

    /** The end of a service. */
    public void settle() {
        if (stale) {
            evaluate();
        }
    }

    public void resigned(TimedFederate federate) {
        waiting.remove(federate);
        stopRegulating(federate);
        evaluate();
    }

    /** The greatest available logical time of each federate: the least that any other regulating one may still send. */
    public final class GreatestAvailableTimes {
        private TimedFederate slowest;
        private TimedFederate secondSlowest;
        private long least = TimeFamily.NEVER;
        private long second = TimeFamily.NEVER; // the least of all but the slowest

        GreatestAvailableTimes() {
            for (TimedFederate each : regulating) {
                long own = each.time().leastFutureSendTime(firstMessage(each));
                if (slowest == null || own < least) {
                    slowest = each;
                    least = own;
                }
            }
            for (TimedFederate each : regulating) {
                if (each != slowest) {
                    // Who follows its messages may be sent one by the slowest, and answer that.
                    long own = each.time().leastFutureSendTime(
                            each.time().follows() ? Math.min(least, firstMessage(each)) : TimeFamily.NEVER);
                    if (secondSlowest == null || own < second) {
                        secondSlowest = each;
                        second = own;
                    }
                }
            }
        }

        /** Where nothing depends on it the inbox is not asked, lest that drop what may be wanted again. */
        private long firstMessage(TimedFederate federate) {
            return federate.time().follows() ? federate.inbox().firstTime() : TimeFamily.NEVER;
        }

        long of(TimedFederate federate) {
            return federate == slowest ? second : least;
        }

        /** The federate's greatest available logical time, or null when nobody else regulates. */
        public LogicalTime time(TimedFederate federate) {
            return of(federate) == TimeFamily.NEVER ? null : TimeManagement.this.time(of(federate));
        }

        /** The regulating federate that it comes from, or null when nobody else is one. */
        public TimedFederate heldBy(TimedFederate federate) {
            return federate == slowest ? secondSlowest : slowest;
        }
    }

    /** Grants whatever can be granted now; what that delivers can make way for more. */
    public void evaluate() {
        do {
            stale = false;
            grantAll();
        } while (stale);
    }

    private void grantAll() {
        if (waiting.isEmpty() || federation.isSavingOrRestoring()) {
            return;
        }
        GreatestAvailableTimes available = new GreatestAvailableTimes();
        for (TimedFederate each : new ArrayList<>(waiting)) {
            long galt = available.of(each);
            if (each.time().constraint() == Switch.PENDING) {
                constrainIfPossible(each, galt);
            } else {
                grantIfPossible(each, each.time().isConstrained() ? galt : TimeFamily.NEVER);
            }
        }
        federation.save().beginIfDue();
    }

    private void constrainIfPossible(TimedFederate federate, long galt) {
        FederateTime own = federate.time();
        if (galt >= own.leastReceiveTime()) {
            waiting.remove(federate);
            own.beginConstraint();
            federate.postChange(own::completeConstraint, to -> to.timeConstrainedEnabled(time(own.time())));
        }
    }

    private void grantIfPossible(TimedFederate federate, long galt) {
        FederateTime own = federate.time();
        AdvanceKind kind = own.kind();
        long target = own.requested();
        if (kind == AdvanceKind.FLUSH_QUEUE) {
            target = Math.max(own.time(), Math.min(Math.min(target, galt), federate.inbox().firstTime()));
        } else if (kind.stopsAtMessage()) {
            target = Math.min(target, federate.inbox().firstTime());
        }
        boolean due = galt == TimeFamily.NEVER || kind == AdvanceKind.FLUSH_QUEUE
                || (kind.isExclusive() ? target < galt : target <= galt);
        boolean held = own.isConstrained() && federation.save().comesBefore(target);
        if (!due || held) {
            if (!kind.stopsAtMessage()) { // what cannot be overtaken any more need not wait for the grant
                long until = Math.min(federation.save().limit(target), galt - 1);
                own.deliveredUntil(federate.inbox().deliverUntil(until, Long.MIN_VALUE));
            }
            if (held && federation.save().comesBefore(galt)) {
                federation.save().reached(federate);
            }
            return;
        }
        waiting.remove(federate);
        long last = kind == AdvanceKind.FLUSH_QUEUE ? TimeFamily.NEVER : target;
        federate.inbox().deliverUntil(last, target);
        own.decide(target);
        long reached = target;
        federate.postForeseenChange(() -> {
            own.reach();
            federate.limitTimes();
            federate.expireRetractions(own.leastSendTime());
        }, to -> to.timeAdvanceGrant(time(reached)));
    }
}
