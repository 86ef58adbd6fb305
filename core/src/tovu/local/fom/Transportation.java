package tovu.local.fom;

/** The two transportation types; one that a FOM adds stands for the one of these with its reliability. */
public enum Transportation {
    RELIABLE("HLAreliable"), BEST_EFFORT("HLAbestEffort");

    private final String hlaName;

    Transportation(String hlaName) {
        this.hlaName = hlaName;
    }

    public String hlaName() {
        return hlaName;
    }

    /** 1 or 2. */
    public int code() {
        return ordinal() + 1;
    }

    /** The transportation type of a code, or null. */
    public static Transportation ofCode(int code) {
        return code == 1 ? RELIABLE : code == 2 ? BEST_EFFORT : null;
    }
}
