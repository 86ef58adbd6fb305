package tovu.local.wire;

/**
 * Whether the other side of a connection is still there. It is looked at a few times in the seconds after which it is
 * lost, and lost when it was silent each time: so this side may stand still for as long as it likes, and counts that as
 * one time.
 */
public final class Pulse {
    /** So often in the time of silence either side looks, and says something if it has not. */
    public static final int BEATS = 4;

    /** What follows from a beat. */
    public enum Next {
        NOTHING, SAY_SOMETHING, LOST
    }

    private volatile boolean heard = true;
    private volatile boolean said = true;
    private int silent;

    /** Something has come from there, be it a part of a frame. */
    public void hear() {
        if (!heard) {
            heard = true;
        }
    }

    /** Something has gone there. */
    public void say() {
        if (!said) {
            said = true;
        }
    }

    /** To be called each time that {@link #BEATS}th part of the time has passed since it was called last. */
    public Next beat() {
        silent = heard ? 0 : silent + 1;
        Next next = silent >= BEATS ? Next.LOST : said ? Next.NOTHING : Next.SAY_SOMETHING;
        heard = false;
        said = false;
        return next;
    }
}
