package tovu.local.management;

import hla.rti1516e.exceptions.RTIexception;
import java.util.Map;
import java.util.TreeMap;
import java.util.function.Consumer;
import tovu.local.fom.Dimension;
import tovu.local.fom.InteractionClass;
import tovu.local.model.exchange.Federate;
import tovu.local.model.federation.Federation;
import tovu.local.model.value.HandleValues;
import tovu.local.model.value.Timing;

/** Sends reports, to those who subscribe to them. */
final class Reports {
    /** In place of a service group, for what is no report on a service. */
    static final int NO_SERVICE = 7;

    /** The dimension of a federate's handle, and the parameter that holds it. */
    static final String FEDERATE = "HLAfederate";

    private static final byte[] NO_TAG = {};

    /** The parameters of one report. */
    static final class Parameters {
        private final InteractionClass report;
        private final Map<Integer, byte[]> values = new TreeMap<>();

        Parameters(InteractionClass report) {
            this.report = report;
        }

        Parameters put(String name, Consumer<ValueWriter> writing) {
            values.put(report.member(name).handle(), ValueWriter.valueOf(writing));
            return this;
        }
    }

    private final Federation federation;

    Reports(Federation federation) {
        this.federation = federation;
    }

    /** Reports on the federation. */
    void send(String name, Consumer<Parameters> filling) {
        InteractionClass report =
                federation.objectModel().interactionClass("HLAmanager.HLAfederation.HLAreport." + name);
        send(report, filling, new int[0]);
    }

    void send(Federate about, String name, Consumer<Parameters> filling) {
        send(about, NO_SERVICE, name, filling);
    }

    void send(Federate about, int serviceGroup, String name, Consumer<Parameters> filling) {
        InteractionClass report = federation.objectModel().interactionClass("HLAmanager.HLAfederate.HLAreport." + name);
        if (federation.declarations().isSubscribed(report)) {
            boolean placed = report.dimensions().stream().anyMatch(each -> each.name().equals(FEDERATE));
            send(report, parameters -> filling.accept(parameters.put(FEDERATE, to -> to.handle(about.handle()))),
                    placed ? new int[] {region(about, serviceGroup)} : new int[0]);
        }
    }

    private void send(InteractionClass report, Consumer<Parameters> filling, int[] regions) {
        if (!federation.declarations().isSubscribed(report)) {
            return;
        }
        Parameters parameters = new Parameters(report);
        filling.accept(parameters);
        HandleValues values = HandleValues.of(parameters.values);
        Federate sender = federation.infrastructure();
        try {
            if (regions.length == 0) {
                federation.interactions().send(sender, report.handle(), values, NO_TAG, Timing.NONE);
            } else {
                federation.regions().send(sender, report.handle(), values, regions, NO_TAG, Timing.NONE);
            }
        } catch (RTIexception e) {
            throw new IllegalStateException("The infrastructure cannot report: " + e.getMessage(), e);
        }
    }

    /** The region of all that is about a federate, or about its services of one group. */
    int region(Federate about, int serviceGroup) {
        int[] known = about.oversight().regions;
        if (known[serviceGroup] == 0) {
            try {
                known[serviceGroup] = newRegion(about, serviceGroup);
            } catch (RTIexception e) {
                throw new IllegalStateException("The infrastructure cannot make a region: " + e.getMessage(), e);
            }
        }
        return known[serviceGroup];
    }

    private int newRegion(Federate about, int serviceGroup) throws RTIexception {
        Federate creator = federation.infrastructure();
        Dimension federate = federation.objectModel().dimension(FEDERATE);
        Dimension group = serviceGroup == NO_SERVICE ? null : federation.objectModel().dimension("HLAserviceGroup");
        int region = federation.regions().create(creator, group == null ? new int[] {federate.handle()}
                : new int[] {federate.handle(), group.handle()});
        federation.regions().setBounds(creator, region, federate.handle(), about.handle(), about.handle() + 1L);
        if (group != null) {
            federation.regions().setBounds(creator, region, group.handle(), serviceGroup, serviceGroup + 1L);
        }
        federation.regions().commit(creator, new int[] {region});
        return region;
    }

    /** Nothing more is to be reported on a federate. */
    void end(Federate about) throws RTIexception {
        int[] regions = about.oversight().regions;
        for (int i = 0; i < regions.length; ++i) {
            if (regions[i] != 0) {
                federation.regions().delete(federation.infrastructure(), regions[i]);
                regions[i] = 0;
            }
        }
    }
}
