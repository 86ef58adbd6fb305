package tovu.local.model.exchange;

import java.util.Arrays;
import java.util.Comparator;
import tovu.local.fom.Attribute;
import tovu.local.fom.ObjectClass;
import tovu.local.model.value.Saved;

/** In which order all object instances of a class have their attributes, so that none has a table of its own. */
@SuppressWarnings("serial") // read by what wrote it
final class AttributeLayout implements Saved {
    final ObjectClass objectClass;
    private final Attribute[] definitions;
    private final int[] handles; // ascending, as the definitions are

    AttributeLayout(ObjectClass objectClass) {
        this.objectClass = objectClass;
        definitions = objectClass.members().stream().sorted(Comparator.comparingInt(Attribute::handle))
                .toArray(Attribute[]::new);
        handles = Arrays.stream(definitions).mapToInt(Attribute::handle).toArray();
    }

    /** Where the attribute with that handle stands; negative for nowhere. */
    int place(int handle) {
        return Arrays.binarySearch(handles, handle);
    }

    InstanceAttribute[] attributesOf(ObjectInstance object) {
        InstanceAttribute[] attributes = new InstanceAttribute[definitions.length];
        for (int i = 0; i < attributes.length; ++i) {
            attributes[i] = new InstanceAttribute(object, definitions[i]);
        }
        return attributes;
    }

    /** Whether the class has not gained attributes since. */
    boolean isCurrent() {
        return definitions.length == objectClass.members().size();
    }
}
