package tovu.local.model.exchange;

import hla.rti1516e.exceptions.FederateServiceInvocationsAreBeingReportedViaMOM;
import hla.rti1516e.exceptions.OwnershipAcquisitionPending;
import hla.rti1516e.exceptions.RTIexception;
import java.util.LinkedHashMap;
import java.util.Map;
import java.util.Set;
import java.util.TreeSet;
import tovu.local.fom.InteractionClass;
import tovu.local.fom.ObjectClass;
import tovu.local.model.exchange.Interest.Terms;
import tovu.local.model.value.Saved;

/** Publication and subscription. */
@SuppressWarnings("serial") // read by what wrote it
public final class DeclarationManagement implements Saved {
    private final Exchange federation;
    private final Audience<ObjectClass> objectAudience = new Audience<>();
    private final Audience<InteractionClass> interactionAudience = new Audience<>();

    DeclarationManagement(Exchange federation) {
        this.federation = federation;
    }

    Set<Federate> subscribers(ObjectClass theClass) {
        return objectAudience.of(theClass);
    }

    Set<Federate> subscribers(InteractionClass theClass) {
        return interactionAudience.of(theClass);
    }

    public void publishObjectClass(Federate federate, int classHandle, int[] attributes) throws RTIexception {
        ObjectClass theClass = federation.lookup().objectClass(classHandle);
        Set<Integer> before = Set.copyOf(federate.publications.attributes(theClass));
        federate.publications.add(theClass, Lookup.attributes(theClass, attributes));
        Set<Integer> added = new TreeSet<>(federate.publications.attributes(theClass));
        added.removeAll(before);
        federation.relevance().publicationChanged(federate, theClass);
        federation.ownership().offerAbandoned(federate, theClass, added);
    }

    public void unpublishObjectClass(Federate federate, int classHandle) throws RTIexception {
        ObjectClass theClass = federation.lookup().objectClass(classHandle);
        unpublish(federate, theClass, Set.copyOf(federate.publications.attributes(theClass)));
    }

    public void unpublishObjectClassAttributes(Federate federate, int classHandle, int[] attributes)
            throws RTIexception {
        ObjectClass theClass = federation.lookup().objectClass(classHandle);
        unpublish(federate, theClass, Lookup.attributes(theClass, attributes));
    }

    private void unpublish(Federate federate, ObjectClass theClass, Set<Integer> attributes)
            throws OwnershipAcquisitionPending {
        Set<Integer> gone = federate.publications.goneWith(theClass, attributes);
        for (ObjectInstance object : federate.knownObjects) {
            if (object.knowledgeOf(federate).knownClass == theClass) {
                for (InstanceAttribute each : object.attributes()) {
                    if (gone.contains(each.handle()) && each.candidate(federate) != null) {
                        throw new OwnershipAcquisitionPending(federate + " wants to own attribute '"
                                + each.definition.name() + "' of " + object + "; cancel the acquisition first");
                    }
                }
            }
        }
        federate.publications.remove(theClass, gone);
        federation.ownership().unpublished(federate, theClass);
        federation.relevance().publicationChanged(federate, theClass);
    }

    public void publishInteractionClass(Federate federate, int classHandle) throws RTIexception {
        InteractionClass theClass = federation.lookup().interactionClass(classHandle);
        federate.publications.interactionClasses.add(theClass);
        federation.relevance().publicationChanged(federate, theClass);
    }

    public void unpublishInteractionClass(Federate federate, int classHandle) throws RTIexception {
        InteractionClass theClass = federation.lookup().interactionClass(classHandle);
        federate.publications.interactionClasses.remove(theClass);
        federate.revokeLicences(0);
        federate.publications.interactionsOn.remove(theClass);
    }

    public void subscribeObjectClass(Federate federate, int classHandle, int[] attributes, boolean active,
            String updateRate) throws RTIexception {
        federation.lookup().updateRate(updateRate);
        ObjectClass theClass = federation.lookup().objectClass(classHandle);
        Map<Integer, Set<Region>> everywhere = everyRegion(Lookup.attributes(theClass, attributes));
        subscribe(federate, theClass, everywhere, new Terms(active, updateRate));
    }

    /** @param where for each attribute the regions, or null for everywhere */
    void subscribe(Federate federate, ObjectClass theClass, Map<Integer, Set<Region>> where, Terms terms) {
        where.forEach((attribute, regions) -> federate.subscriptions.add(theClass, attribute, regions, terms));
        federate.invalidateMessages();
        subscriptionChanged(federate, theClass);
    }

    public void unsubscribeObjectClass(Federate federate, int classHandle) throws RTIexception {
        ObjectClass theClass = federation.lookup().objectClass(classHandle);
        unsubscribeAll(federate, theClass);
    }

    private void unsubscribeAll(Federate federate, ObjectClass theClass) {
        unsubscribe(federate, theClass, everyRegion(Set.copyOf(federate.subscriptions.interests(theClass).keySet())));
    }

    public void unsubscribeObjectClassAttributes(Federate federate, int classHandle, int[] attributes)
            throws RTIexception {
        ObjectClass theClass = federation.lookup().objectClass(classHandle);
        unsubscribe(federate, theClass, everyRegion(Lookup.attributes(theClass, attributes)));
    }

    private static Map<Integer, Set<Region>> everyRegion(Set<Integer> attributes) {
        Map<Integer, Set<Region>> where = new LinkedHashMap<>();
        attributes.forEach(attribute -> where.put(attribute, null));
        return where;
    }

    /** @param where for each attribute the regions, or null for all of them */
    void unsubscribe(Federate federate, ObjectClass theClass, Map<Integer, Set<Region>> where) {
        where.forEach((attribute, regions) -> federate.subscriptions.remove(theClass, attribute, regions));
        federate.invalidateMessages();
        subscriptionChanged(federate, theClass);
    }

    private void subscriptionChanged(Federate federate, ObjectClass theClass) {
        objectAudience.set(theClass, federate, federate.subscriptions.isSubscribed(theClass));
        federation.visibility().subscriptionChanged(federate, theClass);
        federation.relevance().subscriptionChanged(theClass);
    }

    public void subscribeInteractionClass(Federate federate, int classHandle, boolean active) throws RTIexception {
        subscribe(federate, federation.lookup().interactionClass(classHandle), null, active);
    }

    void subscribe(Federate federate, InteractionClass theClass, Set<Region> where, boolean active)
            throws FederateServiceInvocationsAreBeingReportedViaMOM {
        if (federate.oversight.reportsServices && theClass == federation.serviceReport()) {
            throw new FederateServiceInvocationsAreBeingReportedViaMOM("The services of " + federate
                    + " are reported to whoever subscribes to this class; switch that off first, with"
                    + " HLAsetServiceReporting");
        }
        federate.subscriptions.add(theClass, where, active);
        federate.invalidateMessages();
        subscriptionChanged(federate, theClass);
    }

    public void unsubscribeInteractionClass(Federate federate, int classHandle) throws RTIexception {
        unsubscribe(federate, federation.lookup().interactionClass(classHandle), null);
    }

    void unsubscribe(Federate federate, InteractionClass theClass, Set<Region> where) {
        federate.subscriptions.remove(theClass, where);
        federate.invalidateMessages();
        subscriptionChanged(federate, theClass);
    }

    /** Whether an interaction of that class would reach anyone. */
    public boolean isSubscribed(InteractionClass theClass) {
        return theClass.lineage().stream().anyMatch(each -> !subscribers(each).isEmpty());
    }

    private void subscriptionChanged(Federate federate, InteractionClass theClass) {
        interactionAudience.set(theClass, federate, federate.subscriptions.interest(theClass) != null);
        federation.relevance().subscriptionChanged(theClass);
    }

    void resigned(Federate federate) {
        for (ObjectClass theClass : Set.copyOf(federate.subscriptions.objectClasses())) {
            unsubscribeAll(federate, theClass);
        }
        for (InteractionClass theClass : Set.copyOf(federate.subscriptions.interactionClasses())) {
            unsubscribe(federate, theClass, null);
        }
    }
}
