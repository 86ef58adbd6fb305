package tovu.local.model;

import hla.rti1516e.exceptions.FederateInternalError;
import tovu.local.fom.OrderType;

/** One reflection, interaction or removal on its way to one federate. */
@SuppressWarnings("serial") // kept in memory only
abstract class Message implements Callback, Comparable<Message>, Saved {
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
    record Sending(long time, boolean timed, OrderType sentOrder, int retraction, long sequence, byte[] tag)
            implements Saved {
    }

    final Federate receiver;
    final Sending sending;
    private int validity; // of the receiver's wants, when they were looked at last
    private boolean wanted = true;
    private OrderType receivedOrder;
    private boolean told;
    private boolean retracted;

    Message(Federate receiver, Sending sending) {
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
    final void post() {
        receiver.oversight.posted(isTimestamped());
        receiver.post(this);
    }

    /** Takes it back wherever it is; false when the receiver is told already. */
    final synchronized boolean retract() {
        retracted = !told;
        return retracted;
    }

    /** From here on it cannot be taken back any more; false when it was. */
    final synchronized boolean commit() {
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
    public final void deliver(FederateCallbacks to) throws FederateInternalError {
        receiver.oversight.delivered(isTimestamped());
        if (validity != receiver.messageValidity()) {
            synchronized (receiver.federation()) {
                if (receiver.time.constraint() != FederateTime.Switch.ON) {
                    loseTimestampOrder();
                }
                review();
            }
        }
        if (wanted && (sending.retraction() == 0 || commit())) {
            tell(to);
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
