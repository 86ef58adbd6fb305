package tovu.local.remote;

import hla.rti1516e.exceptions.RTIexception;
import java.util.concurrent.locks.LockSupport;
import java.util.function.BooleanSupplier;
import java.util.function.Consumer;
import tovu.local.model.port.Elsewhere;
import tovu.local.wire.FrameReader;
import tovu.local.wire.FrameType;
import tovu.local.wire.Result;

/** What one thread waits for: the frame that answers its request, or the loss of the hub. */
final class Answer implements BooleanSupplier {
    private static final FrameReader LOST = null;

    private final Thread waiting = Thread.currentThread();
    private final Consumer<Object> onLicence;
    private volatile boolean done;
    private FrameReader frame = LOST;
    private Object result;

    /** @param onLicence is given the result if that is a licence, before anything is read that comes behind it */
    Answer(Consumer<Object> onLicence) {
        this.onLicence = onLicence;
    }

    /** @param theFrame null when none will come any more */
    void give(FrameReader theFrame) {
        if (theFrame != null && theFrame.type() == FrameType.REPLY) {
            boolean licensed = theFrame.flag();
            result = Result.read(theFrame);
            if (licensed) {
                onLicence.accept(result);
            }
        }
        frame = theFrame;
        done = true;
        LockSupport.unpark(waiting);
    }

    /** Whether it is there. */
    @Override
    public boolean getAsBoolean() {
        return done;
    }

    /** Null when the hub is lost. */
    FrameReader frame() {
        return done ? frame : LOST;
    }

    /** Once it is there: what the service returns. */
    Object result() throws RTIexception {
        if (frame.type() == FrameType.REPLY) {
            return result;
        }
        if (frame.type() == FrameType.ELSEWHERE) {
            throw new Elsewhere(frame.text());
        }
        throw HubExceptions.of(frame.text(), frame.text());
    }
}
