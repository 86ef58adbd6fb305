package tovu.local.fom;

/**
 * Where a FOM module or MIM comes from. One that a federate elsewhere has read comes with its text, or with why there is
 * none.
 *
 * @param designator the designator that the federate gave
 * @param text       what it designates; null when that is still to be read, or could not be
 * @param failure    why it could not be read, or null
 */
public record ModuleSource(String designator, byte[] text, String failure) {
    /** A file of this machine, to be read when it is needed. */
    public static ModuleSource file(String designator) {
        return new ModuleSource(designator, null, null);
    }

    public static ModuleSource received(String designator, byte[] text) {
        return new ModuleSource(designator, text, null);
    }

    public static ModuleSource unreadable(String designator, String failure) {
        return new ModuleSource(designator, null, failure);
    }
}
