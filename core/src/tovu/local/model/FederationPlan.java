package tovu.local.model;

import java.util.List;

/**
 * What a federation execution is to be made of.
 *
 * @param name               its name
 * @param fomModules         the designators of its FOM modules
 * @param mim                the designator of its MIM, or null for the built-in one
 * @param timeImplementation the name of its logical time implementation; empty for the default
 */
public record FederationPlan(String name, List<String> fomModules, String mim, String timeImplementation) {
}
