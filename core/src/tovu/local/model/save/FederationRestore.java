package tovu.local.model.save;

import hla.rti1516e.exceptions.RestoreInProgress;
import hla.rti1516e.exceptions.RestoreNotInProgress;
import hla.rti1516e.exceptions.RestoreNotRequested;
import hla.rti1516e.exceptions.SaveInProgress;
import java.io.IOException;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.Iterator;
import java.util.List;
import java.util.Map;
import tovu.local.model.exchange.Exchange;
import tovu.local.model.exchange.Federate;
import tovu.local.model.port.Callback;
import tovu.local.model.port.FederateCallbacks;
import tovu.local.model.port.SaveStore;
import tovu.local.model.value.FederateRestoreStatus;
import tovu.local.model.value.RestoreFailureReason;
import tovu.local.model.value.RestoreStatus;

/** The restoring of a federation. The save is read on a thread of its own while others are served. */
public final class FederationRestore {
    private final Exchange federation;
    private final Restorable contents;
    private final SaveStore saves;
    private final FederationSave save;
    private final Map<Federate, Snapshot.Member> successors = new HashMap<>(); // empty while no restore is in progress
    private final Map<Federate, RestoreStatus> statuses = new HashMap<>();
    private Snapshot restored; // null while no restore is in progress
    private String label;
    private boolean reading; // what may become a restore
    private boolean failed;

    FederationRestore(Exchange federation, Restorable contents, SaveStore saves, FederationSave save) {
        this.federation = federation;
        this.contents = contents;
        this.saves = saves;
        this.save = save;
    }

    public boolean isInProgress() {
        return !statuses.isEmpty();
    }

    public void requireNotInProgress() throws RestoreInProgress {
        if (isInProgress()) {
            throw new RestoreInProgress("Federation '" + federation.name() + "' is being restored from '" + label
                    + "'; wait for the end of the restore");
        }
    }

    /** The label of the restore in progress; empty when there is none. */
    public String currentName() {
        return isInProgress() ? label : "";
    }

    /** The federates that a restore in progress waits for. */
    public List<Federate> awaited() {
        return federation.members().stream().filter(each -> statuses.get(each) == RestoreStatus.RESTORING).toList();
    }

    public void request(Federate requester, String theLabel) throws RestoreInProgress {
        if (reading) {
            throw new RestoreInProgress("A save of federation '" + federation.name()
                    + "' is just being read; wait for the outcome of that request");
        }
        reading = true;
        Foundation here = Foundation.of(federation.timeFamily(), federation.objectModel());
        var referents = Snapshot.referents(federation);
        SnapshotThread.run(federation, saves.isQuick(), () -> {
            try (SaveStore.Found found = saves.find(theLabel)) {
                if (found == null) {
                    throw new IOException("there is no such save");
                }
                return Snapshot.read(found, referents, here);
            }
        }, (snapshot, failure) -> {
            reading = false;
            if (federation.member(requester.handle()) == requester) {
                answer(requester, theLabel, snapshot, failure == null ? obstacle(snapshot) : SaveStore.reason(failure));
                federation.settle(requester);
            }
        });
    }

    /** Why the federation cannot become what it was then; null when it can. */
    private String obstacle(Snapshot snapshot) {
        return federation.isSavingOrRestoring() ? "it has begun to save meanwhile"
                : assignSuccessors(snapshot.members()) ? null : "it was saved with " + snapshot.members()
                        + ", and joined are " + Snapshot.members(federation) + "; as many of each type have to join";
    }

    private void answer(Federate requester, String theLabel, Snapshot snapshot, String obstacle) {
        if (obstacle != null) {
            Obstacle.tell(federation, "restored from '" + theLabel + "'", obstacle);
            requester.post(to -> to.requestFederationRestoreFailed(theLabel));
            return;
        }
        restored = snapshot;
        label = theLabel;
        failed = false;
        successors.keySet().forEach(federate -> {
            statuses.put(federate, RestoreStatus.RESTORING);
            federate.revokeLicences(0);
        });
        federation.management().savesChanged();
        requester.post(to -> to.requestFederationRestoreSucceeded(theLabel));
        federation.postToAll(FederateCallbacks::federationRestoreBegun);
        successors.forEach((federate, successor) -> {
            federate.post(to -> to.initiateFederateRestore(theLabel, successor.name(), successor.handle()));
        });
    }

    /** Finds for each member the saved federate that it is to become: one of its type, by preference itself. */
    private boolean assignSuccessors(List<Snapshot.Member> saved) {
        List<Federate> open = new ArrayList<>(federation.members());
        List<Snapshot.Member> left = new ArrayList<>(saved);
        for (boolean sameName : new boolean[] {true, false}) {
            for (Iterator<Federate> each = open.iterator(); each.hasNext();) {
                Federate federate = each.next();
                left.stream().filter(candidate -> candidate.type().equals(federate.type())
                        && (!sameName || candidate.name().equals(federate.name()))).findFirst().ifPresent(match -> {
                            successors.put(federate, match);
                            left.remove(match);
                        });
                if (successors.containsKey(federate)) {
                    each.remove();
                }
            }
        }
        boolean all = open.isEmpty() && left.isEmpty();
        if (!all) {
            successors.clear();
        }
        return all;
    }

    /** @param successfully whether the federate has restored its own state */
    public void complete(Federate federate, boolean successfully) throws RestoreNotRequested, SaveInProgress {
        save.requireNotInProgress();
        if (statuses.get(federate) != RestoreStatus.RESTORING) {
            throw new RestoreNotRequested(federate + " is not asked to restore, or has answered already");
        }
        statuses.put(federate, RestoreStatus.WAITING_FOR_FEDERATION_TO_RESTORE);
        failed |= !successfully;
        if (!statuses.containsValue(RestoreStatus.RESTORING)) {
            if (failed) {
                fail(RestoreFailureReason.FEDERATE_REPORTED_FAILURE);
            } else {
                replaceState();
                end(FederateCallbacks::federationRestored);
            }
        }
    }

    /** What is still on its way or due belongs to the state that ends here, and is dropped with it. */
    private void replaceState() {
        Map<Federate, Integer> handles = new HashMap<>();
        successors.forEach((federate, successor) -> handles.put(federate, successor.handle()));
        contents.restore(restored.state(), handles);
        save.forgetDue();
    }

    public void abort() throws RestoreNotInProgress {
        if (!isInProgress()) {
            throw new RestoreNotInProgress("Federation '" + federation.name() + "' is not being restored");
        }
        fail(RestoreFailureReason.ABORTED);
    }

    public void resigned(Federate federate) {
        if (statuses.remove(federate) != null) {
            fail(RestoreFailureReason.FEDERATE_RESIGNED);
        }
    }

    private void fail(RestoreFailureReason reason) {
        end(to -> to.federationNotRestored(reason));
    }

    private void end(Callback outcome) {
        statuses.clear();
        successors.clear();
        restored = null;
        federation.postToAll(outcome);
        federation.management().savesChanged();
        federation.time().evaluate();
    }

    public void queryStatus(Federate federate) throws SaveInProgress {
        save.requireNotInProgress();
        List<FederateRestoreStatus> answer = federation.members().stream()
                .map(each -> new FederateRestoreStatus(each.handle(),
                        successors.containsKey(each) ? successors.get(each).handle() : 0,
                        statuses.getOrDefault(each, RestoreStatus.NO_RESTORE_IN_PROGRESS)))
                .toList();
        federate.post(to -> to.federationRestoreStatusResponse(answer));
    }
}
