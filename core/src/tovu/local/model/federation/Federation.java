package tovu.local.model.federation;

import hla.rti1516e.exceptions.FederatesCurrentlyJoined;
import hla.rti1516e.exceptions.FederationExecutionDoesNotExist;
import hla.rti1516e.exceptions.RTIexception;
import hla.rti1516e.exceptions.RestoreInProgress;
import hla.rti1516e.exceptions.SaveInProgress;
import java.util.List;
import java.util.Map;
import java.util.function.Function;
import tovu.local.fom.FomModule;
import tovu.local.fom.FomReader;
import tovu.local.fom.ModuleSource;
import tovu.local.fom.ObjectModel;
import tovu.local.model.exchange.Exchange;
import tovu.local.model.exchange.Federate;
import tovu.local.model.exchange.Management;
import tovu.local.model.port.CallbackSink;
import tovu.local.model.port.SaveStore;
import tovu.local.model.save.FederationRestore;
import tovu.local.model.save.FederationSave;
import tovu.local.model.save.Restorable;
import tovu.local.model.synchronization.SynchronizationPoints;
import tovu.local.model.value.Condition;
import tovu.local.model.value.ResignAction;
import tovu.local.model.value.Saved;
import tovu.local.model.value.ServiceCall;
import tovu.local.model.value.TimeFamily;

/** A federation execution: how federates join and resign, and what of it a save keeps. */
public final class Federation extends Exchange {
    private final class Contents implements Restorable {
        @Override
        public Saved state() {
            return new FederationState(stateToSave(), synchronizationPoints);
        }

        @Override
        public void restore(Saved state, Map<Federate, Integer> successors) {
            FederationState restored = (FederationState) state;
            become(restored.exchange(), successors);
            synchronizationPoints = restored.synchronizationPoints();
            infrastructure().replaceSink(management.sink());
            management.restored();
        }
    }

    private final FederationSave save;
    private final FederationRestore restore;
    private final Management management;
    private SynchronizationPoints synchronizationPoints = new SynchronizationPoints(this);
    private boolean closed;

    Federation(String name, ObjectModel objectModel, TimeFamily timeFamily, SaveStore saves,
            Function<Federation, Management> makeManagement) {
        super(name, objectModel, timeFamily);
        save = new FederationSave(this, new Contents(), saves);
        restore = save.restore();
        management = makeManagement.apply(this);
        infrastructure().replaceSink(management.sink());
        management.created();
    }

    public SynchronizationPoints synchronizationPoints() {
        return synchronizationPoints;
    }

    @Override
    public FederationSave save() {
        return save;
    }

    public FederationRestore restore() {
        return restore;
    }

    @Override
    public Management management() {
        return management;
    }

    public void requireNoSaveOrRestore() throws SaveInProgress, RestoreInProgress {
        save.requireNotInProgress();
        restore.requireNotInProgress();
    }

    @Override
    protected int condition() {
        return (save.isInProgress() ? Condition.SAVING : 0) | (restore.isInProgress() ? Condition.RESTORING : 0);
    }

    @Override
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
                throw new FederationExecutionDoesNotExist("Federation execution '" + name() + "' was just destroyed");
            }
            requireNoSaveOrRestore();
            int before = objectModel().modules().size();
            Federate federate = admit(federateName, federateType, modules, member -> session.become(this, member),
                    sink);
            synchronizationPoints.joined(federate);
            management.joined(federate, objectModel().modules().size() > before);
            settle(federate);
            return federate;
        }
    }

    public void resign(Federate federate, ResignAction action) throws RTIexception {
        requireReleasable(federate, action);
        leave(federate, action);
    }

    /** Resigns a federate that is gone as its automatic resign directive says, and lets go of whatever that leaves. */
    void lose(Federate federate, String fault) {
        save.stopWriting();
        management.losing(federate, fault);
        leave(federate, federate.automaticResignDirective());
        settle(federate);
    }

    @Override
    public void settle(Federate actor) {
        time().settle();
        if (actor.time().takeChanged()) {
            management.conditionChanged(actor);
        }
        if (management.settle()) {
            time().settle();
        }
    }

    @Override
    public void served(Federate member, ServiceCall call) {
        save.whenNotWriting(() -> {
            management.served(member, call);
            settle(member);
        });
    }

    private void leave(Federate federate, ResignAction action) {
        save.stopWriting();
        release(federate, action);
        synchronizationPoints.resigned(federate);
        time().resigned(federate);
        save.resigned(federate);
        restore.resigned(federate);
        management.left(federate);
    }

    synchronized void close() throws FederatesCurrentlyJoined {
        if (!members().isEmpty()) {
            throw new FederatesCurrentlyJoined("Federation execution '" + name() + "' has joined federates: "
                    + String.join(", ", members().stream().map(Federate::name).toList())
                    + "; let them resign first");
        }
        closed = true;
    }
}
