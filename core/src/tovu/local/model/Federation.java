package tovu.local.model;

import hla.rti1516e.exceptions.FederateHandleNotKnown;
import hla.rti1516e.exceptions.FederateNameAlreadyInUse;
import hla.rti1516e.exceptions.FederateOwnsAttributes;
import hla.rti1516e.exceptions.FederatesCurrentlyJoined;
import hla.rti1516e.exceptions.FederationExecutionDoesNotExist;
import hla.rti1516e.exceptions.InvalidFederateHandle;
import hla.rti1516e.exceptions.NameNotFound;
import hla.rti1516e.exceptions.OwnershipAcquisitionPending;
import hla.rti1516e.exceptions.RTIexception;
import hla.rti1516e.exceptions.RestoreInProgress;
import hla.rti1516e.exceptions.SaveInProgress;
import java.util.Collection;
import java.util.List;
import java.util.Set;
import java.util.function.Function;
import tovu.local.fom.FomModule;
import tovu.local.fom.FomReader;
import tovu.local.fom.InteractionClass;
import tovu.local.fom.ModuleSource;
import tovu.local.fom.ObjectModel;
import tovu.local.fom.Switches;

/**
 * A federation execution. Its monitor is the one lock that guards everything in it: the session takes it before any
 * service is served, and what the model tells a federate it only leaves in that federate's queue, so that no federate's
 * code ever runs under it.
 */
public final class Federation {
    private static final String SERVICE_REPORT = "HLAmanager.HLAfederate.HLAreport.HLAreportServiceInvocation";

    private final String name;
    private final TimeFamily timeFamily;
    private final ObjectModel objectModel;
    private final Switches switches;
    private final FederationSave save = new FederationSave(this);
    private final FederationRestore restore = new FederationRestore(this);
    private final ObjectManagement objectManagement = new ObjectManagement(this);
    private final InteractionManagement interactions = new InteractionManagement(this);
    private final DeliveryChanges deliveryChanges = new DeliveryChanges(this);
    private final OwnershipManagement ownership = new OwnershipManagement(this);
    private final Visibility visibility = new Visibility(this);
    private final Relevance relevance = new Relevance(this);
    private final AdvisorySwitches advisorySwitches = new AdvisorySwitches(this);
    private final SupportLookups lookups;
    private final Lookup lookup;
    private final int privilegeToDelete;
    private final InteractionClass serviceReport;
    private final Management management;
    private FederationState state;
    private long lastSequence;
    private int lastFederate;
    private boolean closed;

    Federation(String name, ObjectModel objectModel, TimeFamily timeFamily,
            Function<Federation, Management> makeManagement) {
        this.name = name;
        this.objectModel = objectModel;
        this.timeFamily = timeFamily;
        switches = objectModel.switches();
        privilegeToDelete = objectModel.privilegeToDelete().handle();
        serviceReport = objectModel.interactionClass(SERVICE_REPORT);
        lookup = new Lookup(objectModel);
        lookups = new SupportLookups(this);
        management = makeManagement.apply(this);
        state = new FederationState(this, management.sink());
        management.created();
    }

    public String name() {
        return name;
    }

    public TimeFamily timeFamily() {
        return timeFamily;
    }

    public ObjectModel objectModel() {
        return objectModel;
    }

    public SynchronizationPoints synchronizationPoints() {
        return state.synchronizationPoints;
    }

    public FederationSave save() {
        return save;
    }

    public FederationRestore restore() {
        return restore;
    }

    public DeclarationManagement declarations() {
        return state.declarations;
    }

    public ObjectNames names() {
        return state.names;
    }

    public ObjectRegistry objects() {
        return state.objects;
    }

    public ObjectManagement objectManagement() {
        return objectManagement;
    }

    public InteractionManagement interactions() {
        return interactions;
    }

    public DeliveryChanges deliveryChanges() {
        return deliveryChanges;
    }

    public OwnershipManagement ownership() {
        return ownership;
    }

    public RegionManagement regions() {
        return state.regions;
    }

    public TimeManagement time() {
        return state.time;
    }

    public AdvisorySwitches advisorySwitches() {
        return advisorySwitches;
    }

    public SupportLookups lookups() {
        return lookups;
    }

    UpdateRates updateRates() {
        return state.updateRates;
    }

    public Retractions retractions() {
        return state.retractions;
    }

    /** The federate that is the federation itself, and no member. */
    public Federate infrastructure() {
        return state.infrastructure;
    }

    public Management management() {
        return management;
    }

    public boolean autoProvide() {
        return state.autoProvide;
    }

    public void setAutoProvide(boolean on) {
        state.autoProvide = on;
    }

    Visibility visibility() {
        return visibility;
    }

    Relevance relevance() {
        return relevance;
    }

    Lookup lookup() {
        return lookup;
    }

    /** The class of the reports on federates' services. */
    InteractionClass serviceReport() {
        return serviceReport;
    }

    int privilegeToDelete() {
        return privilegeToDelete;
    }

    /** A number greater than every one before. */
    long nextSequence() {
        return ++lastSequence;
    }

    public Switches switches() {
        return switches;
    }

    public Collection<Federate> members() {
        return state.members.values();
    }

    /** The member with that handle, or null. */
    public Federate member(int handle) {
        return state.members.get(handle);
    }

    boolean isMember(Federate federate) {
        return state.members.get(federate.handle()) == federate || federate == state.infrastructure;
    }

    /** The member of that name, or null. */
    private Federate member(String federateName) {
        for (Federate each : state.members.values()) {
            if (each.name().equals(federateName)) {
                return each;
            }
        }
        return null;
    }

    /** Whether a federate ever had that handle. */
    public boolean hasAssigned(int handle) {
        return handle >= 1 && handle <= lastFederate;
    }

    public int federateHandle(String federateName) throws NameNotFound {
        Federate federate = member(federateName);
        if (federate == null) {
            throw new NameNotFound("No federate named '" + federateName + "' is joined to federation '" + name + "'");
        }
        return federate.handle();
    }

    public String federateName(int handle) throws InvalidFederateHandle, FederateHandleNotKnown {
        if (!hasAssigned(handle)) {
            throw new InvalidFederateHandle("Handle " + handle + " was never given to a federate of federation '"
                    + name + "'");
        }
        Federate federate = member(handle);
        if (federate == null) {
            throw new FederateHandleNotKnown("The federate with handle " + handle + " has resigned from federation '"
                    + name + "'");
        }
        return federate.name();
    }

    public void requireNoSaveOrRestore() throws SaveInProgress, RestoreInProgress {
        save.requireNotInProgress();
        restore.requireNotInProgress();
    }

    int condition() {
        return (save.isInProgress() ? Condition.SAVING : 0) | (restore.isInProgress() ? Condition.RESTORING : 0);
    }

    public boolean isSavingOrRestoring() {
        return save.isInProgress() || restore.isInProgress();
    }

    Federate join(Session session, CallbackSink sink, String federateName, String federateType,
            List<ModuleSource> fomModules) throws RTIexception {
        synchronized (this) {
            requireNoSaveOrRestore();
        }
        List<FomModule> modules = FomReader.ofModules().readAll(fomModules);
        synchronized (this) {
            if (closed) {
                throw new FederationExecutionDoesNotExist("Federation execution '" + name + "' was just destroyed");
            }
            requireNoSaveOrRestore();
            if (federateName != null && member(federateName) != null) {
                throw new FederateNameAlreadyInUse("A federate named '" + federateName
                        + "' is joined to federation '" + name + "' already; choose another name");
            }
            int before = objectModel.modules().size();
            objectModel.extend(modules);
            boolean extended = objectModel.modules().size() > before;
            if (extended) {
                members().forEach(each -> each.revokeLicences(0)); // what was left open may be stated now
            }
            int handle = ++lastFederate;
            String chosen = federateName == null ? unusedName(federateType, handle) : federateName;
            Federate federate = new Federate(this, handle, chosen, federateType, modules, session, sink);
            state.members.put(handle, federate);
            session.become(federate);
            state.synchronizationPoints.joined(federate);
            management.joined(federate, extended);
            settle(federate);
            return federate;
        }
    }

    private String unusedName(String type, int handle) {
        String chosen = type + "-" + handle;
        while (member(chosen) != null) {
            chosen += "'";
        }
        return chosen;
    }

    public void resign(Federate federate, ResignAction action) throws RTIexception {
        if (!action.divests()) {
            for (ObjectInstance object : federate.knownObjects) {
                boolean ends = action.deletes() && object.attribute(privilegeToDelete).owner() == federate;
                if (!object.deleted && !ends && object.isOwnedIn(federate)) {
                    throw new FederateOwnsAttributes(federate + " owns attributes of " + object
                            + "; divest or delete it, or resign with an action that does");
                }
            }
        }
        if (!action.cancels()) {
            for (ObjectInstance object : federate.knownObjects) {
                if (!object.deleted && ownership.isAcquiring(federate, object)) {
                    throw new OwnershipAcquisitionPending(federate + " wants to own attributes of " + object
                            + "; cancel the acquisition, or resign with an action that does");
                }
            }
        }
        leave(federate, action);
    }

    /** Resigns a federate that is gone as its automatic resign directive says, and lets go of whatever that leaves. */
    void lose(Federate federate, String fault) {
        management.losing(federate, fault);
        leave(federate, federate.automaticResignDirective());
        settle(federate);
    }

    /** The end of a service, or of a change that came about with a callback. */
    public void settle(Federate actor) {
        time().settle();
        if (actor.time.takeChanged()) {
            management.conditionChanged(actor);
        }
        if (management.settle()) {
            time().settle();
        }
    }

    /** Whether the federate subscribes to the reports on federates' services. */
    public boolean hearsServiceReports(Federate federate) {
        return federate.subscriptions.interest(serviceReport) != null;
    }

    private void leave(Federate federate, ResignAction action) {
        federate.inbox.clear();
        ownership.cancelAllAcquisitions(federate);
        if (action.deletes()) {
            objectManagement.deleteAll(federate);
        }
        for (ObjectInstance object : List.copyOf(federate.knownObjects)) {
            ownership.release(object, object.attributes(each -> each.owner() == federate));
        }
        state.declarations.resigned(federate);
        for (ObjectInstance object : List.copyOf(federate.knownObjects)) {
            state.objects.forget(object.knowledgeOf(federate));
        }
        state.members.remove(federate.handle());
        federate.dropCallbacks();
        federate.leaveSession();
        state.names.resigned(federate);
        state.regions.resigned(federate);
        state.synchronizationPoints.resigned(federate);
        state.time.resigned(federate);
        save.resigned(federate);
        restore.resigned(federate);
        management.left(federate);
    }

    synchronized void close() throws FederatesCurrentlyJoined {
        if (!state.members.isEmpty()) {
            throw new FederatesCurrentlyJoined("Federation execution '" + name + "' has joined federates: "
                    + String.join(", ", state.members.values().stream().map(Federate::name).toList())
                    + "; let them resign first");
        }
        closed = true;
    }

    Snapshot snapshot() {
        return new Snapshot(this, state);
    }

    /** Becomes what it was once. */
    void restore(FederationState restored) {
        state = restored;
        state.infrastructure.replaceSink(management.sink());
        state.updateRates.resume();
    }

    void postToAll(Callback callback) {
        state.members.values().forEach(each -> each.post(callback));
    }
}
