package tovu.local.model.value;

/** Why a synchronization point was not registered; the ordinal is the reason's code. */
public enum SynchronizationPointFailureReason {
    LABEL_NOT_UNIQUE, SYNCHRONIZATION_SET_MEMBER_NOT_JOINED
}
