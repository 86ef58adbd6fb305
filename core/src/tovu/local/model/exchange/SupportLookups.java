package tovu.local.model.exchange;

import hla.rti1516e.exceptions.AttributeNotDefined;
import hla.rti1516e.exceptions.InteractionParameterNotDefined;
import hla.rti1516e.exceptions.InvalidAttributeHandle;
import hla.rti1516e.exceptions.InvalidDimensionHandle;
import hla.rti1516e.exceptions.InvalidFederateHandle;
import hla.rti1516e.exceptions.InvalidInteractionClassHandle;
import hla.rti1516e.exceptions.InvalidObjectClassHandle;
import hla.rti1516e.exceptions.InvalidOrderName;
import hla.rti1516e.exceptions.InvalidParameterHandle;
import hla.rti1516e.exceptions.InvalidTransportationName;
import hla.rti1516e.exceptions.InvalidTransportationType;
import hla.rti1516e.exceptions.InvalidUpdateRateDesignator;
import hla.rti1516e.exceptions.NameNotFound;
import hla.rti1516e.exceptions.RTIexception;
import java.util.Set;
import java.util.function.Supplier;
import tovu.local.fom.Attribute;
import tovu.local.fom.Dimension;
import tovu.local.fom.InteractionClass;
import tovu.local.fom.ObjectClass;
import tovu.local.fom.ObjectModel;
import tovu.local.fom.OrderType;
import tovu.local.fom.Parameter;
import tovu.local.fom.Transportation;

/** Names for handles and handles for names. */
public final class SupportLookups {
    private final Exchange federation;
    private final ObjectModel model;

    SupportLookups(Exchange federation) {
        this.federation = federation;
        model = federation.objectModel();
    }

    private static <T> T named(T found, String what, String name) throws NameNotFound {
        return named(found, what, name, () -> null);
    }

    /** @param like looks for another name that may have been meant */
    private static <T> T named(T found, String what, String name, Supplier<String> like) throws NameNotFound {
        if (found == null) {
            String meant = like.get();
            throw new NameNotFound("The federation's FOM modules define no " + what + " '" + name + "'; "
                    + (meant == null ? "" : "did you mean '" + meant + "'? Otherwise ")
                    + "check its spelling and the modules that the federation was created with");
        }
        return found;
    }

    private ObjectClass objectClass(int handle) throws InvalidObjectClassHandle {
        ObjectClass theClass = model.objectClass(handle);
        if (theClass == null) {
            throw new InvalidObjectClassHandle(Lookup.nothingHas(handle, "object class", "getObjectClassHandle"));
        }
        return theClass;
    }

    private InteractionClass interactionClass(int handle) throws InvalidInteractionClassHandle {
        InteractionClass theClass = model.interactionClass(handle);
        if (theClass == null) {
            throw new InvalidInteractionClassHandle(
                    Lookup.nothingHas(handle, "interaction class", "getInteractionClassHandle"));
        }
        return theClass;
    }

    private Attribute attribute(int classHandle, int handle)
            throws InvalidObjectClassHandle, InvalidAttributeHandle, AttributeNotDefined {
        ObjectClass theClass = objectClass(classHandle);
        if (!model.hasAttribute(handle)) {
            throw new InvalidAttributeHandle(Lookup.nothingHas(handle, "attribute", "getAttributeHandle"));
        }
        Attribute attribute = theClass.member(handle);
        if (attribute == null) {
            throw Lookup.notDefined(theClass, handle);
        }
        return attribute;
    }

    private Dimension dimension(int handle) throws InvalidDimensionHandle {
        Dimension dimension = model.dimension(handle);
        if (dimension == null) {
            throw new InvalidDimensionHandle(Lookup.nothingHas(handle, "dimension", "getDimensionHandle"));
        }
        return dimension;
    }

    public int objectClassHandle(String name) throws NameNotFound {
        return named(model.objectClass(name), "object class", name, () -> model.objectClassLike(name)).handle();
    }

    public String objectClassName(int handle) throws InvalidObjectClassHandle {
        return objectClass(handle).name();
    }

    public int attributeHandle(int classHandle, String name) throws RTIexception {
        ObjectClass theClass = objectClass(classHandle);
        return named(theClass.member(name), "attribute of '" + theClass.name() + "' named", name).handle();
    }

    public String attributeName(int classHandle, int handle) throws RTIexception {
        return attribute(classHandle, handle).name();
    }

    public int interactionClassHandle(String name) throws NameNotFound {
        return named(model.interactionClass(name), "interaction class", name, () -> model.interactionClassLike(name))
                .handle();
    }

    public String interactionClassName(int handle) throws InvalidInteractionClassHandle {
        return interactionClass(handle).name();
    }

    public int parameterHandle(int classHandle, String name) throws RTIexception {
        InteractionClass theClass = interactionClass(classHandle);
        return named(theClass.member(name), "parameter of '" + theClass.name() + "' named", name).handle();
    }

    public String parameterName(int classHandle, int handle) throws RTIexception {
        InteractionClass theClass = interactionClass(classHandle);
        if (!model.hasParameter(handle)) {
            throw new InvalidParameterHandle(Lookup.nothingHas(handle, "parameter", "getParameterHandle"));
        }
        Parameter parameter = theClass.member(handle);
        if (parameter == null) {
            throw new InteractionParameterNotDefined("Class '" + theClass.name() + "' has no parameter with handle "
                    + handle + "; get the handle with getParameterHandle for this class");
        }
        return parameter.name();
    }

    public int dimensionHandle(String name) throws NameNotFound {
        return named(model.dimension(name), "dimension", name).handle();
    }

    public String dimensionName(int handle) throws InvalidDimensionHandle {
        return dimension(handle).name();
    }

    public long dimensionUpperBound(int handle) throws InvalidDimensionHandle {
        return dimension(handle).upperBound();
    }

    public int[] attributeDimensions(int classHandle, int handle) throws RTIexception {
        return handles(attribute(classHandle, handle).dimensions());
    }

    public int[] interactionDimensions(int handle) throws InvalidInteractionClassHandle {
        return handles(interactionClass(handle).dimensions());
    }

    private static int[] handles(Set<Dimension> dimensions) {
        return dimensions.stream().mapToInt(Dimension::handle).toArray();
    }

    public double updateRate(String designator) throws InvalidUpdateRateDesignator {
        return federation.lookup().updateRate(designator);
    }

    /** The rate at which the federate gets updates of an attribute; 0 when there is no limit. */
    public double updateRate(Federate federate, int object, int attributeHandle) throws RTIexception {
        Knowledge knowledge = federation.objects().known(federate, object);
        InstanceAttribute attribute = ObjectRegistry.attribute(knowledge, attributeHandle);
        return federation.lookup().rate(knowledge.terms(attribute));
    }

    public OrderType orderType(String name) throws InvalidOrderName {
        for (OrderType each : OrderType.values()) {
            if (each.hlaName().equalsIgnoreCase(name)) {
                return each;
            }
        }
        throw new InvalidOrderName("Order '" + name + "' is unknown; use Receive or TimeStamp");
    }

    /** The code of a transportation type, by which the federate may ask for this very name again. */
    public int transportationCode(Federate federate, String name) throws InvalidTransportationName {
        Transportation type = model.transportation(name);
        if (type == null) {
            throw new InvalidTransportationName("Transportation type '" + name
                    + "' is not defined; use HLAreliable or HLAbestEffort");
        }
        federate.transportationNames.put(type.code(), name);
        return type.code();
    }

    public String transportationName(Federate federate, int code) throws InvalidTransportationType {
        return federate.transportationNames.getOrDefault(code, DeliveryChanges.transportation(code).hlaName());
    }

    public long normalizeFederate(int handle) throws InvalidFederateHandle {
        if (!federation.hasAssigned(handle)) {
            throw new InvalidFederateHandle("Handle " + handle + " was never given to a federate of federation '"
                    + federation.name() + "'");
        }
        return handle;
    }
}
