package tovu.local.trace;

import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Parameter;
import java.lang.reflect.Proxy;
import java.util.ArrayList;
import java.util.List;
import java.util.function.Supplier;
import tovu.local.model.exchange.Federate;
import tovu.local.model.port.FederateCallbacks;
import tovu.local.model.value.HandleValues;
import tovu.local.model.value.Supplement;

/** Puts callbacks into words. What a handle stands for is told by the parameter's name. */
public final class CallbackTrace {
    /** Hears of callbacks. */
    public interface Listener {
        /** Before a callback is made. */
        default void called(Federate federate, String callback, List<String> arguments) {
        }

        /** After it. */
        default void returned(Federate federate, String callback, List<String> arguments, String failure) {
        }
    }

    private CallbackTrace() {
    }

    /** @param federate who is called, or null when that is not joined */
    public static FederateCallbacks around(FederateCallbacks callbacks, Supplier<Federate> federate,
            Listener listener) {
        return (FederateCallbacks) Proxy.newProxyInstance(CallbackTrace.class.getClassLoader(),
                new Class<?>[] {FederateCallbacks.class}, (proxy, method, arguments) -> {
                    Federate called = federate.get();
                    List<String> words = words(new Describer(called), method.getParameters(), arguments);
                    listener.called(called, method.getName(), words);
                    String failure = "";
                    try {
                        return method.invoke(callbacks, arguments);
                    } catch (InvocationTargetException e) {
                        failure = e.getCause().getClass().getSimpleName() + ": " + e.getCause().getMessage();
                        throw e.getCause();
                    } finally {
                        listener.returned(called, method.getName(), words, failure);
                    }
                });
    }

    private static List<String> words(Describer describer, Parameter[] parameters, Object[] arguments) {
        List<String> words = new ArrayList<>();
        for (int i = 0; i < parameters.length; ++i) {
            if (arguments[i] != null) {
                words.add(describe(describer, parameters[i].getName(), arguments[i]));
            }
        }
        return words;
    }

    private static String describe(Describer describer, String parameter, Object value) {
        if (value instanceof byte[] tag) {
            return parameter + " " + describer.bytes(tag);
        }
        if (value instanceof HandleValues values) {
            return parameter.equals("attributeValues") ? describer.values(values, describer::attribute)
                    : describer.values(values, describer::parameter);
        }
        if (value instanceof int[] handles) {
            return parameter.equals("attributes") ? describer.set(handles, describer::attribute)
                    : describer.set(handles, describer::federate);
        }
        if (value instanceof Integer handle) {
            return switch (parameter) {
                case "object" -> describer.object(handle);
                case "objectClass" -> describer.objectClass(handle);
                case "interactionClass" -> describer.interactionClass(handle);
                case "attribute" -> describer.attribute(handle);
                case "federate", "producer" -> handle == 0 ? "nobody" : describer.federate(handle);
                default -> parameter + " " + handle;
            };
        }
        if (value instanceof Supplement supplement) {
            int producer = supplement.producer();
            int[] regions = supplement.sentRegions();
            return "by " + (producer == 0 ? "somebody" : describer.federate(producer))
                    + (regions == null ? "" : " with " + describer.set(regions, describer::region));
        }
        return value instanceof String text ? describer.text(text) : value.toString();
    }
}
