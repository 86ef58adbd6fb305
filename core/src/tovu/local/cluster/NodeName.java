package tovu.local.cluster;

import java.util.HexFormat;
import java.util.regex.Pattern;

/** The name of a node in ZooKeeper for something whose name a federate has chosen, and which may be anything. */
final class NodeName {
    private static final Pattern ESCAPED = Pattern.compile("%(\\p{XDigit}{4})");
    private static final String EMPTY = "%";

    private NodeName() {
    }

    /** Letters and digits stay, the rest becomes numbers. */
    static String of(String name) {
        StringBuilder node = new StringBuilder();
        for (char each : name.toCharArray()) {
            if (each < 128 && Character.isLetterOrDigit(each) || each == '-' || each == '_') {
                node.append(each);
            } else {
                node.append('%').append(HexFormat.of().toHexDigits(each));
            }
        }
        return node.isEmpty() ? EMPTY : node.toString();
    }

    static String original(String node) {
        return node.equals(EMPTY) ? ""
                : ESCAPED.matcher(node).replaceAll(each -> java.util.regex.Matcher.quoteReplacement(
                        String.valueOf((char) Integer.parseInt(each.group(1), 16))));
    }
}
