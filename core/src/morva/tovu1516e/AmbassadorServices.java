package morva.tovu1516e;

import hla.rti1516e.exceptions.RTIexception;
import java.util.List;
import tovu.local.model.exchange.Federate;
import tovu.local.model.federation.Federation;
import tovu.local.model.federation.Session;
import tovu.local.model.port.Elsewhere;
import tovu.local.model.value.ServiceCall;
import tovu.local.remote.HubLink;
import tovu.local.trace.Describer;
import tovu.local.trace.Trace;

/**
 * The frame of every service: read the message, call the model, give back its result. The services themselves stand in
 * the subclasses, one for each chapter of the standard's interface.
 */
abstract class AmbassadorServices {
    static final byte[] NO_ARGUMENTS = {};

    final Connection connection;

    AmbassadorServices(Connection connection) {
        this.connection = connection;
    }

    /** A service that gives something back. */
    @FunctionalInterface
    interface Call<R> {
        R serve(MessageReader in) throws RTIexception;
    }

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

    /** Serves whether joined or not. */
    final <R> R serve(Service service, byte[] message, Call<R> call) throws RTIexception {
        return serveHere(service, message, in -> hereOrAtHub(service, message, in, call));
    }

    /** Serves what concerns this process first. */
    final <R> R serveHere(Service service, byte[] message, Call<R> call) throws RTIexception {
        MessageReader in = reader(message);
        return Trace.ON || connection.session.isReported() ? tell(service, message, in, call) : call.serve(in);
    }

    @SuppressWarnings("unchecked") // at the hub it is the result of the same service
    final <R> R hereOrAtHub(Service service, byte[] message, MessageReader in, Call<R> call) throws RTIexception {
        HubLink hub = connection.hub();
        if (hub == null) {
            return call.serve(in);
        }
        try {
            return (R) hub.serve(service.ordinal(), service.licence(), message);
        } catch (Elsewhere e) {
            return (R) connection.requestElsewhere(e, service, message);
        }
    }

    /** Serves what names FOM modules, which are read in this process, wherever the federation is. */
    final <R> R hereOrWithModulesAtHub(Service service, MessageReader in, Call<R> call) throws RTIexception {
        return connection.hub() == null ? call.serve(in)
                : hereOrAtHub(service, HubMessages.withModules(service, in), in, call);
    }

    MessageReader reader(byte[] message) {
        return new MessageReader(message);
    }

    /** Serves, and tells whoever wants to know of it. */
    private <R> R tell(Service service, byte[] message, MessageReader in, Call<R> call) throws RTIexception {
        Federate federate = connection.session.federate();
        Describer describer = new Describer(federate);
        List<String> arguments = ServiceTrace.arguments(describer, service, reader(message));
        if (Trace.ON) {
            ServiceTrace.print(connection.memberName(), service, arguments);
        }
        List<String> results = List.of();
        String failure = "";
        try {
            R result = call.serve(in);
            results = ServiceTrace.results(describer, service, result);
            return result;
        } catch (RTIexception | RuntimeException e) {
            failure = ServiceTrace.failure(e);
            throw e;
        } finally {
            ServiceCall served =
                    new ServiceCall(service.standardName(), service.group(), arguments, results, failure);
            if (Trace.ON) {
                ServiceTrace.print(connection.memberName(), served);
            }
            Session.report(federate, served);
        }
    }

    /** Serves members, also while the federation saves or restores. */
    final <R> R askAnytime(Service service, byte[] message, Query<R> query) throws RTIexception {
        return serve(service, message, in -> connection.session.call((federation, federate) ->
                query.serve(federation, federate, in)));
    }

    final void doAnytime(Service service, byte[] message, Action action) throws RTIexception {
        askAnytime(service, message, (federation, federate, in) -> {
            action.serve(federation, federate, in);
            return null;
        });
    }

    /** Serves members, but not while the federation saves or restores. */
    final <R> R ask(Service service, byte[] message, Query<R> query) throws RTIexception {
        return serve(service, message, in -> connection.callOutsideSave((federation, federate) ->
                query.serve(federation, federate, in)));
    }

    final void act(Service service, byte[] message, Action action) throws RTIexception {
        ask(service, message, (federation, federate, in) -> {
            action.serve(federation, federate, in);
            return null;
        });
    }

    final <R> R askAnytime(Service service, Query<R> query) throws RTIexception {
        return askAnytime(service, NO_ARGUMENTS, query);
    }

    final void doAnytime(Service service, Action action) throws RTIexception {
        doAnytime(service, NO_ARGUMENTS, action);
    }

    final <R> R ask(Service service, Query<R> query) throws RTIexception {
        return ask(service, NO_ARGUMENTS, query);
    }

    final void act(Service service, Action action) throws RTIexception {
        act(service, NO_ARGUMENTS, action);
    }
}
