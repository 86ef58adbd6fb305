package tovu.local.record;

import java.util.List;

/** Takes what crosses a connection, as it crosses. From any thread. */
public interface RecordedConnection {
    /** Where nothing is recorded. */
    RecordedConnection NONE = new RecordedConnection() {
    };

    /**
     * A federate calls a service.
     *
     * @param request its number, by which the answer is told from others
     * @param begun   the number of the last callback that has begun by then
     * @param ended   the number of the last callback that has returned by then
     */
    default void request(int request, int service, long begun, long ended, byte[] message) {
    }

    /** @param result what the service returns, or null */
    default void result(int request, Object result) {
    }

    default void failure(int request, String exception, String text) {
    }

    /**
     * A callback is told.
     *
     * @param callback its number
     * @param late     whether it is the federate's turn to be given it, and not only left for it
     * @param message  whole, with what is around it
     */
    default void callback(long callback, boolean late, int method, byte[] message) {
    }

    /** Callbacks are taken back. */
    default void retracted(List<Long> callbacks) {
    }

    default void closed(String reason) {
    }
}
