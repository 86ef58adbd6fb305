import java.io.ByteArrayOutputStream;
import java.io.PrintStream;
import java.nio.ByteBuffer;
import java.nio.charset.StandardCharsets;
import morva.tovu1516e.RTIambassadorC2007;

/** What an author reads who has the trace on: names for handles, results, failures, and who does it. */
final class TraceTest {
    private static final ByteArrayOutputStream PRINTED = new ByteArrayOutputStream();

    public static void main(String[] arguments) {
        System.setProperty("tovu.local.trace", "true"); // before any class of the core looks
        System.setErr(new PrintStream(PRINTED, true, StandardCharsets.UTF_8));
        Harness.run(TraceTest::federate);
    }

    /** A service message with those fields; a text comes with its length, bytes as they are. */
    private static byte[] message(Object... fields) {
        ByteBuffer buffer = ByteBuffer.allocate(1000);
        for (Object field : fields) {
            if (field instanceof String text) {
                buffer.putInt(text.length()).put(text.getBytes(StandardCharsets.UTF_16BE));
            } else if (field instanceof Long number) {
                buffer.putLong(number);
            } else if (field instanceof Integer number) {
                buffer.putInt(number);
            } else {
                buffer.put((byte[]) field);
            }
        }
        byte[] message = new byte[buffer.flip().remaining()];
        buffer.get(message);
        return message;
    }

    /** The lines printed since the last call. */
    private static void printed(String... lines) {
        String all = PRINTED.toString(StandardCharsets.UTF_8).strip();
        PRINTED.reset();
        Harness.equal(all, String.join("\n", lines));
    }

    private static void federate() throws Exception {
        RTIambassadorC2007 rti = new RTIambassadorC2007(new byte[4]);
        rti.connect_FA_CM_S(message(7, 1, ""));
        PRINTED.reset();
        rti.createFederationExecution_S_URLX_S(message("sky", 1, Harness.AIR, "HLAinteger64Time"));
        printed("[not joined] -> createFederationExecution(\"sky\", [" + Harness.AIR + "], \"HLAinteger64Time\")");
        rti.joinFederationExecution_S_S_S_URLX(message("radar", "t", "sky", 0));
        PRINTED.reset();

        int vehicle = rti.getObjectClassHandle_S(message("Vehicle"));
        printed("[radar] -> getObjectClassHandle(\"Vehicle\")", "[radar]    getObjectClassHandle = " + vehicle);
        int colour = rti.getAttributeHandle_OCH_S(message(vehicle, "colour"));
        printed("[radar] -> getAttributeHandle(HLAobjectRoot.Vehicle, \"colour\")",
                "[radar]    getAttributeHandle = " + colour);
        rti.publishObjectClassAttributes_OCH_AHS(message(vehicle, 1, colour));
        printed("[radar] -> publishObjectClassAttributes(HLAobjectRoot.Vehicle, {colour})");
        int object = rti.registerObjectInstance_OCH(message(vehicle));
        PRINTED.reset();
        rti.updateAttributeValues_OIH_AHVM_BX_LT(message(object, 1, colour, 2, new byte[] {1, -1}, 0, 42L));
        printed("[radar] -> updateAttributeValues(HLAobject-" + object + ", {colour: <01 FF>}, tag <>, time 42)");
        Harness.refuses("ObjectInstanceNotKnown", () -> rti.deleteObjectInstance_OIH_BX(message(9, 0)));
        printed("[radar] -> deleteObjectInstance(#9, tag <>)", "[radar]    deleteObjectInstance ! ObjectInstanceNotKnown:"
                + " Federate 'radar' (1) knows no object instance with handle 9; use one that it"
                + " registered or discovered in this federation and that is not deleted");

        int x = rti.getDimensionHandle_S(message("X"));
        int region = rti.createRegion_DHS(message(1, x));
        PRINTED.reset();
        rti.getRangeBounds_RH_DH(message(region, x));
        printed("[radar] -> getRangeBounds(region " + region + ", X)", "[radar]    getRangeBounds = [0, 100]");
        rti.queryLogicalTime();
        printed("[radar] -> queryLogicalTime()", "[radar]    queryLogicalTime = 0");

        rti.queryAttributeOwnership_OIH_AH(message(object, colour));
        rti.evokeCallback_D(message(0L));
        // Here is no library to take the callback.
        Harness.that(PRINTED.toString(StandardCharsets.UTF_8).contains(
                "[radar] <- informAttributeOwnership(HLAobject-" + object + ", colour, radar)\n"), PRINTED.toString());
    }
}
