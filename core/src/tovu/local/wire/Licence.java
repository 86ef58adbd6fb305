package tovu.local.wire;

/** What a licence for a service lets a federate do the next time, without asking the hub. */
public enum Licence {
    /** There is none. */
    NONE,
    /** To know the answer. */
    LOOKUP,
    /** To send updates of the same attributes of the object. */
    UPDATE,
    /** The same with a time within limits. */
    TIMED_UPDATE,
    /** To send interactions of the class with the same parameters. */
    INTERACTION,
    /** The same with a time within limits. */
    TIMED_INTERACTION,
    /** To delete what was registered. */
    REGISTRATION,
    /** Is had by registration. */
    DELETION,
    /** To delete with a time within limits what may be deleted without one. */
    TIMED_DELETION;

    /** Whether messages may be sent with it. */
    public boolean isToSend() {
        return this != NONE && this != LOOKUP && this != REGISTRATION;
    }

    public boolean isTimed() {
        return this == TIMED_UPDATE || this == TIMED_INTERACTION || this == TIMED_DELETION;
    }

    public boolean isToDelete() {
        return this == DELETION || this == TIMED_DELETION;
    }

    /** Whether what is sent with it is about an object instance. */
    public boolean isOfObject() {
        return this == UPDATE || this == TIMED_UPDATE || this == REGISTRATION || isToDelete();
    }
}
