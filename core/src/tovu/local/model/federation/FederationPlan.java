package tovu.local.model.federation;

import java.util.List;
import tovu.local.fom.ModuleSource;

/**
 * What a federation execution is to be made of.
 *
 * @param name               its name
 * @param fomModules         its FOM modules
 * @param mim                its MIM, or null for the built-in one
 * @param timeImplementation the name of its logical time implementation; empty for the default
 */
public record FederationPlan(String name, List<ModuleSource> fomModules, ModuleSource mim, String timeImplementation) {
}
