package tovu.local.record;

import java.nio.charset.StandardCharsets;
import java.util.Arrays;

/** What a file with a recording looks like; docs/watch.md tells it to others. */
final class Recording {
    static final byte[] MAGIC = "RTI1516E RECORDING\n".getBytes(StandardCharsets.US_ASCII);
    static final int VERSION = 1;
    /** Of the message of a callback, the same each time: what begins it, its context, and what ends it. */
    static final int ENVELOPE_BEGIN = 8;
    static final int ENVELOPE = ENVELOPE_BEGIN + 4;

    /** What can be recorded. */
    enum Kind {
        /** A federate has connected. */
        OPENED,
        /** It calls a service. */
        REQUEST,
        /** The service has returned. */
        RESULT,
        /** The service has thrown. */
        FAILURE,
        /** A callback is left for the federate. */
        CALLBACK,
        /** A callback whose turn it is, and of which nothing certain was known before. */
        LATE_CALLBACK,
        /** Callbacks are taken back. */
        RETRACTED,
        /** The connection has ended. */
        CLOSED;

        private static final Kind[] ALL = values();

        /** The one with that ordinal, or null. */
        static Kind of(int ordinal) {
            return ordinal >= 0 && ordinal < ALL.length ? ALL[ordinal] : null;
        }
    }

    private Recording() {
    }

    /** The message of a callback without what is around it, as it is recorded. */
    static byte[] bare(byte[] message) {
        return Arrays.copyOfRange(message, ENVELOPE_BEGIN, message.length - (ENVELOPE - ENVELOPE_BEGIN));
    }
}
