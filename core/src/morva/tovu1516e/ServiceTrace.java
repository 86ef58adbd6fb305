package morva.tovu1516e;

import hla.rti1516e.exceptions.RTIexception;
import java.util.Arrays;
import java.util.StringJoiner;
import tovu.local.model.Federate;
import tovu.local.model.RegionManagement;
import tovu.local.model.ResignAction;
import tovu.local.trace.Describer;
import tovu.local.trace.Trace;

/** Prints service calls. The codes in a method's name tell what its message holds. */
final class ServiceTrace {
    private final Describer describer;
    private final MessageReader in;

    private ServiceTrace(Federate federate, byte[] message) {
        describer = new Describer(federate);
        in = new MessageReader(message);
    }

    static void called(Federate federate, Service service, byte[] message) {
        String name = service.standardName();
        ServiceTrace trace = new ServiceTrace(federate, message);
        StringJoiner arguments = new StringJoiner(", ", "-> " + name + "(", ")");
        try {
            for (String code : service.codes()) {
                arguments.add(name.contains("Multiple") && code.equals("S") ? trace.in.textSet().toString()
                        : trace.argument(code));
            }
        } catch (RTIexception | RuntimeException e) {
            arguments.add("? " + e.getMessage());
        }
        Trace.print(federate, arguments.toString());
    }

    static void returned(Federate federate, Service service, Object result) {
        if (result != null) {
            Trace.print(federate, "   " + service.standardName() + " = " + switch (result.getClass().getSimpleName()) {
                case "int[]" -> Arrays.toString((int[]) result);
                case "long[]" -> Arrays.toString((long[]) result);
                case "byte[]" -> result(federate, service, (byte[]) result);
                default -> result.toString();
            });
        }
    }

    /** A query gives a time; what is sent gives a retraction handle. */
    private static String result(Federate federate, Service service, byte[] result) {
        ServiceTrace trace = new ServiceTrace(federate, result);
        return service.standardName().startsWith("query") ? trace.describer.time(trace.in.longInteger())
                : "retraction " + trace.in.integer();
    }

    static void failed(Federate federate, Service service, Exception failure) {
        Trace.print(federate, "   " + service.standardName() + " ! " + failure.getClass().getSimpleName() + ": "
                + failure.getMessage());
    }

    private String argument(String code) throws RTIexception {
        return switch (code) {
            case "S", "URL" -> describer.text(in.text());
            case "URLX" -> in.textList().toString();
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
            case "MRH" -> "retraction " + in.integer();
            default -> Integer.toString(in.integer());
        };
    }

    private static String resignAction(int code) {
        return code >= 0 && code < ResignAction.values().length ? ResignAction.values()[code].name() : "#" + code;
    }

    private String describe(RegionManagement.Pair pair) {
        return describer.set(pair.attributes(), describer::attribute) + " with "
                + describer.set(pair.regions(), describer::region);
    }
}
