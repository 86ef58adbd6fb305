package morva.tovu1516e;

import hla.rti1516e.exceptions.RTIexception;
import java.nio.BufferOverflowException;
import java.nio.BufferUnderflowException;
import java.nio.ByteBuffer;
import java.util.List;
import java.util.function.IntUnaryOperator;
import tovu.local.delivery.CallbackMethod;
import tovu.local.fom.ModuleSource;
import tovu.local.model.federation.FederationPlan;
import tovu.local.trace.Describer;

/** Reads messages of services as a hub got them. */
public final class RecordedCalls {
    /**
     * What a federate joins with.
     *
     * @param federateName null for one of the federation's choice
     */
    public record Joining(String federateName, String federateType, String federation, List<ModuleSource> modules) {
    }

    /** An object's handle and its name. */
    public record Discovery(int object, String name) {
    }

    /** What becomes of the handles in a message. */
    public interface Handles {
        int object(int handle);

        int federate(int handle);

        int region(int handle);

        int retraction(int handle);
    }

    private RecordedCalls() {
    }

    private static Service service(int number) {
        return Service.values()[number];
    }

    /** Whether there is a service with that number; a hub may have been asked for others. */
    public static boolean isService(int number) {
        return number >= 0 && number < Service.values().length;
    }

    /** The standard's name of a service. */
    public static String name(int service) {
        return service(service).standardName();
    }

    public static List<String> arguments(Describer describer, int service, byte[] message) {
        return ServiceTrace.arguments(describer, service(service), new HubMessages.Reader(message, 0));
    }

    /** @param message without what is around it */
    public static List<String> arguments(Describer describer, CallbackMethod callback, byte[] message) {
        return ServiceTrace.arguments(describer, callback, message);
    }

    /** What a service returned, in words; an empty list for nothing. */
    public static List<String> results(Describer describer, int service, Object result) {
        return ServiceTrace.results(describer, service(service), result);
    }

    /** What a creation of a federation execution says. */
    public static FederationPlan plan(int service, byte[] message) {
        MessageReader in = new HubMessages.Reader(message, 0);
        String name = in.text();
        List<ModuleSource> modules = service(service) == Service.createFederationExecution_S_URL_S
                ? List.of(in.module()) : in.modules();
        ModuleSource mim = service(service) == Service.createFederationExecution_S_URLX_URL_S ? in.module() : null;
        return new FederationPlan(name, modules, mim, in.text());
    }

    public static Joining joining(int service, byte[] message) {
        MessageReader in = new HubMessages.Reader(message, 0);
        return new Joining(service(service) == Service.joinFederationExecution_S_S_S_URLX ? in.text() : null,
                in.text(), in.text(), in.modules());
    }

    /**
     * What a callback says of an object that is new to its federate, or null when it is no such callback.
     *
     * @param message without what is around it
     */
    public static Discovery discovery(CallbackMethod callback, byte[] message) {
        switch (callback) {
            case discoverObjectInstance_OIH_OCH_S, discoverObjectInstance_OIH_OCH_S_FH -> {
                MessageReader in = new MessageReader(message);
                int object = in.handle();
                in.handle();
                return new Discovery(object, in.text());
            }
            default -> {
                return null;
            }
        }
    }

    /** The same message with other handles of what federates make; one that is malformed stays what it is. */
    public static byte[] translated(int service, byte[] message, Handles to) {
        try {
            return translate(service, ByteBuffer.wrap(message.clone()), to);
        } catch (BufferUnderflowException | BufferOverflowException | IllegalArgumentException e) {
            return message;
        }
    }

    private static byte[] translate(int service, ByteBuffer out, Handles to) {
        boolean isSet = service(service).standardName().contains("Multiple"); // and all that there is
        for (String code : service(service).codes()) {
            switch (code) {
                case "OIH" -> replace(out, to::object);
                case "FH" -> replace(out, to::federate);
                case "RH" -> replace(out, to::region);
                case "MRH" -> replace(out, to::retraction);
                case "FHS" -> replaceAll(out, to::federate);
                case "RHS" -> replaceAll(out, to::region);
                case "AHS", "DHS" -> skip(out, out.getInt() * Integer.BYTES);
                case "AHVM", "PHVM" -> {
                    for (int left = out.getInt(); left > 0; --left) {
                        out.getInt();
                        skip(out, out.getInt());
                    }
                }
                case "ASRSPL" -> {
                    for (int left = out.getInt(); left > 0; --left) {
                        skip(out, out.getInt() * Integer.BYTES);
                        replaceAll(out, to::region);
                    }
                }
                case "OCH", "ICH", "AH", "PH", "DH", "OT", "TTH", "Z" -> out.getInt();
                case "S" -> skip(out, out.getInt() * (isSet ? 0 : Character.BYTES));
                case "BX" -> skip(out, out.getInt());
                default -> {
                    return out.array(); // no handle comes behind it
                }
            }
        }
        return out.array();
    }

    private static void skip(ByteBuffer in, int size) {
        in.position(in.position() + size);
    }

    private static void replace(ByteBuffer out, IntUnaryOperator to) {
        out.putInt(to.applyAsInt(out.getInt(out.position())));
    }

    private static void replaceAll(ByteBuffer out, IntUnaryOperator to) {
        for (int left = out.getInt(); left > 0; --left) {
            replace(out, to);
        }
    }
}
