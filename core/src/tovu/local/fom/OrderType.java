package tovu.local.fom;

/** How a message is ordered for its receivers; the ordinal is the order type's code. */
public enum OrderType {
    RECEIVE("Receive"), TIMESTAMP("TimeStamp");

    private final String hlaName;

    OrderType(String hlaName) {
        this.hlaName = hlaName;
    }

    public String hlaName() {
        return hlaName;
    }

    @Override
    public String toString() {
        return hlaName;
    }
}
