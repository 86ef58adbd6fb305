package tovu.local.record;

import java.nio.ByteBuffer;

/** Takes what crosses a connection, as it crosses. From any thread. */
public interface RecordedConnection {
    /** Where nothing is recorded. */
    RecordedConnection NONE = new RecordedConnection() {
    };

    /**
     * Bytes of the stream of frames that come from the federate.
     *
     * @param bytes are left as they are, and not kept
     */
    default void received(ByteBuffer bytes) {
    }

    /** Bytes of the stream of frames that go to it; the same holds for them. */
    default void sent(ByteBuffer bytes) {
    }

    /** A service that nobody waits for has failed. */
    default void dropped(int service, byte[] message, String exception, String text) {
    }

    default void closed(String reason) {
    }
}
