package tovu.local.fom;

/** An object class with its attributes. */
public final class ObjectClass extends ClassNode<ObjectClass, Attribute> {
    ObjectClass(int handle, String name, ObjectClass parent) {
        super(handle, name, parent);
    }

    @Override
    ObjectClass self() {
        return this;
    }
}
