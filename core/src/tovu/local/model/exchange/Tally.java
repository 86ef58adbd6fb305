package tovu.local.model.exchange;

import java.util.Arrays;
import java.util.Map;
import java.util.TreeMap;
import tovu.local.fom.Transportation;
import tovu.local.model.value.Saved;

/**
 * How often something has happened, by class and transportation type. One thread at a time counts; whoever reads may be
 * behind by what is happening just then.
 */
@SuppressWarnings("serial") // read by what wrote it
public final class Tally implements Saved {
    @SuppressWarnings("serial") // read by what wrote it
    private static final class Row implements Saved {
        private final Transportation type;
        private volatile int[] counts = {}; // by the class's handle

        Row(Transportation type) {
            this.type = type;
        }

        void count(int classHandle) {
            int[] current = counts;
            if (classHandle >= current.length) {
                current = Arrays.copyOf(current, classHandle + 16);
                counts = current;
            }
            ++current[classHandle];
        }
    }

    private volatile Row[] rows = {};

    void count(int classHandle, Transportation type) {
        for (Row row : rows) {
            if (row.type == type || row.type.equals(type)) {
                row.count(classHandle);
                return;
            }
        }
        Row[] more = Arrays.copyOf(rows, rows.length + 1);
        more[rows.length] = new Row(type);
        rows = more;
        count(classHandle, type);
    }

    /** What does not travel is counted with one type only. */
    void count(int classHandle) {
        count(classHandle, Transportation.RELIABLE);
    }

    public int total() {
        return Arrays.stream(rows).flatMapToInt(row -> Arrays.stream(row.counts)).sum();
    }

    /** The counts of those classes that have any, by handle. */
    public Map<Integer, Integer> byClass(Transportation type) {
        Map<Integer, Integer> byClass = new TreeMap<>();
        for (Row row : rows) {
            int[] current = row.counts;
            for (int theClass = 0; theClass < current.length && row.type.equals(type); ++theClass) {
                if (current[theClass] != 0) {
                    byClass.put(theClass, current[theClass]);
                }
            }
        }
        return byClass;
    }

    /** Adds the counts of each class, whatever the transportation. */
    public void addTo(Map<Integer, Long> totals) {
        for (Row row : rows) {
            int[] current = row.counts;
            for (int theClass = 0; theClass < current.length; ++theClass) {
                if (current[theClass] != 0) {
                    totals.merge(theClass, Integer.toUnsignedLong(current[theClass]), Long::sum);
                }
            }
        }
    }

    public Map<Integer, Integer> byClass() {
        return byClass(Transportation.RELIABLE);
    }
}
