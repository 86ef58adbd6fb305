package tovu.local.fom;

/** An attribute or a parameter; subclasses inherit it under the same handle. */
public abstract class Member {
    private final int handle;
    private final String name;
    final Property<String> dataType = new Property<>();

    Member(int handle, String name) {
        this.handle = handle;
        this.name = name;
    }

    /** Its number, unique among the attributes or the parameters of the object model. */
    public final int handle() {
        return handle;
    }

    public final String name() {
        return name;
    }

    /** The name of its data type, or an empty text. */
    public final String dataType() {
        return dataType.or("");
    }

    @Override
    public final String toString() {
        return name;
    }
}
