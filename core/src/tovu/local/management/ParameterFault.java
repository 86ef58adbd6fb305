package tovu.local.management;

/** A management interaction whose parameters are not as they have to be; the message tells what to do about it. */
@SuppressWarnings("serial") // read by what wrote it
final class ParameterFault extends Exception {
    ParameterFault(String message) {
        super(message);
    }
}
