package tovu.local.management;

import java.nio.BufferUnderflowException;
import java.nio.ByteBuffer;
import java.nio.charset.StandardCharsets;
import java.util.function.Function;

/** Reads values of the MIM's data types, as {@link ValueWriter} writes them. */
final class ValueReader {
    private final ByteBuffer in;

    private ValueReader(byte[] bytes) {
        in = ByteBuffer.wrap(bytes);
    }

    /**
     * The value that just those bytes encode.
     *
     * @throws IllegalArgumentException when they encode none, with what is wrong with them
     */
    static <T> T read(byte[] bytes, Function<ValueReader, T> reading) {
        ValueReader reader = new ValueReader(bytes);
        try {
            T value = reading.apply(reader);
            if (reader.in.hasRemaining()) {
                throw new IllegalArgumentException(reader.in.remaining() + " of its " + bytes.length
                        + " bytes are left over");
            }
            return value;
        } catch (BufferUnderflowException e) {
            throw new IllegalArgumentException("its " + bytes.length + " bytes are too few", e);
        }
    }

    int integer() {
        while (in.position() % Integer.BYTES != 0) {
            in.get();
        }
        return in.getInt();
    }

    /** The size of an array, which cannot have more elements than there are bytes. */
    private int count() {
        int count = integer();
        if (count < 0 || count > in.remaining()) {
            throw new BufferUnderflowException();
        }
        return count;
    }

    boolean flag() {
        int value = integer();
        if (value != 0 && value != 1) {
            throw new IllegalArgumentException("it is " + value + ", and not 0 or 1");
        }
        return value == 1;
    }

    byte[] bytes() {
        byte[] value = new byte[count()];
        in.get(value);
        return value;
    }

    String text() {
        byte[] characters = new byte[Math.multiplyExact(count(), Character.BYTES)];
        in.get(characters);
        return new String(characters, StandardCharsets.UTF_16BE);
    }

    int handle() {
        return ofSize(bytes(), Integer.BYTES, "a handle").getInt();
    }

    /** The bits of a time or interval. */
    long time() {
        return ofSize(bytes(), Long.BYTES, "a time or interval").getLong();
    }

    private static ByteBuffer ofSize(byte[] value, int size, String what) {
        if (value.length != size) {
            throw new IllegalArgumentException("it has " + value.length + " bytes where " + what + " has " + size);
        }
        return ByteBuffer.wrap(value);
    }

    int[] handles() {
        int[] values = new int[count()];
        for (int i = 0; i < values.length; ++i) {
            values[i] = handle();
        }
        return values;
    }
}
