package tovu.local.management;

import java.util.List;
import java.util.function.BiConsumer;
import java.util.function.Function;
import tovu.local.model.exchange.Federate;
import tovu.local.model.exchange.Oversight;
import tovu.local.model.exchange.Tally;
import tovu.local.model.value.Condition;

/** The attributes of HLAmanager.HLAfederate. */
final class FederateAttributes {
    private static final int ACTIVE = 1;
    private static final int SAVING = 3;
    private static final int RESTORING = 5;

    static final List<ManagementAttribute<Federate>> ALL = List.of(
            ManagementAttribute.of("HLAfederateHandle", (to, of) -> to.handle(of.handle())),
            ManagementAttribute.of("HLAfederateName", (to, of) -> to.text(of.name())),
            ManagementAttribute.of("HLAfederateType", (to, of) -> to.text(of.type())),
            ManagementAttribute.of("HLAfederateHost", (to, of) -> to.text(Product.HOST)),
            ManagementAttribute.of("HLARTIversion", (to, of) -> to.text(Product.VERSION)),
            ManagementAttribute.of("HLAFOMmoduleDesignatorList", (to, of) ->
                    to.list(of.oversight().modules, (list, each) -> list.text(each.designator()))),
            conditional("HLAtimeConstrained", Condition.CONSTRAINED),
            conditional("HLAtimeRegulating", Condition.REGULATING),
            conditional("HLAasynchronousDelivery", Condition.ASYNCHRONOUS),
            new ManagementAttribute<>("HLAfederateState", false, Condition.SAVING | Condition.RESTORING,
                    (to, of) -> to.integer(state(of.condition()))),
            conditional("HLAtimeManagerState", Condition.ADVANCING),
            periodic("HLAlogicalTime", (to, of) -> to.time(of.status().logicalTime())),
            periodic("HLAlookahead", (to, of) -> to.time(of.status().lookahead())),
            periodic("HLAGALT", (to, of) -> to.time(of.status().galt())),
            periodic("HLALITS", (to, of) -> to.time(of.status().lits())),
            periodic("HLAROlength", (to, of) -> to.integer(of.status().receiveOrderQueued())),
            periodic("HLATSOlength", (to, of) -> to.integer(of.status().timestampOrderQueued())),
            count("HLAreflectionsReceived", of -> of.reflectionsReceived),
            count("HLAupdatesSent", of -> of.updatesSent),
            count("HLAinteractionsReceived", of -> of.interactionsReceived),
            count("HLAinteractionsSent", of -> of.interactionsSent),
            periodic("HLAobjectInstancesThatCanBeDeleted", (to, of) ->
                    to.integer(of.status().deletable().values().stream().mapToInt(Integer::intValue).sum())),
            count("HLAobjectInstancesUpdated", of -> of.objectsUpdated),
            count("HLAobjectInstancesReflected", of -> of.objectsReflected),
            count("HLAobjectInstancesDeleted", of -> of.objectsDeleted),
            count("HLAobjectInstancesRemoved", of -> of.objectsRemoved),
            count("HLAobjectInstancesRegistered", of -> of.objectsRegistered),
            count("HLAobjectInstancesDiscovered", of -> of.objectsDiscovered),
            periodic("HLAtimeGrantedTime", (to, of) -> to.integer(of.status().takeMilliseconds(false))),
            periodic("HLAtimeAdvancingTime", (to, of) -> to.integer(of.status().takeMilliseconds(true))),
            conditional("HLAconveyRegionDesignatorSets", Condition.CONVEYS_REGIONS),
            conditional("HLAconveyProducingFederate", Condition.CONVEYS_PRODUCER));

    private FederateAttributes() {
    }

    private static ManagementAttribute<Federate> conditional(String name, int condition) {
        return new ManagementAttribute<>(name, false, condition, (to, of) ->
                to.flag((of.condition() & condition) != 0));
    }

    private static ManagementAttribute<Federate> periodic(String name, BiConsumer<ValueWriter, Federate> writing) {
        return new ManagementAttribute<>(name, true, 0, writing);
    }

    private static ManagementAttribute<Federate> count(String name, Function<Oversight, Tally> what) {
        return periodic(name, (to, of) -> to.integer(what.apply(of.oversight()).total()));
    }

    private static int state(int condition) {
        return (condition & Condition.SAVING) != 0 ? SAVING
                : (condition & Condition.RESTORING) != 0 ? RESTORING : ACTIVE;
    }
}
