package tovu.local.model.value;

/** What becomes of a resigning federate's attributes and requests; the ordinal is the action's code. */
public enum ResignAction {
    UNCONDITIONALLY_DIVEST_ATTRIBUTES(false, false, true),
    DELETE_OBJECTS(false, true, false),
    CANCEL_PENDING_OWNERSHIP_ACQUISITIONS(true, false, false),
    DELETE_OBJECTS_THEN_DIVEST(false, true, true),
    CANCEL_THEN_DELETE_THEN_DIVEST(true, true, true),
    NO_ACTION(false, false, false);

    private final boolean cancels;
    private final boolean deletes;
    private final boolean divests;

    ResignAction(boolean cancels, boolean deletes, boolean divests) {
        this.cancels = cancels;
        this.deletes = deletes;
        this.divests = divests;
    }

    public boolean cancels() {
        return cancels;
    }

    public boolean deletes() {
        return deletes;
    }

    public boolean divests() {
        return divests;
    }

    /** The action that a switches table names, such as CancelThenDeleteThenDivest; anything else is no action. */
    public static ResignAction named(String name) {
        for (ResignAction action : values()) {
            if (action.name().replace("_", "").equalsIgnoreCase(name)) {
                return action;
            }
        }
        return NO_ACTION;
    }
}
