package tovu.local.record;

import java.nio.ByteBuffer;

/** Bytes that records are put into, one after the other. They lie where a file is written from without a copy. */
final class Block {
    private static final int FIRST = 1 << 19;
    private ByteBuffer bytes = ByteBuffer.allocateDirect(FIRST);

    int length() {
        return bytes.position();
    }

    private void reserve(int size) {
        if (size > bytes.remaining()) {
            long least = (long) bytes.position() + size;
            long capacity = Math.max(least, Math.min(2L * bytes.capacity(), Integer.MAX_VALUE));
            bytes = ByteBuffer.allocateDirect(Math.toIntExact(capacity)).put(bytes.flip());
        }
    }

    void octet(int value) {
        reserve(1);
        bytes.put((byte) value);
    }

    /** A number of so many groups of seven bits as it needs, the least first; all but the last have the eighth set. */
    void number(long value) {
        long left = value;
        while ((left & ~0x7FL) != 0) {
            octet((int) left & 0x7F | 0x80);
            left >>>= 7;
        }
        octet((int) left);
    }

    void bytes(ByteBuffer all) {
        reserve(all.remaining());
        bytes.put(all);
    }

    /** What has been put into it. */
    ByteBuffer content() {
        return bytes.duplicate().flip();
    }

    void clear() {
        bytes.clear();
        if (bytes.capacity() > FIRST * 8) {
            bytes = ByteBuffer.allocateDirect(FIRST); // one huge message must not cost its memory for ever
        }
    }
}
