package tovu.local.model.exchange;

import hla.rti1516e.exceptions.FederateInternalError;
import tovu.local.fom.InteractionClass;
import tovu.local.model.port.FederateCallbacks;
import tovu.local.model.value.HandleValues;
import tovu.local.model.value.Supplement;

/** An interaction on its way to one federate, as the class that the federate subscribes to. */
@SuppressWarnings("serial") // read by what wrote it
final class Reception extends Message {
    private final InteractionClass sentClass;
    private final Content content;
    private InteractionClass receivedClass;
    private HandleValues values;

    /**
     * @param receivedClass the most specific class that the receiver subscribes to
     * @param values        what of the content that class has
     */
    Reception(Federate receiver, Origin sending, InteractionClass sentClass, Content content,
            InteractionClass receivedClass, HandleValues values) {
        super(receiver, sending);
        this.sentClass = sentClass;
        this.content = content;
        this.receivedClass = receivedClass;
        this.values = values;
    }

    private record Told(InteractionClass receivedClass, HandleValues values, Supplement supplement) {
    }

    @Override
    Object content() {
        return new Told(receivedClass, values, receiver.conveyed(content.supplement));
    }

    @Override
    void tell(FederateCallbacks to) throws FederateInternalError {
        to.receiveInteraction(receivedClass.handle(), values, tag(), sentOrder(), content.transportation, stamp(),
                receiver.conveyed(content.supplement));
    }

    @Override
    void count() {
        receiver.oversight.interactionsReceived.count(receivedClass.handle(), content.transportation);
    }

    @Override
    public boolean isByManagement() {
        return content.isByManagement();
    }

    @Override
    boolean fit() {
        InteractionClass wanted = receiver.subscriptions.receivedClass(sentClass, content.regions);
        if (wanted != null && wanted != receivedClass) {
            values = content.values.ofClass(wanted);
            receivedClass = wanted;
        }
        return wanted != null;
    }
}
