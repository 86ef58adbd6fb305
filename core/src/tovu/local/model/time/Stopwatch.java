package tovu.local.model.time;

import java.util.concurrent.TimeUnit;
import tovu.local.model.value.Saved;

/** The time of the clock on the wall that a federate spends with its logical time granted, and advancing. */
@SuppressWarnings("serial") // kept in memory only
final class Stopwatch implements Saved {
    private final long[] spent = new long[2];
    private int running;
    private long since = System.nanoTime();

    void run(boolean advancing) {
        long now = System.nanoTime();
        spent[running] += now - since;
        since = now;
        running = advancing ? 1 : 0;
    }

    /** The milliseconds spent since they were last taken. */
    int take(boolean advancing) {
        run(running == 1);
        int which = advancing ? 1 : 0;
        long milliseconds = TimeUnit.NANOSECONDS.toMillis(spent[which]);
        spent[which] -= TimeUnit.MILLISECONDS.toNanos(milliseconds);
        return (int) milliseconds;
    }
}
