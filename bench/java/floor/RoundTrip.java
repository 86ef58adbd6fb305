package floor;

/** The crossing and nothing else: a method that does nothing but call a native that does nothing. */
public final class RoundTrip {
    private RoundTrip() {}

    private static native void callback(byte[] message);

    public static void service(byte[] message) {
        callback(message);
    }
}
