package floor;

import morva.tovu1516e.FederateAmbassadorC2007;

/** Calls natives many times in a row: the library's, and hand-written ones that do the least that will do. */
public final class Callbacks {
    private Callbacks() {}

    private static final FederateAmbassadorC2007 LIBRARY = new FederateAmbassadorC2007();

    private static native void pinAndUnpin(byte[] message);

    private static native void time(byte[] message);

    private static native void values(byte[] message);

    public static void pinAndUnpin(byte[] message, int times) {
        for (int i = 0; i < times; i++) {
            pinAndUnpin(message);
        }
    }

    public static void time(byte[] message, int times) {
        for (int i = 0; i < times; i++) {
            time(message);
        }
    }

    public static void values(byte[] message, int times) {
        for (int i = 0; i < times; i++) {
            values(message);
        }
    }

    public static void timeAdvanceGrant(byte[] message, int times) {
        for (int i = 0; i < times; i++) {
            LIBRARY.timeAdvanceGrant_LT_Native(message);
        }
    }

    public static void receiveInteraction(byte[] message, int times) {
        for (int i = 0; i < times; i++) {
            LIBRARY.receiveInteraction_ICH_PHVM_BX_OT_TTH_FASRI_Native(message);
        }
    }

    public static void reflectAttributeValues(byte[] message, int times) {
        for (int i = 0; i < times; i++) {
            LIBRARY.reflectAttributeValues_OIH_AHVM_BX_OT_TTH_FASRI_Native(message);
        }
    }
}
