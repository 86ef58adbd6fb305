package tovu.local.model.exchange;

import hla.rti1516e.exceptions.AttributeNotDefined;
import hla.rti1516e.exceptions.ObjectInstanceNotKnown;
import java.util.ArrayList;
import java.util.Collection;
import java.util.HashMap;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.TreeMap;
import tovu.local.fom.ObjectClass;
import tovu.local.model.value.HandleMap;
import tovu.local.model.value.Saved;

/** The object instances of a federation, by handle and by class. */
@SuppressWarnings("serial") // read by what wrote it
public final class ObjectRegistry implements Saved {
    private final Exchange federation;
    private final HandleMap<ObjectInstance> byHandle = new HandleMap<>();
    private final Map<ObjectClass, Set<ObjectInstance>> byClass = new HashMap<>();
    private final Map<ObjectClass, AttributeLayout> layouts = new HashMap<>();

    ObjectRegistry(Exchange federation) {
        this.federation = federation;
    }

    /** @param name null for a name of the federation's choice */
    ObjectInstance add(ObjectClass theClass, String name, Federate producer) {
        int handle = RuntimeHandles.next();
        String theName = name == null ? ObjectNames.chosenFor(handle) : name;
        ObjectInstance object = new ObjectInstance(handle, theName, layout(theClass), producer.handle());
        byHandle.put(handle, object);
        byClass.computeIfAbsent(theClass, key -> new LinkedHashSet<>()).add(object);
        federation.names().use(theName, object);
        return object;
    }

    /** A snapshot tells which regions the attributes are sent with, and not the reverse. */
    void restoreAssociations() {
        byHandle.values().forEach(each -> each.attributes().forEach(InstanceAttribute::restoreAssociations));
    }

    private AttributeLayout layout(ObjectClass theClass) {
        AttributeLayout layout = layouts.get(theClass);
        if (layout == null || !layout.isCurrent()) {
            layout = new AttributeLayout(theClass);
            layouts.put(theClass, layout);
        }
        return layout;
    }

    Collection<ObjectInstance> ofClass(ObjectClass theClass) {
        return byClass.getOrDefault(theClass, Set.of());
    }

    /** How many objects there are, by the handle of their class; not those of management. */
    public Map<Integer, Integer> counts() {
        Map<Integer, Integer> counts = new TreeMap<>();
        byClass.forEach((theClass, objects) -> {
            if (!objects.isEmpty() && !objects.iterator().next().isManagement()) {
                counts.put(theClass.handle(), objects.size());
            }
        });
        return counts;
    }

    private static ObjectInstanceNotKnown notKnown(Federate federate, String what) {
        return new ObjectInstanceNotKnown(federate + " knows no object instance " + what
                + "; use one that it registered or discovered in this federation and that is not deleted");
    }

    Knowledge known(Federate federate, int handle) throws ObjectInstanceNotKnown {
        ObjectInstance object = byHandle.get(handle);
        Knowledge knowledge = object == null ? null : object.knowledgeOf(federate);
        if (knowledge == null) {
            throw notKnown(federate, "with handle " + handle);
        }
        return knowledge;
    }

    public int handle(Federate federate, String name) throws ObjectInstanceNotKnown {
        ObjectInstance object = federation.names().object(name);
        if (object == null || object.knowledgeOf(federate) == null) {
            throw notKnown(federate, "named '" + name + "'");
        }
        return object.handle;
    }

    public String name(Federate federate, int handle) throws ObjectInstanceNotKnown {
        return known(federate, handle).object.name;
    }

    public int knownClass(Federate federate, int handle) throws ObjectInstanceNotKnown {
        return known(federate, handle).knownClass.handle();
    }

    /** Whether anyone but its owner, to whom all of it belongs, knows the object. */
    public boolean isShared(int handle) {
        return byHandle.get(handle).knowers().size() > 1;
    }

    /** The attributes of an object that a federate wants; none when it does not know the object. */
    public int[] wanted(Federate federate, int handle) {
        ObjectInstance object = byHandle.get(handle);
        Knowledge knowledge = object == null ? null : object.knowledgeOf(federate);
        return knowledge == null ? new int[0] : object.attributes(knowledge::isInScope).stream()
                .mapToInt(InstanceAttribute::handle).toArray();
    }

    /** The instance attribute, which has to be one of the class that the federate knows the object as. */
    static InstanceAttribute attribute(Knowledge knowledge, int handle) throws AttributeNotDefined {
        InstanceAttribute attribute = knowledge.object.attribute(handle);
        boolean defined = attribute != null && (knowledge.knownClass == knowledge.object.objectClass
                || knowledge.knownClass.member(handle) != null);
        if (!defined) {
            throw Lookup.notDefined(knowledge.knownClass, handle);
        }
        return attribute;
    }

    static List<InstanceAttribute> attributes(Knowledge knowledge, int[] handles) throws AttributeNotDefined {
        List<InstanceAttribute> attributes = new ArrayList<>(handles.length);
        for (int handle : handles) {
            attributes.add(attribute(knowledge, handle));
        }
        return attributes;
    }

    /** Ends what a federate has to do with an object, which ends with the last federate that knew it. */
    void forget(Knowledge knowledge) {
        knowledge.end();
        ObjectInstance object = knowledge.object;
        Federate federate = knowledge.federate;
        for (InstanceAttribute each : object.attributes()) {
            if (each.owner() == federate) {
                each.giveTo(null);
            }
            each.forget(federate);
        }
        object.becomeUnknown(federate);
        endIfForgotten(object);
    }

    /** A federate was told that an object is removed. */
    void removed(Knowledge knowledge) {
        if (!knowledge.isOver()) {
            forget(knowledge);
            federation.visibility().reconsider(knowledge.object, knowledge.federate); // a retraction brings it back
        }
    }

    /** Whether it was deleted or not: what nobody knows nobody owns, and what nobody owns nobody discovers. */
    private void endIfForgotten(ObjectInstance object) {
        if (object.knowers().isEmpty() && !object.mayReturn) {
            byHandle.remove(object.handle);
            ofClass(object.objectClass).remove(object);
            federation.names().free(object.name);
        }
    }

    /** A deletion that was retracted never happened: its news is called back, and the deleter has its own again. */
    void undo(Deletion deletion) {
        ObjectInstance object = deletion.object();
        object.deleted = false;
        object.mayReturn = false;
        object.becomeKnown(deletion.deleter(), deletion.knownClass());
        federation.ownership().giveBack(deletion);
        federation.visibility().objectChanged(object);
    }

    /** From here on a deletion is for good. */
    void confirm(Deletion deletion) {
        deletion.object().mayReturn = false;
        endIfForgotten(deletion.object());
    }
}
