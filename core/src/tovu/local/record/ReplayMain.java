package tovu.local.record;

import hla.rti1516e.exceptions.RTIexception;
import java.io.IOException;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.nio.file.Path;
import java.time.Instant;
import java.time.ZoneId;
import java.time.format.DateTimeFormatter;
import java.time.temporal.ChronoUnit;
import java.util.ArrayDeque;
import java.util.Deque;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.Set;
import tovu.local.remote.HubAddress;

/** The command rti1516e-replay. */
public final class ReplayMain {
    private static final String HELP = """
            usage: rti1516e-replay FILE [OPTION]...
            Prints what a hub has recorded: services (->), their answers, and callbacks (<-).

              --federate NAME     only what this federate calls and is told
              --service NAME      only this service or callback
              --object NAME       only what is about this object instance
              --from TIME         not before: seconds since the beginning, or HH:MM:SS
              --until TIME        not after
              --compare OTHER     prints the first place where the recording OTHER differs, instead
              --play HOST:PORT    plays the services at the hub there, and prints what is answered otherwise;
                                  ;ca=FILE behind it and so on as in a federate's designator
              --real-time         plays as fast as it was recorded, not as fast as can be
              --help              says so and ends

            The exit status is 1 when something differs, and 2 when it cannot be found out.
            """;
    private static final Set<String> VALUES =
            Set.of("federate", "service", "object", "from", "until", "compare", "play");
    private static final int DIFFERENT = 1;
    private static final int WRONG_USE = 2;
    private static final DateTimeFormatter CLOCK = DateTimeFormatter.ofPattern("HH:mm:ss.SSSSSS");
    private static final DateTimeFormatter DAY = DateTimeFormatter.ofPattern("yyyy-MM-dd HH:mm:ss");

    private final PrintStream out;
    private final Map<String, String> options = new HashMap<>();
    private Path file;

    private ReplayMain(PrintStream out) {
        this.out = out;
    }

    public static void main(String[] arguments) {
        int status;
        try (PrintStream out = new PrintStream(System.out, false, StandardCharsets.UTF_8)) {
            status = new ReplayMain(out).run(arguments);
        } catch (IOException | RTIexception | IllegalArgumentException e) {
            System.err.println("rti1516e-replay: " + e.getMessage());
            status = WRONG_USE;
        } catch (InterruptedException e) {
            status = WRONG_USE;
        }
        System.exit(status);
    }

    private int run(String[] arguments) throws IOException, RTIexception, InterruptedException {
        parse(arguments);
        if (options.containsKey("help")) {
            out.print(HELP);
            return 0;
        }
        if (file == null) {
            throw new IllegalArgumentException("which recording? (rti1516e-replay --help lists the options)");
        }
        if (options.containsKey("compare")) {
            String difference = Comparison.of(file, Path.of(options.get("compare")));
            out.print(difference == null ? "no difference\n" : difference);
            return difference == null ? 0 : DIFFERENT;
        }
        try (RecordingReader in = new RecordingReader(file)) {
            if (options.containsKey("play")) {
                try (Player player = new Player(in, HubAddress.of("hub=" + options.get("play")),
                        options.containsKey("real-time"), out)) {
                    return player.play() ? 0 : DIFFERENT;
                }
            }
            print(in);
            return 0;
        }
    }

    private void parse(String[] arguments) {
        Deque<String> left = new ArrayDeque<>(List.of(arguments));
        while (!left.isEmpty()) {
            String argument = left.poll();
            String name = argument.replaceFirst("^--", "");
            if (!argument.startsWith("--") && file == null) {
                file = Path.of(argument);
            } else if (VALUES.contains(name) && !left.isEmpty()) {
                options.put(name, left.poll());
            } else if (name.equals("help") || name.equals("real-time")) {
                options.put(name, "");
            } else {
                throw new IllegalArgumentException(VALUES.contains(name) ? "option '" + argument + "' needs a value"
                        : "unknown option '" + argument + "' (rti1516e-replay --help lists the options)");
            }
        }
    }

    private void print(RecordingReader in) throws IOException {
        Filter filter = new Filter(options.get("federate"), options.get("service"), options.get("object"),
                options.get("from"), options.get("until"));
        RecordedNames names = new RecordedNames();
        out.println("recorded from " + DAY.format(in.begin().atZone(ZoneId.systemDefault())) + " on");
        for (Entry entry = in.next(); entry != null; entry = in.next()) {
            Line line = Line.of(entry, names);
            if (line != null && filter.wants(line, in.begin())) {
                out.println(stamp(in.begin(), line) + " " + line.text().replaceAll("\\p{Cntrl}", "?"));
            }
        }
        if (in.isCut()) {
            out.println("here the recording is cut off: its hub has not come to its end");
        }
    }

    static String stamp(Instant begin, Line line) {
        return stamp(begin, line.entry(), line.who());
    }

    static String stamp(Instant begin, Entry entry, String who) {
        return CLOCK.format(begin.plus(entry.micros(), ChronoUnit.MICROS).atZone(ZoneId.systemDefault())) + " ["
                + who.replaceAll("\\p{Cntrl}", "?") + "]";
    }
}
