package tovu.local.record;

/**
 * What a recording tells in one place.
 *
 * @param micros     since the recording began
 * @param connection its number
 * @param request    of an answer: what it answers; null otherwise
 * @param isAwaited  of a request: whether it is answered; if not it succeeds, unless it is dropped
 * @param code       of the service, or of the callback
 * @param number     of the callback; in a request of the last one that had begun
 * @param content    a message or a result
 * @param text       an address, a reason or a failure
 */
record Entry(Kind kind, long micros, int connection, Entry request, boolean isAwaited, int code, long number,
        byte[] content, String text) {
    enum Kind {
        /** A federate has connected. */
        OPENED,
        /** It calls a service. */
        REQUEST,
        /** The service has returned. */
        RESULT,
        /** The service has thrown. */
        FAILURE,
        /** A service that nobody waits for has failed; code and content are those of its request. */
        DROPPED,
        /** A callback is left for the federate. */
        CALLBACK,
        /** A callback whose turn it is, and of which nothing certain was known before. */
        LATE_CALLBACK,
        /** Callbacks are taken back. */
        RETRACTED,
        /** The connection has ended. */
        CLOSED,
        /** Callbacks have begun that no service has told of yet. */
        PROGRESS
    }
}
