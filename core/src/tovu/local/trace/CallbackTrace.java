package tovu.local.trace;

import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Parameter;
import java.lang.reflect.Proxy;
import java.util.StringJoiner;
import java.util.function.Supplier;
import tovu.local.model.Federate;
import tovu.local.model.FederateCallbacks;
import tovu.local.model.HandleValues;
import tovu.local.model.Supplement;

/** Prints each callback before it is made. What a handle stands for is told by the parameter's name. */
public final class CallbackTrace {
    private CallbackTrace() {
    }

    public static FederateCallbacks around(FederateCallbacks callbacks, Supplier<Federate> federate) {
        return (FederateCallbacks) Proxy.newProxyInstance(CallbackTrace.class.getClassLoader(),
                new Class<?>[] {FederateCallbacks.class}, (proxy, method, arguments) -> {
                    Describer describer = new Describer(federate.get());
                    StringJoiner text = new StringJoiner(", ", "<- " + method.getName() + "(", ")");
                    Parameter[] parameters = method.getParameters();
                    for (int i = 0; i < parameters.length; ++i) {
                        if (arguments[i] != null) {
                            text.add(describe(describer, parameters[i].getName(), arguments[i]));
                        }
                    }
                    Trace.print(federate.get(), text.toString());
                    try {
                        return method.invoke(callbacks, arguments);
                    } catch (InvocationTargetException e) {
                        throw e.getCause();
                    }
                });
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
