package tovu.local.model;

import hla.rti1516e.exceptions.FederateInternalError;
import tovu.local.fom.Transportation;

/** Attribute values on their way to one federate. */
@SuppressWarnings("serial") // kept in memory only
final class Reflection extends Message {
    private final Knowledge knowledge;
    private HandleValues values;
    private final Transportation transportation;
    private final Supplement supplement;

    Reflection(Knowledge knowledge, Sending sending, HandleValues values, Transportation transportation,
            Supplement supplement) {
        super(knowledge.federate, sending);
        this.knowledge = knowledge;
        this.values = values;
        this.transportation = transportation;
        this.supplement = supplement;
    }

    @Override
    boolean concerns(Knowledge what) {
        return what == knowledge;
    }

    @Override
    void tell(FederateCallbacks to) throws FederateInternalError {
        to.reflectAttributeValues(knowledge.object.handle, values, tag(), sentOrder(), transportation, stamp(),
                supplement);
    }

    @Override
    boolean keepWanted() {
        values = values.select(attribute -> knowledge.interest(attribute) != null);
        return values.size() > 0 && !knowledge.isOver();
    }
}
