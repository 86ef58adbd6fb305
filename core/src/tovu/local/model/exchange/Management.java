package tovu.local.model.exchange;

import tovu.local.model.port.CallbackSink;
import tovu.local.model.value.ServiceCall;

/**
 * Who tells federates about federates. It acts as a federate of its own, the infrastructure, that is no member; this is
 * what else it has to be told. All of it is called under the federation's lock.
 */
public interface Management {
    /** Where callbacks to the infrastructure are left. */
    CallbackSink sink();

    /** The federation stands. */
    void created();

    void joined(Federate federate, boolean extendsObjectModel);

    /** Before it leaves without having said so. */
    void losing(Federate federate, String fault);

    void left(Federate federate);

    /** A federate has discovered an object of the infrastructure's. */
    void discovered(Federate federate, int object);

    /** A save or restore was requested, or is about to begin, after which only that is told to anyone, or has ended. */
    void savesChanged();

    /** The federation has become what it was once. */
    void restored();

    /** A federate's condition may not be what was told last. */
    void conditionChanged(Federate federate);

    /** A federate that is reported on has called a service, or was called back. */
    void served(Federate federate, ServiceCall call);

    /**
     * The end of a service: whatever it has left with the infrastructure is heeded.
     *
     * @return whether that was anything
     */
    boolean settle();
}
