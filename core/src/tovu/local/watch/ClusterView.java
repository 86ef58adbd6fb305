package tovu.local.watch;

import java.time.Instant;
import java.time.temporal.ChronoUnit;
import java.util.List;

/**
 * The hubs that are one service, and which federation is where, as one of them has seen it last.
 *
 * @param here      what the hub is called that has seen it
 * @param reachable whether it is so still, as far as that hub can know
 */
public record ClusterView(String here, boolean reachable, List<Hub> hubs, List<Place> federations) {
    /**
     * A hub that lives.
     *
     * @param load  its federations and connections
     * @param since when it entered the cluster, in milliseconds since 1970
     */
    public record Hub(String name, String address, int load, String version, long since) {
    }

    /**
     * Where a federation is.
     *
     * @param hub   what that is called
     * @param lost  whether that hub lives no longer: another one is about to take over
     * @param epoch goes up with each hub that gets it
     * @param since when this one got it, in milliseconds since 1970
     * @param from  what the hub is called that it was taken over from; empty for none
     */
    public record Place(String federation, String hub, boolean lost, long epoch, long since, String from) {
    }

    /** As tables to be read. */
    public String text() {
        TextTable living = new TextTable("", "HUB", "ADDRESS", "LOAD", "VERSION", "SINCE");
        hubs.forEach(each -> living.row(each.name(), each.address(), Integer.toString(each.load()), each.version(),
                second(each.since())));
        TextTable places = new TextTable("", "FEDERATION", "HUB", "EPOCH", "SINCE", "TAKEN OVER FROM");
        federations.forEach(each -> places.row(each.federation(), each.hub() + (each.lost() ? " (lost)" : ""),
                Long.toString(each.epoch()), second(each.since()), each.from()));
        return (reachable ? "" : "ZooKeeper cannot be reached; this is how it was\n") + living + "\n" + places;
    }

    private static String second(long time) {
        return Instant.ofEpochMilli(time).truncatedTo(ChronoUnit.SECONDS).toString();
    }

    void json(Json out) {
        out.put("hub", here).put("reachable", reachable)
                .list("hubs", hubs, (json, each) -> json.put("name", each.name()).put("address", each.address())
                        .put("load", each.load()).put("version", each.version())
                        .put("since", Instant.ofEpochMilli(each.since()).toString()))
                .list("federations", federations, (json, each) -> json.put("name", each.federation())
                        .put("hub", each.hub()).put("lost", each.lost()).put("epoch", each.epoch())
                        .put("since", Instant.ofEpochMilli(each.since()).toString()).put("from", each.from()));
    }
}
