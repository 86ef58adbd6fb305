package tovu.local.fom;

/** One thing that modules state: the first statement counts, and every other has to agree with it. */
final class Property<T> {
    private T value;
    private FomModule module;
    private FomElement place;

    T or(T unstated) {
        return value == null ? unstated : value;
    }

    /** Whether it is the MIM that states it. */
    boolean isStandard() {
        return module != null && module.isMim();
    }

    /** Where it is stated: the module and the line. */
    String origin() {
        return module.at(place);
    }

    /**
     * Takes over what nothing was stated of yet.
     *
     * @param stated null for nothing
     * @return whether it agrees with what was stated before
     */
    boolean accept(T stated, FomModule in, FomElement at) {
        if (stated != null && value == null) {
            value = stated;
            module = in;
            place = at;
        }
        return stated == null || stated.equals(value);
    }
}
