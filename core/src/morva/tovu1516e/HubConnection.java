package morva.tovu1516e;

import hla.rti1516e.exceptions.RTIexception;
import java.util.function.IntFunction;
import tovu.local.model.federation.Federations;
import tovu.local.model.federation.Session;
import tovu.local.model.port.CallbackSink;

/** The connection, at a hub, of an ambassador whose federate is elsewhere. */
class HubConnection extends Connection {
    private final IntFunction<CallbackSink> sinkOf;

    HubConnection(IntFunction<CallbackSink> sinkOf, Federations federations) {
        super(new Session(federations));
        this.sinkOf = sinkOf;
    }

    /** One more connection of the same ambassador. */
    HubConnection(Session session) {
        super(session);
        sinkOf = context -> {
            throw new IllegalStateException("connected already");
        };
    }

    @Override
    void connect(int context, boolean immediate, String designator, byte[] message) throws RTIexception {
        session.connect(sinkOf.apply(context));
    }

    @Override
    void disconnect() throws RTIexception {
        session.disconnect();
    }

    /** What waits, waits where the federate is. */
    @Override
    void setCallbacksEnabled(boolean on) throws RTIexception {
        session.requireNoSaveOrRestore();
    }
}
