package tovu.local.model.time;

import java.util.concurrent.TimeUnit;
import tovu.local.model.value.Saved;

/** The time of the clock on the wall that a federate spends with its logical time granted, and advancing. */
@SuppressWarnings("serial") // kept in memory only
final class Stopwatch implements Saved {
    private final long[] spent = new long[2];
    private int running;
    private long since = System.nanoTime();
    private long turned = since;

    void run(boolean advancing) {
        add();
        running = advancing ? 1 : 0;
        turned = since;
    }

    private void add() {
        long now = System.nanoTime();
        spent[running] += now - since;
        since = now;
    }

    /** The nanoseconds since the state that it is in began. */
    long running() {
        return System.nanoTime() - turned;
    }

    /** The milliseconds spent since they were last taken. */
    int take(boolean advancing) {
        add();
        int which = advancing ? 1 : 0;
        long milliseconds = TimeUnit.NANOSECONDS.toMillis(spent[which]);
        spent[which] -= TimeUnit.MILLISECONDS.toNanos(milliseconds);
        return (int) milliseconds;
    }
}
