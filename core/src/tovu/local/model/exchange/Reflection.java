package tovu.local.model.exchange;

import hla.rti1516e.exceptions.FederateInternalError;
import tovu.local.model.port.FederateCallbacks;
import tovu.local.model.value.HandleValues;
import tovu.local.model.value.Supplement;

/** Attribute values on their way to one federate. */
@SuppressWarnings("serial") // read by what wrote it
final class Reflection extends Message {
    private final Knowledge knowledge;
    private final Content content;
    private HandleValues values;

    /** @param values what of the content the federate wants */
    Reflection(Knowledge knowledge, Origin sending, Content content, HandleValues values) {
        super(knowledge.federate, sending);
        this.knowledge = knowledge;
        this.content = content;
        this.values = values;
    }

    private record Told(HandleValues values, Supplement supplement) {
    }

    @Override
    Object content() {
        return new Told(values, receiver.conveyed(content.supplement));
    }

    @Override
    void tell(FederateCallbacks to) throws FederateInternalError {
        to.reflectAttributeValues(knowledge.object.handle, values, tag(), sentOrder(), content.transportation, stamp(),
                receiver.conveyed(content.supplement));
    }

    @Override
    void count() {
        int theClass = knowledge.object.objectClass.handle();
        receiver.oversight.reflectionsReceived.count(theClass, content.transportation);
        if (!knowledge.reflected) {
            knowledge.reflected = true;
            receiver.oversight.objectsReflected.count(theClass);
        }
    }

    @Override
    public boolean isByManagement() {
        return content.isByManagement();
    }

    @Override
    public Foresight foresight() {
        return knowledge.foresightOfMessages();
    }

    @Override
    boolean fit() {
        values = content.values.select(knowledge.wanted(content.regions));
        return values.size() > 0 && !knowledge.isOver();
    }
}
