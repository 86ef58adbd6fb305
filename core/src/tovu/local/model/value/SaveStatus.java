package tovu.local.model.value;

/** Where a federate stands in a save; the ordinal is the status's code. */
public enum SaveStatus {
    NO_SAVE_IN_PROGRESS, INSTRUCTED_TO_SAVE, SAVING, WAITING_FOR_FEDERATION_TO_SAVE
}
