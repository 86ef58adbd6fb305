package tovu.local.fom;

import java.util.ArrayList;
import java.util.List;

/** One element of a FOM module's XML, with the line it begins on so that a message can point at it. */
final class FomElement {
    final String tag;
    final int line;
    private final List<FomElement> children = new ArrayList<>();
    private final StringBuilder text = new StringBuilder();

    FomElement(String tag, int line) {
        this.tag = tag;
        this.line = line;
    }

    void add(FomElement child) {
        children.add(child);
    }

    void addText(char[] characters, int start, int length) {
        text.append(characters, start, length);
    }

    String text() {
        return text.toString().strip();
    }

    List<FomElement> children(String name) {
        return children.stream().filter(child -> child.tag.equals(name)).toList();
    }

    /** The children of the first child of that name: the rows of a table such as {@code dimensions}. */
    List<FomElement> table(String tableName, String rowName) {
        return children(tableName).stream().flatMap(table -> table.children(rowName).stream()).toList();
    }

    /** The text of the first child of that name, or an empty text. An XML attribute reads like a child. */
    String value(String name) {
        for (FomElement child : children) {
            if (child.tag.equals(name)) {
                return child.text();
            }
        }
        return "";
    }
}
