package tovu.local.management;

import hla.rti1516e.exceptions.RTIexception;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.function.Consumer;
import java.util.function.Function;
import tovu.local.fom.FomModule;
import tovu.local.fom.Transportation;
import tovu.local.management.Reports.Parameters;
import tovu.local.model.exchange.Federate;
import tovu.local.model.exchange.FederateStatus;
import tovu.local.model.exchange.Oversight;
import tovu.local.model.exchange.Tally;
import tovu.local.model.federation.Federation;

/** HLArequest: each is answered with reports. */
final class Requests {
    private static final int MOVING_TO_POINT = 2;
    private static final int WAITING_AT_POINT = 3;

    private final Reports reports;
    private final Map<String, Action> ofFederate = new HashMap<>();

    Requests(Reports reports) {
        this.reports = reports;
        ofFederate.put("HLArequestPublications", this::reportPublications);
        ofFederate.put("HLArequestSubscriptions", this::reportSubscriptions);
        ofFederate.put("HLArequestObjectInstancesThatCanBeDeleted", (federation, who, in) ->
                reportObjects(who, "HLAreportObjectInstancesThatCanBeDeleted", who.status().deletable()));
        ofFederate.put("HLArequestObjectInstancesUpdated", (federation, who, in) ->
                reportObjects(who, "HLAreportObjectInstancesUpdated", who.oversight().objectsUpdated.byClass()));
        ofFederate.put("HLArequestObjectInstancesReflected", (federation, who, in) ->
                reportObjects(who, "HLAreportObjectInstancesReflected", who.oversight().objectsReflected.byClass()));
        counts("HLArequestUpdatesSent", "HLAreportUpdatesSent", "HLAupdateCounts", of -> of.updatesSent);
        counts("HLArequestReflectionsReceived", "HLAreportReflectionsReceived", "HLAreflectCounts",
                of -> of.reflectionsReceived);
        counts("HLArequestInteractionsSent", "HLAreportInteractionsSent", "HLAinteractionCounts",
                of -> of.interactionsSent);
        counts("HLArequestInteractionsReceived", "HLAreportInteractionsReceived", "HLAinteractionCounts",
                of -> of.interactionsReceived);
        ofFederate.put("HLArequestObjectInstanceInformation", this::reportObject);
        ofFederate.put("HLArequestFOMmoduleData", this::reportModule);
    }

    Map<String, Action> ofFederate() {
        return ofFederate;
    }

    Map<String, Action> ofFederation() {
        return Map.of(
                "HLArequestSynchronizationPoints", (federation, nobody, in) ->
                        reports.send("HLAreportSynchronizationPoints", report -> report.put("HLAsyncPoints", to ->
                                to.texts(List.copyOf(federation.synchronizationPoints().labels())))),
                "HLArequestSynchronizationPointStatus", this::reportPoint,
                "HLArequestFOMmoduleData", this::reportFederationModule,
                "HLArequestMIMdata", (federation, nobody, in) ->
                        reports.send("HLAreportMIMdata", report -> report.put("HLAMIMdata", to ->
                                to.text(federation.objectModel().mim().text()))));
    }

    /** One report for each class, or one that tells that there is none. */
    private void reportPublications(Federation federation, Federate who, Arguments in) {
        Map<Integer, Set<Integer>> published = who.status().publishedClasses();
        published.forEach((theClass, attributes) -> reports.send(who, "HLAreportObjectClassPublication", report ->
                report.put("HLAnumberOfClasses", to -> to.integer(published.size()))
                        .put("HLAobjectClass", to -> to.handle(theClass))
                        .put("HLAattributeList", to -> to.handles(attributes))));
        if (published.isEmpty()) {
            reportNone(who, "HLAreportObjectClassPublication");
        }
        reports.send(who, "HLAreportInteractionPublication", report ->
                report.put("HLAinteractionClassList", to -> to.handles(who.status().publishedInteractions())));
    }

    private void reportNone(Federate who, String name) {
        reports.send(who, name, report -> report.put("HLAnumberOfClasses", to -> to.integer(0)));
    }

    /** One report for each class and terms of subscription. */
    private void reportSubscriptions(Federation federation, Federate who, Arguments in) {
        List<FederateStatus.Subscription> subscriptions = who.status().subscriptions();
        for (FederateStatus.Subscription each : subscriptions) {
            reports.send(who, "HLAreportObjectClassSubscription", report ->
                    report.put("HLAnumberOfClasses", to -> to.integer(subscriptions.size()))
                            .put("HLAobjectClass", to -> to.handle(each.objectClass()))
                            .put("HLAactive", to -> to.flag(each.active()))
                            .put("HLAmaxUpdateRate", to -> to.text(each.updateRate()))
                            .put("HLAattributeList", to -> to.handles(each.attributes())));
        }
        if (subscriptions.isEmpty()) {
            reportNone(who, "HLAreportObjectClassSubscription");
        }
        reports.send(who, "HLAreportInteractionSubscription", report -> report.put("HLAinteractionClassList", to ->
                to.list(who.status().interactionSubscriptions().entrySet(), (list, each) ->
                        list.handle(each.getKey()).flag(each.getValue()))));
    }

    private static void write(ValueWriter to, Map<Integer, Integer> counts) {
        to.list(counts.entrySet(), (list, each) -> list.handle(each.getKey()).integer(each.getValue()));
    }

    private void reportObjects(Federate who, String name, Map<Integer, Integer> counts) {
        reports.send(who, name, report -> report.put("HLAobjectInstanceCounts", to -> write(to, counts)));
    }

    /** One report for each transportation type, also for one with which nothing has travelled. */
    private void counts(String request, String name, String parameter, Function<Oversight, Tally> tally) {
        ofFederate.put(request, (federation, who, in) -> {
            for (Transportation type : federation.objectModel().transportations()) {
                reports.send(who, name, report -> report.put("HLAtransportation", to -> to.text(type.hlaName()))
                        .put(parameter, to -> write(to, tally.apply(who.oversight()).byClass(type))));
            }
        });
    }

    private void reportObject(Federation federation, Federate who, Arguments in) throws RTIexception, ParameterFault {
        int object = in.handle("HLAobjectInstance");
        FederateStatus.Acquaintance known = who.status().acquaintance(object);
        reports.send(who, "HLAreportObjectInstanceInformation", report ->
                report.put("HLAobjectInstance", to -> to.handle(object))
                        .put("HLAownedInstanceAttributeList", to -> to.handles(known.owned()))
                        .put("HLAregisteredClass", to -> to.handle(known.registeredClass()))
                        .put("HLAknownClass", to -> to.handle(known.knownClass())));
    }

    private void reportModule(Federation federation, Federate who, Arguments in) throws ParameterFault {
        List<String> texts = who.oversight().modules.stream().map(Oversight.Module::text).toList();
        reports.send(who, "HLAreportFOMmoduleData", module(texts, in));
    }

    private void reportFederationModule(Federation federation, Federate nobody, Arguments in) throws ParameterFault {
        reports.send("HLAreportFOMmoduleData",
                module(federation.objectModel().modules().stream().map(FomModule::text).toList(), in));
    }

    /** The report of the module that is asked for. */
    private static Consumer<Parameters> module(List<String> texts, Arguments in) throws ParameterFault {
        int index = in.integer("HLAFOMmoduleIndicator");
        if (index < 0 || index >= texts.size()) {
            throw new ParameterFault("There is no FOM module " + index + "; give the index of one of the "
                    + texts.size() + " in HLAFOMmoduleDesignatorList, from 0 on");
        }
        return report -> report.put("HLAFOMmoduleIndicator", to -> to.integer(index))
                .put("HLAFOMmoduleData", to -> to.text(texts.get(index)));
    }

    /** A point that there is not has no federates. */
    private void reportPoint(Federation federation, Federate nobody, Arguments in) throws ParameterFault {
        String label = in.text("HLAsyncPointName");
        reports.send("HLAreportSynchronizationPointStatus", report ->
                report.put("HLAsyncPointName", to -> to.text(label)).put("HLAsyncPointFederates", to ->
                        to.list(federation.synchronizationPoints().achievements(label).entrySet(), (list, each) ->
                                list.handle(each.getKey()).integer(each.getValue() ? WAITING_AT_POINT
                                        : MOVING_TO_POINT))));
    }
}
