package tovu.local.fom;

import java.util.Set;

/**
 * An object class attribute; subclasses inherit it under the same handle.
 *
 * @param handle         its number, unique in the object model
 * @param name           its name
 * @param transportation how updates travel unless an instance changes it
 * @param order          how updates are ordered unless an instance changes it
 * @param dimensions     the dimensions that regions may have for it
 */
public record Attribute(int handle, String name, Transportation transportation, OrderType order,
        Set<Dimension> dimensions) {
}
