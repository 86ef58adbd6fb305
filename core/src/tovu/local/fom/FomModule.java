package tovu.local.fom;

/**
 * One FOM module as it was read: where it came from and its XML.
 *
 * @param designator the designator that the federate gave
 * @param root       the {@code objectModel} element
 */
public record FomModule(String designator, FomElement root) {
    String at(FomElement element) {
        return "FOM module '" + designator + "', line " + element.line + ": ";
    }
}
