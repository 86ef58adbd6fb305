package tovu.local.cluster;

import java.nio.charset.StandardCharsets;
import java.util.Map;
import java.util.TreeMap;

/** What a node holds: a line for each field, for the eyes of whoever looks into ZooKeeper, too. */
final class Fields {
    private final Map<String, String> values = new TreeMap<>();

    Fields() {
    }

    Fields(byte[] content) {
        new String(content, StandardCharsets.UTF_8).lines().map(line -> line.split("=", 2))
                .filter(parts -> parts.length == 2).forEach(parts -> values.put(parts[0], parts[1]));
    }

    Fields with(String name, Object value) {
        values.put(name, value.toString());
        return this;
    }

    String text(String name) {
        return values.getOrDefault(name, "");
    }

    long number(String name) {
        String text = text(name);
        return text.matches("\\d{1,18}") ? Long.parseLong(text) : 0;
    }

    byte[] content() {
        StringBuilder lines = new StringBuilder();
        values.forEach((name, value) -> lines.append(name).append('=').append(value).append('\n'));
        return lines.toString().getBytes(StandardCharsets.UTF_8);
    }
}
