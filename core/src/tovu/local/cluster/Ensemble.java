package tovu.local.cluster;

import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.util.List;
import java.util.concurrent.ExecutionException;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.TimeoutException;
import org.apache.curator.framework.CuratorFramework;
import org.apache.curator.framework.CuratorFrameworkFactory;
import org.apache.curator.framework.api.ACLProvider;
import org.apache.curator.framework.state.ConnectionState;
import org.apache.curator.utils.ZookeeperFactory;
import org.apache.zookeeper.KeeperException;
import org.apache.zookeeper.ZooDefs;
import org.apache.zookeeper.client.ZKClientConfig;
import org.apache.zookeeper.data.ACL;
import tovu.local.hub.ClusterSettings;

/**
 * The connection to ZooKeeper. Its session outlasts any time in which ZooKeeper cannot be reached, and ends only when
 * ZooKeeper itself says so: as long as nobody can be told that a hub is dead, it is not. What is asked meanwhile fails
 * at once.
 */
final class Ensemble {
    /** Hears of the connection, in a thread that must not wait for it. */
    interface Events {
        void connected();

        /** Whatever went with the session is gone. */
        void expired();
    }

    /** Asks ZooKeeper something. */
    interface Work<R> {
        R in(CuratorFramework zookeeper) throws Exception;
    }

    /** ZooKeeper does not answer; what it was asked to do may be done nevertheless. */
    static final class Unreachable extends Exception {
        private static final long serialVersionUID = 1;

        Unreachable() {
            super("ZooKeeper, which keeps the hubs together, cannot be reached");
        }
    }

    private static final String DEFAULT_PATH = "rti1516e";
    private static final int FIRST_SECONDS = 10;
    private static final int PATIENCE_SECONDS = 5;

    private final String servers;
    private final CuratorFramework zookeeper;
    private final ExecutorService asking = Executors.newCachedThreadPool(task -> {
        Thread thread = new Thread(task, "zookeeper");
        thread.setDaemon(true);
        return thread;
    });
    private volatile boolean reachable;

    Ensemble(ClusterSettings settings) throws IOException {
        int slash = settings.servers().indexOf('/');
        servers = slash < 0 ? settings.servers() : settings.servers().substring(0, slash);
        String path = slash < 0 ? DEFAULT_PATH : settings.servers().substring(slash + 1);
        CuratorFrameworkFactory.Builder builder = CuratorFrameworkFactory.builder().connectString(servers)
                .namespace(path).dontUseContainerParents()
                .sessionTimeoutMs((int) TimeUnit.SECONDS.toMillis(settings.takeoverAfter()))
                .connectionTimeoutMs((int) TimeUnit.SECONDS.toMillis(PATIENCE_SECONDS))
                .simulatedSessionExpirationPercent(LastingSession.CURATOR_PERCENT)
                .retryPolicy((count, elapsed, sleeper) -> false).zookeeperFactory(sessions(security(settings)));
        boolean named = settings.login() != null || System.getProperty("java.security.auth.login.config") != null;
        if (settings.login() != null) {
            builder.authorization("digest", Files.readString(settings.login()).strip().getBytes(StandardCharsets.UTF_8));
        }
        List<ACL> rights = named ? ZooDefs.Ids.CREATOR_ALL_ACL : ZooDefs.Ids.OPEN_ACL_UNSAFE;
        zookeeper = builder.aclProvider(new ACLProvider() {
            @Override
            public List<ACL> getDefaultAcl() {
                return rights;
            }

            @Override
            public List<ACL> getAclForPath(String node) {
                return rights;
            }
        }).build();
    }

    private static ZookeeperFactory sessions(ZKClientConfig config) {
        return (servers, timeout, watcher, readOnly) ->
                new LastingSession(servers, timeout, watcher, readOnly, config);
    }

    private static ZKClientConfig security(ClusterSettings settings) {
        ZKClientConfig config = new ZKClientConfig();
        if (settings.ca() != null) {
            config.setProperty(ZKClientConfig.SECURE_CLIENT, "true");
            config.setProperty(ZKClientConfig.ZOOKEEPER_CLIENT_CNXN_SOCKET,
                    "org.apache.zookeeper.ClientCnxnSocketNetty");
            config.setProperty("zookeeper.ssl.trustStore.location", settings.ca().toString());
            config.setProperty("zookeeper.ssl.trustStore.type", "PEM");
        }
        if (settings.identity() != null) {
            config.setProperty("zookeeper.ssl.keyStore.location", settings.identity().toString());
            config.setProperty("zookeeper.ssl.keyStore.type", "PEM");
        }
        return config;
    }

    void connect(Events events) throws IOException {
        zookeeper.getConnectionStateListenable().addListener((client, state) -> {
            reachable = state.isConnected();
            if (state == ConnectionState.LOST) {
                events.expired();
            } else if (state.isConnected()) {
                events.connected();
            }
        });
        zookeeper.start();
        try {
            if (!zookeeper.blockUntilConnected(FIRST_SECONDS, TimeUnit.SECONDS)) {
                throw new IOException("ZooKeeper does not let this hub in at " + servers + " within " + FIRST_SECONDS
                        + " s; start it, or correct --cluster and what it needs");
            }
            reachable = true; // the listener may hear of it only later
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
            throw new IOException(e);
        }
    }

    /** What ZooKeeper has made of the time after which a hub is dead. */
    int sessionMillis() throws Exception {
        return ((LastingSession) zookeeper.getZookeeperClient().getZooKeeper()).negotiatedTimeout();
    }

    boolean isReachable() {
        return reachable;
    }

    /** @throws KeeperException when it refuses */
    <R> R ask(Work<R> work) throws Unreachable, KeeperException {
        if (!reachable) {
            throw new Unreachable();
        }
        Future<R> answer = asking.submit(() -> work.in(zookeeper));
        try {
            return answer.get(PATIENCE_SECONDS, TimeUnit.SECONDS);
        } catch (TimeoutException e) {
            throw new Unreachable();
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
            throw new Unreachable();
        } catch (ExecutionException e) {
            if (e.getCause() instanceof KeeperException.ConnectionLossException
                    || e.getCause() instanceof KeeperException.SessionExpiredException) {
                throw new Unreachable();
            }
            if (e.getCause() instanceof KeeperException refusal) {
                throw refusal;
            }
            throw new IllegalStateException(e.getCause());
        } finally {
            answer.cancel(true);
        }
    }

    void close() {
        zookeeper.close();
        asking.shutdownNow();
    }
}
