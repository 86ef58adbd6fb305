import java.io.ByteArrayOutputStream;
import java.io.DataOutputStream;
import java.io.IOException;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import morva.tovu1516e.RTIambassadorC2007;

/** What an author reads who has the trace on: names for handles, results, failures, and who does it. */
final class TraceTest {
    private static final ByteArrayOutputStream PRINTED = new ByteArrayOutputStream();

    public static void main(String[] arguments) {
        System.setProperty("tovu.local.trace", "true"); // before any class of the core looks
        PrintStream console = System.err;
        System.setErr(new PrintStream(PRINTED, true, StandardCharsets.UTF_8));
        Harness harness = new Harness();
        harness.run("services", TraceTest::services);
        System.setErr(console);
        harness.finish();
    }

    /** A service message. */
    private static final class Message {
        private final ByteArrayOutputStream bytes = new ByteArrayOutputStream();
        private final DataOutputStream out = new DataOutputStream(bytes);

        Message integers(int... values) throws IOException {
            for (int value : values) {
                out.writeInt(value);
            }
            return this;
        }

        Message text(String value) throws IOException {
            out.writeInt(value.length());
            out.writeChars(value);
            return this;
        }

        Message longs(long... values) throws IOException {
            for (long value : values) {
                out.writeLong(value);
            }
            return this;
        }

        Message raw(int... values) throws IOException {
            for (int value : values) {
                out.writeByte(value);
            }
            return this;
        }

        byte[] end() {
            return bytes.toByteArray();
        }
    }

    private static Message message() {
        return new Message();
    }

    /** Checks the last lines that were printed. */
    private static void printed(String... lines) {
        String[] all = PRINTED.toString(StandardCharsets.UTF_8).split("\n");
        PRINTED.reset();
        Harness.equal(String.join("\n", all), String.join("\n", lines));
    }

    private static void services() throws Exception {
        RTIambassadorC2007 rti = new RTIambassadorC2007(new byte[4]);
        rti.connect_FA_CM_S(message().integers(7, 1).text("").end());
        rti.createFederationExecution_S_URLX_S(message().text("sky").integers(1).text(TestFom.file(TestFom.AIR))
                .text("HLAinteger64Time").end());
        rti.joinFederationExecution_S_S_S_URLX(message().text("radar").text("t").text("sky").integers(0).end());
        PRINTED.reset();
        int vehicle = rti.getObjectClassHandle_S(message().text("Vehicle").end());
        printed("[radar] -> getObjectClassHandle(\"Vehicle\")", "[radar]    getObjectClassHandle = " + vehicle);
        int colour = rti.getAttributeHandle_OCH_S(message().integers(vehicle).text("colour").end());
        printed("[radar] -> getAttributeHandle(HLAobjectRoot.Vehicle, \"colour\")",
                "[radar]    getAttributeHandle = " + colour);
        rti.publishObjectClassAttributes_OCH_AHS(message().integers(vehicle, 1, colour).end());
        printed("[radar] -> publishObjectClassAttributes(HLAobjectRoot.Vehicle, {colour})");
        int object = rti.registerObjectInstance_OCH(message().integers(vehicle).end());
        PRINTED.reset();
        Harness.equal(rti.updateAttributeValues_OIH_AHVM_BX_LT(message().integers(object, 1, colour, 2).raw(1, 255)
                .integers(0).longs(42).end()), null);
        printed("[radar] -> updateAttributeValues(HLAobject-" + object + ", {colour: <01 FF>}, tag <>, time 42)");
        Harness.refuses("ObjectInstanceNotKnown", () -> rti.deleteObjectInstance_OIH_BX(message().integers(9, 0).end()));
        printed("[radar] -> deleteObjectInstance(#9, tag <>)", "[radar]    deleteObjectInstance ! ObjectInstanceNotKnown:"
                + " Federate 'radar' (1) knows no object instance with handle 9; use one that it"
                + " registered or discovered in this federation and that is not deleted");
        int x = rti.getDimensionHandle_S(message().text("X").end());
        int region = rti.createRegion_DHS(message().integers(1, x).end());
        PRINTED.reset();
        rti.setRangeBounds_RH_DH_RB(message().integers(region, x).longs(3, 5).end());
        Harness.equal(rti.getRangeBounds_RH_DH(message().integers(region, x).end())[1], 5L);
        printed("[radar] -> setRangeBounds(region " + region + ", X, [3, 5))",
                "[radar] -> getRangeBounds(region " + region + ", X)",
                "[radar]    getRangeBounds = [3, 5]");
        rti.reserveMultipleObjectInstanceName_S(message().integers(2).text("a").text("b").end());
        rti.queryLogicalTime();
        printed("[radar] -> reserveMultipleObjectInstanceName([a, b])", "[radar] -> queryLogicalTime()",
                "[radar]    queryLogicalTime = 0");
    }
}
