package tovu.local.fom;

import java.util.List;

/** Writes FOM modules as XML again. */
final class XmlText {
    private static final String NAMESPACE = "http://standards.ieee.org/IEEE1516-2010";

    private final StringBuilder text = new StringBuilder("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");

    private XmlText() {
    }

    /** One document of them all: what has the same name at the same place in several is one. */
    static String of(List<FomElement> roots) {
        XmlText writer = new XmlText();
        writer.write(roots.stream().reduce(XmlText::merged).orElseThrow(), " xmlns=\"" + NAMESPACE + "\"", "\n");
        return writer.text.append('\n').toString();
    }

    /** What only one of them has is taken as it is. */
    private static FomElement merged(FomElement first, FomElement second) {
        FomElement both = new FomElement(first.tag, first.line, first.isXmlAttribute);
        both.addText(first.text());
        for (FomElement child : first.children()) {
            FomElement other = child.children().isEmpty() ? null : second.childLike(child);
            both.add(other == null ? child : merged(child, other));
        }
        second.children().stream().filter(child -> first.childLike(child) == null).forEach(both::add);
        return both;
    }

    private void write(FomElement element, String moreAttributes, String newLine) {
        text.append('<').append(element.tag).append(moreAttributes);
        for (FomElement each : element.children()) {
            if (each.isXmlAttribute) {
                text.append(' ').append(each.tag).append("=\"").append(escaped(each.text())).append('"');
            }
        }
        text.append('>').append(escaped(element.text()));
        boolean nested = false;
        for (FomElement each : element.children()) {
            if (!each.isXmlAttribute) {
                nested = true;
                text.append(newLine).append(' ');
                write(each, "", newLine + ' ');
            }
        }
        text.append(nested ? newLine : "").append("</").append(element.tag).append('>');
    }

    private static String escaped(String plain) {
        return plain.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;").replace("\"", "&quot;");
    }
}
