import java.util.List;
import tovu.local.management.Manager;
import tovu.local.model.Callback;
import tovu.local.model.CallbackSink;
import tovu.local.model.FederateCallbacks;
import tovu.local.model.FederationPlan;
import tovu.local.model.Federations;
import tovu.local.model.Session;

/** What happens to an ambassador's membership while the federation's lock is somebody else's. */
final class SessionTest {
    private SessionTest() {
    }

    public static void main(String[] arguments) {
        Harness harness = new Harness();
        harness.run("loss while a restore completes", SessionTest::lossWhileARestoreCompletes);
        harness.finish();
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

    private static final Federations FEDERATIONS = new Federations(Manager::new);

    private static Session member(String name) throws Exception {
        Session session = new Session(FEDERATIONS);
        session.connect(new Idle());
        if (name.equals("alpha")) {
            session.createFederationExecution(new FederationPlan("saved", List.of(), null, "HLAinteger64Time"));
        }
        session.join(name, "test", "saved", List.of());
        return session;
    }

    private static void lossWhileARestoreCompletes() throws Exception {
        Session alpha = member("alpha");
        Session beta = member("beta");
        beta.call((federation, federate) -> {
            federation.time().enableRegulation(federate, 1);
            return null;
        });
        alpha.call((federation, federate) -> {
            federation.save().request("noon");
            return null;
        });
        for (Session each : List.of(alpha, beta)) {
            each.call((federation, federate) -> {
                federation.save().begun(federate);
                federation.save().complete(federate, true);
                return null;
            });
        }
        alpha.call((federation, federate) -> {
            federation.restore().request(federate, "noon");
            return null;
        });
        beta.call((federation, federate) -> {
            federation.restore().complete(federate, true);
            return null;
        });
        Thread loss = new Thread(() -> beta.abandon("lost"));
        alpha.call((federation, federate) -> {
            loss.start();
            while (loss.getState() != Thread.State.BLOCKED) {
                Thread.onSpinWait();
            }
            federation.restore().complete(federate, true);
            return null;
        });
        loss.join();
        Harness.equal(alpha.call((federation, federate) -> federation.time().galt(federate)), null);
    }
}
