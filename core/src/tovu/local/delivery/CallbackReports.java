package tovu.local.delivery;

import java.util.List;
import tovu.local.model.exchange.Federate;
import tovu.local.model.federation.Session;
import tovu.local.model.value.ServiceCall;
import tovu.local.trace.CallbackTrace;

/** Has management report the callbacks to federates whose services are reported. */
final class CallbackReports implements CallbackTrace.Listener {
    @Override
    public void returned(Federate federate, String callback, List<String> arguments, String failure) {
        Session.report(federate, new ServiceCall(callback, group(callback), arguments, List.of(), failure));
    }

    /** The number of the service group that a callback belongs to. */
    private static int group(String callback) {
        return switch (callback) {
            case "startRegistrationForObjectClass", "stopRegistrationForObjectClass", "turnInteractionsOn",
                    "turnInteractionsOff" -> 1;
            case "requestAttributeOwnershipAssumption", "requestDivestitureConfirmation",
                    "attributeOwnershipAcquisitionNotification", "attributeOwnershipUnavailable",
                    "requestAttributeOwnershipRelease", "confirmAttributeOwnershipAcquisitionCancellation",
                    "informAttributeOwnership", "attributeIsNotOwned", "attributeIsOwnedByRTI" -> 3;
            case "timeRegulationEnabled", "timeConstrainedEnabled", "timeAdvanceGrant", "requestRetraction" -> 4;
            default -> callback.contains("federat") || callback.contains("Federat") || callback.contains("Synchron")
                    || callback.contains("synchron") || callback.equals("connectionLost") ? 0 : 2;
        };
    }
}
