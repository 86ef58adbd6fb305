package tovu.local.model;

/** Where the model leaves callbacks for one ambassador. Both ways in return at once and call nobody. */
public interface CallbackSink {
    /** Leaves a callback that belongs to a federation execution. */
    void post(Callback callback);

    /** Leaves a callback that does not depend on being a member of a federation execution. */
    void postToConnection(Callback callback);

    /** Drops what is left of the federation execution that the federate is no longer a member of. */
    void dropMembership();
}
