package tovu.local.model.exchange;

import java.io.IOException;
import java.io.ObjectInputStream;
import java.util.ArrayList;
import java.util.Collection;
import java.util.HashMap;
import java.util.Iterator;
import java.util.List;
import java.util.Map;
import java.util.TreeMap;
import tovu.local.model.value.Saved;

/** When one federate may get the next update of each attribute of an object, and what waits for that. */
@SuppressWarnings("serial") // read by what wrote it
final class Pacing implements Saved {
    /** An attribute's part of an update. */
    record Update(int attribute, Message.Origin sending, Content content) implements Saved {
    }

    private record Interval(long end, long length) implements Saved {
        boolean isOver(long now) {
            return now - end >= 0;
        }
    }

    private final Map<Integer, Interval> intervals = new HashMap<>();
    private final Map<Integer, Update> held = new HashMap<>();

    /**
     * Whether the attribute may be updated now; if so, what waited is out of date.
     *
     * @param length of the interval, in nanoseconds, that begins with this update; 0 for none
     */
    boolean admits(int attribute, long now, long length) {
        Interval current = intervals.get(attribute);
        if (length > 0 && current != null && !current.isOver(now)) {
            return false;
        }
        held.remove(attribute);
        intervals.remove(attribute);
        if (length > 0) {
            intervals.put(attribute, new Interval(now + length, length));
        }
        return true;
    }

    /** @return when it is due, a {@code System.nanoTime} */
    long hold(int attribute, Message.Origin sending, Content content) {
        held.put(attribute, new Update(attribute, sending, content));
        return intervals.get(attribute).end;
    }

    boolean isEmpty() {
        return held.isEmpty();
    }

    /** When the first of those that wait is due. */
    long next() {
        Iterator<Integer> attributes = held.keySet().iterator();
        long next = intervals.get(attributes.next()).end;
        while (attributes.hasNext()) {
            long end = intervals.get(attributes.next()).end;
            next = end - next < 0 ? end : next;
        }
        return next;
    }

    /** Takes out what is due, in the order of sending and together what was sent together. */
    Collection<List<Update>> due(long now) {
        Map<Long, List<Update>> due = new TreeMap<>();
        held.values().removeIf(each -> {
            Interval interval = intervals.get(each.attribute);
            boolean isDue = interval.isOver(now);
            if (isDue) {
                due.computeIfAbsent(each.sending.sequence(), key -> new ArrayList<>()).add(each);
                intervals.put(each.attribute, new Interval(now + interval.length, interval.length));
            }
            return isDue;
        });
        return due.values();
    }

    /** What a process calls now means nothing to another one: what waited is due. */
    private void readObject(ObjectInputStream in) throws IOException, ClassNotFoundException {
        in.defaultReadObject();
        long now = System.nanoTime();
        intervals.replaceAll((attribute, interval) -> new Interval(now, interval.length));
    }
}
