package tovu.local.model.save;

import java.nio.charset.StandardCharsets;
import java.security.MessageDigest;
import java.security.NoSuchAlgorithmException;
import java.util.HexFormat;
import java.util.List;
import java.util.stream.Stream;
import tovu.local.fom.FomModule;
import tovu.local.fom.ObjectModel;
import tovu.local.model.value.Saved;
import tovu.local.model.value.TimeFamily;

/**
 * What the times and handles of a state stand on: it fits a federation whose times are the same, and whose object model
 * was made of the same modules in the same order. Modules that came later have changed no handle.
 *
 * @param timeImplementation its name
 * @param modules            the MIM and the FOM modules
 */
record Foundation(String timeImplementation, List<Module> modules) implements Saved {
    /**
     * A module.
     *
     * @param designator by which a federate named it
     * @param digest     of its text
     */
    record Module(String designator, String digest) implements Saved {
        private static Module of(FomModule module) {
            try {
                return new Module(module.designator(), HexFormat.of().formatHex(MessageDigest.getInstance("SHA-256")
                        .digest(module.text().getBytes(StandardCharsets.UTF_8))));
            } catch (NoSuchAlgorithmException e) {
                throw new IllegalStateException(e); // every Java has it
            }
        }
    }

    static Foundation of(TimeFamily times, ObjectModel objectModel) {
        return new Foundation(times.implementationName(),
                Stream.concat(Stream.of(objectModel.mim()), objectModel.modules().stream()).map(Module::of).toList());
    }

    /** Why what stands on this cannot be put on another one; null when it can. */
    String obstacle(Foundation other) {
        if (!timeImplementation.equals(other.timeImplementation)) {
            return "it has times of " + timeImplementation + ", and this federation of " + other.timeImplementation
                    + "; create it with the former";
        }
        for (int i = 0; i < modules.size(); ++i) {
            String needed = "it needs the module '" + modules.get(i).designator + "'";
            if (i == other.modules.size()) {
                return needed + ", which nobody has brought yet; let those join who do";
            }
            if (!modules.get(i).digest.equals(other.modules.get(i).digest)) {
                return needed + " where this federation has '" + other.modules.get(i).designator
                        + "'; create and join it with the very modules that it was saved with, in the same order";
            }
        }
        return null;
    }
}
