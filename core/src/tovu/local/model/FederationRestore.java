package tovu.local.model;

import hla.rti1516e.exceptions.RestoreInProgress;
import hla.rti1516e.exceptions.RestoreNotInProgress;
import hla.rti1516e.exceptions.RestoreNotRequested;
import hla.rti1516e.exceptions.SaveInProgress;
import java.io.IOException;
import java.util.ArrayList;
import java.util.Collection;
import java.util.HashMap;
import java.util.Iterator;
import java.util.List;
import java.util.Map;
import java.util.stream.Collectors;

/** The restoring of a federation. The save is read on a thread of its own while others are served. */
public final class FederationRestore {
    private final Federation federation;
    private final Map<Federate, Federate> successors = new HashMap<>(); // empty while no restore is in progress
    private final Map<Federate, RestoreStatus> statuses = new HashMap<>();
    private FederationState restored; // null while no restore is in progress
    private String label;
    private boolean reading; // what may become a restore
    private boolean failed;

    FederationRestore(Federation federation) {
        this.federation = federation;
    }

    boolean isInProgress() {
        return !statuses.isEmpty();
    }

    void requireNotInProgress() throws RestoreInProgress {
        if (isInProgress()) {
            throw new RestoreInProgress("Federation '" + federation.name() + "' is being restored from '" + label
                    + "'; wait for the end of the restore");
        }
    }

    public void request(Federate requester, String theLabel) throws RestoreInProgress {
        if (reading) {
            throw new RestoreInProgress("A save of federation '" + federation.name()
                    + "' is just being read; wait for the outcome of that request");
        }
        reading = true;
        Foundation foundation = federation.foundation();
        var referents = Snapshot.referents(federation);
        Snapshot.aside(federation, () -> {
            try (SaveStore.Found save = federation.saves().find(theLabel)) {
                if (save == null) {
                    throw new IOException("there is no such save");
                }
                return Snapshot.read(save, referents, foundation);
            }
        }, (found, failure) -> {
            reading = false;
            if (federation.isMember(requester)) {
                answer(requester, theLabel, found, failure);
                federation.settle(requester);
            }
        });
    }

    private void answer(Federate requester, String theLabel, FederationState found, Throwable failure) {
        String reason = failure != null ? SaveStore.reason(failure)
                : federation.isSavingOrRestoring() ? "it has begun to save meanwhile"
                : !assignSuccessors(found.members.values()) ? "it was saved with " + names(found.members.values())
                        + ", and joined are " + names(federation.members()) + "; as many of each type have to join"
                : null;
        if (reason == null) {
            restored = found;
            begin(requester, theLabel);
        } else {
            federation.say("cannot be restored from '" + theLabel + "': " + reason);
            requester.post(to -> to.requestFederationRestoreFailed(theLabel));
        }
    }

    private static String names(Collection<Federate> federates) {
        return federates.stream().map(each -> "'" + each.name() + "' of type '" + each.type() + "'")
                .collect(Collectors.joining(", "));
    }

    private void begin(Federate requester, String theLabel) {
        label = theLabel;
        failed = false;
        successors.keySet().forEach(federate -> statuses.put(federate, RestoreStatus.RESTORING));
        federation.management().savesChanged();
        requester.post(to -> to.requestFederationRestoreSucceeded(theLabel));
        federation.postToAll(FederateCallbacks::federationRestoreBegun);
        successors.forEach((federate, successor) -> {
            federate.post(to -> to.initiateFederateRestore(theLabel, successor.name(), successor.handle()));
        });
    }

    /** Finds for each member the saved federate that it is to become: one of its type, by preference itself. */
    private boolean assignSuccessors(Collection<Federate> saved) {
        List<Federate> open = new ArrayList<>(federation.members());
        List<Federate> left = new ArrayList<>(saved);
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
        federation.save().requireNotInProgress();
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
        federation.save().forgetDue();
        successors.forEach((federate, successor) -> {
            federate.dropCallbacks();
            successor.replace(federate);
        });
        federation.restore(restored);
        federation.management().restored();
    }

    public void abort() throws RestoreNotInProgress {
        if (!isInProgress()) {
            throw new RestoreNotInProgress("Federation '" + federation.name() + "' is not being restored");
        }
        fail(RestoreFailureReason.ABORTED);
    }

    void resigned(Federate federate) {
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
        federation.save().requireNotInProgress();
        List<FederateRestoreStatus> answer = federation.members().stream()
                .map(each -> new FederateRestoreStatus(each.handle(),
                        successors.containsKey(each) ? successors.get(each).handle() : 0,
                        statuses.getOrDefault(each, RestoreStatus.NO_RESTORE_IN_PROGRESS)))
                .toList();
        federate.post(to -> to.federationRestoreStatusResponse(answer));
    }
}
