package tovu.local.fom;

/** A parameter of an interaction class. */
public final class Parameter extends Member {
    Parameter(int handle, String name) {
        super(handle, name);
    }
}
