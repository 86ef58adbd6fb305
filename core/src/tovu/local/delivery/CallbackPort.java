package tovu.local.delivery;

import hla.rti1516e.exceptions.FederateInternalError;

/** Where encoded callbacks go. */
@FunctionalInterface
public interface CallbackPort {
    /** Returns when the federate's callback has, if that runs here. */
    void call(CallbackMethod method, byte[] message) throws FederateInternalError;
}
