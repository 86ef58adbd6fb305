package tovu.local.remote;

import hla.rti1516e.exceptions.RTIexception;
import hla.rti1516e.exceptions.RTIinternalError;
import java.lang.reflect.Constructor;
import java.util.Map;
import java.util.concurrent.ConcurrentHashMap;

/** The exceptions that a hub answers with. */
final class HubExceptions {
    private static final String EXCEPTIONS = RTIexception.class.getPackageName() + ".";
    private static final Map<String, Constructor<? extends RTIexception>> BY_NAME = new ConcurrentHashMap<>();

    private HubExceptions() {
    }

    static RTIexception of(String name, String text) {
        try {
            return BY_NAME.computeIfAbsent(name, HubExceptions::constructor).newInstance(text);
        } catch (ReflectiveOperationException | IllegalArgumentException e) {
            return new RTIinternalError(name + ": " + text);
        }
    }

    private static Constructor<? extends RTIexception> constructor(String name) {
        try {
            return Class.forName(EXCEPTIONS + name).asSubclass(RTIexception.class).getConstructor(String.class);
        } catch (ReflectiveOperationException | ClassCastException e) {
            throw new IllegalArgumentException(name, e);
        }
    }
}
