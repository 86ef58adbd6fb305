package tovu.local.fom;

import hla.rti1516e.exceptions.InconsistentFDD;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Locale;
import java.util.Map;
import java.util.Objects;
import java.util.Set;

/** Merges FOM modules into an object model: what two modules both define they must define alike. */
final class Merger {
    /** Management classes belong to the MIM; what a FOM repeats of them is taken as it is there. */
    private static final List<String> MANAGEMENT =
            List.of(ObjectModel.OBJECT_ROOT + ".HLAmanager", ObjectModel.INTERACTION_ROOT + ".HLAmanager");

    private final ObjectModel model;
    private final FomModule module;

    private Merger(ObjectModel model, FomModule module) {
        this.model = model;
        this.module = module;
    }

    /** Merges all modules table by table, so that a class may use what a later module defines. */
    static void merge(ObjectModel model, List<FomModule> modules) throws InconsistentFDD {
        List<Merger> mergers = modules.stream().map(module -> new Merger(model, module)).toList();
        for (Merger merger : mergers) {
            merger.mergeDimensions();
            merger.mergeTransportations();
            merger.mergeUpdateRates();
            merger.mergeSwitches();
        }
        for (Merger merger : mergers) {
            merger.mergeObjectClasses();
            merger.mergeInteractionClasses();
        }
    }

    /** Things numbered from 1 that are also found by name. */
    static final class Table<T> {
        private final List<T> rows = new ArrayList<>();
        private final Map<String, T> byName = new HashMap<>();

        int nextHandle() {
            return rows.size() + 1;
        }

        void add(String name, T row) {
            rows.add(row);
            byName.put(name, row);
        }

        T at(int handle) {
            return handle >= 1 && handle <= rows.size() ? rows.get(handle - 1) : null;
        }

        T named(String name, String root) {
            T row = byName.get(name);
            return row != null || root.isEmpty() ? row : byName.get(root + "." + name);
        }

        /** A name that has more in front of it or other letters small, or null. */
        String nameLike(String name) {
            String end = "." + name;
            for (String each : byName.keySet()) {
                if (("." + each).regionMatches(true, each.length() - name.length(), end, 0, end.length())) {
                    return each;
                }
            }
            return null;
        }
    }

    private InconsistentFDD inconsistent(FomElement where, String what) {
        return new InconsistentFDD(module.at(where) + what);
    }

    private String name(FomElement element) throws InconsistentFDD {
        String name = element.value("name");
        if (name.isEmpty()) {
            throw inconsistent(element, "this " + element.tag + " has no name; give it one");
        }
        return name;
    }

    private void mergeDimensions() throws InconsistentFDD {
        for (FomElement row : module.root().table("dimensions", "dimension")) {
            String name = name(row);
            Dimension known = model.dimension(name);
            long upperBound = upperBound(row, name);
            if (known == null) {
                model.dimensions.add(name, new Dimension(model.dimensions.nextHandle(), name, upperBound));
            } else if (known.upperBound() != upperBound) {
                throw inconsistent(row, "dimension '" + name + "' has upper bound " + upperBound
                        + ", but an earlier module gives it " + known.upperBound() + "; make them agree");
            }
        }
    }

    private long upperBound(FomElement row, String name) throws InconsistentFDD {
        String text = row.value("upperBound");
        try {
            long bound = text.isEmpty() ? Integer.MAX_VALUE : Long.parseLong(text);
            if (bound >= 1 && bound <= 0xFFFFFFFFL) {
                return bound;
            }
        } catch (NumberFormatException e) {
            // told below, like a number that is out of range
        }
        throw inconsistent(row, "the upper bound of dimension '" + name + "' is '" + text
                + "'; give a whole number from 1 to 4294967295");
    }

    private void mergeTransportations() throws InconsistentFDD {
        for (FomElement row : module.root().table("transportations", "transportation")) {
            String name = name(row);
            Transportation type = switch (name) {
                case "HLAreliable" -> Transportation.RELIABLE;
                case "HLAbestEffort" -> Transportation.BEST_EFFORT;
                default -> row.value("reliable").equalsIgnoreCase("no") ? Transportation.BEST_EFFORT
                        : Transportation.RELIABLE;
            };
            Transportation known = model.transportations.putIfAbsent(name, type);
            if (known != null && known != type) {
                throw inconsistent(row, "transportation '" + name
                        + "' is reliable in one module and not in another; make them agree");
            }
        }
    }

    private void mergeUpdateRates() throws InconsistentFDD {
        for (FomElement row : module.root().table("updateRates", "updateRate")) {
            String name = name(row);
            double rate = updateRate(row, name);
            Double known = model.updateRates.putIfAbsent(name, rate);
            if (known != null && known != rate) {
                throw inconsistent(row, "update rate '" + name + "' is " + rate + ", but an earlier module gives it "
                        + known + "; make them agree");
            }
        }
    }

    private double updateRate(FomElement row, String name) throws InconsistentFDD {
        String text = row.value("rate");
        try {
            double rate = Double.parseDouble(text);
            if (rate >= 0 && rate < Double.POSITIVE_INFINITY) {
                return rate;
            }
        } catch (NumberFormatException e) {
            // told below, like a number that is none
        }
        throw inconsistent(row, "the rate of update rate '" + name + "' is '" + text
                + "'; give the largest number of updates a second");
    }

    /** The first module that states a switch decides; the MIM, which comes first of all, states none. */
    private void mergeSwitches() {
        for (FomElement table : module.root().children("switches")) {
            for (String name : List.of("autoProvide", "conveyRegionDesignatorSets", "conveyProducingFederate",
                    "attributeScopeAdvisory", "attributeRelevanceAdvisory", "objectClassRelevanceAdvisory",
                    "interactionRelevanceAdvisory", "serviceReporting", "exceptionReporting",
                    "automaticResignAction")) {
                for (FomElement row : table.children(name)) {
                    String value = row.value(name.equals("automaticResignAction") ? "resignAction" : "isEnabled");
                    model.switches.putIfAbsent(name, value.isEmpty() ? row.text() : value);
                }
            }
        }
    }

    private void mergeObjectClasses() throws InconsistentFDD {
        for (FomElement root : module.root().table("objects", "objectClass")) {
            requireRoot(root, ObjectModel.OBJECT_ROOT);
            mergeObjectClass(root, null);
        }
    }

    private void requireRoot(FomElement element, String root) throws InconsistentFDD {
        if (!name(element).equals(root)) {
            throw inconsistent(element, "the outermost class is '" + name(element) + "'; put it below '" + root + "'");
        }
    }

    private void mergeObjectClass(FomElement element, ObjectClass parent) throws InconsistentFDD {
        String name = parent == null ? name(element) : parent.name() + "." + name(element);
        ObjectClass theClass = model.objectClasses.named(name, "");
        if (theClass == null) {
            theClass = new ObjectClass(model.objectClasses.nextHandle(), name, parent);
            model.objectClasses.add(name, theClass);
            if (parent != null) {
                parent.addChild(theClass);
            }
        }
        List<FomElement> rows = element.children("attribute");
        // A class without attributes of its own only leads to its subclasses: another module may define it.
        if (!rows.isEmpty() && theClass.own().isEmpty()) {
            for (FomElement row : rows) {
                addAttribute(theClass, row);
            }
        } else if (!rows.isEmpty() && !isManagement(name)) {
            requireSameMembers(element, theClass, rows);
            if (parent != null) { // how the root's privilege to delete travels is the MIM's to say
                for (FomElement row : rows) {
                    requireSameAttribute(row, theClass.own().get(name(row)));
                }
            }
        }
        for (FomElement child : element.children("objectClass")) {
            mergeObjectClass(child, theClass);
        }
    }

    private static boolean isManagement(String className) {
        return MANAGEMENT.stream().anyMatch(root -> className.equals(root) || className.startsWith(root + "."));
    }

    private void requireSameMembers(FomElement element, ClassNode<?, ?> theClass, List<FomElement> rows)
            throws InconsistentFDD {
        Set<String> names = new LinkedHashSet<>();
        for (FomElement row : rows) {
            names.add(name(row));
        }
        if (!names.equals(theClass.own().keySet())) {
            throw inconsistent(element, "class '" + theClass.name() + "' has " + names + ", but an earlier module"
                    + " gives it " + theClass.own().keySet() + "; define the class in one module, or alike in both");
        }
    }

    private String nameOfNew(FomElement row, ClassNode<?, ?> theClass) throws InconsistentFDD {
        String name = name(row);
        if (theClass.member(name) != null || theClass.isDeclaredBelow(name)) {
            throw inconsistent(row, "class '" + theClass.name() + "', or a class above or below it, has another "
                    + row.tag + " '" + name + "'; rename one of them");
        }
        return name;
    }

    private void addAttribute(ObjectClass theClass, FomElement row) throws InconsistentFDD {
        String name = nameOfNew(row, theClass);
        Attribute attribute = readAttribute(row, model.attributes.size() + 1, name);
        model.attributes.add(attribute);
        theClass.addMember(name, attribute.handle(), attribute);
    }

    private Attribute readAttribute(FomElement row, int handle, String name) throws InconsistentFDD {
        return new Attribute(handle, name, Objects.requireNonNullElse(transportation(row), Transportation.RELIABLE),
                Objects.requireNonNullElse(order(row), OrderType.RECEIVE), dimensionsOf(row));
    }

    private void requireSameAttribute(FomElement row, Attribute known) throws InconsistentFDD {
        requireSameDelivery(row, "attribute '" + known.name() + "'", known.transportation(), known.order(),
                known.dimensions());
    }

    /** Two definitions of one thing may leave out its delivery; where both state it, they must agree. */
    private void requireSameDelivery(FomElement row, String what, Transportation transportation, OrderType order,
            Set<Dimension> dimensions) throws InconsistentFDD {
        Set<Dimension> stated = dimensionsOf(row);
        boolean otherDimensions = !dimensions.isEmpty() && !stated.isEmpty() && !stated.equals(dimensions);
        String differing = differs(transportation(row), transportation) ? "transportation"
                : differs(order(row), order) ? "order" : otherDimensions ? "dimensions" : null;
        if (differing != null) {
            throw inconsistent(row, "the " + differing + " of " + what
                    + " is not what an earlier module gives it; make them agree");
        }
    }

    private static boolean differs(Object stated, Object known) {
        return stated != null && known != null && stated != known;
    }

    private Transportation transportation(FomElement row) throws InconsistentFDD {
        String name = row.value("transportation");
        if (name.isEmpty() || name.equals("NA")) {
            return null;
        }
        Transportation type = model.transportation(name);
        if (type == null) {
            throw inconsistent(row, "transportation '" + name
                    + "' is not defined; use HLAreliable or HLAbestEffort, or add it to the transportations table");
        }
        return type;
    }

    private OrderType order(FomElement row) throws InconsistentFDD {
        String name = row.value("order");
        return switch (name.toLowerCase(Locale.ROOT)) {
            case "", "na" -> null;
            case "receive" -> OrderType.RECEIVE;
            case "timestamp" -> OrderType.TIMESTAMP;
            default -> throw inconsistent(row, "order '" + name + "' is unknown; write Receive or TimeStamp");
        };
    }

    private Set<Dimension> dimensionsOf(FomElement row) throws InconsistentFDD {
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
        return dimensions;
    }

    private void mergeInteractionClasses() throws InconsistentFDD {
        for (FomElement root : module.root().table("interactions", "interactionClass")) {
            requireRoot(root, ObjectModel.INTERACTION_ROOT);
            mergeInteractionClass(root, null);
        }
    }

    private void mergeInteractionClass(FomElement element, InteractionClass parent) throws InconsistentFDD {
        String name = parent == null ? name(element) : parent.name() + "." + name(element);
        InteractionClass theClass = model.interactionClasses.named(name, "");
        if (theClass == null) {
            theClass = new InteractionClass(model.interactionClasses.nextHandle(), name, parent);
            model.interactionClasses.add(name, theClass);
            if (parent != null) {
                parent.addChild(theClass);
            }
        } else if (parent != null && !isManagement(name)) {
            requireSameDelivery(element, "interaction class '" + name + "'", theClass.statedTransportation(),
                    theClass.statedOrder(), theClass.dimensions());
        }
        theClass.complete(transportation(element), order(element), dimensionsOf(element));
        List<FomElement> rows = element.children("parameter");
        if (!rows.isEmpty() && theClass.own().isEmpty()) {
            for (FomElement row : rows) {
                addParameter(theClass, row);
            }
        } else if (!rows.isEmpty() && !isManagement(name)) {
            requireSameMembers(element, theClass, rows);
        }
        for (FomElement child : element.children("interactionClass")) {
            mergeInteractionClass(child, theClass);
        }
    }

    private void addParameter(InteractionClass theClass, FomElement row) throws InconsistentFDD {
        String name = nameOfNew(row, theClass);
        Parameter parameter = new Parameter(model.parameters.size() + 1, name);
        model.parameters.add(parameter);
        theClass.addMember(name, parameter.handle(), parameter);
    }
}
