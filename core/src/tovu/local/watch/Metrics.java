package tovu.local.watch;

import java.util.Locale;
import java.util.Map;
import java.util.function.BiConsumer;
import java.util.function.Function;
import tovu.local.management.Journal;
import tovu.local.model.exchange.FederateStatus.Progress;

/** A sample in the text format of Prometheus. */
final class Metrics {
    static final String CONTENT_TYPE = "text/plain; version=0.0.4; charset=utf-8";

    private final StringBuilder out = new StringBuilder();
    private final Sample sample;

    private Metrics(Sample sample) {
        this.sample = sample;
    }

    static String of(Sample sample) {
        Metrics metrics = new Metrics(sample);
        metrics.federations();
        metrics.federates();
        metrics.events();
        return metrics.out.toString();
    }

    private void federations() {
        begin("federations", "gauge", "Federation executions");
        value("federations", sample.federations().size());
        begin("hubs", "gauge", "Hubs of the cluster");
        value("hubs", sample.cluster() == null || !sample.cluster().reachable() ? null : sample.cluster().hubs().size());
        ofFederations("federates", "gauge", "Joined federates", federation -> federation.federates().size());
        ofFederations("synchronization_points", "gauge", "Synchronization points that are not reached",
                federation -> federation.points().size());
        ofFederations("saving", "gauge", "Whether the federation is being saved",
                federation -> federation.save().label().isEmpty() ? 0 : 1);
        ofFederations("restoring", "gauge", "Whether the federation is being restored",
                federation -> federation.restore().label().isEmpty() ? 0 : 1);
        begin("objects", "gauge", "Object instances by class");
        for (FederationView federation : sample.federations()) {
            federation.objects().forEach((theClass, count) ->
                    value("objects", count, "federation", federation.name(), "class", theClass));
        }
    }

    private void federates() {
        ofFederates("logical_time", "gauge", "Logical time", FederateView::time);
        ofFederates("galt", "gauge", "Greatest available logical time", FederateView::galt);
        ofFederates("lookahead", "gauge", "Lookahead of a time-regulating federate", FederateView::lookahead);
        ofFederates("time_regulating", "gauge", "Whether a federate is time-regulating",
                federate -> federate.regulating() ? 1 : 0);
        ofFederates("time_constrained", "gauge", "Whether a federate is time-constrained",
                federate -> federate.constrained() ? 1 : 0);
        ofFederates("time_advancing", "gauge", "Whether a federate waits for a time advance",
                federate -> federate.state() == Progress.GRANTED ? 0 : 1);
        ofFederates("time_state_seconds", "gauge", "Since a federate asked for a time advance, or was told of the last",
                FederateView::seconds);
        ofFederates("silent_seconds", "gauge", "Since a federate called a service", FederateView::silent);
        begin("queued_messages", "gauge", "Messages that wait for a federate, by the order they are received in");
        each((federation, federate) -> {
            value("queued_messages", federate.receiveQueue(), "federation", federation.name(), "federate",
                    federate.name(), "order", "receive");
            value("queued_messages", federate.timestampQueue(), "federation", federation.name(), "federate",
                    federate.name(), "order", "timestamp");
        });
        ofFederates("services_total", "counter", "Services called", FederateView::services);
        byClass("updates_sent_total", "Attribute updates sent, by object class", FederateView::updates);
        byClass("interactions_sent_total", "Interactions sent, by class", FederateView::interactions);
        ofFederates("reflections_received_total", "counter", "Reflections received",
                FederateView::reflectionsReceived);
        ofFederates("interactions_received_total", "counter", "Interactions received",
                FederateView::interactionsReceived);
    }

    private void events() {
        begin("events_total", "counter", "Federates that joined, resigned or were lost, connections refused, federations taken over");
        for (Journal.Kind kind : Journal.Kind.values()) {
            value("events_total", Journal.count(kind), "event", kind.name().toLowerCase(Locale.ROOT));
        }
    }

    private void each(BiConsumer<FederationView, FederateView> doing) {
        sample.federations().forEach(federation ->
                federation.federates().forEach(federate -> doing.accept(federation, federate)));
    }

    private void ofFederations(String name, String type, String help, Function<FederationView, Object> what) {
        begin(name, type, help);
        sample.federations().forEach(each -> value(name, what.apply(each), "federation", each.name()));
    }

    private void ofFederates(String name, String type, String help, Function<FederateView, Object> what) {
        begin(name, type, help);
        each((federation, federate) -> value(name, what.apply(federate), "federation", federation.name(), "federate",
                federate.name()));
    }

    private void byClass(String name, String help, Function<FederateView, Map<String, Long>> counts) {
        begin(name, "counter", help);
        each((federation, federate) -> counts.apply(federate).forEach((theClass, count) ->
                value(name, count, "federation", federation.name(), "federate", federate.name(), "class", theClass)));
    }

    private void begin(String name, String type, String help) {
        out.append("# HELP rti1516e_").append(name).append(' ').append(help).append(".\n# TYPE rti1516e_").append(name)
                .append(' ').append(type).append('\n');
    }

    /** What has no value has no line. */
    private void value(String name, Object value, String... labels) {
        if (value == null) {
            return;
        }
        out.append("rti1516e_").append(name);
        for (int i = 0; i < labels.length; i += 2) {
            out.append(i == 0 ? '{' : ',').append(labels[i]).append("=\"").append(labels[i + 1].replace("\\", "\\\\")
                    .replace("\"", "\\\"").replace("\n", "\\n")).append('"');
        }
        out.append(labels.length == 0 ? " " : "} ").append(value.toString().replace("Infinity", "Inf")).append('\n');
    }
}
