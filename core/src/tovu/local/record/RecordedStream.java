package tovu.local.record;

import java.nio.ByteBuffer;
import tovu.local.wire.Protocol;

/** One direction of a connection: cuts what was recorded of it into frames. */
final class RecordedStream {
    private static final int FIRST = 1 << 12;
    private ByteBuffer bytes = ByteBuffer.allocate(FIRST).flip();

    void add(ByteBuffer more) {
        int size = bytes.remaining() + more.remaining();
        ByteBuffer all = size > bytes.capacity() ? ByteBuffer.allocate(Math.max(size, 2 * bytes.capacity())).put(bytes)
                : bytes.compact();
        bytes = all.put(more).flip();
    }

    /** What is behind the length of the next frame, or null when it is not there, as a whole, or none. */
    byte[] next() {
        if (bytes.remaining() < Protocol.LENGTH_BYTES) {
            return null;
        }
        int length = bytes.getInt(bytes.position());
        if (length < 1 || length > bytes.remaining() - Protocol.LENGTH_BYTES) {
            return null;
        }
        byte[] frame = new byte[length];
        bytes.getInt();
        bytes.get(frame);
        return frame;
    }
}
