package tovu.local.model.value;

import java.nio.ByteBuffer;
import java.util.Arrays;
import java.util.Map;
import java.util.function.IntPredicate;
import tovu.local.fom.InteractionClass;

/**
 * Values of attributes or parameters as messages have them, one after the other, each behind its handle and its length.
 * They lie in the bytes in which they arrived; a part of them is put together anew, once for all who want the same.
 */
@SuppressWarnings("serial") // read by what wrote it
public final class HandleValues implements Saved {
    private static final int HEAD = 2 * Integer.BYTES; // handle and length

    private final byte[] bytes;
    private final int[] rows; // handle, offset and length of each value
    private final int size;

    /**
     * @param bytes what the values lie in, in a row; must not change any more
     * @param rows  handle, offset and length of each value, one after the other
     * @param size  the number of values
     */
    public HandleValues(byte[] bytes, int[] rows, int size) {
        this.bytes = bytes;
        this.rows = rows;
        this.size = size;
    }

    /** The values of a map, by handle. */
    public static HandleValues of(Map<Integer, byte[]> values) {
        ByteBuffer bytes = ByteBuffer.allocate(values.values().stream().mapToInt(each -> HEAD + each.length).sum());
        int[] rows = new int[3 * values.size()];
        int row = 0;
        for (Map.Entry<Integer, byte[]> each : values.entrySet()) {
            bytes.putInt(each.getKey()).putInt(each.getValue().length);
            rows[row++] = each.getKey();
            rows[row++] = bytes.position();
            rows[row++] = each.getValue().length;
            bytes.put(each.getValue());
        }
        return new HandleValues(bytes.array(), rows, values.size());
    }

    public int size() {
        return size;
    }

    public int handle(int index) {
        return rows[3 * index];
    }

    private int offset(int index) {
        return rows[3 * index + 1];
    }

    private int length(int index) {
        return rows[3 * index + 2];
    }

    public byte[] value(int index) {
        return Arrays.copyOfRange(bytes, offset(index), offset(index) + length(index));
    }

    /** How many bytes all values have, with their handles and lengths. */
    public int encodedSize() {
        return size == 0 ? 0 : offset(size - 1) + length(size - 1) - offset(0) + HEAD;
    }

    /** Copies all values, with their handles and lengths, to where they are wanted. */
    public void encode(byte[] destination, int position) {
        if (size > 0) {
            System.arraycopy(bytes, offset(0) - HEAD, destination, position, encodedSize());
        }
    }

    public HandleValues select(HandleSet wanted) {
        return select(wanted::contains);
    }

    /** What an interaction is to who receives it as that class. */
    public HandleValues ofClass(InteractionClass theClass) {
        return select(parameter -> theClass.member(parameter) != null);
    }

    /** The values of those handles that are wanted: this very object when that is all of them. */
    public HandleValues select(IntPredicate wanted) {
        int count = 0;
        int length = 0;
        for (int i = 0; i < size; ++i) {
            if (wanted.test(handle(i))) {
                ++count;
                length += HEAD + length(i);
            }
        }
        return count == size ? this : pack(wanted, count, length);
    }

    private HandleValues pack(IntPredicate wanted, int count, int length) {
        byte[] packed = new byte[length];
        int[] some = new int[3 * count];
        int row = 0;
        int end = 0;
        for (int i = 0; i < size; ++i) {
            if (wanted.test(handle(i))) {
                some[row++] = handle(i);
                some[row++] = end + HEAD;
                some[row++] = length(i);
                System.arraycopy(bytes, offset(i) - HEAD, packed, end, HEAD + length(i));
                end += HEAD + length(i);
            }
        }
        return new HandleValues(packed, some, count);
    }
}
