package tovu.local.model.exchange;

import hla.rti1516e.exceptions.FederateInternalError;
import tovu.local.model.port.FederateCallbacks;

/**
 * The news, on its way to one federate, that an object instance is deleted. The federate knows the object until it has
 * been told: it may ask about it in the very callback.
 */
@SuppressWarnings("serial") // read by what wrote it
final class Removal extends Message {
    private final Knowledge knowledge;
    private final int deleter;

    Removal(Knowledge knowledge, Origin sending, int deleter) {
        super(knowledge.federate, sending);
        this.knowledge = knowledge;
        this.deleter = deleter;
    }

    @Override
    Object content() {
        return receiver.conveyed(deleter);
    }

    @Override
    void tell(FederateCallbacks to) throws FederateInternalError {
        to.removeObjectInstance(knowledge.object.handle, tag(), sentOrder(), stamp(), receiver.conveyed(deleter));
    }

    @Override
    void count() {
        receiver.oversight.objectsRemoved.count(knowledge.object.objectClass.handle());
    }

    @Override
    public void end() {
        receiver.change(() -> receiver.federation().objects().removed(knowledge));
    }

    @Override
    void post() {
        receiver.revokeLicences(knowledge.object.handle);
        super.post();
        knowledge.ending = true;
    }

    @Override
    public boolean isByManagement() {
        return deleter == Federate.INFRASTRUCTURE;
    }

    @Override
    boolean fit() {
        return !knowledge.isOver();
    }
}
