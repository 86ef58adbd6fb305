package tovu.local.model.value;

/** Why a federation was not restored; the ordinal is the reason's code. */
public enum RestoreFailureReason {
    RTI_UNABLE_TO_RESTORE, FEDERATE_REPORTED_FAILURE, FEDERATE_RESIGNED, RTI_DETECTED_FAILURE, ABORTED
}
