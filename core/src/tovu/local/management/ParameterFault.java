package tovu.local.management;

/** A management interaction whose parameters are not as they have to be; the message tells what to do about it. */
@SuppressWarnings("serial") // kept in memory only
final class ParameterFault extends Exception {
    ParameterFault(String message) {
        super(message);
    }
}
