package tovu.local.model.exchange;

import java.io.IOException;
import java.io.ObjectInputStream;
import java.io.ObjectOutputStream;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collection;
import java.util.List;
import java.util.Set;
import java.util.TreeSet;
import java.util.function.Predicate;
import tovu.local.fom.ObjectClass;
import tovu.local.model.value.HandleMap;
import tovu.local.model.value.Saved;

/** A registered object instance, and which federates know it. */
@SuppressWarnings("serial") // read by what wrote it
final class ObjectInstance implements Saved {
    transient int handle; // never changes; a snapshot has it apart
    final String name;
    final ObjectClass objectClass;
    private AttributeLayout layout;
    final int producer; // not the federate, which may be long gone
    private InstanceAttribute[] attributes; // as they are laid out
    private final HandleMap<Knowledge> knowledge = new HandleMap<>(); // by federate
    private Set<Integer> locallyDeleted = Set.of(); // by which federates that have not discovered it again
    /** Set from its deletion on; federates that are not told yet still know it. */
    boolean deleted;
    /** Set while its deletion may be retracted. */
    boolean mayReturn;

    ObjectInstance(int handle, String name, AttributeLayout layout, int producer) {
        this.handle = handle;
        this.name = name;
        this.layout = layout;
        objectClass = layout.objectClass;
        this.producer = producer;
        attributes = layout.attributesOf(this);
    }

    /** Whether it is one of the objects that tell of the federation itself. */
    boolean isManagement() {
        return producer == Federate.INFRASTRUCTURE;
    }

    /** The attribute with that handle, or null. A class may have gained attributes since this was registered. */
    InstanceAttribute attribute(int attributeHandle) {
        int place = layout.place(attributeHandle);
        if (place < 0 && objectClass.member(attributeHandle) != null) {
            extend();
            place = layout.place(attributeHandle);
        }
        return place < 0 ? null : attributes[place];
    }

    private void extend() {
        InstanceAttribute[] before = attributes;
        layout = new AttributeLayout(objectClass);
        attributes = layout.attributesOf(this);
        for (InstanceAttribute each : before) {
            attributes[layout.place(each.handle())] = each;
        }
    }

    List<InstanceAttribute> attributes() {
        return Arrays.asList(attributes);
    }

    List<InstanceAttribute> attributes(Predicate<InstanceAttribute> wanted) {
        List<InstanceAttribute> some = new ArrayList<>();
        for (InstanceAttribute each : attributes) {
            if (wanted.test(each)) {
                some.add(each);
            }
        }
        return some;
    }

    boolean isOwnedIn(Federate federate) {
        for (InstanceAttribute each : attributes) {
            if (each.owner() == federate) {
                return true;
            }
        }
        return false;
    }

    boolean mayBeOffered(InstanceAttribute attribute, Federate federate) {
        Knowledge known = knowledgeOf(federate);
        return !deleted && known != null && attribute.owner() != federate && attribute.candidate(federate) == null
                && known.publishes(attribute.definition);
    }

    /** What that federate knows of it, or null when it does not know it. */
    Knowledge knowledgeOf(Federate federate) {
        return knowledge.get(federate.handle());
    }

    Collection<Knowledge> knowers() {
        return knowledge.values();
    }

    void becomeKnown(Federate federate, ObjectClass knownClass) {
        knowledge.put(federate.handle(), new Knowledge(federate, this, knownClass));
        federate.knownObjects.add(this);
        if (!locallyDeleted.isEmpty()) {
            locallyDeleted.remove(federate.handle());
        }
    }

    void becomeKnownAgainLater(Federate federate) {
        locallyDeleted = locallyDeleted.isEmpty() ? new TreeSet<>() : locallyDeleted;
        locallyDeleted.add(federate.handle());
    }

    /** The handles of federates that deleted it locally. Some may have resigned since. */
    Set<Integer> locallyDeletedBy() {
        return locallyDeleted;
    }

    void becomeUnknown(Federate federate) {
        knowledge.remove(federate.handle());
        federate.knownObjects.remove(this);
    }

    /** The handle comes first: what leads back to the object while it is read may put it into a set. */
    private void writeObject(ObjectOutputStream out) throws IOException {
        out.writeInt(handle);
        out.defaultWriteObject();
    }

    private void readObject(ObjectInputStream in) throws IOException, ClassNotFoundException {
        handle = in.readInt();
        in.defaultReadObject();
    }

    /** Objects in a row stand in a row in sets, too: to go through very many costs what memory is touched. */
    @Override
    public int hashCode() {
        return handle;
    }

    @Override
    public boolean equals(Object other) {
        return this == other;
    }

    @Override
    public String toString() {
        return "Object '" + name + "' (" + handle + ")";
    }
}
