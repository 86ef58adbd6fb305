package tovu.local.fom;

import java.util.ArrayList;
import java.util.List;
import java.util.Set;

/** One element of a FOM module's XML, with the line it begins on so that a message can point at it. */
final class FomElement {
    /** What explains and defines nothing; the encoding of a basic representation is told in words, too. */
    private static final Set<String> REMARKS =
            Set.of("semantics", "notes", "idtag", "interpretation", "basicData/encoding");

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

    /** The same, but empty where the entry says that it says nothing. */
    String stated(String name) {
        String text = value(name);
        return text.equalsIgnoreCase("NA") ? "" : text;
    }

    /** All that it contains but remarks and empty entries: two definitions of one thing have to be alike in it. */
    String definition() {
        StringBuilder definition = new StringBuilder(text().equals("NA") ? "" : text());
        for (FomElement child : children) {
            String part = REMARKS.contains(child.tag) || REMARKS.contains(tag + "/" + child.tag) ? ""
                    : child.definition();
            definition.append(part.isEmpty() ? "" : "<" + child.tag + ">" + part + "</>");
        }
        return definition.toString();
    }

    List<FomElement> children() {
        return children;
    }
}
