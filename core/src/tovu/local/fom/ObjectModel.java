package tovu.local.fom;

import hla.rti1516e.exceptions.InconsistentFDD;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.HashSet;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;

/**
 * The object model that a federation's FOM modules make together. Handles are numbered from 1 in the order of the
 * modules; a module that joins later only ever adds, whether classes or what no module has said of one that is there.
 */
public final class ObjectModel {
    static final String OBJECT_ROOT = "HLAobjectRoot";
    static final String PRIVILEGE_TO_DELETE = "HLAprivilegeToDeleteObject";
    static final String INTERACTION_ROOT = "HLAinteractionRoot";

    final Table<ObjectClass> objectClasses = new Table<>();
    final Table<InteractionClass> interactionClasses = new Table<>();
    final Table<Dimension> dimensions = new Table<>();
    final List<Attribute> attributes = new ArrayList<>();
    final List<Parameter> parameters = new ArrayList<>();
    final Map<String, Property<Double>> updateRates = new HashMap<>();
    final Map<String, Property<Transportation>> transportations = new HashMap<>();
    final Map<String, Property<String>> definitions = new HashMap<>(); // of what is only compared
    final Map<String, Property<String>> switches = new HashMap<>();
    final Map<String, Property<String>> standardSwitches = new HashMap<>(); // where no other module states one
    private final List<FomModule> modules = new ArrayList<>(); // the MIM first

    /**
     * Merges modules into a new object model.
     *
     * @param mim     the module that brings the roots and the management object model
     * @param modules what the federation adds to it
     */
    public static ObjectModel of(FomModule mim, List<FomModule> modules) throws InconsistentFDD {
        ObjectModel model = new ObjectModel();
        model.add(List.of(mim));
        model.add(unlike(model.modules, modules));
        return model;
    }

    /**
     * Adds modules; when one contradicts what is there already, nothing is changed.
     *
     * @return whether there is one that is not there already
     */
    public boolean extend(List<FomModule> more) throws InconsistentFDD {
        List<FomModule> added = unlike(modules, more); // federates often bring what the federation was made of
        if (!added.isEmpty()) {
            ObjectModel trial = new ObjectModel();
            trial.add(modules);
            trial.add(added);
            add(added);
        }
        return !added.isEmpty();
    }

    private static List<FomModule> unlike(List<FomModule> known, List<FomModule> more) {
        Set<String> texts = new HashSet<>();
        known.forEach(each -> texts.add(each.text()));
        return more.stream().filter(each -> texts.add(each.text())).toList();
    }

    private void add(List<FomModule> more) throws InconsistentFDD {
        Merger.merge(this, more);
        modules.addAll(more);
    }

    public FomModule mim() {
        return modules.get(0);
    }

    /** The FOM modules in the order in which they came, one of each text. */
    public List<FomModule> modules() {
        return List.copyOf(modules.subList(1, modules.size()));
    }

    /** What all modules say together. */
    public String text() {
        return XmlText.of(modules.stream().map(FomModule::root).toList());
    }

    /** The transportation types, the standard ones first. */
    public List<Transportation> transportations() {
        Set<Transportation> types = new LinkedHashSet<>(List.of(Transportation.RELIABLE, Transportation.BEST_EFFORT));
        transportations.keySet().stream().sorted().forEach(name -> types.add(transportation(name)));
        return List.copyOf(types);
    }

    /** A new set of what all that is defined is called, and of what kind it is. */
    Set<String> names() {
        Set<String> names = new LinkedHashSet<>();
        objectClasses.forEach(each -> names(each, "object class ", "attribute ", names));
        interactionClasses.forEach(each -> names(each, "interaction class ", "parameter ", names));
        dimensions.forEach(each -> names.add("dimension '" + each + "'"));
        transportations.keySet().forEach(each -> names.add("transportation type '" + each + "'"));
        names.addAll(definitions.keySet());
        return names;
    }

    private static void names(ClassNode<?, ?> theClass, String kind, String memberKind, Set<String> names) {
        names.add(kind + "'" + theClass + "'");
        theClass.own().keySet().forEach(each -> names.add(memberKind + "'" + each + "' of '" + theClass + "'"));
    }

    /** The class with that handle, or null. */
    public ObjectClass objectClass(int handle) {
        return objectClasses.at(handle);
    }

    /** The class of that name, with or without the root's name in front, or null. */
    public ObjectClass objectClass(String name) {
        return objectClasses.named(name, OBJECT_ROOT);
    }

    /** The name of an object class that might be meant by one that there is not, or null. */
    public String objectClassLike(String name) {
        return objectClasses.nameLike(name);
    }

    /** The attribute whose owner may delete an instance. */
    public Attribute privilegeToDelete() {
        return objectClass(OBJECT_ROOT).member(PRIVILEGE_TO_DELETE);
    }

    public InteractionClass interactionClass(int handle) {
        return interactionClasses.at(handle);
    }

    public InteractionClass interactionClass(String name) {
        return interactionClasses.named(name, INTERACTION_ROOT);
    }

    public String interactionClassLike(String name) {
        return interactionClasses.nameLike(name);
    }

    public Dimension dimension(int handle) {
        return dimensions.at(handle);
    }

    public Dimension dimension(String name) {
        return dimensions.named(name, "");
    }

    /** Whether any class has an attribute with that handle. */
    public boolean hasAttribute(int handle) {
        return handle >= 1 && handle <= attributes.size();
    }

    public Attribute attribute(int handle) {
        return hasAttribute(handle) ? attributes.get(handle - 1) : null;
    }

    public boolean hasParameter(int handle) {
        return handle >= 1 && handle <= parameters.size();
    }

    public Parameter parameter(int handle) {
        return hasParameter(handle) ? parameters.get(handle - 1) : null;
    }

    /** Updates a second, or null for a designator that no module defines. */
    public Double updateRate(String designator) {
        Property<Double> rate = updateRates.get(designator);
        return rate == null ? null : rate.or(null);
    }

    /** The transportation type of that name, or null. */
    public Transportation transportation(String name) {
        Property<Transportation> type = transportations.get(name);
        return type == null ? Transportation.standard(name) : type.or(null);
    }

    public Switches switches() {
        return new Switches(isOn("autoProvide"), isOn("conveyRegionDesignatorSets"), isOn("conveyProducingFederate"),
                isOn("attributeScopeAdvisory"), isOn("attributeRelevanceAdvisory"),
                isOn("objectClassRelevanceAdvisory"), isOn("interactionRelevanceAdvisory"),
                isOn("serviceReporting"), isOn("exceptionReporting"),
                setting("automaticResignAction"));
    }

    private boolean isOn(String name) {
        return setting(name).equals("true");
    }

    private String setting(String name) {
        Property<String> unstated = new Property<>();
        return switches.getOrDefault(name, unstated).or(standardSwitches.getOrDefault(name, unstated).or(""));
    }
}
