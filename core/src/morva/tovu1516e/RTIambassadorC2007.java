package morva.tovu1516e;

import java.lang.ref.Cleaner;

/**
 * The core's side of one ambassador. The library holds one of these for each ambassador that a federate has, and lets
 * go of it when the ambassador is destroyed; whatever it was still joined to then is left on its behalf.
 */
public final class RTIambassadorC2007 extends RegionServices {
    private static final Cleaner CLEANER = Cleaner.create();

    /** @param message one integer without a meaning here */
    public RTIambassadorC2007(byte[] message) {
        this(new FederateConnection());
    }

    private RTIambassadorC2007(FederateConnection connection) {
        super(connection);
        CLEANER.register(this, connection::abandon);
    }
}
