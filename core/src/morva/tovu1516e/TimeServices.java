package morva.tovu1516e;

import static morva.tovu1516e.Service.*;

import hla.rti1516e.exceptions.RTIexception;
import java.nio.ByteBuffer;
import tovu.local.model.time.AdvanceKind;
import tovu.local.model.value.LogicalTime;

/** Time management. */
abstract class TimeServices extends OwnershipServices {
    TimeServices(Connection connection) {
        super(connection);
    }

    public final void enableTimeRegulation_LTI(byte[] message) throws RTIexception {
        act(enableTimeRegulation_LTI, message, (federation, me, in) ->
                federation.time().enableRegulation(me, in.interval()));
    }

    public final void disableTimeRegulation() throws RTIexception {
        act(disableTimeRegulation, (federation, me, in) -> federation.time().disableRegulation(me));
    }

    public final void enableTimeConstrained() throws RTIexception {
        act(enableTimeConstrained, (federation, me, in) -> federation.time().enableConstrained(me));
    }

    public final void disableTimeConstrained() throws RTIexception {
        act(disableTimeConstrained, (federation, me, in) -> federation.time().disableConstrained(me));
    }

    public final void timeAdvanceRequest_LT(byte[] message) throws RTIexception {
        act(timeAdvanceRequest_LT, message, (federation, me, in) ->
                federation.time().advance(me, AdvanceKind.TIME_ADVANCE, in.time()));
    }

    public final void timeAdvanceRequestAvailable_LT(byte[] message) throws RTIexception {
        act(timeAdvanceRequestAvailable_LT, message, (federation, me, in) ->
                federation.time().advance(me, AdvanceKind.TIME_ADVANCE_AVAILABLE, in.time()));
    }

    public final void nextMessageRequest_LT(byte[] message) throws RTIexception {
        act(nextMessageRequest_LT, message, (federation, me, in) ->
                federation.time().advance(me, AdvanceKind.NEXT_MESSAGE, in.time()));
    }

    public final void nextMessageRequestAvailable_LT(byte[] message) throws RTIexception {
        act(nextMessageRequestAvailable_LT, message, (federation, me, in) ->
                federation.time().advance(me, AdvanceKind.NEXT_MESSAGE_AVAILABLE, in.time()));
    }

    public final void flushQueueRequest_LT(byte[] message) throws RTIexception {
        act(flushQueueRequest_LT, message, (federation, me, in) ->
                federation.time().advance(me, AdvanceKind.FLUSH_QUEUE, in.time()));
    }

    public final void enableAsynchronousDelivery() throws RTIexception {
        act(enableAsynchronousDelivery, (federation, me, in) -> federation.time().setAsynchronousDelivery(me, true));
    }

    public final void disableAsynchronousDelivery() throws RTIexception {
        act(disableAsynchronousDelivery, (federation, me, in) -> federation.time().setAsynchronousDelivery(me, false));
    }

    public final byte[] queryGALT() throws RTIexception {
        return ask(queryGALT, (federation, me, in) -> encode(federation.time().galt(me)));
    }

    public final byte[] queryLogicalTime() throws RTIexception {
        return ask(queryLogicalTime, (federation, me, in) -> encode(federation.time().logicalTime(me)));
    }

    public final byte[] queryLITS() throws RTIexception {
        return ask(queryLITS, (federation, me, in) -> encode(federation.time().lits(me)));
    }

    public final void modifyLookahead_LTI(byte[] message) throws RTIexception {
        act(modifyLookahead_LTI, message, (federation, me, in) -> federation.time().modifyLookahead(me, in.interval()));
    }

    public final byte[] queryLookahead() throws RTIexception {
        return ask(queryLookahead, (federation, me, in) -> encode(federation.time().lookahead(me)));
    }

    public final void retract_MRH(byte[] message) throws RTIexception {
        act(retract_MRH, message, (federation, me, in) -> federation.retractions().retract(me, in.integer()));
    }

    /** A time's or interval's own encoding; null stands for none. */
    private static byte[] encode(LogicalTime time) {
        return time == null ? null : ByteBuffer.allocate(Long.BYTES).putLong(time.bits()).array();
    }
}
