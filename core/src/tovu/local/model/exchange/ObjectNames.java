package tovu.local.model.exchange;

import hla.rti1516e.exceptions.IllegalName;
import hla.rti1516e.exceptions.NameSetWasEmpty;
import hla.rti1516e.exceptions.ObjectInstanceNameInUse;
import hla.rti1516e.exceptions.ObjectInstanceNameNotReserved;
import java.util.HashMap;
import java.util.Map;
import java.util.Set;
import tovu.local.model.value.Saved;

/** The names of object instances: those in use, and those that federates have reserved. */
@SuppressWarnings("serial") // read by what wrote it
public final class ObjectNames implements Saved {
    private static final String FEDERATION_PREFIX = "HLA";

    private final Map<String, Federate> reserved = new HashMap<>();
    private final Map<String, ObjectInstance> inUse = new HashMap<>();

    public void reserve(Federate federate, String name) throws IllegalName {
        requireLegal(name);
        if (isFree(name)) {
            reserved.put(name, federate);
            federate.post(to -> to.objectInstanceNameReservationSucceeded(name));
        } else {
            federate.post(to -> to.objectInstanceNameReservationFailed(name));
        }
    }

    /** Reserves all of them or none. */
    public void reserve(Federate federate, Set<String> names) throws IllegalName, NameSetWasEmpty {
        if (names.isEmpty()) {
            throw new NameSetWasEmpty("The set of names to reserve is empty; give at least one name");
        }
        for (String name : names) {
            requireLegal(name);
        }
        if (names.stream().allMatch(this::isFree)) {
            names.forEach(name -> reserved.put(name, federate));
            federate.post(to -> to.multipleObjectInstanceNameReservationSucceeded(names));
        } else {
            federate.post(to -> to.multipleObjectInstanceNameReservationFailed(names));
        }
    }

    private static void requireLegal(String name) throws IllegalName {
        if (name.isEmpty() || name.startsWith(FEDERATION_PREFIX)) {
            throw new IllegalName("Object instance name '" + name
                    + "' cannot be reserved; use a name that is not empty and does not begin with HLA");
        }
    }

    private boolean isFree(String name) {
        return !reserved.containsKey(name) && !inUse.containsKey(name);
    }

    public void release(Federate federate, Set<String> names) throws ObjectInstanceNameNotReserved {
        for (String name : names) {
            requireReserved(federate, name);
        }
        names.forEach(reserved::remove);
    }

    private void requireReserved(Federate federate, String name) throws ObjectInstanceNameNotReserved {
        if (reserved.get(name) != federate) {
            throw new ObjectInstanceNameNotReserved("Object instance name '" + name + "' is not reserved by "
                    + federate + "; reserve it first");
        }
    }

    void requireUsable(Federate federate, String name)
            throws ObjectInstanceNameInUse, ObjectInstanceNameNotReserved {
        if (inUse.containsKey(name)) {
            throw new ObjectInstanceNameInUse("An object instance named '" + name + "' is registered already");
        }
        requireReserved(federate, name);
    }

    /** The reservation is used up by the registration. */
    void use(String name, ObjectInstance object) {
        reserved.remove(name);
        inUse.put(name, object);
    }

    /** The object instance of that name, or null. */
    ObjectInstance object(String name) {
        return inUse.get(name);
    }

    /** A name for an instance that its registrant gave none. No federate can have reserved it. */
    public static String chosenFor(int handle) {
        return FEDERATION_PREFIX + "object-" + handle;
    }

    void free(String name) {
        inUse.remove(name);
    }

    void resigned(Federate federate) {
        reserved.values().removeIf(each -> each == federate);
    }
}
