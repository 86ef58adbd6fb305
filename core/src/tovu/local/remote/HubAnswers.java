package tovu.local.remote;

import hla.rti1516e.exceptions.RTIexception;
import hla.rti1516e.exceptions.RTIinternalError;
import java.lang.reflect.Constructor;
import java.util.Map;
import java.util.concurrent.ConcurrentHashMap;
import tovu.local.model.port.Elsewhere;
import tovu.local.wire.FrameReader;
import tovu.local.wire.FrameType;
import tovu.local.wire.Result;

/** Makes of a hub's answer what the service would have done here. */
final class HubAnswers {
    private static final String EXCEPTIONS = RTIexception.class.getPackageName() + ".";
    private static final Map<String, Constructor<? extends RTIexception>> BY_NAME = new ConcurrentHashMap<>();

    private HubAnswers() {
    }

    static Object result(FrameReader answer) throws RTIexception {
        if (answer.type() == FrameType.REPLY) {
            return Result.read(answer);
        }
        if (answer.type() == FrameType.ELSEWHERE) {
            throw new Elsewhere(answer.text());
        }
        throw exception(answer.text(), answer.text());
    }

    private static RTIexception exception(String name, String text) {
        try {
            return BY_NAME.computeIfAbsent(name, HubAnswers::constructor).newInstance(text);
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
