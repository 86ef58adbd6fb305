package tovu.local.model.exchange;

import hla.rti1516e.exceptions.InvalidLogicalTime;
import tovu.local.fom.OrderType;
import tovu.local.model.time.FederateTime;
import tovu.local.model.value.Timing;

/** The sending of all messages that come of one service call. */
final class Dispatch {
    private final Exchange federation;
    private final Federate sender;
    private final byte[] tag;
    private final boolean timed;
    private final long time;
    private final int retraction; // its number if it is given already, or 0
    private final boolean mayOrder;
    private Retractions.Sent sent;

    Dispatch(Exchange federation, Federate sender, byte[] tag, Timing timing) throws InvalidLogicalTime {
        this.federation = federation;
        this.sender = sender;
        this.tag = tag;
        timed = timing.isTimed();
        time = timed ? federation.time().sendingTime(sender, timing.bits()) : 0;
        retraction = timing.retraction();
        mayOrder = timed && sender.time.regulation() == FederateTime.Switch.ON;
    }

    /** Sends without a time. */
    Dispatch(Exchange federation, Federate sender, byte[] tag) {
        this.federation = federation;
        this.sender = sender;
        this.tag = tag;
        timed = false;
        time = 0;
        retraction = 0;
        mayOrder = false;
    }

    /** Without a time, or a regulating sender, there is no time stamp order. */
    OrderType sentOrder(OrderType preferred) {
        return mayOrder ? preferred : OrderType.RECEIVE;
    }

    /** What is common to the messages that go out in an order. */
    Message.Origin sending(OrderType preferred) {
        OrderType order = sentOrder(preferred);
        if (order == OrderType.TIMESTAMP && sent == null) {
            sent = federation.retractions().register(sender, time, retraction);
        }
        return new Message.Origin(time, timed, order, order == OrderType.TIMESTAMP ? sent.handle : 0,
                federation.nextSequence(), tag);
    }

    void send(Message message) {
        if (message.sending.retraction() != 0) {
            sent.messages.add(message);
        }
        message.receiver.inbox.accept(message);
    }

    /** Of what may be retracted. */
    void deletes(Deletion deletion) {
        sent.deletion = deletion;
        deletion.object().mayReturn = true;
    }

    /** By which all of it may be retracted, or 0 when nothing of it may. */
    int retraction() {
        return sent == null ? 0 : sent.handle;
    }
}
