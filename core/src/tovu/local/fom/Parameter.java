package tovu.local.fom;

/**
 * A parameter of an interaction class; subclasses inherit it under the same handle.
 *
 * @param handle its number, unique in the object model
 * @param name   its name
 */
public record Parameter(int handle, String name) {
}
