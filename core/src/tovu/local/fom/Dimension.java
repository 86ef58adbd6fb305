package tovu.local.fom;

/**
 * A dimension of routing space.
 *
 * @param handle     its number
 * @param name       its name
 * @param upperBound values run from 0 up to, but not including, this one
 */
public record Dimension(int handle, String name, long upperBound) {
}
