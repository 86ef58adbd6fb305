package tovu.local.model.value;

/**
 * One row of the list of federation executions.
 *
 * @param name               the federation execution's name
 * @param timeImplementation the name of its logical time implementation
 */
public record FederationInformation(String name, String timeImplementation) {
}
