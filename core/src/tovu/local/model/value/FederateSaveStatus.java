package tovu.local.model.value;

/**
 * Where one federate stands in a save.
 *
 * @param federate the federate's handle
 * @param status   its status
 */
public record FederateSaveStatus(int federate, SaveStatus status) {
}
