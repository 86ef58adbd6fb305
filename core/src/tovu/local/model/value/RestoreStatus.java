package tovu.local.model.value;

/** Where a federate stands in a restore; the ordinal is the status's code. */
public enum RestoreStatus {
    NO_RESTORE_IN_PROGRESS, RESTORE_REQUEST_PENDING, WAITING_FOR_RESTORE_TO_BEGIN, PREPARED_TO_RESTORE, RESTORING,
    WAITING_FOR_FEDERATION_TO_RESTORE
}
