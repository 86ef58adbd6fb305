package tovu.local.watch;

import java.util.ArrayList;
import java.util.List;

/** Lines whose columns stand below each other. Names are the federates': none of them is obeyed by a terminal. */
final class TextTable {
    private final String indent;
    private final List<List<String>> rows = new ArrayList<>();

    TextTable(String indent, String... head) {
        this.indent = indent;
        rows.add(List.of(head));
    }

    void row(String... cells) {
        rows.add(List.of(cells).stream().map(TextTable::printable).toList());
    }

    static String printable(String name) {
        return name.replaceAll("\\p{Cntrl}", "?");
    }

    @Override
    public String toString() {
        int[] widths = new int[rows.get(0).size()];
        rows.forEach(row -> {
            for (int i = 0; i < widths.length; ++i) {
                widths[i] = Math.max(widths[i], row.get(i).length());
            }
        });
        StringBuilder out = new StringBuilder();
        for (List<String> row : rows) {
            StringBuilder line = new StringBuilder(indent);
            for (int i = 0; i < widths.length; ++i) {
                line.append(row.get(i)).append(" ".repeat(widths[i] - row.get(i).length() + 2));
            }
            out.append(line.toString().stripTrailing()).append('\n');
        }
        return out.toString();
    }
}
