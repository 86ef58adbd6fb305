package tovu.local.model;

import java.util.Arrays;
import java.util.Map;
import java.util.TreeMap;
import tovu.local.fom.Transportation;

/**
 * How often something has happened, by class and transportation type. One thread at a time counts; whoever reads may be
 * behind by what is happening just then.
 */
@SuppressWarnings("serial") // kept in memory only
public final class Tally implements Saved {
    private static final int TYPES = Transportation.values().length;

    private volatile int[] counts = {};

    void count(int classHandle, Transportation type) {
        int place = classHandle * TYPES + type.ordinal();
        int[] current = counts;
        if (place >= current.length) {
            current = Arrays.copyOf(current, place + 64);
            counts = current;
        }
        ++current[place];
    }

    /** What does not travel is counted with one type only. */
    void count(int classHandle) {
        count(classHandle, Transportation.RELIABLE);
    }

    public int total() {
        return Arrays.stream(counts).sum();
    }

    /** The counts of those classes that have any, by handle. */
    public Map<Integer, Integer> byClass(Transportation type) {
        Map<Integer, Integer> byClass = new TreeMap<>();
        int[] current = counts;
        for (int place = type.ordinal(); place < current.length; place += TYPES) {
            if (current[place] != 0) {
                byClass.put(place / TYPES, current[place]);
            }
        }
        return byClass;
    }

    public Map<Integer, Integer> byClass() {
        return byClass(Transportation.RELIABLE);
    }
}
