package tovu.local.fom;

import hla.rti1516e.exceptions.InconsistentFDD;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import tovu.local.fom.Merger.Table;

/**
 * The object model that a federation's FOM modules make together. Handles are numbered from 1 in the order of the
 * modules; a module that joins later only ever adds.
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
    final Map<String, Double> updateRates = new HashMap<>();
    final Map<String, Transportation> transportations = new HashMap<>(Map.of(
            Transportation.RELIABLE.hlaName(), Transportation.RELIABLE,
            Transportation.BEST_EFFORT.hlaName(), Transportation.BEST_EFFORT));
    final Map<String, String> switches = new HashMap<>();
    private final List<FomModule> modules = new ArrayList<>();
    private final Map<String, FomModule> given = new HashMap<>();

    /**
     * Merges modules into a new object model.
     *
     * @param mim     the module that brings the roots and the management object model
     * @param modules what the federation adds to it
     */
    public static ObjectModel of(FomModule mim, List<FomModule> modules) throws InconsistentFDD {
        ObjectModel model = new ObjectModel();
        model.add(List.of(mim));
        model.add(modules);
        return model;
    }

    /**
     * Adds modules; when one contradicts what is there already, nothing is changed.
     *
     * @return whether they brought anything new
     */
    public boolean extend(List<FomModule> more) throws InconsistentFDD {
        if (more.isEmpty()) {
            return false;
        }
        ObjectModel trial = new ObjectModel();
        trial.add(modules);
        trial.add(more);
        remember(more);
        boolean brings = trial.size() != size(); // federates often bring along what the federation was made of
        if (brings) {
            add(more);
        }
        return brings;
    }

    private int size() {
        return objectClasses.nextHandle() + interactionClasses.nextHandle() + dimensions.nextHandle()
                + attributes.size() + parameters.size() + updateRates.size() + transportations.size() + switches.size();
    }

    private void add(List<FomModule> more) throws InconsistentFDD {
        Merger.merge(this, more);
        modules.addAll(more);
        remember(more);
    }

    private void remember(List<FomModule> more) {
        more.forEach(each -> given.putIfAbsent(each.designator(), each));
    }

    public String mimDesignator() {
        return modules.get(0).designator();
    }

    /** Of the modules that the model is made of, in their order, the MIM left out. */
    public List<String> moduleDesignators() {
        return modules.stream().skip(1).map(FomModule::designator).toList();
    }

    /** What a module says that was ever given. */
    public String moduleText(String designator) {
        return XmlText.of(given.get(designator).root());
    }

    /** What all modules say together. */
    public String text() {
        return XmlText.of(modules.stream().map(FomModule::root).toList());
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
        return updateRates.get(designator);
    }

    /** The transportation type of that name, or null. */
    public Transportation transportation(String name) {
        return transportations.get(name);
    }

    public Switches switches() {
        return new Switches(isOn("autoProvide"), isOn("conveyRegionDesignatorSets"), isOn("conveyProducingFederate"),
                isOn("attributeScopeAdvisory"), isOn("attributeRelevanceAdvisory"),
                isOn("objectClassRelevanceAdvisory"), isOn("interactionRelevanceAdvisory"), isOn("serviceReporting"), isOn("exceptionReporting"),
                switches.getOrDefault("automaticResignAction", ""));
    }

    private boolean isOn(String name) {
        String value = switches.getOrDefault(name, "false");
        return value.equalsIgnoreCase("true") || value.equalsIgnoreCase("enabled") || value.equals("1");
    }
}
