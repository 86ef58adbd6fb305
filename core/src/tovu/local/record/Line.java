package tovu.local.record;

import java.util.List;
import morva.tovu1516e.RecordedCalls;
import tovu.local.delivery.CallbackMethod;
import tovu.local.record.RecordingReader.Entry;
import tovu.local.trace.Describer;

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
        return entry.kind() == Recording.Kind.CALLBACK || entry.kind() == Recording.Kind.LATE_CALLBACK;
    }

    /** Says it, and has the names follow; null for what has nothing to say. */
    static Line of(Entry entry, RecordedNames names) {
        return switch (entry.kind()) {
            case OPENED -> {
                names.follow(entry);
                yield new Line(entry, names.who(entry.connection()), "", List.of(), "has connected");
            }
            case CLOSED -> new Line(entry, names.who(entry.connection()), "", List.of(),
                    "is disconnected: " + entry.text());
            case REQUEST -> {
                if (!RecordedCalls.isService(entry.code())) {
                    yield new Line(entry, names.who(entry.connection()), "", List.of(), "-> no service");
                }
                names.follow(entry);
                yield call(entry, names.who(entry.connection()), "-> ", RecordedCalls.name(entry.code()),
                        RecordedCalls.arguments(names.describer(entry.connection()), entry.code(), entry.content()));
            }
            case CALLBACK, LATE_CALLBACK -> {
                names.follow(entry);
                CallbackMethod method = CallbackMethod.of(entry.code());
                yield call(entry, names.who(entry.connection()), "<- ", method.name().replaceFirst("_.*", ""),
                        RecordedCalls.arguments(names.describer(entry.connection()), method, entry.content()));
            }
            case RESULT, FAILURE -> answer(entry, names);
            case RETRACTED -> new Line(entry, names.who(entry.connection()), "", List.of(),
                    "callbacks are taken back");
        };
    }

    private static Line call(Entry entry, String who, String direction, String name, List<String> arguments) {
        return new Line(entry, who, name, arguments, direction + name + "(" + String.join(", ", arguments) + ")");
    }

    private static Line answer(Entry entry, RecordedNames names) {
        Entry request = names.requestOf(entry);
        Describer describer = names.describer(entry.connection());
        String name = RecordedCalls.name(request.code());
        List<String> arguments = RecordedCalls.arguments(describer, request.code(), request.content());
        String who = names.who(entry.connection());
        names.follow(entry);
        if (entry.kind() == Recording.Kind.FAILURE) {
            return new Line(entry, who, name, arguments, "   " + name + " ! " + entry.text());
        }
        List<String> results = RecordedCalls.results(describer, request.code(), RecordedNames.result(entry));
        return results.isEmpty() ? null : new Line(entry, who, name, arguments, "   " + name + " = " + results.get(0));
    }
}
