package morva.tovu1516e;

import hla.rti1516e.exceptions.RTIexception;
import tovu.local.model.Federate;
import tovu.local.model.Federation;

/**
 * The frame of every service: read the message, call the model, give back its result. The services themselves stand in
 * the subclasses, one for each chapter of the standard's interface.
 */
abstract class AmbassadorServices {
    private static final byte[] NO_ARGUMENTS = {};

    final Connection connection = new Connection();

    /** A service of a member that gives something back. */
    @FunctionalInterface
    interface Query<R> {
        R serve(Federation federation, Federate federate, MessageReader in) throws RTIexception;
    }

    /** A service of a member that gives nothing back. */
    @FunctionalInterface
    interface Action {
        void serve(Federation federation, Federate federate, MessageReader in) throws RTIexception;
    }

    /** Serves also while the federation saves or restores. */
    final <R> R askAnytime(byte[] message, Query<R> query) throws RTIexception {
        MessageReader in = new MessageReader(message);
        return connection.session.call((federation, federate) -> query.serve(federation, federate, in));
    }

    final void doAnytime(byte[] message, Action action) throws RTIexception {
        MessageReader in = new MessageReader(message);
        connection.session.call((federation, federate) -> {
            action.serve(federation, federate, in);
            return null;
        });
    }

    /** Refuses while the federation saves or restores. */
    final <R> R ask(byte[] message, Query<R> query) throws RTIexception {
        MessageReader in = new MessageReader(message);
        return connection.session.callOutsideSave((federation, federate) -> query.serve(federation, federate, in));
    }

    final void act(byte[] message, Action action) throws RTIexception {
        MessageReader in = new MessageReader(message);
        connection.session.callOutsideSave((federation, federate) -> {
            action.serve(federation, federate, in);
            return null;
        });
    }

    final <R> R askAnytime(Query<R> query) throws RTIexception {
        return askAnytime(NO_ARGUMENTS, query);
    }

    final void doAnytime(Action action) throws RTIexception {
        doAnytime(NO_ARGUMENTS, action);
    }

    final <R> R ask(Query<R> query) throws RTIexception {
        return ask(NO_ARGUMENTS, query);
    }

    final void act(Action action) throws RTIexception {
        act(NO_ARGUMENTS, action);
    }
}
