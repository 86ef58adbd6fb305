package morva.tovu1516e;

import hla.rti1516e.exceptions.RTIexception;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.StringJoiner;
import tovu.local.delivery.CallbackMethod;
import tovu.local.fom.ModuleSource;
import tovu.local.model.exchange.Federate;
import tovu.local.model.exchange.RegionManagement;
import tovu.local.model.value.ResignAction;
import tovu.local.model.value.ServiceCall;
import tovu.local.trace.Describer;
import tovu.local.trace.Trace;

/** Puts service calls into words. The codes in a method's name tell what its message holds. */
final class ServiceTrace {
    private final Describer describer;
    private final MessageReader in;
    private final String name; // of the service or callback

    private ServiceTrace(Describer describer, MessageReader in, String name) {
        this.describer = describer;
        this.in = in;
        this.name = name;
    }

    /** What a service is given. */
    static List<String> arguments(Describer describer, Service service, MessageReader message) {
        return new ServiceTrace(describer, message, service.standardName()).arguments(service.codes());
    }

    /** What a callback tells, of a message without what is around it. */
    static List<String> arguments(Describer describer, CallbackMethod callback, byte[] message) {
        List<String> parts = List.of(callback.name().split("_"));
        MessageReader in = new MessageReader(message) {
            @Override
            long time() {
                return longInteger(); // there may be more behind it
            }
        };
        return new ServiceTrace(describer, in, parts.get(0)).arguments(parts.subList(1, parts.size()));
    }

    private List<String> arguments(List<String> codes) {
        List<String> arguments = new ArrayList<>();
        try {
            for (String code : codes) {
                arguments.add(name.contains("ultiple") && code.equals("S") ? in.textSet().toString() : argument(code));
            }
        } catch (RTIexception | RuntimeException e) {
            arguments.add("? " + e.getMessage());
        }
        return arguments;
    }

    /** What it gives back. */
    static List<String> results(Describer describer, Service service, Object result) {
        return result == null ? List.of() : List.of(switch (result.getClass().getSimpleName()) {
            case "int[]" -> Arrays.toString((int[]) result);
            case "long[]" -> Arrays.toString((long[]) result);
            case "byte[]" -> result(describer, service, (byte[]) result);
            default -> result.toString();
        });
    }

    static String failure(Exception failure) {
        return failure.getClass().getSimpleName() + ": " + failure.getMessage();
    }

    static void print(String federate, Service service, List<String> arguments) {
        Trace.print(federate, "-> " + service.standardName() + "(" + String.join(", ", arguments) + ")");
    }

    static void print(String federate, ServiceCall call) {
        if (!call.failure().isEmpty()) {
            Trace.print(federate, "   " + call.name() + " ! " + call.failure());
        } else if (!call.results().isEmpty()) {
            Trace.print(federate, "   " + call.name() + " = " + call.results().get(0));
        }
    }

    /** A query gives a time; what is sent gives a retraction handle. */
    private static String result(Describer describer, Service service, byte[] result) {
        ServiceTrace trace = new ServiceTrace(describer, new MessageReader(result), service.standardName());
        return trace.name.startsWith("query") ? trace.describer.time(trace.in.longInteger())
                : "retraction " + trace.in.integer();
    }

    private String argument(String code) throws RTIexception {
        return switch (code) {
            case "S" -> describer.text(in.text());
            case "URL" -> describer.text(in.module().designator());
            case "URLX" -> in.modules().stream().map(ModuleSource::designator).toList().toString();
            case "BX" -> "tag " + describer.bytes(in.bytes());
            case "Z" -> Boolean.toString(in.flag());
            case "D" -> in.real() + " s";
            case "FA" -> "federate ambassador " + in.integer();
            case "CM" -> in.integer() == 1 ? "HLA_EVOKED" : "HLA_IMMEDIATE";
            case "RA" -> resignAction(in.integer());
            case "OT" -> in.integer() == 0 ? "Receive" : "TimeStamp";
            case "TTH" -> in.integer() == 1 ? "HLAreliable" : "HLAbestEffort";
            case "OCH" -> describer.objectClass(in.handle());
            case "OIH" -> describer.object(in.handle());
            case "ICH" -> describer.interactionClass(in.handle());
            case "AH" -> describer.attribute(in.handle());
            case "PH" -> describer.parameter(in.handle());
            case "FH" -> describer.federate(in.handle());
            case "DH" -> describer.dimension(in.handle());
            case "RH" -> describer.region(in.handle());
            case "AHS" -> describer.set(in.handles(), describer::attribute);
            case "FHS" -> describer.set(in.handles(), describer::federate);
            case "DHS" -> describer.set(in.handles(), describer::dimension);
            case "RHS" -> describer.set(in.handles(), describer::region);
            case "AHVM" -> describer.values(in.values(), describer::attribute);
            case "PHVM" -> describer.values(in.values(), describer::parameter);
            case "ASRSPL" -> in.regionPairs().stream().map(this::describe).toList().toString();
            case "RB" -> "[" + in.longInteger() + ", " + in.longInteger() + ")";
            case "LT" -> "time " + describer.time(in.time());
            case "LTI" -> describer.time(in.interval());
            case "MRH" -> "retraction " + retraction();
            case "FASRI" -> origin();
            case "FHSSPX" -> rows(1);
            case "FRSX" -> rows(2);
            case "FEIS" -> texts();
            default -> Integer.toString(in.integer());
        };
    }

    private int retraction() {
        int number = in.integer();
        in.bytes(); // none
        return number;
    }

    private String origin() {
        boolean producer = in.flag();
        boolean regions = !name.equals("removeObjectInstance") && in.flag(); // of which a removal tells nothing
        return "by " + (producer ? describer.federate(in.handle()) : "somebody")
                + (regions ? " with " + describer.set(in.handles(), describer::region) : "");
    }

    /** Rows of federates and a status. */
    private String rows(int federates) {
        StringJoiner rows = new StringJoiner(", ", "[", "]");
        for (int left = in.integer(); left > 0; --left) {
            StringJoiner row = new StringJoiner(" ");
            for (int i = 0; i < federates; ++i) {
                row.add(describer.federate(in.handle()));
            }
            rows.add(row.add(Integer.toString(in.integer())).toString());
        }
        return rows.toString();
    }

    private String texts() {
        StringJoiner rows = new StringJoiner(", ", "[", "]");
        for (int left = in.integer(); left > 0; --left) {
            rows.add(in.text() + " " + in.text());
        }
        return rows.toString();
    }

    private static String resignAction(int code) {
        return code >= 0 && code < ResignAction.values().length ? ResignAction.values()[code].name() : "#" + code;
    }

    private String describe(RegionManagement.Pair pair) {
        return describer.set(pair.attributes(), describer::attribute) + " with "
                + describer.set(pair.regions(), describer::region);
    }
}
