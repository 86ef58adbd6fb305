package tovu.local.hub;

import hla.rti1516e.exceptions.FederateInternalError;
import java.util.function.Supplier;
import tovu.local.delivery.CallbackDelivery;
import tovu.local.delivery.CallbackMethod;
import tovu.local.model.exchange.Federate;
import tovu.local.model.port.Callback;
import tovu.local.model.port.FederateCallbacks;
import tovu.local.wire.FrameType;
import tovu.local.wire.FrameWriter;

/** What a callback tells, as it goes into a frame. One after the other, not for several threads at once. */
final class EncodedCallback {
    /** Tells it. */
    private interface Making {
        void make(FederateCallbacks to) throws FederateInternalError;
    }

    /** What was encoded for one receiver. */
    private record Encoding(Object likeness, CallbackMethod method, byte[] message) {
    }

    private static final int NUMBERS = 64; // bytes that frames have beside the message
    private static final int CONTEXT = Integer.BYTES; // where it stands in a message
    private static final int KEPT = 1 << 20; // a huge message must not cost its memory for ever
    /** What the thread has encoded last: what goes to many receivers is left for one after the other. */
    private static final ThreadLocal<Encoding> LAST = new ThreadLocal<>();

    private final int context;
    private final FederateCallbacks encoder;
    private final FederateCallbacks reported;
    private final Supplier<Federate> member;
    private CallbackMethod method;
    private byte[] message;

    /** @param member whose callbacks they are, or null */
    EncodedCallback(int context, Supplier<Federate> member) {
        this.context = context;
        this.member = member;
        encoder = CallbackDelivery.encoder(context, (theMethod, theMessage) -> {
            method = theMethod;
            message = theMessage;
        }, member);
        reported = CallbackDelivery.reporting(encoder, member);
    }

    /** Makes a callback as it is known now. @return whether it tells anything */
    boolean foretell(Callback callback) {
        Object likeness = isReported(callback) ? null : callback.likeness();
        Encoding before = LAST.get();
        if (likeness != null && before != null && likeness.equals(before.likeness)) {
            method = before.method;
            message = before.message;
            return true;
        }
        boolean tells = make(callback, callback::foretell);
        if (likeness != null && tells && message.length <= KEPT) {
            LAST.set(new Encoding(likeness, method, message));
        }
        return tells;
    }

    /** Makes a callback with all that goes before and after it. @return whether it tells anything */
    boolean deliver(Callback callback) {
        return make(callback, callback::deliver);
    }

    private boolean make(Callback callback, Making making) {
        method = null;
        message = null;
        try {
            making.make(isReported(callback) ? reported : encoder);
        } catch (FederateInternalError e) {
            throw new IllegalStateException(e); // nobody's code runs here
        }
        return method != null;
    }

    private boolean isReported(Callback callback) {
        Federate federate = member.get();
        return federate != null && federate.oversight().reportsServices && !callback.isByManagement();
    }

    FrameWriter frame(FrameType type) {
        return new FrameWriter(type, NUMBERS + (message == null ? 0 : message.length));
    }

    /** Puts what was made last to the end of a frame. */
    FrameWriter put(FrameWriter frame) {
        int rest = CONTEXT + Integer.BYTES;
        return frame.integer(method.ordinal()).rest(message, 0, CONTEXT).integer(context)
                .rest(message, rest, message.length - rest);
    }
}
