package tovu.local.watch;

import java.util.function.BiConsumer;
import java.util.function.Consumer;

/** Writes JSON. What is given as null, or has no number in JSON, is null there. */
final class Json {
    private final StringBuilder out;
    private boolean first = true;

    private Json(StringBuilder out) {
        this.out = out;
    }

    /** An object with what is put into it. */
    static String object(Consumer<Json> filling) {
        StringBuilder out = new StringBuilder();
        object(out, filling);
        return out.toString();
    }

    private static void object(StringBuilder out, Consumer<Json> filling) {
        out.append('{');
        filling.accept(new Json(out));
        out.append('}');
    }

    private void name(String name) {
        out.append(first ? "" : ",");
        first = false;
        text(out, name);
        out.append(':');
    }

    Json put(String name, String value) {
        name(name);
        text(out, value);
        return this;
    }

    Json put(String name, boolean value) {
        name(name);
        out.append(value);
        return this;
    }

    Json put(String name, long value) {
        name(name);
        out.append(value);
        return this;
    }

    /** A number of any size or precision: numbers in JSON have no bounds. */
    Json number(String name, Object value) {
        name(name);
        String text = String.valueOf(value);
        out.append(text.matches("-?[0-9].*") ? text : "null");
        return this;
    }

    Json put(String name, Consumer<Json> filling) {
        name(name);
        if (filling == null) {
            out.append("null");
        } else {
            object(out, filling);
        }
        return this;
    }

    <T> Json list(String name, Iterable<T> all, BiConsumer<Json, T> filling) {
        name(name);
        String separator = "[";
        for (T each : all) {
            out.append(separator);
            object(out, json -> filling.accept(json, each));
            separator = ",";
        }
        out.append(separator.equals("[") ? "[]" : "]");
        return this;
    }

    Json texts(String name, Iterable<String> all) {
        name(name);
        String separator = "[";
        for (String each : all) {
            out.append(separator);
            text(out, each);
            separator = ",";
        }
        out.append(separator.equals("[") ? "[]" : "]");
        return this;
    }

    /** Escapes whatever a page that the text should get into by mistake might take for its own, too. */
    private static void text(StringBuilder out, String value) {
        if (value == null) {
            out.append("null");
            return;
        }
        out.append('"');
        for (int i = 0; i < value.length(); ++i) {
            char each = value.charAt(i);
            if (each == '"' || each == '\\') {
                out.append('\\').append(each);
            } else if (each < ' ' || each > '~' || each == '<' || each == '>' || each == '&') {
                out.append(String.format("\\u%04x", (int) each));
            } else {
                out.append(each);
            }
        }
        out.append('"');
    }
}
