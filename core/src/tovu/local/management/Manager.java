package tovu.local.management;

import hla.rti1516e.exceptions.FederateInternalError;
import hla.rti1516e.exceptions.RTIexception;
import java.lang.reflect.Proxy;
import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.Queue;
import java.util.TreeMap;
import java.util.concurrent.Future;
import java.util.function.Predicate;
import tovu.local.fom.Attribute;
import tovu.local.fom.InteractionClass;
import tovu.local.fom.ObjectClass;
import tovu.local.fom.ObjectModel;
import tovu.local.model.exchange.Federate;
import tovu.local.model.exchange.Management;
import tovu.local.model.exchange.RegionManagement;
import tovu.local.model.federation.Federation;
import tovu.local.model.port.Callback;
import tovu.local.model.port.CallbackSink;
import tovu.local.model.port.FederateCallbacks;
import tovu.local.model.time.Clock;
import tovu.local.model.value.HandleValues;
import tovu.local.model.value.ServiceCall;
import tovu.local.model.value.Supplement;
import tovu.local.model.value.Timing;

/**
 * The management object model of one federation. It is the ambassador of the federation's own federate: what that is
 * told waits until the end of the service that caused it and is then heeded, under the same lock.
 */
public final class Manager implements Management, CallbackSink {
    private static final String FEDERATION = "HLAmanager.HLAfederation";
    private static final String FEDERATE = "HLAmanager.HLAfederate";
    private static final byte[] NO_TAG = {};

    private final Federation federation;
    private final Reports reports;
    private final Queue<Callback> callbacks = new ArrayDeque<>();
    private final Map<Integer, Action> actions = new HashMap<>(); // by interaction class
    private final Map<Integer, Federate> subjects = new HashMap<>(); // by the object that stands for each
    private final Map<String, byte[]> told = new HashMap<>(); // of the federation's attributes
    private final Map<Federate, Future<?>> periodic = new HashMap<>();
    private final FederateCallbacks ear = (FederateCallbacks) Proxy.newProxyInstance(Manager.class.getClassLoader(),
            new Class<?>[] {FederateCallbacks.class}, (proxy, method, arguments) -> {
                hear(method.getName(), arguments);
                return null;
            });
    private boolean settling;
    private String fault; // of the federate that is being lost, or null

    public Manager(Federation federation) {
        this.federation = federation;
        reports = new Reports(federation);
    }

    @Override
    public CallbackSink sink() {
        return this;
    }

    @Override
    public void post(Callback callback) {
        callbacks.add(callback);
    }

    @Override
    public void postToConnection(Callback callback) {
        post(callback);
    }

    @Override
    public void dropMembership() {
        callbacks.clear();
    }

    // The federation's federate comes to be, and goes by what federates do.

    @Override
    public void created() {
        actions(FEDERATE + ".HLAadjust.", new Adjustments(this).ofFederate());
        actions(FEDERATE + ".HLArequest.", new Requests(reports).ofFederate());
        actions(FEDERATE + ".HLAservice.", FederateServices.all());
        actions(FEDERATION + ".HLAadjust.", new Adjustments(this).ofFederation());
        actions(FEDERATION + ".HLArequest.", new Requests(reports).ofFederation());
        act(self -> {
            for (int heard : actions.keySet()) {
                federation.declarations().subscribeInteractionClass(self, heard, true);
            }
            for (String each : List.of(FEDERATE, FEDERATION)) {
                for (InteractionClass report : model().interactionClass(each + ".HLAreport").subtree()) {
                    federation.declarations().publishInteractionClass(self, report.handle());
                }
            }
            publish(self, FEDERATE, FederateAttributes.ALL);
            publish(self, FEDERATION, FederationAttributes.ALL);
            self.oversight().object = federation.objectManagement()
                    .register(self, model().objectClass(FEDERATION).handle(), "HLAfederation");
        });
        savesChanged();
    }

    private void actions(String prefix, Map<String, Action> rows) {
        rows.forEach((name, action) -> actions.put(model().interactionClass(prefix + name).handle(), action));
    }

    private void publish(Federate self, String className, List<? extends ManagementAttribute<?>> rows)
            throws RTIexception {
        ObjectClass theClass = model().objectClass(className);
        federation.declarations().publishObjectClass(self, theClass.handle(),
                rows.stream().mapToInt(row -> theClass.member(row.name()).handle()).toArray());
    }

    @Override
    public void joined(Federate federate, boolean extendsObjectModel) {
        Journal.add(Journal.Kind.JOINED, federation.name(), federate.name(), "");
        ObjectClass theClass = model().objectClass(FEDERATE);
        int[] placed = theClass.members().stream()
                .filter(each -> each.dimensions().stream().anyMatch(its -> its.name().equals(Reports.FEDERATE)))
                .mapToInt(Attribute::handle).toArray();
        String name = "HLAfederate-" + federate.handle();
        act(self -> federate.oversight().object = placed.length == 0
                ? federation.objectManagement().register(self, theClass.handle(), name)
                : federation.regions().register(self, theClass.handle(), List.of(new RegionManagement.Pair(placed,
                        new int[] {reports.region(federate, Reports.NO_SERVICE)})), name));
        federate.oversight().toldCondition = federate.condition();
        subjects.put(federate.oversight().object, federate);
        federationChanged(FederationAttributes.FEDERATES);
        if (extendsObjectModel) {
            federationChanged(FederationAttributes.MODULES, FederationAttributes.FDD);
        }
    }

    @Override
    public void losing(Federate federate, String theFault) {
        fault = theFault;
        reports.send(federate, "HLAreportFederateLost", report ->
                report.put("HLAfederateName", to -> to.text(federate.name()))
                        .put("HLAtimestamp", to -> to.time(federate.status().logicalTime()))
                        .put("HLAfaultDescription", to -> to.text(theFault)));
    }

    @Override
    public void left(Federate federate) {
        Journal.add(fault == null ? Journal.Kind.RESIGNED : Journal.Kind.LOST, federation.name(), federate.name(),
                fault == null ? "" : fault);
        fault = null;
        setReportPeriod(federate, 0);
        subjects.remove(federate.oversight().object);
        act(self -> {
            federation.objectManagement().delete(self, federate.oversight().object, NO_TAG, Timing.NONE);
            reports.end(federate);
        });
        federationChanged(FederationAttributes.FEDERATES);
    }

    // What is told without being asked for.

    @Override
    public void discovered(Federate federate, int object) {
        post(ignored -> provide(object, federation.objects().wanted(federate, object), federate));
    }

    @Override
    public void conditionChanged(Federate federate) {
        if (federation.member(federate.handle()) == federate) {
            int changed = federate.condition() ^ federate.oversight().toldCondition;
            federate.oversight().toldCondition = federate.condition();
            update(federate, row -> (row.condition() & changed) != 0);
        }
    }

    @Override
    public void savesChanged() {
        federationChanged(FederationAttributes.SAVES);
        federationChanged(FederationAttributes.FEDERATES, FederationAttributes.AUTO_PROVIDE); // a restore may differ
        federation.members().forEach(this::conditionChanged);
    }

    /** Updates those attributes of the federation that are not what they were. */
    void federationChanged(String... names) {
        List<String> changed = new ArrayList<>();
        for (ManagementAttribute<Federation> row : FederationAttributes.ALL) {
            if (List.of(names).contains(row.name())) {
                byte[] value = row.value(federation);
                if (!Arrays.equals(value, told.put(row.name(), value))) {
                    changed.add(row.name());
                }
            }
        }
        int object = federation.infrastructure().oversight().object;
        if (!changed.isEmpty() && federation.objects().isShared(object)) {
            update(object, FEDERATION, FederationAttributes.ALL, federation, row -> changed.contains(row.name()), null);
        }
    }

    void setReportPeriod(Federate federate, int seconds) {
        federate.oversight().reportPeriod = seconds;
        Future<?> running = periodic.remove(federate);
        if (running != null) {
            running.cancel(false);
        }
        if (seconds > 0) {
            periodic.put(federate, Clock.every(seconds, () -> {
                synchronized (federation) {
                    if (periodic.containsKey(federate) && !federation.isSavingOrRestoring()) {
                        update(federate, ManagementAttribute::periodic);
                    }
                }
            }));
        }
    }

    @Override
    public void restored() {
        callbacks.clear();
        List.copyOf(periodic.keySet()).forEach(each -> setReportPeriod(each, 0));
        subjects.clear();
        for (Federate each : federation.members()) {
            subjects.put(each.oversight().object, each);
            setReportPeriod(each, each.oversight().reportPeriod);
        }
    }

    private void update(Federate federate, Predicate<ManagementAttribute<Federate>> wanted) {
        int object = federate.oversight().object;
        if (federation.objects().isShared(object)) {
            update(object, FEDERATE, FederateAttributes.ALL, federate, wanted, null);
        }
    }

    /** @param only the one federate that is told; null for all who want to be */
    private <S> void update(int object, String className, List<ManagementAttribute<S>> rows, S subject,
            Predicate<ManagementAttribute<S>> wanted, Federate only) {
        ObjectClass theClass = model().objectClass(className);
        Map<Integer, byte[]> values = new TreeMap<>();
        for (ManagementAttribute<S> row : rows) {
            if (wanted.test(row)) {
                values.put(theClass.member(row.name()).handle(), row.value(subject));
            }
        }
        act(self -> federation.objectManagement()
                .update(self, object, HandleValues.of(values), NO_TAG, Timing.NONE, only));
    }

    /** Updates those attributes of one of the objects. */
    private void provide(int object, int[] attributes, Federate only) {
        List<String> names = Arrays.stream(attributes).mapToObj(each -> model().attribute(each).name()).toList();
        Federate federate = subjects.get(object);
        if (federate != null) {
            update(object, FEDERATE, FederateAttributes.ALL, federate, row -> names.contains(row.name()), only);
        } else if (object == federation.infrastructure().oversight().object) {
            update(object, FEDERATION, FederationAttributes.ALL, federation, row -> names.contains(row.name()), only);
        }
    }

    // What is asked for.

    @Override
    public boolean settle() {
        if (settling || callbacks.isEmpty() || federation.isSavingOrRestoring()) {
            return false;
        }
        settling = true;
        try {
            for (Callback next = callbacks.poll(); next != null; next = callbacks.poll()) {
                next.deliver(ear);
            }
        } catch (FederateInternalError e) {
            throw new IllegalStateException("The infrastructure does not hear: " + e.getMessage(), e);
        } finally {
            settling = false;
        }
        return true;
    }

    /** Of all that a federate is told these two need an answer. */
    private void hear(String callback, Object[] arguments) {
        switch (callback) {
            case "provideAttributeValueUpdate" -> provide((int) arguments[0], (int[]) arguments[1], null);
            case "receiveInteraction" -> receive(model().interactionClass((int) arguments[0]),
                    (HandleValues) arguments[1], federation.member(((Supplement) arguments[6]).producer()));
            default -> { }
        }
    }

    private void receive(InteractionClass theClass, HandleValues values, Federate sender) {
        try {
            Arguments in = new Arguments(theClass, values);
            Federate who = theClass.member(Reports.FEDERATE) == null ? null : named(in.handle(Reports.FEDERATE));
            actions.get(theClass.handle()).serve(federation, who, in);
            if (who != null) {
                conditionChanged(who);
            }
        } catch (ParameterFault e) {
            refuse(theClass, sender, e.getMessage(), true);
        } catch (RTIexception | IllegalStateException e) {
            refuse(theClass, sender, e.getClass().getSimpleName() + ": " + e.getMessage(), false);
        }
    }

    private Federate named(int handle) throws ParameterFault {
        Federate federate = federation.member(handle);
        if (federate == null) {
            throw new ParameterFault("No federate with handle " + handle + " is joined; give the handle of one in"
                    + " HLAfederatesInFederation");
        }
        return federate;
    }

    private void refuse(InteractionClass theClass, Federate sender, String why, boolean parameterError) {
        if (sender != null) {
            reports.send(sender, "HLAreportMOMexception", report ->
                    report.put("HLAservice", to -> to.text(theClass.name())).put("HLAexception", to -> to.text(why))
                            .put("HLAparameterError", to -> to.flag(parameterError)));
        }
    }

    @Override
    public void served(Federate federate, ServiceCall call) {
        if (federate.oversight().reportsServices) {
            int serial = federate.oversight().lastSerialNumber++;
            reports.send(federate, call.group(), "HLAreportServiceInvocation", report ->
                    report.put("HLAservice", to -> to.text(call.name()))
                            .put("HLAsuccessIndicator", to -> to.flag(call.failure().isEmpty()))
                            .put("HLAsuppliedArguments", to -> to.texts(call.arguments()))
                            .put("HLAreturnedArguments", to -> to.texts(call.results()))
                            .put("HLAexception", to -> to.text(call.failure()))
                            .put("HLAserialNumber", to -> to.integer(serial)));
        }
        if (federate.oversight().reportsExceptions && !call.failure().isEmpty()) {
            reports.send(federate, "HLAreportException", report ->
                    report.put("HLAservice", to -> to.text(call.name()))
                            .put("HLAexception", to -> to.text(call.failure())));
        }
        if (federation.member(federate.handle()) != federate) { // the call was its last
            act(self -> reports.end(federate));
        }
    }

    private ObjectModel model() {
        return federation.objectModel();
    }

    /** What the infrastructure itself does. */
    private interface Deed {
        void by(Federate self) throws RTIexception;
    }

    /** None of it can fail as long as the object model has what the MIM defines. */
    private void act(Deed deed) {
        try {
            deed.by(federation.infrastructure());
        } catch (RTIexception e) {
            throw new IllegalStateException("The infrastructure fails: " + e.getMessage(), e);
        }
    }
}
