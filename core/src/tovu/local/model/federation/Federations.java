package tovu.local.model.federation;

import hla.rti1516e.exceptions.DesignatorIsHLAstandardMIM;
import hla.rti1516e.exceptions.FederationExecutionAlreadyExists;
import hla.rti1516e.exceptions.FederationExecutionDoesNotExist;
import hla.rti1516e.exceptions.RTIexception;
import hla.rti1516e.exceptions.RTIinternalError;
import java.util.Collection;
import java.util.List;
import java.util.Map;
import java.util.concurrent.ConcurrentSkipListMap;
import java.util.function.Function;
import java.util.stream.Stream;
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
    private final Placement placement;

    /**
     * @param management makes the management of a federation
     * @param placement  whom the name of a federation belongs to
     */
    public Federations(Function<Federation, Management> management, Placement placement) {
        this.management = management;
        this.placement = placement;
    }

    void create(FederationPlan plan) throws RTIexception {
        if (byName.containsKey(plan.name())) {
            throw alreadyExists(plan.name());
        }
        Function<SaveStore, Federation> federation = prepare(plan);
        synchronized (this) { // what is claimed is here when anybody looks
            put(federation.apply(placement.claim(plan)));
        }
    }

    /** Has a federation here that is claimed already. */
    public synchronized void host(FederationPlan plan, SaveStore saves) throws RTIexception {
        put(prepare(plan).apply(saves));
    }

    public synchronized boolean hosts(String name) {
        return byName.containsKey(name);
    }

    public int count() {
        return byName.size();
    }

    /** Forgets all federations. Who is joined is still to be told. */
    public synchronized void clear() {
        byName.clear();
    }

    private void put(Federation federation) throws FederationExecutionAlreadyExists {
        if (byName.putIfAbsent(federation.name(), federation) != null) {
            throw alreadyExists(federation.name());
        }
    }

    /** All that may be wrong with a plan shows here. */
    private Function<SaveStore, Federation> prepare(FederationPlan plan) throws RTIexception {
        if (plan.mim() != null && STANDARD_MIM.equals(plan.mim().designator())) {
            throw new DesignatorIsHLAstandardMIM("'" + STANDARD_MIM
                    + "' designates the built-in MIM; name another one, or create the federation without a MIM");
        }
        FomModule mim = plan.mim() == null ? FomReader.standardMim() : FomReader.ofMim().readMim(plan.mim());
        List<FomModule> modules = FomReader.ofModules().readAll(plan.fomModules());
        ObjectModel objectModel = ObjectModel.of(mim, modules);
        TimeFamily timeFamily = TimeFamily.named(plan.timeImplementation());
        return saves -> new Federation(plan.name(), objectModel, timeFamily, saves, management);
    }

    /** What to throw when a name is taken. */
    public static FederationExecutionAlreadyExists alreadyExists(String name) {
        return new FederationExecutionAlreadyExists("Federation execution '" + name
                + "' exists already; join it, or choose another name");
    }

    void destroy(String name) throws RTIexception {
        Federation federation = find(name);
        synchronized (this) {
            federation.close();
            byName.remove(name, federation);
            placement.release(name);
        }
    }

    Federation find(String name) throws RTIexception {
        Federation federation = byName.get(name);
        if (federation == null && placement.seek(name)) {
            return claimed(name);
        }
        if (federation == null) {
            throw new FederationExecutionDoesNotExist("There is no federation execution '" + name
                    + "' in this process; create it first");
        }
        return federation;
    }

    /** It is here when whoever claims it or takes it over is done; that may fail. */
    private synchronized Federation claimed(String name) throws RTIinternalError {
        Federation federation = byName.get(name);
        if (federation == null) {
            throw new RTIinternalError("Federation execution '" + name
                    + "' is about to be at this hub: try again in a few seconds");
        }
        return federation;
    }

    public Collection<Federation> all() {
        return byName.values();
    }

    List<FederationInformation> list() throws RTIexception {
        return Stream.concat(placement.others().stream(), byName.values().stream()
                .map(each -> new FederationInformation(each.name(), each.timeFamily().implementationName()))).toList();
    }
}
