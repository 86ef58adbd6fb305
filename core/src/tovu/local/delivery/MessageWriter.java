package tovu.local.delivery;

import java.lang.invoke.MethodHandles;
import java.lang.invoke.VarHandle;
import java.nio.ByteOrder;
import java.util.Arrays;
import java.util.Collection;
import java.util.List;
import java.util.function.BiConsumer;
import tovu.local.fom.OrderType;
import tovu.local.fom.Transportation;
import tovu.local.model.value.HandleValues;
import tovu.local.model.value.LogicalTime;
import tovu.local.model.value.Supplement;

/** Writes callback messages, one after the other, into a buffer of its own. Not for several threads at once. */
final class MessageWriter {
    private static final int BEGINNING = 0x63626160;
    private static final int END = 0x59585756;
    private static final int KEPT_BUFFER = 1 << 16;
    private static final VarHandle INTEGER = MethodHandles.byteArrayViewVarHandle(int[].class, ByteOrder.BIG_ENDIAN);
    private static final VarHandle LONG = MethodHandles.byteArrayViewVarHandle(long[].class, ByteOrder.BIG_ENDIAN);

    private final int context;
    private byte[] buffer = new byte[256];
    private int length;

    /** @param context what the library gave at connect to find the federate's ambassador by */
    MessageWriter(int context) {
        this.context = context;
    }

    MessageWriter begin() {
        length = 0;
        return integer(BEGINNING).integer(context);
    }

    byte[] end() {
        integer(END);
        byte[] message = Arrays.copyOf(buffer, length);
        if (buffer.length > KEPT_BUFFER) {
            buffer = new byte[256]; // one huge message must not cost its memory for ever
        }
        return message;
    }

    private int reserve(int size) {
        int position = length;
        length = Math.addExact(position, size);
        if (length > buffer.length) {
            buffer = Arrays.copyOf(buffer, (int) Math.min(Math.max(length, 2L * buffer.length), Integer.MAX_VALUE - 8));
        }
        return position;
    }

    MessageWriter integer(int value) {
        int position = reserve(Integer.BYTES);
        INTEGER.set(buffer, position, value);
        return this;
    }

    MessageWriter code(Enum<?> value) {
        return integer(value.ordinal());
    }

    MessageWriter transportation(Transportation value) {
        return integer(value.code());
    }

    MessageWriter time(LogicalTime value) {
        int position = reserve(Long.BYTES);
        LONG.set(buffer, position, value.bits());
        return this;
    }

    MessageWriter text(String value) {
        integer(value.length());
        int position = reserve(Math.multiplyExact(value.length(), 2));
        for (int i = 0; i < value.length(); ++i) {
            buffer[position + 2 * i] = (byte) (value.charAt(i) >> 8);
            buffer[position + 2 * i + 1] = (byte) value.charAt(i);
        }
        return this;
    }

    MessageWriter texts(Collection<String> values) {
        integer(values.size());
        values.forEach(this::text);
        return this;
    }

    MessageWriter bytes(byte[] value) {
        integer(value.length);
        int position = reserve(value.length);
        System.arraycopy(value, 0, buffer, position, value.length);
        return this;
    }

    MessageWriter handles(int[] values) {
        integer(values.length);
        for (int value : values) {
            integer(value);
        }
        return this;
    }

    MessageWriter values(HandleValues values) {
        integer(values.size());
        int position = reserve(values.encodedSize());
        values.encode(buffer, position);
        return this;
    }

    /** A retraction handle: its number, and no bytes beside it. */
    MessageWriter retraction(int number) {
        return integer(number).integer(0);
    }

    MessageWriter order(OrderType value) {
        return code(value);
    }

    MessageWriter supplement(Supplement value) {
        integer(value.producer() == 0 ? 0 : 1).integer(value.sentRegions() == null ? 0 : 1);
        if (value.producer() != 0) {
            integer(value.producer());
        }
        return value.sentRegions() == null ? this : handles(value.sentRegions());
    }

    /** A removal tells its producer only. */
    MessageWriter producer(int producer) {
        return producer == 0 ? integer(0) : integer(1).integer(producer);
    }

    <T> MessageWriter rows(List<T> rows, BiConsumer<MessageWriter, T> row) {
        integer(rows.size());
        rows.forEach(each -> row.accept(this, each));
        return this;
    }
}
