package tovu.local.wire;

import java.lang.invoke.MethodHandles;
import java.lang.invoke.VarHandle;
import java.nio.ByteOrder;
import java.util.Arrays;

/** Writes one frame. Numbers are big-endian; a text is the count of its UTF-16 units and those; bytes have a count, too. */
public final class FrameWriter {
    private static final VarHandle INTEGER = MethodHandles.byteArrayViewVarHandle(int[].class, ByteOrder.BIG_ENDIAN);
    private static final VarHandle LONG = MethodHandles.byteArrayViewVarHandle(long[].class, ByteOrder.BIG_ENDIAN);

    private byte[] buffer;
    private int length = Protocol.LENGTH_BYTES;

    /** @param room bytes that the rest of the frame is likely to need */
    public FrameWriter(FrameType type, int room) {
        buffer = new byte[Protocol.LENGTH_BYTES + 1 + room];
        octet(type.ordinal());
    }

    private FrameWriter() {
        buffer = new byte[256];
        length = 0;
    }

    /** Writes something that another frame is to hold. */
    public static FrameWriter withoutFrame() {
        return new FrameWriter();
    }

    public FrameWriter(FrameType type) {
        this(type, 48);
    }

    private int reserve(int size) {
        int position = length;
        length = Math.addExact(position, size);
        if (length > buffer.length) {
            buffer = Arrays.copyOf(buffer, (int) Math.min(Math.max(length, 2L * buffer.length), Integer.MAX_VALUE - 8));
        }
        return position;
    }

    public FrameWriter octet(int value) {
        int position = reserve(1);
        buffer[position] = (byte) value;
        return this;
    }

    public FrameWriter flag(boolean value) {
        return octet(value ? 1 : 0);
    }

    public FrameWriter integer(int value) {
        int position = reserve(Integer.BYTES);
        INTEGER.set(buffer, position, value);
        return this;
    }

    public FrameWriter longInteger(long value) {
        int position = reserve(Long.BYTES);
        LONG.set(buffer, position, value);
        return this;
    }

    public FrameWriter text(String value) {
        integer(value.length());
        int position = reserve(Math.multiplyExact(value.length(), 2));
        for (int i = 0; i < value.length(); ++i) {
            buffer[position + 2 * i] = (byte) (value.charAt(i) >> 8);
            buffer[position + 2 * i + 1] = (byte) value.charAt(i);
        }
        return this;
    }

    public FrameWriter bytes(byte[] value) {
        integer(value.length);
        return rest(value);
    }

    /** Bytes to the end of the frame, without a count. */
    public FrameWriter rest(byte[] value) {
        return rest(value, 0, value.length);
    }

    /** A part of them. */
    public FrameWriter rest(byte[] value, int from, int count) {
        int position = reserve(count);
        System.arraycopy(value, from, buffer, position, count);
        return this;
    }

    /** What was written without a frame. */
    public byte[] content() {
        return Arrays.copyOf(buffer, length);
    }

    /** The whole frame, its length included. */
    public byte[] end() {
        INTEGER.set(buffer, 0, length - Protocol.LENGTH_BYTES);
        return buffer.length == length ? buffer : Arrays.copyOf(buffer, length);
    }
}
