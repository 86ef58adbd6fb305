package tovu.local.model;

import hla.rti1516e.exceptions.FederateInternalError;

/** One callback on its way to a federate. */
@FunctionalInterface
public interface Callback {
    /** Makes the call. Runs on a thread of the delivery, outside every lock of the model. */
    void deliver(FederateCallbacks federate) throws FederateInternalError;

    /** Whether it comes of management itself, which does not report on its own reports. */
    default boolean isByManagement() {
        return false;
    }
}
