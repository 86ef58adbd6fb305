package tovu.local.model.exchange;

import java.util.ArrayList;
import java.util.Collection;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.TreeMap;
import java.util.TreeSet;
import tovu.local.fom.ObjectClass;

/**
 * Who gets to see what: discovers objects for those who subscribe to their classes, and keeps federates informed of
 * which attributes are in scope for them and which of their own updates anyone wants.
 */
final class Visibility {
    private final Exchange federation;

    Visibility(Exchange federation) {
        this.federation = federation;
    }

    void registered(ObjectInstance object) {
        discover(object);
        refreshUpdates(object);
    }

    void subscriptionChanged(Federate federate, ObjectClass theClass) {
        for (ObjectClass each : theClass.subtree()) {
            for (ObjectInstance object : List.copyOf(federation.objects().ofClass(each))) {
                subscriptionChanged(federate, object);
            }
        }
    }

    void subscriptionChanged(Federate federate, ObjectInstance object) {
        reconsider(object, federate);
        refreshUpdates(object);
    }

    /** Its owners have changed, or where they send their updates, or it is there again: who sees what may differ. */
    void objectChanged(ObjectInstance object) {
        discover(object);
        for (Knowledge each : object.knowers()) {
            refreshScope(each);
        }
        refreshUpdates(object);
    }

    void reconsider(ObjectInstance object, Federate federate) {
        Knowledge knowledge = object.knowledgeOf(federate);
        if (knowledge == null) {
            discover(object, federate);
        } else {
            refreshScope(knowledge);
        }
    }

    private void discover(ObjectInstance object) {
        for (ObjectClass each : object.objectClass.lineage()) {
            for (Federate subscriber : federation.declarations().subscribers(each)) {
                discover(object, subscriber);
            }
        }
    }

    private void discover(ObjectInstance object, Federate federate) {
        ObjectClass seenAs = object.knowledgeOf(federate) == null ? seenAs(object, federate) : null;
        if (seenAs != null) {
            discoverAs(seenAs, object, federate);
        }
    }

    /** The most specific class at which the federate wants an attribute of the object, or null when there is none. */
    private static ObjectClass seenAs(ObjectInstance object, Federate federate) {
        if (!object.deleted) {
            for (ObjectClass each : object.objectClass.lineage()) {
                if (seesAny(federate, object, federate.subscriptions.interests(each))) {
                    return each;
                }
            }
        }
        return null;
    }

    /** Before an update: who deleted the object locally and still wants to see it discovers it again. */
    void rediscover(ObjectInstance object) {
        expected(object).forEach(each -> discoverAs(each.knownClass, object, each.federate));
    }

    /** What those will know of the object who discover it again with its next update. */
    private List<Knowledge> expected(ObjectInstance object) {
        List<Knowledge> expected = List.of();
        for (int handle : object.locallyDeletedBy()) {
            Federate federate = federation.member(handle);
            ObjectClass seenAs = federate == null ? null : seenAs(object, federate);
            if (seenAs != null) {
                expected = expected.isEmpty() ? new ArrayList<>() : expected;
                expected.add(new Knowledge(federate, object, seenAs));
            }
        }
        return expected;
    }

    /** An attribute that nobody owns, or only the federate itself, is nothing to discover an object for. */
    private static boolean seesAny(Federate federate, ObjectInstance object, Map<Integer, Interest> interests) {
        for (Map.Entry<Integer, Interest> each : interests.entrySet()) {
            InstanceAttribute attribute = object.attribute(each.getKey());
            boolean ownedByAnother = attribute.owner() != null && attribute.owner() != federate;
            if (ownedByAnother && each.getValue().meets(attribute.updateRegions())) {
                return true;
            }
        }
        return false;
    }

    private void discoverAs(ObjectClass knownClass, ObjectInstance object, Federate federate) {
        object.becomeKnown(federate, knownClass);
        Knowledge knowledge = object.knowledgeOf(federate);
        knowledge.post(to -> {
            federate.oversight.objectsDiscovered.count(knownClass.handle());
            to.discoverObjectInstance(object.handle, knownClass.handle(), object.name,
                    federate.conveyed(object.producer));
        });
        refreshScope(knowledge);
        federation.ownership().offerAbandoned(knowledge, federate.publications.attributes(knownClass));
        if (object.isManagement()) {
            federation.management().discovered(federate, object.handle);
        } else if (federation.autoProvide()) {
            Notices wanted = Notices.untilHandedOver();
            for (int handle : federate.subscriptions.interests(knownClass).keySet()) {
                InstanceAttribute attribute = object.attribute(handle);
                if (attribute.owner() != null && attribute.owner() != federate) {
                    wanted.add(attribute.owner(), attribute);
                }
            }
            wanted.post(object,
                    (to, attributes, tag) -> to.provideAttributeValueUpdate(object.handle, attributes, tag));
        }
    }

    private static void refreshScope(Knowledge knowledge) {
        Federate federate = knowledge.federate;
        if (!federate.advisories.attributeScope) {
            return;
        }
        Set<Integer> inScope = new TreeSet<>();
        for (int attribute : federate.subscriptions.interests(knowledge.knownClass).keySet()) {
            if (knowledge.isInScope(knowledge.object.attribute(attribute))) {
                inScope.add(attribute);
            }
        }
        int object = knowledge.object.handle;
        int[] gone = difference(knowledge.toldInScope, inScope);
        int[] come = difference(inScope, knowledge.toldInScope);
        knowledge.toldInScope = inScope;
        if (gone.length > 0) {
            knowledge.post(to -> to.attributesOutOfScope(object, gone));
        }
        if (come.length > 0) {
            knowledge.post(to -> to.attributesInScope(object, come));
        }
    }

    private static int[] difference(Set<Integer> some, Set<Integer> others) {
        return some.stream().filter(each -> !others.contains(each)).mapToInt(Integer::intValue).toArray();
    }

    /** Tells owners, as far as they want to be told, which of their updates are wanted. */
    void refreshUpdates(ObjectInstance object) {
        Map<String, Notices> turnedOn = new TreeMap<>(); // by rate
        Notices turnedOff = Notices.untilHandedOver();
        List<Knowledge> expected = expected(object);
        for (InstanceAttribute each : object.attributes()) {
            Federate owner = each.owner();
            if (owner == null || !owner.advisories.attributeRelevance) {
                continue;
            }
            String wanted = wantedRate(expected, each, wantedRate(object.knowers(), each, null));
            if (wanted == null && each.updatesOn != null) {
                turnedOff.add(owner, each);
            } else if (wanted != null && !wanted.equals(each.updatesOn)) {
                turnedOn.computeIfAbsent(wanted, key -> Notices.untilHandedOver()).add(owner, each);
            }
            each.updatesOn = wanted;
        }
        turnedOff.post(object, (to, attributes, tag) -> to.turnUpdatesOffForObjectInstance(object.handle, attributes));
        turnedOn.forEach((rate, notices) -> notices.post(object,
                (to, attributes, tag) -> to.turnUpdatesOnForObjectInstance(object.handle, attributes, rate)));
    }

    /** The designator of the highest rate that any of them wants, empty for all updates, or the least for none. */
    private String wantedRate(Collection<Knowledge> audience, InstanceAttribute attribute, String least) {
        String wanted = least;
        for (Knowledge each : audience) {
            if (each.isInScope(attribute)) {
                for (Interest.Terms terms : each.terms(attribute)) {
                    wanted = terms.active() ? federation.lookup().higherRate(wanted, terms.updateRate()) : wanted;
                }
            }
        }
        return wanted;
    }

    /** A switch that is put on begins with telling what is so now. */
    void scopeSwitched(Federate federate) {
        for (ObjectInstance object : federate.knownObjects) {
            Knowledge knowledge = object.knowledgeOf(federate);
            knowledge.toldInScope = Set.of();
            refreshScope(knowledge);
        }
    }

    void updatesSwitched(Federate federate) {
        for (ObjectInstance object : federate.knownObjects) {
            for (InstanceAttribute each : object.attributes()) {
                if (each.owner() == federate) {
                    each.updatesOn = null;
                }
            }
            refreshUpdates(object);
        }
    }
}
