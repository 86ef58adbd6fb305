package tovu.local.model.port;

import hla.rti1516e.exceptions.FederateInternalError;

/** A callback that is not made if it has lost its sense by then. */
public interface RevocableCallback extends Callback {
    @Override
    default Foresight foresight() {
        return Foresight.REVOCABLE;
    }

    @Override
    default void deliver(FederateCallbacks federate) throws FederateInternalError {
        if (begin()) {
            try {
                foretell(federate);
            } finally {
                end();
            }
        }
    }

    @Override
    void foretell(FederateCallbacks federate) throws FederateInternalError;

    @Override
    boolean begin();
}
