package tovu.local.model;

import hla.rti1516e.exceptions.FederateInternalError;

/** The news, on its way to one federate, that an object instance is deleted. */
@SuppressWarnings("serial") // kept in memory only
final class Removal extends Message {
    private final Knowledge knowledge;
    private final int producer;

    Removal(Knowledge knowledge, Sending sending, int producer) {
        super(knowledge.federate, sending);
        this.knowledge = knowledge;
        this.producer = producer;
    }

    /** The federation takes it for granted that the receiver knows the object no more, and so it is to be told. */
    @Override
    void leave() {
        commit();
        receiver.federation().objects().forget(knowledge);
        super.leave();
    }

    @Override
    void tell(FederateCallbacks to) throws FederateInternalError {
        to.removeObjectInstance(knowledge.object.handle, tag(), sentOrder(), stamp(), producer);
    }

    @Override
    boolean isOutdated() {
        return !knowledge.isCurrent();
    }

    @Override
    boolean fit() {
        return !knowledge.isRenounced();
    }
}
