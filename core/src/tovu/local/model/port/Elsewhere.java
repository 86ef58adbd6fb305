package tovu.local.model.port;

import hla.rti1516e.exceptions.RTIexception;

/** What a service asks for is at another hub. No federate sees this: its side goes there and asks again. */
public final class Elsewhere extends RTIexception {
    private static final long serialVersionUID = 1;

    /** @param address where federates reach that hub: HOST:PORT */
    public Elsewhere(String address) {
        super(address);
    }

    public String address() {
        return getMessage();
    }
}
