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
    interface Making {
        void make(FederateCallbacks to) throws FederateInternalError;
    }

    private static final int NUMBERS = 64; // bytes that frames have beside the message

    private final FederateCallbacks encoder;
    private final FederateCallbacks reported;
    private final Supplier<Federate> member;
    private CallbackMethod method;
    private byte[] message;

    /** @param member whose callbacks they are, or null */
    EncodedCallback(int context, Supplier<Federate> member) {
        this.member = member;
        encoder = CallbackDelivery.encoder(context, (theMethod, theMessage) -> {
            method = theMethod;
            message = theMessage;
        }, member);
        reported = CallbackDelivery.reporting(encoder, member);
    }

    /**
     * @param callback what is made
     * @param making   how
     * @return whether it tells anything
     */
    boolean make(Callback callback, Making making) {
        method = null;
        message = null;
        Federate federate = member.get();
        boolean isReported = federate != null && federate.oversight().reportsServices && !callback.isByManagement();
        try {
            making.make(isReported ? reported : encoder);
        } catch (FederateInternalError e) {
            throw new IllegalStateException(e); // nobody's code runs here
        }
        return method != null;
    }

    FrameWriter frame(FrameType type) {
        return new FrameWriter(type, NUMBERS + (message == null ? 0 : message.length));
    }

    /** Puts what was made last to the end of a frame. */
    FrameWriter put(FrameWriter frame) {
        return frame.integer(method.ordinal()).rest(message);
    }
}
