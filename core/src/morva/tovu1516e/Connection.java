package morva.tovu1516e;

import hla.rti1516e.exceptions.FederateIsExecutionMember;
import hla.rti1516e.exceptions.RTIexception;
import hla.rti1516e.exceptions.RTIinternalError;
import java.util.concurrent.CompletableFuture;
import java.util.concurrent.TimeUnit;
import tovu.local.delivery.CallbackDelivery;
import tovu.local.management.Manager;
import tovu.local.model.Federations;
import tovu.local.model.Session;

/** What an ambassador holds of the core. It knows nothing of the ambassador, and so can tell when that is gone. */
final class Connection {
    /** Those that all ambassadors of this process share. */
    private static final Federations FEDERATIONS = new Federations(Manager::new);

    final Session session = new Session(FEDERATIONS);
    private volatile CallbackDelivery delivery;

    /** @param context what the library finds the federate's ambassador by */
    void connect(int context, boolean immediate) throws RTIexception {
        CallbackDelivery created = CallbackDelivery.toContext(context, session::federate);
        session.connect(created);
        delivery = created;
        if (immediate) {
            created.deliverImmediately();
        }
    }

    /** Once it returns no callback runs any more, so that the federate may destroy what they call. */
    void disconnect() throws RTIexception {
        try {
            session.disconnect();
        } catch (FederateIsExecutionMember e) {
            suspectDestruction();
            throw e;
        }
        CallbackDelivery ended = endDelivery();
        if (ended != null) {
            ended.awaitEnd();
        }
    }

    /**
     * An ambassador that is destroyed while it is joined disconnects in vain and is dropped by the library right after.
     * Only the garbage collector sees that, and the federation should not have to wait for it to come round. How soon
     * "right after" is depends on how busy the machine is, so it looks again, after longer and longer.
     */
    private void suspectDestruction() {
        for (long delay = 100; delay <= 10_000; delay *= 10) {
            CompletableFuture.delayedExecutor(delay, TimeUnit.MILLISECONDS).execute(() -> {
                if (session.federate() != null) {
                    System.gc();
                }
            });
        }
    }

    /** @return what delivered until now, or null */
    private CallbackDelivery endDelivery() {
        CallbackDelivery ended = delivery;
        delivery = null;
        if (ended != null) {
            ended.close();
        }
        return ended;
    }

    /** Lets go of everything on behalf of an ambassador that no longer exists. */
    void abandon() {
        if (session.federate() != null) {
            System.err.println(session.federate()
                    + " is gone without resigning; it leaves as its automatic resign directive says");
        }
        session.abandon("Its ambassador was destroyed while it was joined");
        endDelivery();
    }

    CallbackDelivery delivery() throws RTIinternalError {
        CallbackDelivery current = delivery;
        if (current == null) {
            throw new RTIinternalError("This ambassador is not connected; call connect first");
        }
        return current;
    }

    void requireOutsideCallback(String service) throws RTIexception {
        CallbackDelivery current = delivery;
        if (current != null) {
            current.requireOutsideCallback(service);
        }
    }
}
