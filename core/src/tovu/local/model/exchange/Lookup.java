package tovu.local.model.exchange;

import hla.rti1516e.exceptions.AttributeNotDefined;
import hla.rti1516e.exceptions.InteractionClassNotDefined;
import hla.rti1516e.exceptions.InteractionParameterNotDefined;
import hla.rti1516e.exceptions.InvalidUpdateRateDesignator;
import hla.rti1516e.exceptions.ObjectClassNotDefined;
import java.util.List;
import java.util.Set;
import java.util.TreeSet;
import tovu.local.fom.InteractionClass;
import tovu.local.fom.ObjectClass;
import tovu.local.fom.ObjectModel;
import tovu.local.model.value.HandleValues;

/** Turns the handles that services are given into what they stand for. */
final class Lookup {
    private final ObjectModel model;

    Lookup(ObjectModel model) {
        this.model = model;
    }

    static String nothingHas(int handle, String kind, String service) {
        return "No " + kind + " has handle " + handle + "; get the handle with " + service;
    }

    ObjectClass objectClass(int handle) throws ObjectClassNotDefined {
        ObjectClass theClass = model.objectClass(handle);
        if (theClass == null) {
            throw new ObjectClassNotDefined(nothingHas(handle, "object class", "getObjectClassHandle"));
        }
        return theClass;
    }

    InteractionClass interactionClass(int handle) throws InteractionClassNotDefined {
        InteractionClass theClass = model.interactionClass(handle);
        if (theClass == null) {
            throw new InteractionClassNotDefined(nothingHas(handle, "interaction class", "getInteractionClassHandle"));
        }
        return theClass;
    }

    static AttributeNotDefined notDefined(ObjectClass theClass, int attribute) {
        return new AttributeNotDefined("Class '" + theClass.name() + "' has no attribute with handle " + attribute
                + "; get the handle with getAttributeHandle for this class");
    }

    /** The handles, each once, all of them attributes of the class. */
    static Set<Integer> attributes(ObjectClass theClass, int[] handles) throws AttributeNotDefined {
        Set<Integer> attributes = new TreeSet<>();
        for (int handle : handles) {
            if (theClass.member(handle) == null) {
                throw notDefined(theClass, handle);
            }
            attributes.add(handle);
        }
        return attributes;
    }

    static void requireParameters(InteractionClass theClass, HandleValues values)
            throws InteractionParameterNotDefined {
        for (int i = 0; i < values.size(); ++i) {
            if (theClass.member(values.handle(i)) == null) {
                throw new InteractionParameterNotDefined("Class '" + theClass.name() + "' has no parameter with handle "
                        + values.handle(i) + "; get the handle with getParameterHandle for this class");
            }
        }
    }

    /** Updates a second; an empty designator stands for any number of them. */
    double updateRate(String designator) throws InvalidUpdateRateDesignator {
        if (designator.isEmpty()) {
            return 0;
        }
        Double rate = model.updateRate(designator);
        if (rate == null) {
            throw new InvalidUpdateRateDesignator("Update rate '" + designator
                    + "' is not defined; add it to the updateRates table of a FOM module");
        }
        return rate;
    }

    /** The designator of the higher of two rates; null is lower than any. */
    String higherRate(String one, String other) {
        if (one == null || other.isEmpty()) {
            return other;
        }
        return one.isEmpty() || limit(one) >= limit(other) ? one : other;
    }

    private double limit(String designator) {
        double rate = model.updateRate(designator);
        return rate == 0 ? Double.POSITIVE_INFINITY : rate;
    }

    /** Updates a second that are wanted on one of those terms at least; 0 for any number of them. */
    double rate(List<Interest.Terms> terms) {
        String highest = null;
        for (Interest.Terms each : terms) {
            highest = higherRate(highest, each.updateRate());
        }
        return highest == null || highest.isEmpty() ? 0 : model.updateRate(highest);
    }
}
