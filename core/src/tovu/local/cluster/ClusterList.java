package tovu.local.cluster;

import java.time.Instant;
import java.time.temporal.ChronoUnit;
import java.util.ArrayList;
import java.util.Comparator;
import java.util.List;
import org.apache.zookeeper.KeeperException;

/** The hubs of a cluster, and what is where, as tables to be read. */
final class ClusterList {
    private ClusterList() {
    }

    static String of(Registry registry) throws Ensemble.Unreachable, KeeperException {
        List<List<String>> hubs = new ArrayList<>();
        for (String each : registry.hubs()) {
            HubNode hub = registry.hub(each);
            if (hub != null) {
                hubs.add(List.of(hub.name(), hub.address(), Integer.toString(hub.load()), hub.version()));
            }
        }
        List<List<String>> federations = new ArrayList<>();
        for (Registry.Seen each : registry.federations()) {
            federations.add(List.of(each.federation(), each.node().hubName(), Long.toString(each.node().epoch()),
                    Instant.ofEpochMilli(each.since()).truncatedTo(ChronoUnit.SECONDS).toString(), each.node().from()));
        }
        return table(List.of("HUB", "ADDRESS", "LOAD", "VERSION"), hubs) + "\n"
                + table(List.of("FEDERATION", "HUB", "EPOCH", "SINCE", "TAKEN OVER FROM"), federations);
    }

    private static String table(List<String> head, List<List<String>> rows) {
        rows.sort(Comparator.comparing(row -> row.get(0)));
        rows.add(0, head);
        StringBuilder out = new StringBuilder();
        for (List<String> row : rows) {
            StringBuilder line = new StringBuilder();
            for (int i = 0; i < head.size(); ++i) {
                int column = i;
                int width = rows.stream().mapToInt(each -> each.get(column).length()).max().orElse(0);
                line.append(printable(row.get(i))).append(" ".repeat(width - row.get(i).length() + 2));
            }
            out.append(line.toString().stripTrailing()).append('\n');
        }
        return out.toString();
    }

    /** Names are the federates': none of them is obeyed by a terminal. */
    private static String printable(String name) {
        return name.replaceAll("\\p{Cntrl}", "?");
    }
}
