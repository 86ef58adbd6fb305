package tovu.local.watch;

import java.time.Instant;
import java.util.Locale;
import java.util.Set;
import java.util.TreeSet;
import tovu.local.management.Journal;

/** A sample as JSON; docs/watch.md tells what is in it. */
final class StateJson {
    private static final int SCHEMA = 1;

    private StateJson() {
    }

    static String of(Sample sample) {
        return Json.object(out -> out.put("schema", SCHEMA).put("time", Instant.ofEpochMilli(sample.time()).toString())
                .list("federations", sample.federations(), (json, each) -> federation(json, sample, each))
                .put("cluster", sample.cluster() == null ? null : sample.cluster()::json)
                .list("events", sample.events(), StateJson::event));
    }

    /** What the charts need of the past: no more than a few numbers of each moment. */
    static String moment(Sample sample) {
        return Json.object(out -> out.put("time", Instant.ofEpochMilli(sample.time()).toString())
                .list("federations", sample.federations(), (of, each) -> of.put("name", each.name())
                        .number("updatesPerSecond", rounded(updateRate(sample, each)))
                        .number("interactionsPerSecond", rounded(interactionRate(sample, each)))
                        .list("federates", each.federates(), (to, federate) ->
                                to.put("handle", federate.handle()).number("time", federate.time()))));
    }

    private static double updateRate(Sample sample, FederationView of) {
        return of.updates().keySet().stream().mapToDouble(each -> sample.updateRate(of, each)).sum();
    }

    private static double interactionRate(Sample sample, FederationView of) {
        return of.interactions().keySet().stream().mapToDouble(each -> sample.interactionRate(of, each)).sum();
    }

    private static void federation(Json json, Sample sample, FederationView of) {
        Set<String> objectClasses = new TreeSet<>(of.objects().keySet());
        objectClasses.addAll(of.updates().keySet());
        json.put("name", of.name()).put("timeImplementation", of.timeImplementation()).texts("waits", Waits.of(of))
                .number("updatesPerSecond", rounded(updateRate(sample, of)))
                .number("interactionsPerSecond", rounded(interactionRate(sample, of)))
                .list("federates", of.federates(), (out, each) -> federate(out, of, each))
                .list("objectClasses", objectClasses, (out, each) -> out.put("name", each)
                        .put("objects", of.objects().getOrDefault(each, 0L))
                        .put("updates", of.updates().getOrDefault(each, 0L))
                        .number("updatesPerSecond", rounded(sample.updateRate(of, each))))
                .list("interactionClasses", of.interactions().keySet(), (out, each) -> out.put("name", each)
                        .put("interactions", of.interactions().get(each))
                        .number("interactionsPerSecond", rounded(sample.interactionRate(of, each))))
                .list("synchronizationPoints", of.points(), (out, each) -> out.put("label", each.label())
                        .texts("achieved", each.achieved()).texts("awaited", each.awaited()))
                .put("save", out -> undertaking(out, of.save()).put("last", of.saves().last())
                        .number("lastTime", of.saves().lastTime()).put("next", of.saves().next())
                        .number("nextTime", of.saves().nextTime()))
                .put("restore", out -> undertaking(out, of.restore()));
    }

    private static Json undertaking(Json json, FederationView.Undertaking of) {
        return json.put("inProgress", of.label()).texts("awaited", of.awaited());
    }

    private static void federate(Json json, FederationView in, FederateView of) {
        FederateView holder = in.federate(of.heldBy());
        json.put("handle", of.handle()).put("name", of.name()).put("type", of.type())
                .put("regulating", of.regulating()).put("constrained", of.constrained())
                .number("lookahead", of.lookahead()).number("time", of.time()).number("galt", of.galt())
                .put("state", state(of)).put("advance", of.advance()).number("requested", of.requested())
                .number("secondsInState", rounded(of.seconds()))
                .put("waitsFor", holder == null ? null : holder.name())
                .put("receiveQueue", of.receiveQueue()).put("timestampQueue", of.timestampQueue())
                .put("services", of.services()).number("silentSeconds", rounded(of.silent()))
                .put("updatesSent", of.updatesSent()).put("interactionsSent", of.interactionsSent())
                .put("reflectionsReceived", of.reflectionsReceived())
                .put("interactionsReceived", of.interactionsReceived());
    }

    static String state(FederateView of) {
        return switch (of.state()) {
            case GRANTED -> "granted";
            case WAITING -> "advancing";
            case TO_BE_TOLD -> "grant under way";
        };
    }

    private static double rounded(double value) {
        return Math.round(value * 10) / 10.0;
    }

    private static void event(Json json, Journal.Event of) {
        json.put("number", of.number()).put("time", Instant.ofEpochMilli(of.time()).toString())
                .put("event", of.kind().name().toLowerCase(Locale.ROOT)).put("federation", of.federation())
                .put("who", of.who()).put("why", of.why());
    }
}
