package morva.tovu1516e;

import hla.rti1516e.exceptions.RTIexception;
import hla.rti1516e.exceptions.RTIinternalError;
import tovu.local.delivery.CallbackDelivery;
import tovu.local.model.exchange.Federate;
import tovu.local.model.federation.Federations;
import tovu.local.model.federation.Session;
import tovu.local.model.port.Elsewhere;
import tovu.local.remote.HubLink;

/** What an ambassador holds of the core. It knows nothing of the ambassador, and so can tell when that is gone. */
abstract class Connection {
    final Session session;

    Connection(Session session) {
        this.session = session;
    }

    /**
     * @param designator  the local settings designator
     * @param context     what the library finds the federate's ambassador by
     * @param message     all of that as it came
     */
    abstract void connect(int context, boolean immediate, String designator, byte[] message) throws RTIexception;

    /** Once it returns no callback runs any more, so that the federate may destroy what they call. */
    abstract void disconnect() throws RTIexception;

    abstract void setCallbacksEnabled(boolean on) throws RTIexception;

    /** The connection to the hub that serves instead of this process, or null. */
    HubLink hub() {
        return null;
    }

    /** Has another hub serve what the one here does not. */
    Object requestElsewhere(Elsewhere hub, Service service, byte[] message) throws RTIexception {
        throw hub;
    }

    /** Of the callbacks that wait in this process. */
    CallbackDelivery delivery() throws RTIexception {
        throw new RTIinternalError("This ambassador's callbacks are delivered where its federate runs");
    }

    /** A service that has to wait for the end of a save or restore. */
    <R> R callOutsideSave(Session.Service<R> service) throws RTIexception {
        return session.callOutsideSave(service);
    }

    /** What the federate is called that the ambassador is joined as, or null. */
    String memberName() {
        Federate member = session.federate();
        return member == null ? null : member.name();
    }

    /** It has joined, or, with null for a name, resigned. */
    void nameMember(String name) {
        // the session knows
    }

    void requireOutsideCallback(String service) throws RTIexception {
        // only where callbacks are delivered anybody can be within one
    }
}
