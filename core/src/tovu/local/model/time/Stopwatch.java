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
    private transient long turned = since;

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

    private void writeObject(ObjectOutputStream out) throws IOException {
        add();
        out.defaultWriteObject();
    }

    /** What a process calls now means nothing to another one. */
    private void readObject(ObjectInputStream in) throws IOException, ClassNotFoundException {
        in.defaultReadObject();
        since = System.nanoTime();
        turned = since;
    }
}
