package tovu.local.watch;

/** A sample as tables to be read. */
final class StateText {
    private StateText() {
    }

    static String of(Sample sample) {
        StringBuilder out = new StringBuilder(sample.federations().isEmpty() ? "no federation\n" : "");
        for (FederationView each : sample.federations()) {
            out.append("federation ").append(TextTable.printable(each.name())).append(" (")
                    .append(each.timeImplementation()).append(")\n");
            TextTable federates = new TextTable("  ", "FEDERATE", "TYPE", "HANDLE", "TIME MANAGEMENT", "LOOKAHEAD",
                    "TIME", "GALT", "STATE", "QUEUE", "SILENT");
            each.federates().forEach(federate -> add(federates, federate));
            out.append(federates);
            Waits.of(each).forEach(wait -> out.append("  ").append(TextTable.printable(wait)).append('\n'));
        }
        return out.append(sample.cluster() == null ? "" : "\n" + sample.cluster().text()).toString();
    }

    private static void add(TextTable to, FederateView of) {
        String management = (of.regulating() ? "regulating " : "") + (of.constrained() ? "constrained" : "");
        to.row(of.name(), of.type(), Integer.toString(of.handle()),
                management.isEmpty() ? "-" : management.strip(), text(of.lookahead()), text(of.time()),
                text(of.galt()), StateJson.state(of) + (of.requested() == null ? "" : " to " + of.requested()),
                Integer.toString(of.receiveQueue() + of.timestampQueue()), Math.round(of.silent()) + " s");
    }

    private static String text(Object value) {
        return value == null ? "-" : value.toString();
    }
}
