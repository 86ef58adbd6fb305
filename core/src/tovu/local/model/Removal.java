package tovu.local.model;

import hla.rti1516e.exceptions.FederateInternalError;

/**
 * The news, on its way to one federate, that an object instance is deleted. The federate knows the object until it has
 * been told: it may ask about it in the very callback.
 */
@SuppressWarnings("serial") // kept in memory only
final class Removal extends Message {
    private final Knowledge knowledge;
    private final int producer;

    Removal(Knowledge knowledge, Sending sending, int producer) {
        super(knowledge.federate, sending);
        this.knowledge = knowledge;
        this.producer = producer;
    }

    @Override
    void tell(FederateCallbacks to) throws FederateInternalError {
        try {
            to.removeObjectInstance(knowledge.object.handle, tag(), sentOrder(), stamp(), producer);
        } finally {
            receiver.change(() -> receiver.federation().objects().removed(knowledge));
        }
    }

    @Override
    boolean fit() {
        return !knowledge.isOver();
    }
}
