package tovu.local.model.port;

import hla.rti1516e.exceptions.FederateInternalError;

/** One callback on its way to a federate. */
@FunctionalInterface
public interface Callback {
    /** How far it is known, when a callback is left, what it will tell when it is made. */
    enum Foresight {
        /** It tells the same whenever it is made. */
        CERTAIN,
        /** It tells the same unless it is taken back, or the sink is told that what waits has to be looked at again. */
        REVOCABLE,
        /** It depends on how things are when it is made, or changes them. */
        NONE
    }

    /** Makes the call. Runs on a thread of the delivery, outside every lock of the model. */
    void deliver(FederateCallbacks federate) throws FederateInternalError;

    default Foresight foresight() {
        return Foresight.CERTAIN;
    }

    /** Makes the call as it is known now, without what goes before and after it. Not where there is no foresight. */
    default void foretell(FederateCallbacks federate) throws FederateInternalError {
        deliver(federate);
    }

    /** It is its turn: from here on it cannot be taken back. @return whether it is to be made */
    default boolean begin() {
        return true;
    }

    /** It was made. */
    default void end() {
        // nothing follows from most callbacks
    }

    /** Equal for callbacks that tell the same, whoever is told; null for one that tells what no other does. */
    default Object likeness() {
        return null;
    }

    /** Whether it comes of management itself, which does not report on its own reports. */
    default boolean isByManagement() {
        return false;
    }
}
