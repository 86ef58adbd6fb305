package tovu.local.model.exchange;

import hla.rti1516e.exceptions.AttributeAcquisitionWasNotRequested;
import hla.rti1516e.exceptions.AttributeAlreadyBeingAcquired;
import hla.rti1516e.exceptions.AttributeAlreadyBeingDivested;
import hla.rti1516e.exceptions.AttributeAlreadyOwned;
import hla.rti1516e.exceptions.AttributeDivestitureWasNotRequested;
import hla.rti1516e.exceptions.AttributeNotOwned;
import hla.rti1516e.exceptions.AttributeNotPublished;
import hla.rti1516e.exceptions.FederateOwnsAttributes;
import hla.rti1516e.exceptions.NoAcquisitionPending;
import hla.rti1516e.exceptions.ObjectClassNotPublished;
import hla.rti1516e.exceptions.RTIexception;
import java.util.ArrayList;
import java.util.List;
import java.util.Set;
import tovu.local.fom.ObjectClass;
import tovu.local.model.exchange.InstanceAttribute.Candidate;
import tovu.local.model.exchange.InstanceAttribute.Divestiture;

/**
 * Who owns which attribute, and how that changes hands. Candidates wait in the order in which they asked; an attribute
 * that becomes free goes to the first of them at once.
 */
public final class OwnershipManagement {
    private final Exchange federation;

    OwnershipManagement(Exchange federation) {
        this.federation = federation;
    }

    private static String describe(InstanceAttribute attribute, Knowledge knowledge) {
        return "Attribute '" + attribute.definition.name() + "' of " + knowledge.object;
    }

    /** The attributes with those handles, all of which the federate must own. */
    static List<InstanceAttribute> owned(Knowledge knowledge, int[] handles) throws RTIexception {
        List<InstanceAttribute> attributes = ObjectRegistry.attributes(knowledge, handles);
        for (InstanceAttribute each : attributes) {
            if (each.owner() != knowledge.federate) {
                throw new AttributeNotOwned(describe(each, knowledge) + " is owned by "
                        + (each.owner() == null ? "nobody" : each.owner()) + ", not by " + knowledge.federate);
            }
        }
        return attributes;
    }

    public void divestUnconditionally(Federate federate, int object, int[] attributes) throws RTIexception {
        Knowledge knowledge = federation.objects().known(federate, object);
        release(knowledge.object, owned(knowledge, attributes));
    }

    /** Lets attributes go: to the first who waits for each, or else to be offered to all who may own it. */
    void release(ObjectInstance object, List<InstanceAttribute> attributes) {
        if (attributes.isEmpty()) {
            return;
        }
        OwnershipNotices notices = new OwnershipNotices(object);
        for (InstanceAttribute each : attributes) {
            Federate former = each.owner();
            if (each.candidates().isEmpty()) {
                each.giveTo(null);
                offer(object, each, former, Notices.NO_TAG, notices);
            } else {
                handOver(each, Notices.NO_TAG, notices);
            }
        }
        notices.post();
        federation.visibility().objectChanged(object);
    }

    /** Gives an attribute to its first candidate, with the tag of the divestiture that this completes. */
    private static void handOver(InstanceAttribute attribute, byte[] tag, OwnershipNotices notices) {
        Federate first = attribute.candidates().get(0).federate();
        attribute.removeCandidate(first);
        handOver(attribute, first, tag, notices);
    }

    private static void handOver(InstanceAttribute attribute, Federate newOwner, byte[] tag,
            OwnershipNotices notices) {
        attribute.giveTo(newOwner);
        notices.acquired.add(newOwner, attribute, tag);
        keep(attribute, notices);
    }

    /** Its owner has not offered it: who insists is in the owner's hands, who does not waits in vain. */
    private static void keep(InstanceAttribute attribute, OwnershipNotices notices) {
        for (Candidate each : List.copyOf(attribute.candidates())) {
            if (each.ifAvailable()) {
                attribute.removeCandidate(each.federate());
                notices.unavailable.add(each.federate(), attribute);
            } else {
                notices.wanted.addToOwner(attribute, each);
            }
        }
    }

    private static void offer(ObjectInstance object, InstanceAttribute attribute, Federate former, byte[] tag,
            OwnershipNotices notices) {
        for (Knowledge each : object.knowers()) {
            if (each.federate != former && object.mayBeOffered(attribute, each.federate)) {
                notices.offered.add(each.federate, attribute, tag);
            }
        }
    }

    /** Offers what nobody owns any more to a federate that from now on publishes those attributes. */
    void offerAbandoned(Federate federate, ObjectClass theClass, Set<Integer> published) {
        for (ObjectInstance object : federate.knownObjects) {
            Knowledge knowledge = object.knowledgeOf(federate);
            if (knowledge.knownClass == theClass) {
                offerAbandoned(knowledge, published);
            }
        }
    }

    void offerAbandoned(Knowledge knowledge, Set<Integer> attributes) {
        OwnershipNotices notices = new OwnershipNotices(knowledge.object);
        for (InstanceAttribute each : knowledge.object.attributes()) {
            if (each.isFree() && attributes.contains(each.handle())
                    && knowledge.object.mayBeOffered(each, knowledge.federate)) {
                notices.offered.add(knowledge.federate, each);
            }
        }
        notices.post();
    }

    public void divestNegotiated(Federate federate, int object, int[] attributes, byte[] tag) throws RTIexception {
        Knowledge knowledge = federation.objects().known(federate, object);
        List<InstanceAttribute> owned = owned(knowledge, attributes);
        for (InstanceAttribute each : owned) {
            if (each.isDivesting()) {
                throw new AttributeAlreadyBeingDivested(describe(each, knowledge) + " is being divested already");
            }
        }
        OwnershipNotices notices = new OwnershipNotices(knowledge.object);
        for (InstanceAttribute each : owned) {
            if (each.candidates().isEmpty()) {
                each.divestiture = Divestiture.OFFERED;
                offer(knowledge.object, each, federate, tag, notices);
            } else {
                each.divestiture = Divestiture.CONFIRMATION_REQUESTED;
                notices.confirmable.add(federate, each);
            }
        }
        notices.post();
    }

    public void confirmDivestiture(Federate federate, int object, int[] attributes, byte[] tag) throws RTIexception {
        Knowledge knowledge = federation.objects().known(federate, object);
        List<InstanceAttribute> owned = ownedAndDivesting(knowledge, attributes);
        for (InstanceAttribute each : owned) {
            if (each.candidates().isEmpty()) {
                throw new NoAcquisitionPending(describe(each, knowledge)
                        + " is wanted by nobody; wait for a request to confirm its divestiture");
            }
        }
        OwnershipNotices notices = new OwnershipNotices(knowledge.object);
        for (InstanceAttribute each : owned) {
            handOver(each, tag, notices);
        }
        notices.post();
        federation.visibility().objectChanged(knowledge.object);
    }

    private static List<InstanceAttribute> ownedAndDivesting(Knowledge knowledge, int[] attributes)
            throws RTIexception {
        List<InstanceAttribute> owned = owned(knowledge, attributes);
        for (InstanceAttribute each : owned) {
            if (!each.isDivesting()) {
                throw new AttributeDivestitureWasNotRequested(describe(each, knowledge)
                        + " is not being divested; call negotiatedAttributeOwnershipDivestiture first");
            }
        }
        return owned;
    }

    public void cancelDivestiture(Federate federate, int object, int[] attributes) throws RTIexception {
        Knowledge knowledge = federation.objects().known(federate, object);
        OwnershipNotices notices = new OwnershipNotices(knowledge.object);
        for (InstanceAttribute each : ownedAndDivesting(knowledge, attributes)) {
            each.divestiture = Divestiture.NONE;
            keep(each, notices);
        }
        notices.post();
    }

    public void acquire(Federate federate, int object, int[] attributes, byte[] tag) throws RTIexception {
        Knowledge knowledge = federation.objects().known(federate, object);
        ask(knowledge, acquirable(knowledge, attributes), new Candidate(federate, false, tag));
    }

    public void acquireIfAvailable(Federate federate, int object, int[] attributes) throws RTIexception {
        Knowledge knowledge = federation.objects().known(federate, object);
        List<InstanceAttribute> wanted = acquirable(knowledge, attributes);
        for (InstanceAttribute each : wanted) {
            if (each.candidate(federate) != null) {
                throw new AttributeAlreadyBeingAcquired(describe(each, knowledge) + " is being acquired by "
                        + federate + " already");
            }
        }
        ask(knowledge, wanted, new Candidate(federate, true, Notices.NO_TAG));
    }

    private static List<InstanceAttribute> acquirable(Knowledge knowledge, int[] attributes) throws RTIexception {
        List<InstanceAttribute> wanted = ObjectRegistry.attributes(knowledge, attributes);
        for (InstanceAttribute each : wanted) {
            if (each.owner() == knowledge.federate) {
                throw new FederateOwnsAttributes(describe(each, knowledge) + " is owned by " + knowledge.federate
                        + " already");
            }
        }
        if (!knowledge.federate.publications.publishes(knowledge.knownClass)) {
            throw new ObjectClassNotPublished(knowledge.federate + " does not publish class '"
                    + knowledge.knownClass.name() + "'; publish what it wants to own first");
        }
        for (InstanceAttribute each : wanted) {
            if (!knowledge.publishes(each.definition)) {
                throw new AttributeNotPublished(knowledge.federate + " does not publish attribute '"
                        + each.definition.name() + "' of class '" + knowledge.knownClass.name()
                        + "'; publish it first");
            }
        }
        return wanted;
    }

    private void ask(Knowledge knowledge, List<InstanceAttribute> wanted, Candidate candidate) {
        OwnershipNotices notices = new OwnershipNotices(knowledge.object);
        for (InstanceAttribute each : wanted) {
            each.removeCandidate(candidate.federate());
            if (each.owner() == null && !knowledge.object.deleted) {
                handOver(each, candidate.federate(), Notices.NO_TAG, notices);
            } else if (each.isDivesting()) {
                each.addCandidate(candidate);
                if (each.divestiture == Divestiture.OFFERED) {
                    each.divestiture = Divestiture.CONFIRMATION_REQUESTED;
                    notices.confirmable.add(each.owner(), each);
                }
            } else if (candidate.ifAvailable()) {
                notices.unavailable.add(candidate.federate(), each);
            } else {
                each.addCandidate(candidate);
                if (each.owner() != null) { // else the object is deleted, and this federate soon told so
                    notices.wanted.addToOwner(each, candidate);
                }
            }
        }
        notices.post();
        federation.visibility().objectChanged(knowledge.object);
    }

    /** The owner keeps the attributes; those who want them go on waiting until it lets go, or they do. */
    public void denyRelease(Federate federate, int object, int[] attributes) throws RTIexception {
        owned(federation.objects().known(federate, object), attributes);
    }

    /** @return the attributes that went to someone who wants them */
    public int[] divestIfWanted(Federate federate, int object, int[] attributes) throws RTIexception {
        Knowledge knowledge = federation.objects().known(federate, object);
        List<InstanceAttribute> wanted = new ArrayList<>(owned(knowledge, attributes));
        wanted.removeIf(each -> each.candidates().isEmpty());
        release(knowledge.object, wanted);
        return wanted.stream().mapToInt(InstanceAttribute::handle).toArray();
    }

    public void cancelAcquisition(Federate federate, int object, int[] attributes) throws RTIexception {
        Knowledge knowledge = federation.objects().known(federate, object);
        List<InstanceAttribute> unwanted = ObjectRegistry.attributes(knowledge, attributes);
        for (InstanceAttribute each : unwanted) {
            if (each.owner() == federate) {
                throw new AttributeAlreadyOwned(describe(each, knowledge) + " is owned by " + federate
                        + " already; divest it instead");
            }
        }
        for (InstanceAttribute each : unwanted) {
            Candidate candidate = each.candidate(federate);
            if (candidate == null || candidate.ifAvailable()) {
                throw new AttributeAcquisitionWasNotRequested(describe(each, knowledge)
                        + " was not asked for by " + federate + " with attributeOwnershipAcquisition");
            }
        }
        for (InstanceAttribute each : unwanted) {
            withdraw(each, federate);
        }
        knowledge.post(to -> to.confirmAttributeOwnershipAcquisitionCancellation(object, attributes));
    }

    private static void withdraw(InstanceAttribute attribute, Federate federate) {
        attribute.removeCandidate(federate);
        if (attribute.candidates().isEmpty() && attribute.divestiture == Divestiture.CONFIRMATION_REQUESTED) {
            attribute.divestiture = Divestiture.OFFERED;
        }
    }

    public void query(Federate federate, int object, int attributeHandle) throws RTIexception {
        Knowledge knowledge = federation.objects().known(federate, object);
        Federate owner = ObjectRegistry.attribute(knowledge, attributeHandle).owner();
        if (owner == null) {
            knowledge.post(to -> to.attributeIsNotOwned(object, attributeHandle));
        } else if (owner.isInfrastructure()) {
            knowledge.post(to -> to.attributeIsOwnedByRTI(object, attributeHandle));
        } else {
            knowledge.post(to -> to.informAttributeOwnership(object, attributeHandle, owner.handle()));
        }
    }

    public boolean isOwned(Federate federate, int object, int attributeHandle) throws RTIexception {
        return ObjectRegistry.attribute(federation.objects().known(federate, object), attributeHandle).owner() == federate;
    }

    /** Gives an attribute to a federate, or takes it away, without asking or telling its owner. */
    public void assign(Federate federate, int object, int attributeHandle, boolean owned) throws RTIexception {
        Knowledge knowledge = federation.objects().known(federate, object);
        InstanceAttribute attribute = ObjectRegistry.attribute(knowledge, attributeHandle);
        if (attribute.owner() != null && attribute.owner().isInfrastructure()) {
            throw new AttributeNotOwned(describe(attribute, knowledge)
                    + " belongs to the federation itself, for good");
        }
        if (owned == (attribute.owner() == federate)) {
            return;
        }
        if (owned && !knowledge.publishes(attribute.definition)) {
            throw new AttributeNotPublished(federate + " does not publish attribute '" + attribute.definition.name()
                    + "' of class '" + knowledge.knownClass.name() + "'; let it publish that first");
        }
        if (owned) {
            OwnershipNotices notices = new OwnershipNotices(knowledge.object);
            withdraw(attribute, federate);
            attribute.giveTo(federate);
            keep(attribute, notices);
            notices.post();
            federation.visibility().objectChanged(knowledge.object);
        } else {
            release(knowledge.object, List.of(attribute));
        }
    }

    /** A federate cannot own what it does not publish any more. */
    void unpublished(Federate federate, ObjectClass theClass) {
        for (ObjectInstance object : List.copyOf(federate.knownObjects)) {
            Knowledge knowledge = object.knowledgeOf(federate);
            if (knowledge.knownClass == theClass) {
                releaseUnpublished(knowledge);
            }
        }
    }

    private void releaseUnpublished(Knowledge knowledge) {
        release(knowledge.object, knowledge.object.attributes(each ->
                each.owner() == knowledge.federate && !knowledge.publishes(each.definition)));
    }

    /**
     * Gives a deleter its own again, as far as it still publishes that. Who asked for it in between has to ask the
     * deleter.
     */
    void giveBack(Deletion deletion) {
        OwnershipNotices notices = new OwnershipNotices(deletion.object());
        for (InstanceAttribute.Possession each : deletion.owned()) {
            each.attribute().giveBack(deletion.deleter(), each);
            keep(each.attribute(), notices);
        }
        notices.post();
        releaseUnpublished(deletion.object().knowledgeOf(deletion.deleter()));
    }

    boolean isAcquiring(Federate federate, ObjectInstance object) {
        return object.attributes().stream().anyMatch(each -> each.candidate(federate) != null);
    }

    void cancelAllAcquisitions(Federate federate) {
        for (ObjectInstance object : federate.knownObjects) {
            object.attributes().forEach(each -> withdraw(each, federate));
        }
    }
}
