package tovu.local.model.exchange;

import hla.rti1516e.exceptions.FederateHandleNotKnown;
import hla.rti1516e.exceptions.FederateNameAlreadyInUse;
import hla.rti1516e.exceptions.FederateOwnsAttributes;
import hla.rti1516e.exceptions.InvalidFederateHandle;
import hla.rti1516e.exceptions.NameNotFound;
import hla.rti1516e.exceptions.OwnershipAcquisitionPending;
import hla.rti1516e.exceptions.RTIexception;
import java.util.Collection;
import java.util.List;
import java.util.Map;
import java.util.function.Consumer;
import tovu.local.fom.FomModule;
import tovu.local.fom.InteractionClass;
import tovu.local.fom.ObjectModel;
import tovu.local.fom.Switches;
import tovu.local.model.port.Callback;
import tovu.local.model.port.CallbackSink;
import tovu.local.model.time.TimeManagement;
import tovu.local.model.time.TimedFederation;
import tovu.local.model.value.ResignAction;
import tovu.local.model.value.ServiceCall;
import tovu.local.model.value.TimeFamily;

/**
 * A federation as its chapters see it: its members, its object model, and each other. How members come and go, and what
 * a save or a restore is, concerns the federation execution, which this is the lower part of. Its monitor is the one
 * lock that guards everything in it: the session takes it before any service is served, and what the model tells a
 * federate it only leaves in that federate's queue, so that no federate's code ever runs under it.
 */
public abstract class Exchange implements TimedFederation {
    private static final String SERVICE_REPORT = "HLAmanager.HLAfederate.HLAreport.HLAreportServiceInvocation";

    private final String name;
    private final TimeFamily timeFamily;
    private final ObjectModel objectModel;
    private final Switches switches;
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
    private ExchangeState state;
    private long lastSequence;
    private int lastFederate;

    protected Exchange(String name, ObjectModel objectModel, TimeFamily timeFamily) {
        this.name = name;
        this.objectModel = objectModel;
        this.timeFamily = timeFamily;
        switches = objectModel.switches();
        privilegeToDelete = objectModel.privilegeToDelete().handle();
        serviceReport = objectModel.interactionClass(SERVICE_REPORT);
        lookup = new Lookup(objectModel);
        lookups = new SupportLookups(this);
        state = new ExchangeState(this);
    }

    /** Who tells federates about federates. */
    public abstract Management management();

    /** The end of a service, or of a change that came about with a callback. */
    public abstract void settle(Federate actor);

    /** A member that is reported on has called a service, or was called back. */
    public abstract void served(Federate member, ServiceCall call);

    /** What is told of every member at each change, as bits of {@code Condition}. */
    protected abstract int condition();

    public String name() {
        return name;
    }

    @Override
    public TimeFamily timeFamily() {
        return timeFamily;
    }

    public ObjectModel objectModel() {
        return objectModel;
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

    @Override
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

    /** Whether the federate subscribes to the reports on federates' services. */
    public boolean hearsServiceReports(Federate federate) {
        return federate.subscriptions.interest(serviceReport) != null;
    }

    public void postToAll(Callback callback) {
        members().forEach(each -> each.post(callback));
    }

    /**
     * Takes in a federate, and what it brings along to the object model.
     *
     * @param federateName null for a name of the federation's choice
     * @param ambassador   is told as which federate it is joined, from now on, and at the end null
     */
    protected Federate admit(String federateName, String federateType, List<FomModule> modules,
            Consumer<Federate> ambassador, CallbackSink sink) throws RTIexception {
        if (federateName != null && member(federateName) != null) {
            throw new FederateNameAlreadyInUse("A federate named '" + federateName
                    + "' is joined to federation '" + name + "' already; choose another name");
        }
        int before = objectModel.modules().size();
        objectModel.extend(modules);
        if (objectModel.modules().size() > before) {
            members().forEach(each -> each.revokeLicences(0)); // what was left open may be stated now
        }
        int handle = ++lastFederate;
        String chosen = federateName == null ? unusedName(federateType, handle) : federateName;
        Federate federate = new Federate(this, handle, chosen, federateType, modules, ambassador, sink);
        state.members.put(handle, federate);
        federate.enter();
        return federate;
    }

    private String unusedName(String type, int handle) {
        String chosen = type + "-" + handle;
        while (member(chosen) != null) {
            chosen += "'";
        }
        return chosen;
    }

    /** Fails if the federate has what that action does not let go of. */
    protected void requireReleasable(Federate federate, ResignAction action) throws RTIexception {
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
    }

    /** The federate is a member no longer, and nothing is left of what it exchanged. */
    protected void release(Federate federate, ResignAction action) {
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
        federate.leave();
        state.names.resigned(federate);
        state.regions.resigned(federate);
    }

    /** What it is now, and what no state that follows may give out again. */
    protected ExchangeState stateToSave() {
        state.assigned = new ExchangeState.Assigned(lastFederate, lastSequence, RuntimeHandles.last());
        return state;
    }

    /**
     * Becomes what it was once, maybe in another process.
     *
     * @param successors by each member the handle of the one that it was then
     */
    protected void become(ExchangeState restored, Map<Federate, Integer> successors) {
        successors.forEach((federate, handle) -> {
            federate.dropCallbacks();
            restored.members.get(handle).replace(federate);
        });
        state = restored;
        lastFederate = Math.max(lastFederate, state.assigned.federate());
        lastSequence = Math.max(lastSequence, state.assigned.sequence());
        RuntimeHandles.passOver(state.assigned.runtimeHandle());
        state.updateRates.resume();
    }
}
