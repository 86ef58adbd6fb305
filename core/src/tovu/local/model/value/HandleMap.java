package tovu.local.model.value;

import java.util.AbstractCollection;
import java.util.Collection;
import java.util.Iterator;
import java.util.NoSuchElementException;

/**
 * Values by handle, in two arrays. Handles are given out in a row, and some in a row stand side by side, so that what
 * is used together touches little memory: that is what it costs to serve one of very many objects. But such blocks lie
 * scattered, or else all that ever was registered in a row would have to be looked at when one of them goes.
 *
 * @param <V> what the handles stand for; never null
 */
@SuppressWarnings("serial") // read by what wrote it
public final class HandleMap<V> implements Saved {
    private static final int SMALLEST = 4;
    private static final int BLOCK_BITS = 3;
    private static final int IN_BLOCK = (1 << BLOCK_BITS) - 1;
    private static final int GOLDEN = 0x9E3779B9; // multiples of it are spread evenly

    private int[] handles = new int[SMALLEST]; // a power of two, at least twice as many as there are values
    private Object[] values = new Object[SMALLEST];
    private int size;

    /** The value, or null. */
    @SuppressWarnings("unchecked") // what put has put in
    public V get(int handle) {
        return (V) values[place(handle)];
    }

    public void put(int handle, V value) {
        int place = place(handle);
        if (values[place] == null && 2 * ++size > values.length) {
            grow();
            place = place(handle);
        }
        handles[place] = handle;
        values[place] = value;
    }

    public void remove(int handle) {
        int free = place(handle);
        if (values[free] == null) {
            return;
        }
        --size;
        values[free] = null;
        for (int next = after(free); values[next] != null; next = after(next)) {
            if (distance(ownPlace(handles[next]), next) >= distance(free, next)) { // it had to give way
                handles[free] = handles[next];
                values[free] = values[next];
                values[next] = null;
                free = next;
            }
        }
    }

    /** All values, in no particular order. */
    public Collection<V> values() {
        return new AbstractCollection<>() {
            @Override
            public int size() {
                return size;
            }

            @Override
            public Iterator<V> iterator() {
                return new Values();
            }
        };
    }

    /** Where that handle stands, or where there is room for it. */
    private int place(int handle) {
        int place = ownPlace(handle);
        while (values[place] != null && handles[place] != handle) {
            place = after(place);
        }
        return place;
    }

    private int ownPlace(int handle) {
        int mask = values.length - 1;
        long spread = (handle >>> BLOCK_BITS) * GOLDEN & 0xFFFFFFFFL;
        int block = (int) (spread >>> Integer.numberOfLeadingZeros(mask) + BLOCK_BITS);
        return (block << BLOCK_BITS | handle & IN_BLOCK) & mask;
    }

    private int distance(int from, int to) {
        return to - from & values.length - 1;
    }

    private int after(int place) {
        return place + 1 & values.length - 1;
    }

    private void grow() {
        int[] oldHandles = handles;
        Object[] oldValues = values;
        handles = new int[2 * oldHandles.length];
        values = new Object[handles.length];
        for (int i = 0; i < oldValues.length; ++i) {
            if (oldValues[i] != null) {
                int place = place(oldHandles[i]);
                handles[place] = oldHandles[i];
                values[place] = oldValues[i];
            }
        }
    }

    private final class Values implements Iterator<V> {
        private int next = -1;

        private Values() {
            advance();
        }

        private void advance() {
            do {
                ++next;
            } while (next < values.length && values[next] == null);
        }

        @Override
        public boolean hasNext() {
            return next < values.length;
        }

        @Override
        @SuppressWarnings("unchecked") // what put has put in
        public V next() {
            if (!hasNext()) {
                throw new NoSuchElementException();
            }
            V value = (V) values[next];
            advance();
            return value;
        }
    }
}
