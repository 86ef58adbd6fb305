package tovu.local.trace;

import hla.rti1516e.exceptions.RTIexception;
import java.util.function.Supplier;
import tovu.local.fom.ObjectModel;
import tovu.local.model.exchange.Federate;
import tovu.local.model.value.TimeFamily;

/** Names as one federate knows them. */
final class FederateNames extends ModelNames {
    private final Federate federate;

    /** @param federate null for an ambassador that is not joined, to which no handle means anything */
    FederateNames(Federate federate) {
        this.federate = federate;
    }

    private interface Lookup {
        String name() throws RTIexception;
    }

    @Override
    protected String read(Supplier<String> name) {
        if (federate == null) {
            return null;
        }
        synchronized (federate.federation()) {
            return name.get();
        }
    }

    private String known(Lookup lookup) {
        return read(() -> {
            try {
                return lookup.name();
            } catch (RTIexception unknown) {
                return null;
            }
        });
    }

    @Override
    protected ObjectModel model() {
        return federate.federation().objectModel();
    }

    @Override
    public String object(int handle) {
        return known(() -> federate.federation().objects().name(federate, handle));
    }

    @Override
    public String federate(int handle) {
        return known(() -> federate.federation().federateName(handle));
    }

    @Override
    public TimeFamily timeFamily() {
        return federate == null ? null : federate.federation().timeFamily();
    }
}
