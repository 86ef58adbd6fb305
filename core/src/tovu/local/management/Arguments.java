package tovu.local.management;

import java.util.HashMap;
import java.util.Map;
import java.util.function.Function;
import tovu.local.fom.InteractionClass;
import tovu.local.fom.OrderType;
import tovu.local.model.value.HandleValues;
import tovu.local.model.value.ResignAction;
import tovu.local.model.value.Timing;

/** The parameters of a management interaction, by name. */
final class Arguments {
    private final InteractionClass interaction;
    private final Map<String, byte[]> values = new HashMap<>();

    Arguments(InteractionClass interaction, HandleValues received) {
        this.interaction = interaction;
        for (int i = 0; i < received.size(); ++i) {
            values.put(interaction.member(received.handle(i)).name(), received.value(i));
        }
    }

    private boolean has(String parameter) {
        return values.containsKey(parameter);
    }

    private <T> T read(String parameter, Function<ValueReader, T> reading) throws ParameterFault {
        byte[] value = values.get(parameter);
        if (value == null) {
            throw new ParameterFault("Parameter '" + parameter + "' of '" + interaction.name()
                    + "' is missing; send it too");
        }
        try {
            return ValueReader.read(value, reading);
        } catch (IllegalArgumentException | ArithmeticException e) {
            throw new ParameterFault("Parameter '" + parameter + "' of '" + interaction.name()
                    + "' does not decode: " + e.getMessage() + "; encode it as the MIM's data type says");
        }
    }

    int integer(String parameter) throws ParameterFault {
        return read(parameter, ValueReader::integer);
    }

    boolean flag(String parameter) throws ParameterFault {
        return read(parameter, ValueReader::flag);
    }

    /** For a parameter that may be left out. */
    boolean flagOr(String parameter, boolean otherwise) throws ParameterFault {
        return has(parameter) ? flag(parameter) : otherwise;
    }

    String text(String parameter) throws ParameterFault {
        return read(parameter, ValueReader::text);
    }

    byte[] bytes(String parameter) throws ParameterFault {
        return read(parameter, ValueReader::bytes);
    }

    int handle(String parameter) throws ParameterFault {
        return read(parameter, ValueReader::handle);
    }

    int[] handles(String parameter) throws ParameterFault {
        return read(parameter, ValueReader::handles);
    }

    /** The bits of a time or interval. */
    long time(String parameter) throws ParameterFault {
        return read(parameter, ValueReader::time);
    }

    /** For a time that may be left out. */
    Timing timing(String parameter) throws ParameterFault {
        return has(parameter) ? Timing.at(time(parameter)) : Timing.NONE;
    }

    /** The value of an enumeration, whose codes begin with that one. */
    private <E> E oneOf(E[] all, int first, String parameter) throws ParameterFault {
        int index = integer(parameter) - first;
        if (index < 0 || index >= all.length) {
            throw new ParameterFault("Parameter '" + parameter + "' of '" + interaction.name() + "' is "
                    + (index + first) + "; give a number from " + first + " to " + (first + all.length - 1));
        }
        return all[index];
    }

    OrderType order(String parameter) throws ParameterFault {
        return oneOf(OrderType.values(), 0, parameter);
    }

    ResignAction resignAction(String parameter) throws ParameterFault {
        return oneOf(ResignAction.values(), 1, parameter);
    }
}
