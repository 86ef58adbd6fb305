package tovu.local.fom;

import java.io.Serializable;

/**
 * A transportation type, of which FOM modules may add some to the two standard ones.
 *
 * @param hlaName    its name
 * @param isReliable whether what it transports arrives in any case
 */
public record Transportation(String hlaName, boolean isReliable) implements Serializable {
    public static final Transportation RELIABLE = new Transportation("HLAreliable", true);
    public static final Transportation BEST_EFFORT = new Transportation("HLAbestEffort", false);

    /** That of the standard type that is as reliable, 1 or 2: federates are told of no others. */
    public int code() {
        return isReliable ? 1 : 2;
    }

    /** The standard transportation type of that name, or null. */
    static Transportation standard(String name) {
        return name.equals(RELIABLE.hlaName) ? RELIABLE : name.equals(BEST_EFFORT.hlaName) ? BEST_EFFORT : null;
    }

    /** The standard transportation type of a code, or null. */
    public static Transportation ofCode(int code) {
        return code == 1 ? RELIABLE : code == 2 ? BEST_EFFORT : null;
    }

    @Override
    public String toString() {
        return hlaName + (isReliable ? " (reliable)" : " (not reliable)");
    }
}
