package tovu.local.model.exchange;

import hla.rti1516e.exceptions.FederateInternalError;
import tovu.local.fom.OrderType;
import tovu.local.model.port.FederateCallbacks;
import tovu.local.model.port.RetractableCallback;
import tovu.local.model.time.FederateTime;
import tovu.local.model.value.LogicalTime;
import tovu.local.model.value.Saved;
import tovu.local.model.value.Stamp;

/** One reflection, interaction or removal on its way to one federate. */
@SuppressWarnings("serial") // read by what wrote it
abstract class Message implements RetractableCallback, Comparable<Message>, Saved {
    /**
     * What is common to all that one service call sends.
     *
     * @param time       the ordinal of the time it is sent with, if it is timed
     * @param timed      whether it is sent with a time
     * @param sentOrder  the order it is sent in
     * @param retraction by which it may be retracted, or 0
     * @param sequence   greater for what is sent later
     * @param tag        the user-supplied tag
     */
    record Origin(long time, boolean timed, OrderType sentOrder, int retraction, long sequence, byte[] tag)
            implements Saved {
        /** Each is another one, also where two federations send the same at the same time. */
        @Override
        public boolean equals(Object other) {
            return this == other;
        }

        @Override
        public int hashCode() {
            return Long.hashCode(sequence);
        }
    }

    final Federate receiver;
    final Origin sending;
    private int validity; // of the receiver's wants, when they were looked at last
    private boolean wanted = true;
    private OrderType receivedOrder;
    private boolean told;
    private boolean retracted;

    Message(Federate receiver, Origin sending) {
        this.receiver = receiver;
        this.sending = sending;
        validity = receiver.messageValidity();
        receivedOrder = sending.sentOrder() == OrderType.TIMESTAMP && receiver.time.isConstrained()
                ? OrderType.TIMESTAMP : OrderType.RECEIVE;
    }

    final boolean isTimestamped() {
        return receivedOrder == OrderType.TIMESTAMP;
    }

    /** For a receiver that is not constrained any more. */
    final void loseTimestampOrder() {
        receivedOrder = OrderType.RECEIVE;
    }

    /** Leaves it with the delivery. */
    void post() {
        receiver.oversight.posted(isTimestamped());
        receiver.post(this);
    }

    @Override
    public final boolean isRetractable() {
        return sending.retraction() != 0;
    }

    @Override
    public final synchronized boolean retract() {
        retracted = !told;
        return retracted;
    }

    /** From here on it cannot be taken back any more; false when it was. */
    private synchronized boolean commit() {
        told = !retracted;
        return told;
    }

    final OrderType sentOrder() {
        return sending.sentOrder();
    }

    final byte[] tag() {
        return sending.tag();
    }

    /** What the receiver is told of its time; null when it has none. */
    final Stamp stamp() {
        return sending.timed() ? new Stamp(new LogicalTime(receiver.federation().timeFamily(), sending.time()),
                receivedOrder, sending.retraction()) : null;
    }

    @Override
    public final boolean begin() {
        receiver.oversight.delivered(isTimestamped());
        update();
        boolean due = wanted && (!isRetractable() || commit());
        if (due) {
            count();
        }
        return due;
    }

    /** What messages of one service call have in common that tell the same. */
    private record Likeness(Origin sending, OrderType receivedOrder, Object content) {
    }

    @Override
    public final Object likeness() {
        update();
        return wanted ? new Likeness(sending, receivedOrder, content()) : null;
    }

    @Override
    public final void foretell(FederateCallbacks to) throws FederateInternalError {
        update();
        if (wanted) {
            tell(to);
        }
    }

    private void update() {
        if (validity != receiver.messageValidity()) {
            synchronized (receiver.federation()) {
                if (receiver.time.constraint() != FederateTime.Switch.ON) {
                    loseTimestampOrder();
                }
                review();
            }
        }
    }

    /** Fits it to what the receiver wants now. */
    private void review() {
        validity = receiver.messageValidity();
        wanted = fit();
    }

    /** While it waits to be posted: whether the receiver wants something of it now. */
    final boolean isWanted() {
        if (validity != receiver.messageValidity()) {
            review();
        }
        return wanted;
    }

    /** For what management tells of the receiver. */
    abstract void count();

    /** Equal for messages of one service call that tell the same but for what this class knows. */
    abstract Object content();

    abstract void tell(FederateCallbacks to) throws FederateInternalError;

    /** Makes it what the receiver wants of it now; false when that is nothing. */
    abstract boolean fit();

    /** By time, and in the order of sending where the time is the same. */
    @Override
    public final int compareTo(Message other) {
        int byTime = Long.compare(sending.time(), other.sending.time());
        return byTime != 0 ? byTime : Long.compare(sending.sequence(), other.sending.sequence());
    }
}
