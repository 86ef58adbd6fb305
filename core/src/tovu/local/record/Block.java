package tovu.local.record;

import java.io.IOException;
import java.io.OutputStream;
import java.util.Arrays;

/** Bytes that records are put into, one after the other. */
final class Block {
    private static final int FIRST = 1 << 16;
    private byte[] bytes = new byte[FIRST];
    private int length;

    int length() {
        return length;
    }

    private int reserve(int size) {
        int position = length;
        length = Math.addExact(position, size);
        if (length > bytes.length) {
            bytes = Arrays.copyOf(bytes, (int) Math.min(Math.max(length, 2L * bytes.length), Integer.MAX_VALUE - 8));
        }
        return position;
    }

    void octet(int value) {
        int position = reserve(1);
        bytes[position] = (byte) value;
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

    void bytes(byte[] from, int start, int size) {
        int position = reserve(size);
        System.arraycopy(from, start, bytes, position, size);
    }

    void bytes(byte[] all) {
        bytes(all, 0, all.length);
    }

    void append(Block other) {
        bytes(other.bytes, 0, other.length);
    }

    void writeTo(OutputStream out) throws IOException {
        out.write(bytes, 0, length);
    }

    void clear() {
        length = 0;
        if (bytes.length > FIRST * 64) {
            bytes = new byte[FIRST]; // one huge message must not cost its memory for ever
        }
    }
}
