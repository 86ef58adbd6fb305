package tovu.local.record;

import java.io.IOException;
import java.nio.file.Path;
import java.util.ArrayDeque;
import java.util.Deque;
import java.util.HashMap;
import java.util.Map;
import java.util.Set;
import java.util.regex.Pattern;

/**
 * Two recordings side by side. What one federate calls and is answered is compared in order, and so is what it is
 * told; but not how the two of them, or federates among each other, interleave, which no two runs have in common, nor
 * the handles that come of that.
 */
final class Comparison {
    /** Services that only return a handle of what a federate makes, and names and words with one in them. */
    private static final Set<String> HANDLES = Set.of("registerObjectInstance", "registerObjectInstanceWithRegions",
            "createRegion", "joinFederationExecution", "getObjectInstanceHandle", "getFederateHandle");
    private static final Pattern HANDLE = Pattern.compile("(region |retraction |object-|federate-|#)[0-9]+");

    private static final class Side implements AutoCloseable {
        final Path file;
        final boolean isFirst;
        final RecordingReader in;
        final RecordedNames names = new RecordedNames();
        final Map<String, Deque<Line>> ahead = new HashMap<>(); // of the other side, by stream
        final Map<String, Integer> counts = new HashMap<>();

        Side(Path file, boolean isFirst) throws IOException {
            this.file = file;
            this.isFirst = isFirst;
            in = new RecordingReader(file);
        }

        /** The next line that is worth comparing, or null at the end. */
        Line next() throws IOException {
            for (Entry entry = in.next(); entry != null; entry = in.next()) {
                Line line = Line.of(entry, names);
                if (line != null && !line.name().isEmpty() && !line.name().equals("connect")) {
                    return line;
                }
            }
            return null;
        }

        @Override
        public void close() throws IOException {
            in.close();
        }
    }

    private Comparison() {
    }

    /** The first difference in words, or null for none. */
    static String of(Path one, Path other) throws IOException {
        try (Side first = new Side(one, true); Side second = new Side(other, false)) {
            for (;;) {
                Line left = first.next();
                Line right = second.next();
                String difference = left == null ? null : match(left, first, second);
                if (difference == null && right != null) {
                    difference = match(right, second, first);
                }
                if (difference != null) {
                    return difference;
                }
                if (left == null && right == null) {
                    return rest(first, second);
                }
            }
        }
    }

    /**
     * What is compared in order. One that is not joined has the name of an address, which differs from run to run; and
     * callbacks have numbers, because some are recorded when they are left for a federate, and others when it is their
     * turn.
     */
    private static String stream(Line line) {
        String who = line.who().startsWith("/") ? "not joined" : line.who();
        return who + (line.isCallback() ? " is told as callback " + line.entry().number() : " calls");
    }

    private static String match(Line line, Side its, Side others) {
        String stream = stream(line);
        Deque<Line> waiting = others.ahead.computeIfAbsent(stream, key -> new ArrayDeque<>());
        if (waiting.isEmpty()) {
            its.ahead.computeIfAbsent(stream, key -> new ArrayDeque<>()).add(line);
            return null;
        }
        Line counterpart = waiting.remove();
        int place = its.counts.merge(stream, 1, Integer::sum);
        others.counts.merge(stream, 1, Integer::sum);
        if (essence(counterpart).equals(essence(line))) {
            return null;
        }
        String both = its.isFirst ? said(its, line) + said(others, counterpart)
                : said(others, counterpart) + said(its, line);
        return "what " + stream + " differs" + (line.isCallback() ? "" : " at its line " + place) + ":\n" + both;
    }

    private static String essence(Line line) {
        return line.entry().kind() == Entry.Kind.RESULT && HANDLES.contains(line.name()) ? line.name()
                : HANDLE.matcher(line.text()).replaceAll("$1");
    }

    private static String rest(Side first, Side second) {
        for (Side[] pair : new Side[][] {{first, second}, {second, first}}) {
            for (Map.Entry<String, Deque<Line>> each : pair[0].ahead.entrySet()) {
                if (!each.getValue().isEmpty()) {
                    return "what " + each.getKey() + " goes on in only one of them:\n"
                            + said(pair[0], each.getValue().remove());
                }
            }
        }
        return null;
    }

    private static String said(Side side, Line line) {
        return "  " + side.file + ": " + ReplayMain.stamp(side.in.begin(), line) + " " + line.text() + "\n";
    }
}
