package tovu.local.model.port;

import java.util.List;

/** Where the model leaves callbacks for one ambassador. Both ways in return at once and call nobody. */
public interface CallbackSink {
    /** Leaves a callback that belongs to a federation execution. */
    void post(Callback callback);

    /** Leaves a callback that does not depend on being a member of a federation execution. */
    void postToConnection(Callback callback);

    /**
     * Takes back messages that were left here. If the federate has been told of one already, it is told that, too.
     *
     * @param instead how it is told
     */
    default void retract(List<? extends RetractableCallback> messages, Callback instead) {
        boolean told = false;
        for (RetractableCallback each : messages) {
            told |= !each.retract();
        }
        if (told) {
            post(instead);
        }
    }

    /** What was left here and is not certain may have become something else. */
    default void review() {
        // who looks at it when it is delivered need not be told
    }

    /** What the federate did with success may fail from now on: with that object instance, or anything if it is 0. */
    default void revoke(int object) {
        // who serves while the federate waits need not be told
    }

    /** The bytes of the first and the last time that it may send with. */
    default void limitTimes(long first, long last) {
        // nor of that
    }

    /** Drops what is left of the federation execution that the federate is no longer a member of. */
    void dropMembership();
}
