package tovu.local.fom;

import hla.rti1516e.exceptions.InconsistentFDD;
import java.util.List;
import java.util.Locale;
import java.util.Map;

/**
 * Merges FOM modules into an object model. What two modules both state they must state alike; where one is silent the
 * other completes it. What the MIM states is taken as it is there, since FOM modules repeat it in many variations.
 */
class Merger {
    private static final List<String> SWITCHES = List.of("autoProvide", "conveyRegionDesignatorSets",
            "conveyProducingFederate", "attributeScopeAdvisory", "attributeRelevanceAdvisory",
            "objectClassRelevanceAdvisory", "interactionRelevanceAdvisory", "serviceReporting", "exceptionReporting",
            "delaySubscriptionEvaluation");

    final ObjectModel model;
    final FomModule module;

    Merger(ObjectModel model, FomModule module) {
        this.model = model;
        this.module = module;
    }

    /** Merges all modules table by table, so that a class may use what a later module defines. */
    static void merge(ObjectModel model, List<FomModule> modules) throws InconsistentFDD {
        for (FomModule module : modules) {
            new Merger(model, module).mergeTables();
        }
        for (FomModule module : modules) {
            new ClassMerger(model, module).merge();
        }
    }

    final InconsistentFDD inconsistent(FomElement where, String what) {
        return new InconsistentFDD(module.at(where) + ": " + what);
    }

    final String name(FomElement element) throws InconsistentFDD {
        String name = element.value("name");
        if (name.isEmpty()) {
            throw inconsistent(element, "this " + element.tag + " has no name; give it one");
        }
        return name;
    }

    /** @param value null for nothing */
    final <T> void state(Property<T> property, T value, String what, FomElement where) throws InconsistentFDD {
        if (!isLeftToMim(property) && !property.accept(value, module, where)) {
            throw inconsistent(where, what + " is " + value + ", but " + property.origin() + ", gives it "
                    + property.or(null) + "; make them agree");
        }
    }

    private <T> void state(Map<String, Property<T>> table, String name, T value, String what, FomElement where)
            throws InconsistentFDD {
        state(table.computeIfAbsent(name, key -> new Property<>()), value, what, where);
    }

    private boolean isLeftToMim(Property<?> property) {
        return property.isStandard() && !module.isMim();
    }

    private List<FomElement> rows(String table, String row) {
        return module.root().table(table, row).stream().filter(each -> !each.value("name").equals("NA")).toList();
    }

    private void mergeTables() throws InconsistentFDD {
        mergeDimensions();
        mergeTransportations();
        mergeUpdateRates();
        mergeSwitches();
        mergeDefinitions();
    }

    private void mergeDimensions() throws InconsistentFDD {
        for (FomElement row : rows("dimensions", "dimension")) {
            String name = name(row);
            Dimension dimension = model.dimension(name);
            if (dimension == null) {
                dimension = new Dimension(model.dimensions.nextHandle(), name);
                model.dimensions.add(name, dimension);
            }
            state(dimension.upperBound, upperBound(row, name), "the upper bound of dimension '" + name + "'", row);
            state(dimension.unspecified, unspecified(row, dimension),
                    "the value when unspecified of dimension '" + name + "'", row);
        }
    }

    private Long upperBound(FomElement row, String name) throws InconsistentFDD {
        String text = row.stated("upperBound");
        if (text.isEmpty()) {
            return null;
        }
        try {
            long bound = Long.parseLong(text);
            if (bound >= 1 && bound <= 0xFFFFFFFFL) {
                return bound;
            }
        } catch (NumberFormatException e) {
            // told below, like a number that is out of range
        }
        throw inconsistent(row, "the upper bound of dimension '" + name + "' is '" + text
                + "'; give a whole number from 1 to 4294967295");
    }

    private Range unspecified(FomElement row, Dimension dimension) throws InconsistentFDD {
        String text = row.stated("value");
        if (text.isEmpty()) {
            return null;
        }
        Range range = Range.parse(text);
        if (range == null || range.upper() > dimension.upperBound()
                || range.lower() >= range.upper() && !range.equals(Range.EXCLUDED)) {
            throw inconsistent(row, "the value when unspecified of dimension '" + dimension + "' is '" + text
                    + "'; write a range such as [0.." + dimension.upperBound() + "), a single value, or Excluded");
        }
        return range;
    }

    private void mergeTransportations() throws InconsistentFDD {
        for (FomElement row : rows("transportations", "transportation")) {
            String name = name(row);
            Transportation type = new Transportation(name, isReliable(row, name));
            Transportation standard = Transportation.standard(name);
            if (standard != null && !type.equals(standard)) {
                throw inconsistent(row, "transportation " + type + " has to be " + standard + "; correct it");
            }
            state(model.transportations, name, standard == null ? type : standard, "transportation '" + name + "'", row);
        }
    }

    private boolean isReliable(FomElement row, String name) throws InconsistentFDD {
        return switch (row.stated("reliable").toLowerCase(Locale.ROOT)) {
            case "yes", "true", "1" -> true;
            case "no", "false", "0" -> false;
            case "" -> !name.equals(Transportation.BEST_EFFORT.hlaName());
            default -> throw inconsistent(row, "transportation '" + name + "' has '" + row.value("reliable")
                    + "' for reliable; write Yes or No");
        };
    }

    private void mergeUpdateRates() throws InconsistentFDD {
        for (FomElement row : rows("updateRates", "updateRate")) {
            String name = name(row);
            state(model.updateRates, name, updateRate(row, name), "update rate '" + name + "'", row);
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

    private void mergeSwitches() throws InconsistentFDD {
        Map<String, Property<String>> settings = module.isMim() ? model.standardSwitches : model.switches;
        for (String name : SWITCHES) {
            for (FomElement row : module.root().table("switches", name)) {
                String value = row.stated("isEnabled").isEmpty() ? row.text() : row.value("isEnabled");
                String setting = switch (value.toLowerCase(Locale.ROOT)) {
                    case "true", "enabled", "1" -> "true";
                    case "false", "disabled", "0", "" -> "false";
                    default -> throw inconsistent(row, "switch '" + name + "' is '" + value
                            + "'; write isEnabled=\"true\" or isEnabled=\"false\"");
                };
                state(settings, name, setting, "switch '" + name + "'", row);
            }
        }
        for (FomElement row : module.root().table("switches", "automaticResignAction")) {
            String action = row.value("resignAction").isEmpty() ? row.text() : row.value("resignAction");
            state(settings, "automaticResignAction", action.isEmpty() ? null : action,
                    "the automatic resign action", row);
        }
    }

    /** What means nothing to the infrastructure, but all modules have to mean the same by. */
    private void mergeDefinitions() throws InconsistentFDD {
        for (FomElement tables : module.root().children("dataTypes")) {
            for (FomElement table : tables.children()) {
                for (FomElement row : table.children()) {
                    if (!row.stated("name").isEmpty()) {
                        define("data type '" + row.value("name") + "'", row.tag + row.definition(), row);
                    }
                }
            }
        }
        for (FomElement row : module.root().table("synchronizations", "synchronizationPoint")) {
            if (!row.stated("label").isEmpty()) {
                define("synchronization point '" + row.value("label") + "'", row.definition(), row);
            }
        }
        for (String table : List.of("time", "tags")) {
            for (FomElement tables : module.root().children(table)) {
                for (FomElement row : tables.children()) {
                    define(row.tag + " in table '" + table + "'", row.definition(), row);
                }
            }
        }
    }

    private void define(String what, String definition, FomElement row) throws InconsistentFDD {
        Property<String> known = model.definitions.computeIfAbsent(what, key -> new Property<>());
        if (!isLeftToMim(known) && !known.accept(definition.isEmpty() ? null : definition, module, row)) {
            throw inconsistent(row, what + " is not defined as in " + known.origin() + "; make them agree");
        }
    }
}
