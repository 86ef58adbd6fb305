import hla.rti1516e.exceptions.RTIexception;
import java.io.OutputStream;
import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.locks.LockSupport;
import tovu.local.management.Manager;
import tovu.local.model.exchange.Federate;
import tovu.local.model.federation.Federation;
import tovu.local.model.federation.FederationPlan;
import tovu.local.model.federation.Federations;
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

    /** A member that nobody plays: its callbacks are made at once, and do nothing but change what they change. */
    private static final class Idle implements CallbackSink {
        private static final FederateCallbacks NOBODY = (FederateCallbacks) java.lang.reflect.Proxy.newProxyInstance(
                Idle.class.getClassLoader(), new Class<?>[] {FederateCallbacks.class}, (proxy, method, given) -> null);

        @Override
        public void post(Callback callback) {
            try {
                callback.deliver(NOBODY);
            } catch (Exception e) {
                throw new IllegalStateException(e);
            }
        }

        @Override
        public void postToConnection(Callback callback) {
            post(callback);
        }

        @Override
        public void dropMembership() {
            // there is never anything left
        }
    }

    private static List<Session> twoWith(SaveStore saves) throws Exception {
        Federations federations = new Federations(Manager::new, name -> saves);
        List<Session> members = new ArrayList<>();
        for (String name : List.of("alpha", "beta")) {
            Session session = new Session(federations);
            session.connect(new Idle());
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
        Harness.equal(alpha.call((federation, federate) -> federation.time().galt(federate)), null);
    }

    /** Takes what is written for as long as somebody writes. */
    private static final class Bottomless extends OutputStream implements SaveStore, SaveStore.Draft {
        private final CountDownLatch begun = new CountDownLatch(1);
        private final CountDownLatch discarded = new CountDownLatch(1);
        private boolean published;

        @Override
        public boolean isQuick() {
            return false;
        }

        @Override
        public Draft draft(String label) {
            return this;
        }

        @Override
        public Found find(String label) {
            return null;
        }

        @Override
        public OutputStream content() {
            return this;
        }

        @Override
        public void write(int octet) {
            begun.countDown();
            LockSupport.parkNanos(100_000);
        }

        @Override
        public void complete() {
            // nothing stays
        }

        @Override
        public void publish() {
            published = true;
        }

        @Override
        public void close() {
            discarded.countDown();
        }
    }

    private static void endOfASaveWhileItIsWritten() throws Exception {
        for (boolean aborted : new boolean[] {true, false}) {
            Bottomless saves = new Bottomless();
            List<Session> members = twoWith(saves);
            save(members);
            saves.begun.await();
            Harness.refuses("SaveInProgress", members.get(0)::requireNoSaveOrRestore);
            if (aborted) {
                act(members.get(0), (federation, federate) -> federation.save().abort());
            } else {
                members.get(1).abandon("lost");
            }
            members.get(0).requireNoSaveOrRestore();
            saves.discarded.await();
            Harness.that(!saves.published, "a save that has failed is there");
        }
    }
}
