import hla.rti1516e.exceptions.RTIexception;
import java.io.OutputStream;
import java.lang.reflect.InvocationHandler;
import java.lang.reflect.Proxy;
import java.util.ArrayList;
import java.util.List;
import java.util.Set;
import java.util.concurrent.ConcurrentHashMap;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.locks.LockSupport;
import tovu.local.management.Manager;
import tovu.local.model.exchange.Federate;
import tovu.local.model.federation.Federation;
import tovu.local.model.federation.FederationPlan;
import tovu.local.model.federation.Federations;
import tovu.local.model.federation.Placement;
import tovu.local.model.federation.Session;
import tovu.local.model.port.Callback;
import tovu.local.model.port.CallbackSink;
import tovu.local.model.port.FederateCallbacks;
import tovu.local.model.port.SaveStore;
import tovu.local.model.save.MemorySaves;

/** What happens to a session while the federation's lock is somebody else's. */
final class SessionTest {
    private SessionTest() {
    }

    public static void main(String[] arguments) {
        Harness.run(SessionTest::lossWhileARestoreCompletes, SessionTest::endOfASaveWhileItIsWritten);
    }

    /** What a member does, under its federation's lock. */
    private interface Action {
        void by(Federation federation, Federate federate) throws RTIexception;
    }

    private static void act(Session member, Action action) throws RTIexception {
        member.call((federation, federate) -> {
            action.by(federation, federate);
            return null;
        });
    }

    private static <T> T actingAs(Class<T> type, InvocationHandler what) {
        return type.cast(Proxy.newProxyInstance(type.getClassLoader(), new Class<?>[] {type}, what));
    }

    /** Nobody plays the members: their callbacks are made at once, and do nothing but change what they change. */
    private static CallbackSink idle() {
        FederateCallbacks nobody = actingAs(FederateCallbacks.class, (proxy, method, given) -> null);
        return actingAs(CallbackSink.class, (proxy, method, given) -> {
            if (given != null && given[0] instanceof Callback callback) {
                callback.deliver(nobody);
            }
            return null;
        });
    }

    private static List<Session> twoWith(SaveStore saves) throws Exception {
        Federations federations = new Federations(Manager::new, Placement.alone(name -> saves));
        List<Session> members = new ArrayList<>();
        for (String name : List.of("alpha", "beta")) {
            Session session = new Session(federations);
            session.connect(idle());
            if (members.isEmpty()) {
                session.createFederationExecution(new FederationPlan("restored", Harness.sources(List.of(Harness.AIR)), null, "HLAinteger64Time"));
            }
            session.join(name, "test", "restored", List.of());
            members.add(session);
        }
        return members;
    }

    private static void save(List<Session> members) throws Exception {
        act(members.get(0), (federation, federate) -> federation.save().request("noon"));
        for (Session each : members) {
            act(each, (federation, federate) -> federation.save().begun(federate));
            act(each, (federation, federate) -> federation.save().complete(federate, true));
        }
    }

    private static void lossWhileARestoreCompletes() throws Exception {
        List<Session> members = twoWith(new MemorySaves());
        Session alpha = members.get(0);
        Session beta = members.get(1);
        act(beta, (federation, federate) -> federation.time().enableRegulation(federate, 1));
        save(members);
        act(alpha, (federation, federate) -> federation.restore().request(federate, "noon"));
        act(beta, (federation, federate) -> federation.restore().complete(federate, true));
        Thread loss = new Thread(() -> beta.abandon("lost"));
        act(alpha, (federation, federate) -> {
            loss.start();
            while (loss.getState() != Thread.State.BLOCKED) {
                Thread.onSpinWait();
            }
            federation.restore().complete(federate, true);
        });
        loss.join();
        assert alpha.call((federation, federate) -> federation.time().galt(federate)) == null;
    }

    private static void endOfASaveWhileItIsWritten() throws Exception {
        for (boolean aborted : new boolean[] {true, false}) {
            CountDownLatch begun = new CountDownLatch(1);
            CountDownLatch discarded = new CountDownLatch(1);
            OutputStream slow = new OutputStream() {
                @Override
                public void write(int octet) {
                    begun.countDown();
                    LockSupport.parkNanos(100_000);
                }
            };
            Set<String> done = ConcurrentHashMap.newKeySet();
            SaveStore.Draft draft = actingAs(SaveStore.Draft.class, (proxy, method, given) -> {
                if (done.add(method.getName()) && method.getName().equals("close")) {
                    discarded.countDown();
                }
                return method.getName().equals("content") ? slow : null;
            });
            List<Session> members = twoWith(actingAs(SaveStore.class, (proxy, method, given) ->
                    method.getName().equals("isQuick") ? (Object) false : draft));
            save(members);
            begun.await();
            Harness.refuses("SaveInProgress", members.get(0)::requireNoSaveOrRestore);
            if (aborted) {
                act(members.get(0), (federation, federate) -> federation.save().abort());
            } else {
                members.get(1).abandon("lost");
            }
            members.get(0).requireNoSaveOrRestore();
            discarded.await();
            assert !done.contains("publish") : "a save that has failed is there";
        }
    }
}
