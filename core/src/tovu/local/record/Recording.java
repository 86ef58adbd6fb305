package tovu.local.record;

import java.nio.charset.StandardCharsets;
import java.util.Arrays;

/** What a file with a recording looks like; docs/watch.md tells it to others. */
final class Recording {
    static final byte[] MAGIC = "RTI1516E RECORDING\n".getBytes(StandardCharsets.US_ASCII);
    static final int VERSION = 2;
    /** Of the message of a callback, the same each time: what begins it, its context, and what ends it. */
    static final int ENVELOPE_BEGIN = 8;
    static final int ENVELOPE = ENVELOPE_BEGIN + 4;

    /** What is recorded, in the file. */
    enum Kind {
        /** A federate has connected. The address. */
        OPENED,
        /** Bytes of the stream of frames that came from it. */
        RECEIVED,
        /** Bytes of the stream of frames that went to it. */
        SENT,
        /** A service that nobody waits for has failed. Service, message, failure. */
        DROPPED,
        /** The connection has ended. Why. */
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
