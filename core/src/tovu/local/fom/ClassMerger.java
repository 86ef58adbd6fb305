package tovu.local.fom;

import hla.rti1516e.exceptions.InconsistentFDD;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Locale;
import java.util.Set;
import java.util.function.Function;

/**
 * Merges one module's class trees. A class without members of its own only leads to its subclasses: another module may
 * define it. How an application shares a class or an attribute is its own affair, and is not compared.
 */
final class ClassMerger extends Merger {
    ClassMerger(ObjectModel model, FomModule module) {
        super(model, module);
    }

    void merge() throws InconsistentFDD {
        for (FomElement root : module.root().table("objects", "objectClass")) {
            requireRoot(root, ObjectModel.OBJECT_ROOT);
            mergeObjectClass(root, null);
        }
        for (FomElement root : module.root().table("interactions", "interactionClass")) {
            requireRoot(root, ObjectModel.INTERACTION_ROOT);
            mergeInteractionClass(root, null);
        }
    }

    private void requireRoot(FomElement element, String root) throws InconsistentFDD {
        if (!name(element).equals(root)) {
            throw inconsistent(element, "the outermost class is '" + name(element) + "'; put it below '" + root + "'");
        }
    }

    private void mergeObjectClass(FomElement element, ObjectClass parent) throws InconsistentFDD {
        ObjectClass theClass = find(element, parent, model.objectClasses,
                name -> new ObjectClass(model.objectClasses.nextHandle(), name, parent));
        List<FomElement> rows = element.children("attribute");
        mergeMembers(theClass, element, rows, name -> {
            Attribute attribute = new Attribute(model.attributes.size() + 1, name);
            model.attributes.add(attribute);
            return attribute;
        });
        for (FomElement row : rows) {
            Attribute attribute = theClass.own().get(name(row));
            if (attribute != null) {
                mergeDelivery(attribute.delivery, row, "attribute '" + attribute + "' of '" + theClass + "'");
            }
        }
        for (FomElement child : element.children("objectClass")) {
            mergeObjectClass(child, theClass);
        }
    }

    private void mergeInteractionClass(FomElement element, InteractionClass parent) throws InconsistentFDD {
        InteractionClass theClass = find(element, parent, model.interactionClasses,
                name -> new InteractionClass(model.interactionClasses.nextHandle(), name, parent));
        mergeDelivery(theClass.delivery, element, "interaction class '" + theClass + "'");
        mergeMembers(theClass, element, element.children("parameter"), name -> {
            Parameter parameter = new Parameter(model.parameters.size() + 1, name);
            model.parameters.add(parameter);
            return parameter;
        });
        for (FomElement child : element.children("interactionClass")) {
            mergeInteractionClass(child, theClass);
        }
    }

    private <C extends ClassNode<C, ?>> C find(FomElement element, C parent, Table<C> classes,
            Function<String, C> making) throws InconsistentFDD {
        String name = parent == null ? name(element) : parent.name() + "." + name(element);
        C theClass = classes.named(name, "");
        if (theClass == null) {
            theClass = making.apply(name);
            classes.add(name, theClass);
            if (parent != null) {
                parent.addChild(theClass);
            }
        }
        return theClass;
    }

    /** The first module that gives a class members of its own gives it all of them. */
    private <M extends Member> void mergeMembers(ClassNode<?, M> theClass, FomElement element, List<FomElement> rows,
            Function<String, M> making) throws InconsistentFDD {
        if (rows.isEmpty()) {
            return;
        }
        Set<String> names = new LinkedHashSet<>();
        for (FomElement row : rows) {
            names.add(name(row));
        }
        boolean isNew = theClass.own().isEmpty();
        boolean agrees = theClass.declared.accept(names, module, element);
        if (isNew) {
            for (FomElement row : rows) {
                theClass.addMember(making.apply(nameOfNew(row, theClass)));
            }
        } else if (!agrees && (theClass.parent() == null || !theClass.declared.isStandard())) {
            throw inconsistent(element, "class '" + theClass + "' has " + names + ", but "
                    + theClass.declared.origin() + ", gives it " + theClass.own().keySet()
                    + "; define the class in one module, or alike in both");
        }
        for (FomElement row : rows) {
            M member = theClass.own().get(name(row));
            if (member != null) {
                state(member.dataType, stated(row, "dataType"),
                        "the data type of " + row.tag + " '" + member + "' of '" + theClass + "'", row);
            }
        }
    }

    private String nameOfNew(FomElement row, ClassNode<?, ?> theClass) throws InconsistentFDD {
        String name = name(row);
        if (theClass.member(name) != null || theClass.isDeclaredBelow(name)) {
            throw inconsistent(row, "class '" + theClass + "', or a class above or below it, has another "
                    + row.tag + " '" + name + "'; rename one of them");
        }
        return name;
    }

    private static String stated(FomElement row, String property) {
        String text = row.stated(property);
        return text.isEmpty() ? null : text;
    }

    private void mergeDelivery(Delivery delivery, FomElement row, String what) throws InconsistentFDD {
        state(delivery.transportation, transportation(row), "the transportation of " + what, row);
        state(delivery.order, order(row), "the order of " + what, row);
        state(delivery.dimensions, dimensions(row), "the set of dimensions of " + what, row);
    }

    private Transportation transportation(FomElement row) throws InconsistentFDD {
        String name = stated(row, "transportation");
        Transportation type = name == null ? null : model.transportation(name);
        if (name != null && type == null) {
            throw inconsistent(row, "transportation '" + name
                    + "' is not defined; use HLAreliable or HLAbestEffort, or add it to the transportations table");
        }
        return type;
    }

    private OrderType order(FomElement row) throws InconsistentFDD {
        String name = row.stated("order");
        return switch (name.toLowerCase(Locale.ROOT)) {
            case "" -> null;
            case "receive" -> OrderType.RECEIVE;
            case "timestamp" -> OrderType.TIMESTAMP;
            default -> throw inconsistent(row, "order '" + name + "' is unknown; write Receive or TimeStamp");
        };
    }

    private Set<Dimension> dimensions(FomElement row) throws InconsistentFDD {
        Set<Dimension> dimensions = new LinkedHashSet<>();
        for (FomElement element : row.table("dimensions", "dimension")) {
            String name = element.text();
            if (name.isEmpty() || name.equals("NA")) {
                continue;
            }
            Dimension dimension = model.dimension(name);
            if (dimension == null) {
                throw inconsistent(element, "dimension '" + name + "' is not defined; add it to the dimensions table");
            }
            dimensions.add(dimension);
        }
        return dimensions.isEmpty() ? null : dimensions;
    }
}
