package tovu.local.model;

import hla.rti1516e.exceptions.FederateInternalError;
import tovu.local.fom.InteractionClass;
import tovu.local.fom.Transportation;

/** An interaction on its way to one federate, as the class that the federate subscribes to. */
@SuppressWarnings("serial") // kept in memory only
final class Reception extends Message {
    private final InteractionClass receivedClass;
    private final HandleValues values;
    private final Transportation transportation;
    private final Supplement supplement;

    Reception(Federate receiver, Sending sending, InteractionClass receivedClass, HandleValues values,
            Transportation transportation, Supplement supplement) {
        super(receiver, sending);
        this.receivedClass = receivedClass;
        this.values = values;
        this.transportation = transportation;
        this.supplement = supplement;
    }

    @Override
    void tell(FederateCallbacks to) throws FederateInternalError {
        to.receiveInteraction(receivedClass.handle(), values, tag(), sentOrder(), transportation, stamp(), supplement);
    }

    @Override
    boolean keepWanted() {
        return receiver.subscriptions.interest(receivedClass) != null;
    }
}
