package tovu.local.management;

import java.io.ByteArrayOutputStream;
import java.nio.charset.StandardCharsets;
import java.util.Collection;
import java.util.List;
import java.util.function.BiConsumer;
import java.util.function.Consumer;
import tovu.local.model.value.LogicalTime;

/**
 * Writes values of the MIM's data types. All of them are made of 32-bit integers, most significant byte first, and of
 * arrays that begin with one, so that each value and each element begins at a multiple of four bytes.
 */
final class ValueWriter {
    private final ByteArrayOutputStream out = new ByteArrayOutputStream();

    /** One value by itself. */
    static byte[] valueOf(Consumer<ValueWriter> writing) {
        ValueWriter writer = new ValueWriter();
        writing.accept(writer);
        return writer.out.toByteArray();
    }

    /** Also every enumeration: HLAswitch, HLAfederateState and so on. */
    ValueWriter integer(int value) {
        while (out.size() % Integer.BYTES != 0) {
            out.write(0);
        }
        for (int shift = 24; shift >= 0; shift -= 8) {
            out.write(value >> shift);
        }
        return this;
    }

    ValueWriter flag(boolean value) {
        return integer(value ? 1 : 0);
    }

    ValueWriter bytes(byte[] value) {
        integer(value.length).out.writeBytes(value);
        return this;
    }

    ValueWriter text(String value) {
        integer(value.length()).out.writeBytes(value.getBytes(StandardCharsets.UTF_16BE));
        return this;
    }

    /** In the bytes in which the handle encodes itself. */
    ValueWriter handle(int value) {
        return integer(Integer.BYTES).integer(value);
    }

    /** @param value null for one that is not defined */
    ValueWriter time(LogicalTime value) {
        return value == null ? integer(0)
                : integer(Long.BYTES).integer((int) (value.bits() >> Integer.SIZE)).integer((int) value.bits());
    }

    <T> ValueWriter list(Collection<T> values, BiConsumer<ValueWriter, T> element) {
        integer(values.size());
        values.forEach(each -> element.accept(this, each));
        return this;
    }

    ValueWriter handles(Collection<Integer> values) {
        return list(values, ValueWriter::handle);
    }

    ValueWriter texts(List<String> values) {
        return list(values, ValueWriter::text);
    }
}
