package morva.tovu1516e;

import hla.rti1516e.exceptions.RTIexception;
import java.lang.invoke.MethodHandle;
import java.lang.invoke.MethodHandles;
import java.lang.reflect.Method;
import java.util.Map;
import java.util.function.Function;
import java.util.function.IntFunction;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import tovu.local.model.federation.Federations;
import tovu.local.model.federation.Session;
import tovu.local.model.port.CallbackSink;
import tovu.local.wire.Licence;

/** An ambassador at a hub, whose federate is elsewhere: its services come as numbers and messages. */
public final class HubAmbassador extends RegionServices {
    private static final MethodHandle[] SERVICES = services();

    private final HubAmbassador underWay; // serves what the federate does not wait for
    private int retraction; // of what is served now

    /**
     * @param sink        makes what takes the callbacks of a federate with that callback context
     * @param federations those of the hub
     */
    public HubAmbassador(IntFunction<CallbackSink> sink, Federations federations) {
        super(new HubConnection(sink, federations));
        underWay = new HubAmbassador(connection.session);
    }

    private HubAmbassador(Session session) {
        super(new SendingConnection(session));
        underWay = this;
    }

    /** The connection of what was sent before the federate could know of a save, and so belongs before it. */
    private static final class SendingConnection extends HubConnection {
        SendingConnection(Session session) {
            super(session);
        }

        @Override
        <R> R callOutsideSave(Session.Service<R> service) throws RTIexception {
            return session.callOutsideRestore(service);
        }
    }

    private static MethodHandle[] services() {
        Map<String, Method> methods = Stream.of(HubAmbassador.class.getMethods())
                .filter(method -> method.getDeclaringClass() != Object.class && method.getName().matches("[a-zA-Z]+(_[A-Z_]+)?"))
                .collect(Collectors.toMap(Method::getName, Function.identity(), (one, other) -> one));
        Service[] all = Service.values();
        MethodHandle[] handles = new MethodHandle[all.length];
        for (Service each : all) {
            try {
                MethodHandle handle = MethodHandles.lookup().unreflect(methods.get(each.name()));
                handles[each.ordinal()] = each.hasMessage() ? handle
                        : MethodHandles.dropArguments(handle, 1, byte[].class);
            } catch (IllegalAccessException e) {
                throw new IllegalStateException(each.name(), e);
            }
        }
        return handles;
    }

    /**
     * @return what the service returns, or null
     * @throws MalformedMessage when there is no such service, or the message is shorter than what it holds
     */
    public Object serve(int service, byte[] message) throws RTIexception {
        if (service < 0 || service >= SERVICES.length) {
            throw new MalformedMessage();
        }
        try {
            return SERVICES[service].invoke(this, message);
        } catch (RTIexception | RuntimeException | Error e) {
            throw e;
        } catch (Throwable e) {
            throw new IllegalStateException(e);
        }
    }

    /**
     * Serves what a federate with a licence has sent and does not wait for. One after the other.
     *
     * @param number by which the federate may retract it, or 0
     */
    public void serveUnderWay(int service, int number, byte[] message) throws RTIexception {
        underWay.retraction = number;
        underWay.serve(service, message);
    }

    /** What a federate elsewhere may be spared by a licence. */
    public static Licence licence(int service) {
        Service[] all = Service.values();
        return service >= 0 && service < all.length ? all[service].licence() : Licence.NONE;
    }

    /** Whether a service creates a federation. */
    public static boolean isCreation(int service) {
        Service[] all = Service.values();
        return service >= 0 && service < all.length && switch (all[service]) {
            case createFederationExecution_S_URL_S, createFederationExecution_S_URLX_S,
                    createFederationExecution_S_URLX_URL_S -> true;
            default -> false;
        };
    }

    /** Whether a service may take its time: it reads object models, writes and reads states, or asks which hub has what. */
    public static boolean isLong(int service) {
        Service[] all = Service.values();
        return isCreation(service) || service >= 0 && service < all.length && switch (all[service]) {
            case destroyFederationExecution_S, listFederationExecutions, joinFederationExecution_S_S_S_URLX,
                    joinFederationExecution_S_S_URLX, federateSaveComplete, requestFederationRestore_S -> true;
            default -> false;
        };
    }

    public Session session() {
        return connection.session;
    }

    @Override
    MessageReader reader(byte[] message) {
        return new HubMessages.Reader(message, retraction);
    }
}
