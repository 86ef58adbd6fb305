package tovu.local.model;

import hla.rti1516e.exceptions.FederateHasNotBegunSave;
import hla.rti1516e.exceptions.RestoreInProgress;
import hla.rti1516e.exceptions.SaveInProgress;
import hla.rti1516e.exceptions.SaveNotInProgress;
import hla.rti1516e.exceptions.SaveNotInitiated;
import java.util.HashMap;
import java.util.Map;

/** The saving of a federation: at most one at a time. */
public final class FederationSave {
    private final Federation federation;
    private final Map<Federate, SaveStatus> statuses = new HashMap<>(); // empty while no save is in progress
    private String label;
    private boolean failed;

    FederationSave(Federation federation) {
        this.federation = federation;
    }

    boolean isInProgress() {
        return !statuses.isEmpty();
    }

    void requireNotInProgress() throws SaveInProgress {
        if (isInProgress()) {
            throw new SaveInProgress("Federation '" + federation.name() + "' is being saved as '" + label
                    + "'; wait for the end of the save");
        }
    }

    /** Saves as soon as can be. */
    public void request(String theLabel) {
        begin(theLabel, null);
    }

    private void begin(String theLabel, LogicalTime time) {
        label = theLabel;
        failed = false;
        for (Federate each : federation.members()) {
            statuses.put(each, SaveStatus.INSTRUCTED_TO_SAVE);
            each.post(to -> to.initiateFederateSave(theLabel, time));
        }
    }

    public void begun(Federate federate) throws SaveNotInitiated, RestoreInProgress {
        federation.restore().requireNotInProgress();
        if (statuses.get(federate) != SaveStatus.INSTRUCTED_TO_SAVE) {
            throw new SaveNotInitiated(federate + " is not instructed to save, or has begun already");
        }
        statuses.put(federate, SaveStatus.SAVING);
    }

    /** @param successfully whether the federate has saved its own state */
    public void complete(Federate federate, boolean successfully) throws FederateHasNotBegunSave, RestoreInProgress {
        federation.restore().requireNotInProgress();
        if (statuses.get(federate) != SaveStatus.SAVING) {
            throw new FederateHasNotBegunSave(federate + " has not begun a save; call federateSaveBegun first");
        }
        statuses.put(federate, SaveStatus.WAITING_FOR_FEDERATION_TO_SAVE);
        failed |= !successfully;
        if (statuses.values().stream().allMatch(status -> status == SaveStatus.WAITING_FOR_FEDERATION_TO_SAVE)) {
            if (failed) {
                fail(SaveFailureReason.FEDERATE_REPORTED_FAILURE);
            } else {
                federation.restore().keep(label);
                end(FederateCallbacks::federationSaved);
            }
        }
    }

    public void abort() throws SaveNotInProgress {
        if (!isInProgress()) {
            throw new SaveNotInProgress("Federation '" + federation.name() + "' is not being saved");
        }
        fail(SaveFailureReason.ABORTED);
    }

    void resigned(Federate federate) {
        if (statuses.remove(federate) != null) {
            fail(SaveFailureReason.FEDERATE_RESIGNED);
        }
    }

    private void fail(SaveFailureReason reason) {
        end(to -> to.federationNotSaved(reason));
    }

    private void end(Callback outcome) {
        statuses.clear();
        federation.postToAll(outcome);
    }

    public void queryStatus(Federate federate) throws RestoreInProgress {
        federation.restore().requireNotInProgress();
        var answer = federation.members().stream().map(each -> new FederateSaveStatus(each.handle(),
                statuses.getOrDefault(each, SaveStatus.NO_SAVE_IN_PROGRESS))).toList();
        federate.post(to -> to.federationSaveStatusResponse(answer));
    }
}
