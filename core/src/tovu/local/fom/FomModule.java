package tovu.local.fom;

/**
 * One FOM module, or the MIM, as it was read.
 *
 * @param isMim      whether it is the MIM
 * @param designator the designator that the federate gave
 * @param text       the file's text
 * @param root       the {@code objectModel} element
 */
public record FomModule(boolean isMim, String designator, String text, FomElement root) {
    String at(FomElement element) {
        return this + ", line " + element.line;
    }

    @Override
    public String toString() {
        return (isMim ? "MIM '" : "FOM module '") + designator + "'";
    }
}
