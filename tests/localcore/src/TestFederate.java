import java.lang.reflect.Proxy;
import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Queue;
import tovu.local.model.Callback;
import tovu.local.model.CallbackSink;
import tovu.local.model.Federate;
import tovu.local.model.FederateCallbacks;
import tovu.local.model.Federation;
import tovu.local.model.FederationPlan;
import tovu.local.model.Federations;
import tovu.local.model.ResignAction;
import tovu.local.model.Session;

/** A federate of the model alone: what it is told it writes down, one line a callback. */
class TestFederate implements CallbackSink {
    /** Something to do as a member. */
    interface Act {
        void on(Federation federation, Federate me) throws Exception;
    }

    /** Something to ask as a member. */
    interface Ask<R> {
        R on(Federation federation, Federate me) throws Exception;
    }

    final Session session;
    private final Queue<Callback> queue = new ArrayDeque<>();
    private final List<String> lines = new ArrayList<>();
    private final FederateCallbacks callbacks = (FederateCallbacks) Proxy.newProxyInstance(
            FederateCallbacks.class.getClassLoader(), new Class<?>[] {FederateCallbacks.class},
            (proxy, method, args) -> {
                hear(method.getName(), args == null ? new Object[0] : args);
                return null;
            });

    TestFederate(Federations federations) throws Exception {
        session = new Session(federations);
        session.connect(this);
    }

    static void create(Federations federations, String name, List<String> modules, String time) throws Exception {
        new TestFederate(federations).session.createFederationExecution(
                new FederationPlan(name, modules, null, time));
    }

    static TestFederate join(Federations federations, String federation, String name) throws Exception {
        return new TestFederate(federations).joined(federation, name);
    }

    final TestFederate joined(String federation, String name) throws Exception {
        session.join(name, "type", federation, List.of());
        return this;
    }

    /** What comes of a callback; here, a line. */
    void hear(String callback, Object[] args) {
        lines.add(callback + describe(args));
    }

    private static String describe(Object[] args) {
        return Arrays.stream(args).map(arg -> arg instanceof int[] handles ? Arrays.toString(handles)
                : arg instanceof byte[] tag ? "'" + new String(tag) + "'" : String.valueOf(arg)).toList().toString()
                .replaceAll("^\\[(.*)\\]$", "($1)");
    }

    @Override
    public synchronized void post(Callback callback) {
        queue.add(callback);
    }

    @Override
    public void postToConnection(Callback callback) {
        post(callback);
    }

    @Override
    public synchronized void dropMembership() {
        queue.clear();
    }

    private synchronized Callback next() {
        return queue.poll();
    }

    /** Takes all callbacks that are there, and gives back their lines. */
    final List<String> told() throws Exception {
        lines.clear();
        for (Callback next = next(); next != null; next = next()) {
            next.deliver(callbacks);
        }
        return List.copyOf(lines);
    }

    final void act(Act act) throws Exception {
        ask((federation, me) -> {
            act.on(federation, me);
            return null;
        });
    }

    final <R> R ask(Ask<R> ask) throws Exception {
        Exception[] failure = new Exception[1];
        R result = session.callOutsideSave((federation, me) -> {
            try {
                return ask.on(federation, me);
            } catch (Exception e) {
                failure[0] = e;
                return null;
            }
        });
        if (failure[0] != null) {
            throw failure[0];
        }
        return result;
    }

    final void resign(ResignAction action) throws Exception {
        session.resign(action);
    }

    final int handle() {
        return session.federate().handle();
    }
}
