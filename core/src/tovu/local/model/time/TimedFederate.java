package tovu.local.model.time;

import tovu.local.model.port.Callback;

/** A federate as far as its time and the messages that wait for it go. */
public interface TimedFederate {
    FederateTime time();

    MessageQueue inbox();

    /** Leaves a callback with which a change of state comes about: not when it is left, but when it is delivered. */
    void postChange(Runnable change, Callback callback);

    /** After a change of what it wants: messages on their way are looked at again. */
    void invalidateMessages();

    /** Gives up the right to retract what it sent with a time before that. */
    void expireRetractions(long before);

    /** Gives up the right to retract anything that it sent. */
    void forgetRetractions();

    /** The same as {@link #postChange} where the change does not alter what is told, so that it can be told ahead. */
    void postForeseenChange(Runnable change, Callback callback);

    /** What it did with success may fail from now on, be it with that object instance or, if that is 0, anything. */
    void revokeLicences(int object);

    /** It may send with other times than before. */
    void limitTimes();
}
