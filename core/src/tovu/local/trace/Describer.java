package tovu.local.trace;

import java.util.StringJoiner;
import java.util.function.IntFunction;
import java.util.function.IntUnaryOperator;
import tovu.local.model.exchange.Federate;
import tovu.local.model.value.HandleValues;

/** Writes handles as the names of what they stand for. */
public final class Describer {
    private final Names names;

    public Describer(Names names) {
        this.names = names;
    }

    /** @param federate null for an ambassador that is not joined, to which no handle means anything */
    public Describer(Federate federate) {
        this(new FederateNames(federate));
    }

    /** A handle without a name, such as one that is wrong, stands as its number. */
    private static String named(int handle, String name) {
        return name == null ? "#" + handle : name;
    }

    public String objectClass(int handle) {
        return named(handle, names.objectClass(handle));
    }

    public String interactionClass(int handle) {
        return named(handle, names.interactionClass(handle));
    }

    public String object(int handle) {
        return named(handle, names.object(handle));
    }

    public String attribute(int handle) {
        return named(handle, names.attribute(handle));
    }

    public String parameter(int handle) {
        return named(handle, names.parameter(handle));
    }

    public String dimension(int handle) {
        return named(handle, names.dimension(handle));
    }

    public String federate(int handle) {
        return named(handle, names.federate(handle));
    }

    public String region(int handle) {
        return "region " + handle;
    }

    /** A time or interval of the federation's family. */
    public String time(long bits) {
        return names.timeFamily() == null ? Long.toHexString(bits) : names.timeFamily().describe(bits);
    }

    public String set(int[] handles, IntFunction<String> name) {
        return set(handles.length, index -> handles[index], name, index -> "");
    }

    public String values(HandleValues values, IntFunction<String> name) {
        return set(values.size(), values::handle, name, index -> ": " + bytes(values.value(index)));
    }

    private static String set(int size, IntUnaryOperator handle, IntFunction<String> name, IntFunction<String> more) {
        StringJoiner text = new StringJoiner(", ", "{", "}");
        for (int i = 0; i < size; ++i) {
            text.add(name.apply(handle.applyAsInt(i)) + more.apply(i));
        }
        return text.toString();
    }

    /** Short data byte by byte, longer data by its length. */
    public String bytes(byte[] data) {
        if (data.length > 16) {
            return data.length + " bytes";
        }
        StringBuilder text = new StringBuilder("<");
        for (byte each : data) {
            text.append(text.length() == 1 ? "" : " ").append(String.format("%02X", each));
        }
        return text.append('>').toString();
    }

    public String text(String text) {
        return "\"" + text + "\"";
    }
}
