package tovu.local.wire;

import java.nio.BufferUnderflowException;
import java.nio.ByteBuffer;

/** Reads what is behind the length of one frame. What is not there, or claims to be more than there is, is malformed. */
public final class FrameReader {
    private final ByteBuffer frame;
    private final FrameType type;

    public FrameReader(byte[] frame) {
        this.frame = ByteBuffer.wrap(frame);
        type = FrameType.of(octet());
    }

    public FrameType type() {
        return type;
    }

    private static MalformedFrame tooShort() {
        return new MalformedFrame("a frame that is shorter than what it holds");
    }

    public int octet() {
        if (!frame.hasRemaining()) {
            throw tooShort();
        }
        return frame.get() & 0xFF;
    }

    public boolean flag() {
        return octet() != 0;
    }

    public int integer() {
        try {
            return frame.getInt();
        } catch (BufferUnderflowException e) {
            throw tooShort();
        }
    }

    public long longInteger() {
        try {
            return frame.getLong();
        } catch (BufferUnderflowException e) {
            throw tooShort();
        }
    }

    /** A number of things of which each takes some bytes. */
    public int count(int bytesEach) {
        int count = integer();
        if (count < 0 || count > frame.remaining() / bytesEach) {
            throw tooShort();
        }
        return count;
    }

    public String text() {
        char[] units = new char[count(Character.BYTES)];
        for (int i = 0; i < units.length; ++i) {
            units[i] = frame.getChar();
        }
        return new String(units);
    }

    public byte[] bytes() {
        byte[] bytes = new byte[count(1)];
        frame.get(bytes);
        return bytes;
    }

    /** Whether there is more. */
    public boolean hasMore() {
        return frame.hasRemaining();
    }

    /** All that is left. */
    public byte[] rest() {
        byte[] bytes = new byte[frame.remaining()];
        frame.get(bytes);
        return bytes;
    }
}
