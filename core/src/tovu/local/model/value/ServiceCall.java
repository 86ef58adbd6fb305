package tovu.local.model.value;

import java.util.List;

/**
 * A service that a federate has called, or a callback to it, in words.
 *
 * @param name      the service's name
 * @param group     the number of its service group
 * @param arguments what it was given
 * @param results   what it gave back
 * @param failure   the exception that it ended in, or an empty text
 */
public record ServiceCall(String name, int group, List<String> arguments, List<String> results, String failure) {
}
