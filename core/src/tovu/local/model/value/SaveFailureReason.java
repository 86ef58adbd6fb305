package tovu.local.model.value;

/** Why a federation was not saved; the ordinal is the reason's code. */
public enum SaveFailureReason {
    RTI_UNABLE_TO_SAVE, FEDERATE_REPORTED_FAILURE, FEDERATE_RESIGNED, RTI_DETECTED_FAILURE, TIME_CANNOT_BE_HONORED,
    ABORTED
}
