package tovu.local.model.value;

import java.util.Arrays;
import java.util.Collection;

/** A set of handles that does not change, quickly compared with another: many federates want the same. */
@SuppressWarnings("serial") // read by what wrote it
public final class HandleSet implements Saved {
    public static final HandleSet NONE = new HandleSet(new int[0]);

    private final int[] handles; // in ascending order
    private final int hash;

    private HandleSet(int[] handles) {
        this.handles = handles;
        hash = Arrays.hashCode(handles);
    }

    public static HandleSet of(Collection<Integer> handles) {
        return new HandleSet(handles.stream().mapToInt(Integer::intValue).sorted().toArray());
    }

    public boolean contains(int handle) {
        return Arrays.binarySearch(handles, handle) >= 0;
    }

    @Override
    public boolean equals(Object other) {
        return this == other || other instanceof HandleSet set && hash == set.hash
                && Arrays.equals(handles, set.handles);
    }

    @Override
    public int hashCode() {
        return hash;
    }
}
