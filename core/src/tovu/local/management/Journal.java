package tovu.local.management;

import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.Deque;
import java.util.EnumMap;
import java.util.List;
import java.util.Map;

/** Who has come and gone, and why: the last events of this process, and how many there have been. */
public final class Journal {
    /** What can happen. */
    public enum Kind {
        JOINED, RESIGNED, LOST, REFUSED, TAKEN_OVER
    }

    /**
     * Something that has happened.
     *
     * @param number     one more than that of the event before
     * @param time       milliseconds since 1970
     * @param federation in which, or an empty text
     * @param who        a federate's name, the address of a connection that was refused, or the hub that took over
     * @param why        an empty text where that goes without saying
     */
    public record Event(long number, long time, Kind kind, String federation, String who, String why) {
    }

    private static final int KEPT = 200;
    private static final Deque<Event> EVENTS = new ArrayDeque<>();
    private static final Map<Kind, Long> COUNTS = new EnumMap<>(Kind.class);
    private static long last;

    private Journal() {
    }

    public static synchronized void add(Kind kind, String federation, String who, String why) {
        EVENTS.addLast(new Event(++last, System.currentTimeMillis(), kind, federation, who, why));
        COUNTS.merge(kind, 1L, Long::sum);
        if (EVENTS.size() > KEPT) {
            EVENTS.removeFirst();
        }
    }

    /** The last ones, in the order in which they happened. */
    public static synchronized List<Event> events() {
        return new ArrayList<>(EVENTS);
    }

    public static synchronized long count(Kind kind) {
        return COUNTS.getOrDefault(kind, 0L);
    }
}
