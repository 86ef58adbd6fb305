package tovu.local.watch;

import java.util.ArrayList;
import java.util.List;

/** A sample as a table to be read. */
final class StateText {
    private static final List<String> HEAD = List.of("FEDERATE", "TYPE", "HANDLE", "TIME MANAGEMENT", "LOOKAHEAD",
            "TIME", "GALT", "STATE", "QUEUE", "SILENT");

    private StateText() {
    }

    static String of(Sample sample) {
        StringBuilder out = new StringBuilder(sample.federations().isEmpty() ? "no federation\n" : "");
        for (FederationView each : sample.federations()) {
            out.append("federation ").append(printable(each.name())).append(" (").append(each.timeImplementation())
                    .append(")\n");
            List<List<String>> rows = new ArrayList<>(List.of(HEAD));
            each.federates().forEach(federate -> rows.add(row(federate)));
            table(out, rows);
            Waits.of(each).forEach(wait -> out.append("  ").append(printable(wait)).append('\n'));
        }
        return out.toString();
    }

    private static List<String> row(FederateView of) {
        String management = (of.regulating() ? "regulating " : "") + (of.constrained() ? "constrained" : "");
        return List.of(printable(of.name()), printable(of.type()), Integer.toString(of.handle()),
                management.isEmpty() ? "-" : management.strip(), text(of.lookahead()), text(of.time()),
                text(of.galt()), StateJson.state(of) + (of.requested() == null ? "" : " to " + of.requested()),
                Integer.toString(of.receiveQueue() + of.timestampQueue()), Math.round(of.silent()) + " s");
    }

    private static String text(Object value) {
        return value == null ? "-" : value.toString();
    }

    /** Names are the federates': none of them is obeyed by a terminal. */
    private static String printable(String name) {
        return name.replaceAll("\\p{Cntrl}", "?");
    }

    private static void table(StringBuilder out, List<List<String>> rows) {
        int[] widths = new int[HEAD.size()];
        rows.forEach(row -> {
            for (int i = 0; i < widths.length; ++i) {
                widths[i] = Math.max(widths[i], row.get(i).length());
            }
        });
        for (List<String> row : rows) {
            StringBuilder line = new StringBuilder(" ");
            for (int i = 0; i < widths.length; ++i) {
                line.append(' ').append(row.get(i)).append(" ".repeat(widths[i] - row.get(i).length() + 1));
            }
            out.append(line.toString().stripTrailing()).append('\n');
        }
    }
}
