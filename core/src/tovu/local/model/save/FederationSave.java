package tovu.local.model.save;

import hla.rti1516e.exceptions.FederateHasNotBegunSave;
import hla.rti1516e.exceptions.FederateUnableToUseTime;
import hla.rti1516e.exceptions.LogicalTimeAlreadyPassed;
import hla.rti1516e.exceptions.RTIexception;
import hla.rti1516e.exceptions.RestoreInProgress;
import hla.rti1516e.exceptions.SaveInProgress;
import hla.rti1516e.exceptions.SaveNotInProgress;
import hla.rti1516e.exceptions.SaveNotInitiated;
import java.io.IOException;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.HashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;
import tovu.local.model.exchange.Exchange;
import tovu.local.model.exchange.Federate;
import tovu.local.model.port.Callback;
import tovu.local.model.port.FederateCallbacks;
import tovu.local.model.port.SaveStore;
import tovu.local.model.time.SaveBarrier;
import tovu.local.model.time.TimedFederate;
import tovu.local.model.value.FederateSaveStatus;
import tovu.local.model.value.LogicalTime;
import tovu.local.model.value.SaveFailureReason;
import tovu.local.model.value.SaveStatus;
import tovu.local.model.value.TimeFamily;

/** The saving of a federation: at most one at a time. */
public final class FederationSave implements SaveBarrier {
    private final Exchange federation;
    private final FederationRestore restore;
    private final Map<Federate, SaveStatus> statuses = new HashMap<>(); // empty while no save is in progress
    private Set<Federate> instructed = Set.of(); // those that have been told to save
    private String label;
    private boolean failed;
    private final Set<TimedFederate> reached = new HashSet<>();
    private String dueLabel; // null unless a save waits for its time
    private long dueTime;
    private String lastLabel = "";
    private LogicalTime lastTime;
    private LogicalTime time; // of the save in progress; null when it was requested without one
    private final Restorable contents;
    private final SaveStore saves;
    private StateWriting writing; // null unless all federates have saved
    private final List<Runnable> afterwards = new ArrayList<>(); // what would change the state while it is written

    public FederationSave(Exchange federation, Restorable contents, SaveStore saves) {
        this.federation = federation;
        this.contents = contents;
        this.saves = saves;
        restore = new FederationRestore(federation, contents, saves, this);
    }

    /** The restoring of what was saved. */
    public FederationRestore restore() {
        return restore;
    }

    public boolean isInProgress() {
        return !statuses.isEmpty();
    }

    public void requireNotInProgress() throws SaveInProgress {
        if (isInProgress()) {
            throw new SaveInProgress("Federation '" + federation.name() + "' is being saved as '" + label
                    + "'; wait for the end of the save");
        }
    }

    /** Saves as soon as can be. */
    public void request(String theLabel) {
        begin(theLabel, null);
    }

    /**
     * Saves when every constrained federate has reached a time; a save that was requested before and has not begun is
     * forgotten.
     *
     * @param timeBits the bytes of the time
     */
    public void request(Federate requester, String theLabel, long timeBits) throws RTIexception {
        if (!requester.time().isRegulating() && !requester.time().isConstrained()) {
            throw new FederateUnableToUseTime(requester + " is neither time-regulating nor time-constrained;"
                    + " enable one of them, or request the save without a time");
        }
        TimeFamily family = federation.timeFamily();
        long saveTime = federation.time().time(requester, timeBits);
        for (Federate each : federation.members()) {
            if ((each == requester || each.time().isConstrained()) && saveTime < each.time().reached()) {
                throw new LogicalTimeAlreadyPassed("The save is requested for time " + family.text(saveTime) + " but "
                        + each + " has passed that already; request it for a later one");
            }
        }
        forgetDue();
        dueLabel = theLabel;
        dueTime = saveTime;
        federation.management().savesChanged();
        federation.time().evaluate();
        beginIfDue();
    }

    /** A save that waits for its time is not wanted any more. */
    void forgetDue() {
        dueLabel = null;
        reached.clear();
    }

    /** The label of the save in progress; empty when there is none. */
    public String currentName() {
        return isInProgress() ? label : "";
    }

    /** The federates that a save in progress waits for. */
    public List<Federate> awaited() {
        return federation.members().stream().filter(each -> statuses.containsKey(each)
                && statuses.get(each) != SaveStatus.WAITING_FOR_FEDERATION_TO_SAVE).toList();
    }

    /** The label of the last save that succeeded; empty before the first. */
    public String lastName() {
        return lastLabel;
    }

    /** When that was, or null when it had no time. */
    public LogicalTime lastTime() {
        return lastTime;
    }

    /** The label of the save that waits for its time; empty when none does. */
    public String nextName() {
        return dueLabel == null ? "" : dueLabel;
    }

    public LogicalTime nextTime() {
        return dueLabel == null ? null : new LogicalTime(federation.timeFamily(), dueTime);
    }

    @Override
    public boolean comesBefore(long time) {
        return dueLabel != null && time >= dueTime;
    }

    @Override
    public long limit(long time) {
        return dueLabel == null ? time : Math.min(time, dueTime);
    }

    @Override
    public void reached(TimedFederate federate) {
        reached.add(federate);
    }

    @Override
    public void beginIfDue() {
        if (dueLabel != null && federation.members().stream().allMatch(each -> !each.time().isConstrained()
                || reached.contains(each) || each.time().reached() >= dueTime)) {
            begin(dueLabel, new LogicalTime(federation.timeFamily(), dueTime));
        }
    }

    private void begin(String theLabel, LogicalTime theTime) {
        forgetDue();
        label = theLabel;
        time = theTime;
        failed = false;
        Set<Federate> told = new HashSet<>();
        instructed = told;
        for (Federate each : federation.members()) {
            statuses.put(each, SaveStatus.INSTRUCTED_TO_SAVE);
            each.revokeLicences(0);
        }
        federation.management().savesChanged();
        for (Federate each : federation.members()) {
            each.postForeseenChange(() -> told.add(each), to -> to.initiateFederateSave(theLabel, theTime));
        }
    }

    /** Who has been instructed has been told all that came before, so that a save leaves out no callback. */
    public void begun(Federate federate) throws SaveNotInitiated, RestoreInProgress {
        restore.requireNotInProgress();
        if (statuses.get(federate) != SaveStatus.INSTRUCTED_TO_SAVE || !instructed.contains(federate)) {
            throw new SaveNotInitiated(federate + " is not instructed to save yet, or has begun already");
        }
        statuses.put(federate, SaveStatus.SAVING);
    }

    /** @param successfully whether the federate has saved its own state */
    public void complete(Federate federate, boolean successfully) throws FederateHasNotBegunSave, RestoreInProgress {
        restore.requireNotInProgress();
        if (statuses.get(federate) != SaveStatus.SAVING) {
            throw new FederateHasNotBegunSave(federate + " has not begun a save; call federateSaveBegun first");
        }
        statuses.put(federate, SaveStatus.WAITING_FOR_FEDERATION_TO_SAVE);
        failed |= !successfully;
        if (statuses.values().stream().allMatch(status -> status == SaveStatus.WAITING_FOR_FEDERATION_TO_SAVE)) {
            if (failed) {
                fail(SaveFailureReason.FEDERATE_REPORTED_FAILURE);
            } else {
                write();
            }
        }
    }

    private void write() {
        StateWriting mine = new StateWriting();
        writing = mine;
        String theLabel = label;
        Snapshot snapshot = Snapshot.of(federation, contents.state());
        SnapshotThread.run(federation, saves.isQuick(), () -> mine.write(saves, theLabel, snapshot),
                (draft, failure) -> {
                    try (draft) {
                        if (!mine.isStopped()) {
                            conclude(draft, failure);
                        }
                    }
                });
    }

    private void conclude(SaveStore.Draft draft, Throwable failure) {
        Throwable obstacle = failure;
        try {
            if (obstacle == null) {
                draft.publish();
            }
        } catch (IOException e) {
            obstacle = e;
        }
        if (obstacle == null) {
            lastLabel = label;
            lastTime = time;
            end(FederateCallbacks::federationSaved);
        } else {
            Obstacle.tell(federation, "saved as '" + label + "'", SaveStore.reason(obstacle));
            fail(SaveFailureReason.RTI_UNABLE_TO_SAVE);
        }
        federation.settle(federation.infrastructure());
    }

    /** Before the state changes in spite of the save, which comes to nothing. */
    public void stopWriting() {
        if (writing != null) {
            writing.stop();
            writing = null;
        }
    }

    /** Does what is no service of a member once the state may change. */
    public void whenNotWriting(Runnable task) {
        if (writing == null) {
            task.run();
        } else {
            afterwards.add(task);
        }
    }

    public void abort() throws SaveNotInProgress {
        if (!isInProgress()) {
            throw new SaveNotInProgress("Federation '" + federation.name() + "' is not being saved");
        }
        fail(SaveFailureReason.ABORTED);
    }

    public void resigned(Federate federate) {
        reached.remove(federate);
        if (statuses.remove(federate) != null) {
            fail(SaveFailureReason.FEDERATE_RESIGNED);
        } else {
            beginIfDue();
        }
    }

    private void fail(SaveFailureReason reason) {
        end(to -> to.federationNotSaved(reason));
    }

    private void end(Callback outcome) {
        stopWriting();
        statuses.clear();
        instructed = Set.of();
        federation.postToAll(outcome);
        federation.management().savesChanged();
        federation.time().evaluate();
        List.copyOf(afterwards).forEach(Runnable::run);
        afterwards.clear();
    }

    public void queryStatus(Federate federate) throws RestoreInProgress {
        restore.requireNotInProgress();
        var answer = federation.members().stream().map(each -> new FederateSaveStatus(each.handle(),
                statuses.getOrDefault(each, SaveStatus.NO_SAVE_IN_PROGRESS))).toList();
        federate.post(to -> to.federationSaveStatusResponse(answer));
    }
}
