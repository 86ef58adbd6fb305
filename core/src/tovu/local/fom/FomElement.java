package tovu.local.fom;

import java.util.ArrayList;
import java.util.List;

/** One element of a FOM module's XML, with the line it begins on so that a message can point at it. */
final class FomElement {
    final String tag;
    final int line;
    final boolean isXmlAttribute;
    private final List<FomElement> children = new ArrayList<>();
    private final StringBuilder text = new StringBuilder();

    FomElement(String tag, int line, boolean isXmlAttribute) {
        this.tag = tag;
        this.line = line;
        this.isXmlAttribute = isXmlAttribute;
    }

    List<FomElement> children() {
        return children;
    }

    void add(FomElement child) {
        children.add(child);
    }

    void addText(char[] characters, int start, int length) {
        text.append(characters, start, length);
    }

    void addText(String more) {
        text.append(more);
    }

    String text() {
        return text.toString().strip();
    }

    /** The first child of that tag and name, or null. */
    FomElement childLike(FomElement other) {
        String name = other.value("name");
        return children.stream().filter(child -> child.tag.equals(other.tag) && child.value("name").equals(name))
                .findFirst().orElse(null);
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
