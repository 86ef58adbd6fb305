package tovu.local.model;

import java.nio.ByteBuffer;
import java.util.Map;
import java.util.function.IntPredicate;

/** Values of attributes or parameters, in the bytes in which they arrived: they are never copied on their way. */
@SuppressWarnings("serial") // kept in memory only
public final class HandleValues implements Saved {
    private final byte[] bytes;
    private final int[] rows; // handle, offset and length of each value
    private final int size;

    /**
     * @param bytes what the values lie in; must not change any more
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
        ByteBuffer bytes = ByteBuffer.allocate(values.values().stream().mapToInt(each -> each.length).sum());
        int[] rows = new int[3 * values.size()];
        int row = 0;
        for (Map.Entry<Integer, byte[]> each : values.entrySet()) {
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

    public int length(int index) {
        return rows[3 * index + 2];
    }

    /** Copies a value to where it is wanted. */
    public void copy(int index, byte[] destination, int position) {
        System.arraycopy(bytes, rows[3 * index + 1], destination, position, length(index));
    }

    public byte[] value(int index) {
        byte[] value = new byte[length(index)];
        copy(index, value, 0);
        return value;
    }

    /** The values of those handles that are wanted: this very object when that is all of them. */
    HandleValues select(IntPredicate wanted) {
        int[] some = null;
        int count = 0;
        for (int i = 0; i < size; ++i) {
            if (wanted.test(handle(i))) {
                if (some != null) {
                    System.arraycopy(rows, 3 * i, some, 3 * count, 3);
                }
                ++count;
            } else if (some == null) {
                some = new int[rows.length];
                System.arraycopy(rows, 0, some, 0, 3 * i);
            }
        }
        return some == null ? this : new HandleValues(bytes, some, count);
    }
}
