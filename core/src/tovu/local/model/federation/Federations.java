package tovu.local.model.federation;

import hla.rti1516e.exceptions.DesignatorIsHLAstandardMIM;
import hla.rti1516e.exceptions.FederationExecutionAlreadyExists;
import hla.rti1516e.exceptions.FederationExecutionDoesNotExist;
import hla.rti1516e.exceptions.RTIexception;
import java.util.Collection;
import java.util.List;
import java.util.Map;
import java.util.concurrent.ConcurrentSkipListMap;
import java.util.function.Function;
import tovu.local.fom.FomModule;
import tovu.local.fom.FomReader;
import tovu.local.fom.ObjectModel;
import tovu.local.model.exchange.Management;
import tovu.local.model.port.SaveStore;
import tovu.local.model.value.FederationInformation;
import tovu.local.model.value.TimeFamily;

/** The federation executions of a process. */
public final class Federations {
    private static final String STANDARD_MIM = "HLAstandardMIM";
    private final Map<String, Federation> byName = new ConcurrentSkipListMap<>();
    private final Function<Federation, Management> management;
    private final Function<String, SaveStore> saves;

    /**
     * @param management makes the management of a federation
     * @param saves      tells where the saves of a federation of that name are
     */
    public Federations(Function<Federation, Management> management, Function<String, SaveStore> saves) {
        this.management = management;
        this.saves = saves;
    }

    void create(FederationPlan plan) throws RTIexception {
        if (byName.containsKey(plan.name())) {
            throw alreadyExists(plan);
        }
        if (plan.mim() != null && STANDARD_MIM.equals(plan.mim().designator())) {
            throw new DesignatorIsHLAstandardMIM("'" + STANDARD_MIM
                    + "' designates the built-in MIM; name another one, or create the federation without a MIM");
        }
        FomModule mim = plan.mim() == null ? FomReader.standardMim() : FomReader.ofMim().readMim(plan.mim());
        List<FomModule> modules = FomReader.ofModules().readAll(plan.fomModules());
        ObjectModel objectModel = ObjectModel.of(mim, modules);
        TimeFamily timeFamily = TimeFamily.named(plan.timeImplementation());
        Federation federation = new Federation(plan.name(), objectModel, timeFamily, saves.apply(plan.name()),
                management);
        if (byName.putIfAbsent(plan.name(), federation) != null) {
            throw alreadyExists(plan);
        }
    }

    private static FederationExecutionAlreadyExists alreadyExists(FederationPlan plan) {
        return new FederationExecutionAlreadyExists("Federation execution '" + plan.name()
                + "' exists already; join it, or choose another name");
    }

    void destroy(String name) throws RTIexception {
        Federation federation = find(name);
        federation.close();
        byName.remove(name, federation);
    }

    Federation find(String name) throws FederationExecutionDoesNotExist {
        Federation federation = byName.get(name);
        if (federation == null) {
            throw new FederationExecutionDoesNotExist("There is no federation execution '" + name
                    + "' in this process; create it first");
        }
        return federation;
    }

    public Collection<Federation> all() {
        return byName.values();
    }

    List<FederationInformation> list() {
        return byName.values().stream()
                .map(each -> new FederationInformation(each.name(), each.timeFamily().implementationName())).toList();
    }
}
