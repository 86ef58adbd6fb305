package tovu.local.model.exchange;

import hla.rti1516e.exceptions.AttributeNotOwned;
import hla.rti1516e.exceptions.DeletePrivilegeNotHeld;
import hla.rti1516e.exceptions.FederateOwnsAttributes;
import hla.rti1516e.exceptions.ObjectClassNotPublished;
import hla.rti1516e.exceptions.OwnershipAcquisitionPending;
import hla.rti1516e.exceptions.RTIexception;
import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Set;
import tovu.local.fom.ObjectClass;
import tovu.local.fom.OrderType;
import tovu.local.fom.Transportation;
import tovu.local.model.value.HandleSet;
import tovu.local.model.value.HandleValues;
import tovu.local.model.value.Timing;

/** Registration, updates and deletion of object instances. */
public final class ObjectManagement {
    /** What of an update goes out together: all its attributes travel alike. */
    private record Passel(Transportation transportation, OrderType order, Set<Region> regions) {
        static Passel of(InstanceAttribute attribute, Dispatch dispatch) {
            return new Passel(attribute.transportation(), dispatch.sentOrder(attribute.order()),
                    attribute.updateRegions());
        }

        boolean fits(InstanceAttribute attribute, Dispatch dispatch) {
            return transportation.equals(attribute.transportation()) && order == dispatch.sentOrder(attribute.order())
                    && regions.equals(attribute.updateRegions());
        }
    }

    private final Exchange federation;

    ObjectManagement(Exchange federation) {
        this.federation = federation;
    }

    /** @param name null for a name of the federation's choice */
    public int register(Federate federate, int classHandle, String name) throws RTIexception {
        return register(federate, federation.lookup().objectClass(classHandle), name, Map.of());
    }

    /** @param regions for some attributes the regions that their updates are sent with */
    int register(Federate federate, ObjectClass theClass, String name, Map<Integer, Set<Region>> regions)
            throws RTIexception {
        requirePublished(federate, theClass);
        if (name != null && !federate.isInfrastructure()) {
            federation.names().requireUsable(federate, name);
        }
        ObjectInstance object = federation.objects().add(theClass, name, federate);
        object.becomeKnown(federate, theClass);
        for (InstanceAttribute each : object.attributes()) {
            if (federate.publications.publishes(theClass, each.handle())) {
                each.giveTo(federate);
            }
        }
        regions.forEach((attribute, set) -> object.attribute(attribute).associate(federate, set));
        federate.oversight.objectsRegistered.count(theClass.handle());
        federation.visibility().registered(object);
        return object.handle;
    }

    static void requirePublished(Federate federate, ObjectClass theClass) throws ObjectClassNotPublished {
        if (!federate.publications.publishes(theClass)) {
            throw new ObjectClassNotPublished(federate + " does not publish class '" + theClass.name()
                    + "'; publish some of its attributes first");
        }
    }

    /** @return by which the update may be retracted, or 0 */
    public int update(Federate federate, int objectHandle, HandleValues values, byte[] tag, Timing timing)
            throws RTIexception {
        return update(federate, objectHandle, values, tag, timing, null);
    }

    /** @param only the one federate that is told; null for all who want to be */
    public int update(Federate federate, int objectHandle, HandleValues values, byte[] tag, Timing timing,
            Federate only) throws RTIexception {
        Knowledge own = federation.objects().known(federate, objectHandle);
        InstanceAttribute foreign = null;
        for (int i = 0; i < values.size(); ++i) {
            InstanceAttribute attribute = ObjectRegistry.attribute(own, values.handle(i));
            foreign = attribute.owner() == federate ? foreign : attribute;
        }
        if (foreign != null) {
            throw new AttributeNotOwned("Attribute '" + foreign.definition.name() + "' of " + own.object
                    + " is not owned by " + federate + "; acquire it first, or leave it out of the update");
        }
        Dispatch dispatch = new Dispatch(federation, federate, tag, timing);
        federation.visibility().rediscover(own.object);
        Passel first = null;
        boolean alike = true;
        for (int i = 0; i < values.size(); ++i) {
            InstanceAttribute attribute = own.object.attribute(values.handle(i));
            first = first == null ? Passel.of(attribute, dispatch) : first;
            alike &= first.fits(attribute, dispatch);
        }
        if (first != null && alike) {
            send(own, first, values, dispatch, only);
        } else if (first != null) {
            split(own.object, values, dispatch).forEach((passel, part) -> send(own, passel, part, dispatch, only));
        }
        return dispatch.retraction();
    }

    private static Map<Passel, HandleValues> split(ObjectInstance object, HandleValues values,
            Dispatch dispatch) {
        Map<Passel, HandleValues> passels = new LinkedHashMap<>();
        for (int i = 0; i < values.size(); ++i) {
            passels.computeIfAbsent(Passel.of(object.attribute(values.handle(i)), dispatch), passel ->
                    values.select(handle -> passel.fits(object.attribute(handle), dispatch)));
        }
        return passels;
    }

    /** Sends a passel to all who want some of it, to each what it wants. */
    private void send(Knowledge own, Passel passel, HandleValues values, Dispatch dispatch, Federate only) {
        Message.Origin sending = dispatch.sending(passel.order);
        Content content = new Content(values, passel.regions, passel.transportation,
                own.federate.supplement(passel.regions));
        count(own, passel.transportation);
        HandleSet selection = null; // by the one before, who mostly wants the same
        HandleValues wanted = null;
        for (Knowledge each : own.object.knowers()) {
            if (each != own && (only == null || each.federate == only)) {
                HandleSet wants = each.wanted(passel.regions);
                if (!wants.equals(selection)) {
                    selection = wants;
                    wanted = values.select(wants);
                }
                if (passel.order == OrderType.RECEIVE && each.isPaced(passel.transportation.isReliable())) {
                    sendPaced(each, sending, content, wanted, dispatch);
                } else if (wanted.size() > 0) {
                    dispatch.send(new Reflection(each, sending, content, wanted));
                }
            }
        }
    }

    private static void count(Knowledge own, Transportation transportation) {
        int theClass = own.object.objectClass.handle();
        own.federate.oversight.updatesSent.count(theClass, transportation);
        if (!own.updated) {
            own.updated = true;
            own.federate.oversight.objectsUpdated.count(theClass);
        }
    }

    private void sendPaced(Knowledge to, Message.Origin sending, Content content, HandleValues wanted,
            Dispatch dispatch) {
        HandleValues admitted = federation.updateRates().admit(to, sending, content, wanted);
        if (admitted.size() > 0) {
            Content sent = admitted == wanted ? content : content.part(admitted);
            dispatch.send(new Reflection(to, sending, sent, admitted));
        }
    }

    public int delete(Federate federate, int objectHandle, byte[] tag, Timing timing) throws RTIexception {
        Knowledge own = federation.objects().known(federate, objectHandle);
        InstanceAttribute privilege = own.object.attribute(federation.privilegeToDelete());
        if (privilege.owner() != federate) {
            throw new DeletePrivilegeNotHeld(federate + " does not own the privilege to delete " + own.object
                    + "; acquire its attribute HLAprivilegeToDeleteObject first");
        }
        Dispatch dispatch = new Dispatch(federation, federate, tag, timing);
        delete(own, dispatch, dispatch.sending(privilege.order()));
        return dispatch.retraction();
    }

    private void delete(Knowledge own, Dispatch dispatch, Message.Origin sending) {
        ObjectInstance object = own.object;
        Federate federate = own.federate;
        if (dispatch.retraction() != 0) {
            dispatch.deletes(new Deletion(object, federate, own.knownClass,
                    object.attributes(each -> each.owner() == federate).stream()
                            .map(InstanceAttribute::possession).toList()));
        }
        object.deleted = true;
        federate.oversight.objectsDeleted.count(object.objectClass.handle());
        List<Knowledge> others = new ArrayList<>(object.knowers());
        others.remove(own);
        federation.objects().forget(own);
        for (Knowledge each : others) {
            dispatch.send(new Removal(each, sending, federate.handle()));
        }
    }

    /** Deletes all that the federate may delete, at once and without a tag. */
    void deleteAll(Federate federate) {
        Dispatch dispatch = new Dispatch(federation, federate, Notices.NO_TAG);
        for (ObjectInstance object : List.copyOf(federate.knownObjects)) {
            if (object.attribute(federation.privilegeToDelete()).owner() == federate) {
                delete(object.knowledgeOf(federate), dispatch, dispatch.sending(OrderType.RECEIVE));
            }
        }
    }

    public void deleteLocally(Federate federate, int objectHandle) throws RTIexception {
        Knowledge own = federation.objects().known(federate, objectHandle);
        if (own.object.isOwnedIn(federate)) {
            throw new FederateOwnsAttributes(federate + " owns attributes of " + own.object
                    + "; divest them first, or delete the object");
        }
        if (federation.ownership().isAcquiring(federate, own.object)) {
            throw new OwnershipAcquisitionPending(federate + " wants to own attributes of " + own.object
                    + "; cancel the acquisition first");
        }
        federation.objects().forget(own);
        own.object.becomeKnownAgainLater(federate);
        federation.visibility().refreshUpdates(own.object);
    }

    public void requestUpdate(Federate federate, int objectHandle, int[] attributes, byte[] tag)
            throws RTIexception {
        Knowledge own = federation.objects().known(federate, objectHandle);
        requestUpdate(federate, own.object, ObjectRegistry.attributes(own, attributes), tag);
    }

    public void requestClassUpdate(Federate federate, int classHandle, int[] attributes, byte[] tag)
            throws RTIexception {
        ObjectClass theClass = federation.lookup().objectClass(classHandle);
        Map<Integer, Set<Region>> everywhere = new LinkedHashMap<>();
        Lookup.attributes(theClass, attributes).forEach(attribute -> everywhere.put(attribute, Set.of()));
        requestClassUpdate(federate, theClass, everywhere, tag);
    }

    /** @param where for each attribute the regions; none for everywhere */
    void requestClassUpdate(Federate federate, ObjectClass theClass, Map<Integer, Set<Region>> where, byte[] tag) {
        for (ObjectClass each : theClass.subtree()) {
            for (ObjectInstance object : federation.objects().ofClass(each)) {
                requestUpdate(federate, object, object.attributes(attribute -> {
                    Set<Region> regions = where.get(attribute.handle());
                    return regions != null && (regions.isEmpty() || attribute.updateRegions().isEmpty()
                            || Region.anyOverlap(regions, attribute.updateRegions(), attribute.definition));
                }), tag);
            }
        }
    }

    private static void requestUpdate(Federate federate, ObjectInstance object, List<InstanceAttribute> attributes,
            byte[] tag) {
        Notices wanted = Notices.untilHandedOver();
        for (InstanceAttribute each : attributes) {
            if (each.owner() != null && each.owner() != federate) {
                wanted.add(each.owner(), each);
            }
        }
        wanted.post(object, (to, handles, noTag) -> to.provideAttributeValueUpdate(object.handle, handles, tag));
    }
}
