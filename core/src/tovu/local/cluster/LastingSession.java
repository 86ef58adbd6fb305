package tovu.local.cluster;

import java.io.IOException;
import org.apache.zookeeper.Watcher;
import org.apache.zookeeper.ZooKeeper;
import org.apache.zookeeper.client.ZKClientConfig;

/**
 * A session that ends when ZooKeeper says so. Curator would end it by itself once ZooKeeper has been silent for as long
 * as the session may be; but when ZooKeeper stands still, nobody is taken for dead, and what a hub has stays its own.
 */
@SuppressWarnings("try") // its close may be interrupted
final class LastingSession extends ZooKeeper {
    static final int CURATOR_PERCENT = 1; // of what the session says, which must fit an int
    private static final int LONGEST_MILLIS = Integer.MAX_VALUE;

    LastingSession(String servers, int timeout, Watcher watcher, boolean readOnly, ZKClientConfig config)
            throws IOException {
        super(servers, timeout, watcher, readOnly, config);
    }

    /** What Curator goes by: six hours of silence, in its percents. */
    @Override
    public int getSessionTimeout() {
        return LONGEST_MILLIS;
    }

    /** What ZooKeeper goes by. */
    int negotiatedTimeout() {
        return super.getSessionTimeout();
    }
}
