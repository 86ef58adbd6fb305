package tovu.local.record;

import java.util.List;
import morva.tovu1516e.RecordedCalls;
import tovu.local.delivery.CallbackMethod;

/**
 * An entry of a recording in words.
 *
 * @param who       the federate, or the address of one that is not joined
 * @param name      of the service or callback; empty for neither
 * @param arguments of it; of an answer, those of the request
 * @param text      all of it
 */
record Line(Entry entry, String who, String name, List<String> arguments, String text) {
    boolean isCallback() {
        return entry.kind() == Entry.Kind.CALLBACK || entry.kind() == Entry.Kind.LATE_CALLBACK;
    }

    /** Says it, and has the names follow; null for what is not worth a line. */
    static Line of(Entry entry, RecordedNames names) {
        return switch (entry.kind()) {
            case OPENED -> {
                names.follow(entry);
                yield new Line(entry, names.who(entry.connection()), "", List.of(), "has connected");
            }
            case CLOSED -> new Line(entry, names.who(entry.connection()), "", List.of(),
                    "is disconnected: " + entry.text());
            case REQUEST -> call(entry, names.who(entry.connection()), "-> ", RecordedCalls.name(entry.code()),
                    arguments(entry, names));
            case CALLBACK, LATE_CALLBACK -> {
                names.follow(entry);
                CallbackMethod method = CallbackMethod.of(entry.code());
                yield call(entry, names.who(entry.connection()), "<- ", method.name().replaceFirst("_.*", ""),
                        RecordedCalls.arguments(names.describer(entry.connection()), method, entry.content()));
            }
            case RESULT, FAILURE -> answer(entry, names);
            case DROPPED -> failure(entry, names.who(entry.connection()), RecordedCalls.name(entry.code()),
                    arguments(entry, names));
            case PROGRESS -> null;
            case RETRACTED -> new Line(entry, names.who(entry.connection()), "", List.of(),
                    "callbacks are taken back");
        };
    }

    private static Line call(Entry entry, String who, String direction, String name, List<String> arguments) {
        return new Line(entry, who, name, arguments, direction + name + "(" + String.join(", ", arguments) + ")");
    }

    private static Line failure(Entry entry, String who, String name, List<String> arguments) {
        return new Line(entry, who, name, arguments, "   " + name + " ! " + entry.text());
    }

    private static List<String> arguments(Entry request, RecordedNames names) {
        return RecordedCalls.arguments(names.describer(request.connection()), request.code(), request.content());
    }

    private static Line answer(Entry entry, RecordedNames names) {
        Entry request = entry.request();
        String name = RecordedCalls.name(request.code());
        List<String> arguments = arguments(request, names);
        String who = names.who(entry.connection());
        names.follow(entry);
        if (entry.kind() == Entry.Kind.FAILURE) {
            return failure(entry, who, name, arguments);
        }
        List<String> results = RecordedCalls.results(names.describer(entry.connection()), request.code(),
                RecordedNames.result(entry));
        return results.isEmpty() ? null : new Line(entry, who, name, arguments, "   " + name + " = " + results.get(0));
    }
}
