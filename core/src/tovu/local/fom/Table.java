package tovu.local.fom;

import java.util.ArrayList;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.function.Consumer;

/** Things numbered from 1 that are also found by name. */
final class Table<T> {
    private final List<T> rows = new ArrayList<>();
    private final Map<String, T> byName = new HashMap<>();

    int nextHandle() {
        return rows.size() + 1;
    }

    void add(String name, T row) {
        rows.add(row);
        byName.put(name, row);
    }

    void forEach(Consumer<T> visitor) {
        rows.forEach(visitor);
    }

    T at(int handle) {
        return handle >= 1 && handle <= rows.size() ? rows.get(handle - 1) : null;
    }

    T named(String name, String root) {
        T row = byName.get(name);
        return row != null || root.isEmpty() ? row : byName.get(root + "." + name);
    }

    /** A name that has more in front of it or other letters small, or null. */
    String nameLike(String name) {
        String end = "." + name;
        for (String each : byName.keySet()) {
            if (("." + each).regionMatches(true, each.length() - name.length(), end, 0, end.length())) {
                return each;
            }
        }
        return null;
    }
}
