package tovu.local.management;

import hla.rti1516e.exceptions.RTIexception;
import java.util.Map;
import tovu.local.model.exchange.Federate;
import tovu.local.model.exchange.Oversight;
import tovu.local.model.federation.Federation;

/** HLAadjust: changes to how management serves a federate or the federation. */
final class Adjustments {
    private static final int OWNED = 1;

    private final Manager manager;

    Adjustments(Manager manager) {
        this.manager = manager;
    }

    Map<String, Action> ofFederate() {
        return Map.of("HLAsetTiming", this::setTiming,
                "HLAmodifyAttributeState", Adjustments::modifyAttributeState,
                "HLAsetSwitches", Adjustments::setSwitches,
                "HLAsetServiceReporting", Adjustments::setServiceReporting,
                "HLAsetExceptionReporting", (federation, who, in) ->
                        who.oversight().reportsExceptions = in.flag("HLAreportingState"));
    }

    Map<String, Action> ofFederation() {
        return Map.of("HLAsetSwitches", (federation, nobody, in) -> {
            federation.setAutoProvide(in.flag("HLAautoProvide"));
            manager.federationChanged(FederationAttributes.AUTO_PROVIDE);
        });
    }

    private void setTiming(Federation federation, Federate who, Arguments in) throws ParameterFault {
        int seconds = in.integer("HLAreportPeriod");
        if (seconds < 0) {
            throw new ParameterFault("The report period is " + seconds + " seconds; give 0 for none, or more");
        }
        manager.setReportPeriod(who, seconds);
    }

    private static void modifyAttributeState(Federation federation, Federate who, Arguments in)
            throws RTIexception, ParameterFault {
        int state = in.integer("HLAattributeState");
        if (state < 0 || state > OWNED) {
            throw new ParameterFault("The attribute state is " + state + "; give 0 for unowned or 1 for owned");
        }
        federation.ownership().assign(who, in.handle("HLAobjectInstance"), in.handle("HLAattribute"), state == OWNED);
    }

    /** Either switch may be left out. */
    private static void setSwitches(Federation federation, Federate who, Arguments in) throws ParameterFault {
        Oversight oversight = who.oversight();
        boolean regions = in.flagOr("HLAconveyRegionDesignatorSets", oversight.conveysRegions);
        boolean producer = in.flagOr("HLAconveyProducingFederate", oversight.conveysProducer);
        oversight.conveysRegions = regions;
        oversight.conveysProducer = producer;
    }

    private static void setServiceReporting(Federation federation, Federate who, Arguments in) throws ParameterFault {
        boolean on = in.flag("HLAreportingState");
        if (on && federation.hearsServiceReports(who)) {
            throw new ParameterFault(who + " subscribes to HLAreportServiceInvocation, so that its services cannot be"
                    + " reported too; let it unsubscribe first");
        }
        who.oversight().reportsServices = on;
        who.revokeLicences(0);
    }
}
