package tovu.local.model.time;

import java.io.IOException;
import java.io.ObjectInputStream;
import java.io.ObjectOutputStream;
import java.util.concurrent.TimeUnit;
import tovu.local.model.value.Saved;

/** The time of the clock on the wall that a federate spends with its logical time granted, and advancing. */
@SuppressWarnings("serial") // read by what wrote it
final class Stopwatch implements Saved {
    private final long[] spent = new long[2];
    private int running;
    private transient long since = System.nanoTime();

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

    private void writeObject(ObjectOutputStream out) throws IOException {
        run(running == 1);
        out.defaultWriteObject();
    }

    /** What a process calls now means nothing to another one. */
    private void readObject(ObjectInputStream in) throws IOException, ClassNotFoundException {
        in.defaultReadObject();
        since = System.nanoTime();
    }
}
