import hla.rti1516e.exceptions.RTIexception;
import java.lang.ref.WeakReference;
import java.util.ArrayList;
import java.util.List;
import tovu.local.management.Manager;
import tovu.local.model.Callback;
import tovu.local.model.CallbackSink;
import tovu.local.model.Federate;
import tovu.local.model.FederateCallbacks;
import tovu.local.model.Federation;
import tovu.local.model.FederationPlan;
import tovu.local.model.Federations;
import tovu.local.model.ResignAction;
import tovu.local.model.Session;

/** What sessions leave behind, and what happens to one while the federation's lock is somebody else's. */
final class SessionTest {
    private SessionTest() {
    }

    public static void main(String[] arguments) {
        Harness.run(SessionTest::lossWhileARestoreCompletes, SessionTest::orphansKeepNobody);
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

    private static final Federations FEDERATIONS = new Federations(Manager::new);

    /** Alpha and beta, members of a federation of their own. */
    private static List<Session> members(String federation) throws Exception {
        List<Session> members = new ArrayList<>();
        for (String name : List.of("alpha", "beta")) {
            Session session = new Session(FEDERATIONS);
            session.connect(new Idle());
            if (members.isEmpty()) {
                session.createFederationExecution(new FederationPlan(federation,
                        List.of(System.getProperty("fom.modules") + "/Road.xml"), null, "HLAinteger64Time"));
            }
            session.join(name, "test", federation, List.of());
            members.add(session);
        }
        return members;
    }

    /** The owner of an object that is left behind goes, and nothing keeps it. */
    private static void orphansKeepNobody() throws Exception {
        List<Session> members = members("orphans");
        int[] objects = new int[2];
        for (Session each : members) {
            act(each, (federation, federate) -> {
                int car = federation.lookups().objectClassHandle("Vehicle.Car");
                int[] attributes = {federation.lookups().attributeHandle(car, "Fuel")};
                federation.declarations().subscribeObjectClass(federate, car, attributes, true, "");
                federation.declarations().publishObjectClass(federate, car, attributes);
                objects[members.indexOf(each)] = federation.objectManagement().register(federate, car, null);
            });
        }
        WeakReference<Federate> owner = new WeakReference<>(members.get(0).federate());
        members.remove(0).resign(ResignAction.UNCONDITIONALLY_DIVEST_ATTRIBUTES);
        for (int i = 0; i < 100 && owner.get() != null; ++i) {
            System.gc();
            Thread.sleep(10);
        }
        Harness.equal(owner.get(), null);
        act(members.get(0), (federation, federate) -> federation.objects().name(federate, objects[0]));
    }

    private static void lossWhileARestoreCompletes() throws Exception {
        List<Session> members = members("restored");
        Session alpha = members.get(0);
        Session beta = members.get(1);
        act(beta, (federation, federate) -> federation.time().enableRegulation(federate, 1));
        act(alpha, (federation, federate) -> federation.save().request("noon"));
        for (Session each : members) {
            act(each, (federation, federate) -> federation.save().begun(federate));
            act(each, (federation, federate) -> federation.save().complete(federate, true));
        }
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
}
