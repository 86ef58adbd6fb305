package tovu.local.trace;

import java.util.List;
import tovu.local.model.exchange.Federate;

/**
 * The trace of service calls and callbacks on the standard error stream, for a federate's author to see what happens.
 * It is on when the system property tovu.local.trace is true.
 */
public final class Trace {
    public static final boolean ON = Boolean.getBoolean("tovu.local.trace");

    private Trace() {
    }

    /** Prints each callback before it is made. */
    public static final CallbackTrace.Listener CALLBACKS = new CallbackTrace.Listener() {
        @Override
        public void called(Federate federate, String callback, List<String> arguments) {
            print(federate == null ? null : federate.name(), "<- " + callback + "(" + String.join(", ", arguments) + ")");
        }
    };

    /** @param federate who calls or is called; null for an ambassador that is not joined */
    public static void print(String federate, String line) {
        System.err.println("[" + (federate == null ? "not joined" : federate) + "] " + line);
    }
}
