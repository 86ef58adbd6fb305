package tovu.local.cluster;

import hla.rti1516e.exceptions.RTIexception;
import hla.rti1516e.exceptions.RTIinternalError;
import java.io.IOException;
import java.util.List;
import java.util.UUID;
import java.util.concurrent.ScheduledExecutorService;
import java.util.concurrent.ScheduledThreadPoolExecutor;
import java.util.concurrent.ThreadPoolExecutor;
import java.util.concurrent.TimeUnit;
import org.apache.curator.framework.api.CuratorWatcher;
import org.apache.curator.framework.api.transaction.CuratorOp;
import org.apache.zookeeper.CreateMode;
import org.apache.zookeeper.KeeperException;
import tovu.local.hub.Cluster;
import tovu.local.hub.ClusterSettings;
import tovu.local.hub.HubLog;
import tovu.local.model.federation.FederationPlan;
import tovu.local.model.federation.Federations;
import tovu.local.model.federation.Placement;
import tovu.local.model.port.Elsewhere;
import tovu.local.model.port.SaveStore;
import tovu.local.model.save.MemorySaves;
import tovu.local.model.value.FederationInformation;
import tovu.local.saves.SharedSaves;
import tovu.local.watch.ClusterView;

/**
 * The cluster as ZooKeeper knows it: a node for each hub, which lives as long as the hub's session, and a node for each
 * federation, which names the hub that has it. A hub's node has a name that never comes again, and every change is made
 * together with one of the hub's own node: who is dead for the others changes nothing any more, and does not come back.
 */
final class ZooKeeperCluster implements Cluster, Placement, Ensemble.Events {
    private static final long SWEEP_SECONDS = 10; // when nothing has happened that calls for one
    private static final long LOAD_SECONDS = 2;
    private static final String TAKEN_FOR_DEAD =
            "the others took this hub for dead, because ZooKeeper had not heard of it in time";

    private final ClusterSettings settings;
    private final Ensemble ensemble;
    private final Registry registry;
    private final Overview overview;
    private final SharedSaves saves; // or null
    private final ScheduledExecutorService clock =
            new ScheduledThreadPoolExecutor(1, new ThreadPoolExecutor.DiscardPolicy()); // whatever comes at the end
    private final CuratorWatcher hubsChange = event -> clock.execute(guarded(this::sweep));
    private Member hub;
    private Federations federations;
    private int told; // the load that the others know
    private volatile boolean entered; // once, at the beginning
    private volatile String me; // this hub's node, or null
    private String former; // the node that it had before, or null

    ZooKeeperCluster(ClusterSettings settings) throws IOException {
        this.settings = settings;
        ensemble = new Ensemble(settings);
        registry = new Registry(ensemble);
        overview = new Overview(registry);
        saves = settings.saves() == null ? null : new SharedSaves(settings.saves());
    }

    @Override
    public Placement placement() {
        return this;
    }

    @Override
    public void enter(Member theHub) throws IOException {
        hub = theHub;
        federations = theHub.federations();
        if (address().matches("(0\\.0\\.0\\.0|\\[[0:]*]):.*")) {
            throw new IOException("other machines cannot connect to " + address()
                    + ": give --advertise HOST:PORT, where federates reach this hub");
        }
        ensemble.connect(this);
        try {
            clock.submit(this::confirm).get();
            entered = true;
            // What it takes over may take long; nobody who could connect meanwhile is to wait for that.
            clock.scheduleWithFixedDelay(guarded(this::settle), 0, SWEEP_SECONDS, TimeUnit.SECONDS);
            clock.scheduleWithFixedDelay(guarded(this::lookAround), LOAD_SECONDS, LOAD_SECONDS, TimeUnit.SECONDS);
            int session = ensemble.sessionMillis();
            if (session > TimeUnit.SECONDS.toMillis(settings.takeoverAfter())) {
                HubLog.say("warning: ZooKeeper takes a hub for dead after " + session / 1_000.0 + " s, not after "
                        + settings.takeoverAfter() + "; its tickTime is too great for that");
            }
        } catch (Exception e) {
            throw new IOException("this hub cannot become one of the cluster: "
                    + (e.getCause() == null ? e : e.getCause().getMessage()), e);
        }
    }

    private String address() {
        return settings.advertised() == null ? hub.address() : settings.advertised();
    }

    private String name() {
        return settings.name() == null ? address() : settings.name();
    }

    @Override
    public void connected() {
        if (entered) {
            clock.execute(guarded(this::settle));
        }
    }

    @Override
    public void expired() {
        clock.execute(guarded(() -> lose(TAKEN_FOR_DEAD)));
    }

    private interface Task {
        void run() throws Exception;
    }

    /** What fails because ZooKeeper does not answer is made good by looking at everything anew. */
    private Runnable guarded(Task task) {
        return () -> {
            try {
                task.run();
            } catch (Ensemble.Unreachable | KeeperException.NoNodeException e) {
                if (ensemble.isReachable()) { // or it is done when it is again
                    clock.schedule(guarded(this::settle), 1, TimeUnit.SECONDS);
                }
            } catch (KeeperException e) {
                HubLog.say("ZooKeeper refuses what this hub has to change: " + e.getMessage());
            } catch (Exception | Error e) {
                HubLog.fault(e);
            }
        };
    }

    /** What this hub has may be another one's by now. */
    private void lose(String reason) {
        String mine = me;
        if (mine == null) {
            return;
        }
        me = null;
        former = mine;
        HubLog.say("left the cluster: " + reason);
        federations.clear();
        if (saves != null) {
            saves.clear();
        }
        hub.expel().accept(reason);
    }

    private void settle() throws Exception {
        confirm();
        sweep();
    }

    /** Has this hub in the cluster, and none of what it lost when it was not. */
    private Void confirm() throws Exception {
        String mine = me;
        if (mine != null && ensemble.ask(zookeeper -> zookeeper.checkExists().forPath(Registry.hubPath(mine))) == null) {
            lose("its place in the cluster was removed");
        }
        if (me == null) {
            register();
        }
        return null;
    }

    private void register() throws Exception {
        String node = NodeName.of(name()) + "~" + UUID.randomUUID().toString().substring(0, 8);
        told = load();
        ensemble.ask(zookeeper -> {
            for (String each : List.of(Registry.HUBS, Registry.FEDERATIONS)) {
                if (zookeeper.checkExists().forPath(each) == null) {
                    zookeeper.create().orSetData().creatingParentsIfNeeded().forPath(each, new byte[0]);
                }
            }
            if (former != null) { // whose session may have gone on
                zookeeper.delete().quietly().forPath(Registry.hubPath(former));
            }
            return zookeeper.create().withMode(CreateMode.EPHEMERAL).forPath(Registry.hubPath(node), content(told));
        });
        me = node;
        HubLog.say("entered the cluster as " + name() + ", which federates reach at " + address());
    }

    private int load() {
        return federations.count() + hub.connections().getAsInt();
    }

    private byte[] content(int load) {
        String version = ZooKeeperCluster.class.getPackage().getImplementationVersion();
        return HubNode.content(name(), address(), load, version == null ? "" : version);
    }

    /**
     * In the folder of saves it sees that it was taken for dead before ZooKeeper tells it: at once when it has stood
     * still, and also when it is cut off.
     */
    private void lookAround() throws Exception {
        if (saves != null && saves.isTakenOver()) {
            lose(TAKEN_FOR_DEAD);
        } else if (ensemble.isReachable()) {
            tellLoad();
            overview.refresh(name());
        }
    }

    private void tellLoad() throws Exception {
        String mine = me;
        int load = load();
        if (mine != null && load != told) {
            ensemble.ask(zookeeper -> zookeeper.setData().forPath(Registry.hubPath(mine), content(load)));
            told = load;
        }
    }

    private RTIinternalError unreachable(Exception why) {
        return new RTIinternalError((why instanceof Ensemble.Unreachable ? why.getMessage()
                : "This hub is not one of the cluster at the moment (" + why + ")")
                + ": what runs at this hub goes on, and all else has to wait; try again later");
    }

    @Override
    public String leastLoaded() {
        String least = null;
        int leastLoad = load() - 1; // who asks is here already
        try {
            for (String each : registry.hubs()) {
                HubNode other = each.equals(me) ? null : registry.hub(each);
                if (other != null && other.load() < leastLoad) {
                    least = other.address();
                    leastLoad = other.load();
                }
            }
        } catch (Ensemble.Unreachable | KeeperException e) {
            return null; // the claim says what is wrong
        }
        return least;
    }

    @Override
    public SaveStore claim(FederationPlan plan) throws RTIexception {
        String mine = me;
        String name = plan.name();
        try {
            if (mine == null) {
                throw new Ensemble.Unreachable();
            }
            long epoch = saves == null ? 1 : saves.lastEpoch(name) + 1;
            byte[] node = new FederationNode(mine, name(), epoch, plan.timeImplementation(), "").content();
            change(mine, zookeeper -> zookeeper.transactionOp().create().forPath(Registry.federationPath(name), node));
            SaveStore store = saves == null ? new MemorySaves() : saves.take(name, epoch);
            if (saves != null) {
                saves.keepPlan(name, PlanFile.content(plan));
            }
            HubLog.say("federation " + name + " is here, in epoch " + epoch);
            return store;
        } catch (IOException e) {
            release(name);
            throw new RTIinternalError("Federation execution '" + name + "' cannot be created, because its saves could not "
                    + "be kept: " + SaveStore.reason(e) + "; see to the folder that the hubs share");
        } catch (KeeperException.NodeExistsException e) {
            throw Federations.alreadyExists(name);
        } catch (Ensemble.Unreachable | KeeperException e) {
            throw unreachable(e);
        }
    }

    /** Changes something as this hub, which it is no longer when its node is gone. */
    private void change(String mine, Ensemble.Work<CuratorOp> change)
            throws Ensemble.Unreachable, KeeperException {
        ensemble.ask(zookeeper -> zookeeper.transaction().forOperations(
                zookeeper.transactionOp().setData().forPath(Registry.hubPath(mine), content(load())), change.in(zookeeper)));
    }

    @Override
    public void release(String federation) {
        String mine = me;
        if (saves != null) {
            guarded(() -> saves.release(federation)).run();
        }
        if (mine != null) {
            guarded(() -> change(mine, zookeeper ->
                    zookeeper.transactionOp().delete().forPath(Registry.federationPath(federation)))).run();
        }
    }

    @Override
    public boolean seek(String federation) throws RTIexception {
        try {
            Registry.Seen seen = registry.federation(federation);
            if (seen == null || seen.node().hub().equals(me)) {
                return seen != null;
            }
            HubNode other = registry.hub(seen.node().hub());
            if (other != null) {
                throw new Elsewhere(other.address());
            }
            throw new RTIinternalError("Federation execution '" + federation + "' was at the hub " + seen.node().hubName()
                    + ", which is lost; another one is about to take over: try again in a few seconds");
        } catch (Ensemble.Unreachable | KeeperException e) {
            throw unreachable(e);
        }
    }

    @Override
    public List<FederationInformation> others() throws RTIexception {
        try {
            return registry.federations().stream().filter(each -> !each.node().hub().equals(me))
                    .map(each -> new FederationInformation(each.federation(), each.node().timeImplementation())).toList();
        } catch (Ensemble.Unreachable | KeeperException e) {
            throw unreachable(e);
        }
    }

    /**
     * Looks after what no hub has. Federations are read before the hubs: whose hub is not there then has lost it.
     */
    private void sweep() throws Exception {
        String mine = me;
        if (mine == null) {
            return;
        }
        List<Registry.Seen> seen = registry.federations();
        List<String> living = registry.hubs(hubsChange);
        for (Registry.Seen each : seen) {
            if (each.node().hub().equals(mine) || !living.contains(each.node().hub()) && takeOver(mine, each)) {
                lookAfter(mine, each.federation());
            }
        }
    }

    /** @return whether this hub is the one that has it now */
    private boolean takeOver(String mine, Registry.Seen lost) throws Exception {
        FederationNode taken = new FederationNode(mine, name(), lost.node().epoch() + 1, lost.node().timeImplementation(),
                lost.node().hubName());
        try {
            change(mine, zookeeper -> zookeeper.transactionOp().setData().withVersion(lost.version())
                    .forPath(Registry.federationPath(lost.federation()), taken.content()));
            Overview.takenOver(lost.federation(), name(), lost.node().hubName());
            HubLog.say("takes over federation " + lost.federation() + " of the lost hub " + lost.node().hubName());
            return true;
        } catch (KeeperException.BadVersionException | KeeperException.NoNodeException e) {
            return false; // another hub was quicker, or this one is lost itself
        }
    }

    /** Has here what is this hub's and is not here: what it has taken over, or what came to nothing when it was created. */
    private void lookAfter(String mine, String name) throws Exception {
        synchronized (federations) { // or it might be just being created
            Registry.Seen seen = registry.federation(name);
            if (seen == null || !seen.node().hub().equals(mine) || federations.hosts(name)) {
                return;
            }
            if (saves != null) {
                try {
                    SaveStore store = saves.take(name, seen.node().epoch());
                    byte[] plan = saves.plan(name);
                    if (plan != null) {
                        federations.host(PlanFile.plan(name, plan), store);
                        HubLog.say("federation " + name + " is here, with its saves, in epoch " + seen.node().epoch());
                        return;
                    }
                    saves.release(name);
                } catch (IOException | RTIexception e) {
                    HubLog.say("federation " + name + " cannot be taken over: " + SaveStore.reason(e));
                    return; // the storage may come back
                }
            }
            change(mine, zookeeper -> zookeeper.transactionOp().delete().forPath(Registry.federationPath(name)));
            HubLog.say("federation " + name + " is over; its name is free");
        }
    }

    @Override
    public ClusterView view() {
        return overview.latest(ensemble.isReachable());
    }

    @Override
    public void leave() {
        clock.shutdownNow();
        ensemble.close();
    }
}
