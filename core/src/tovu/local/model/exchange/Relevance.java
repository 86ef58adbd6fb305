package tovu.local.model.exchange;

import tovu.local.fom.InteractionClass;
import tovu.local.fom.ObjectClass;

/** Tells publishers whether anyone is interested in instances of a class, or in interactions of one. */
final class Relevance {
    private final Exchange federation;

    Relevance(Exchange federation) {
        this.federation = federation;
    }

    void publicationChanged(Federate publisher, ObjectClass theClass) {
        if (!publisher.publications.publishes(theClass)) {
            publisher.publications.registrationStarted.remove(theClass);
        } else if (publisher.advisories.objectClassRelevance) {
            refresh(publisher, theClass);
        }
    }

    /** A subscription to a class is one to the instances of its subclasses too. */
    void subscriptionChanged(ObjectClass theClass) {
        for (Federate publisher : federation.members()) {
            if (publisher.advisories.objectClassRelevance) {
                for (ObjectClass published : publisher.publications.objectClasses.keySet()) {
                    if (published.lineage().contains(theClass)) {
                        refresh(publisher, published);
                    }
                }
            }
        }
    }

    private void refresh(Federate publisher, ObjectClass theClass) {
        int handle = theClass.handle();
        if (isWanted(publisher, theClass)) {
            if (publisher.publications.registrationStarted.add(theClass)) {
                publisher.post(to -> to.startRegistrationForObjectClass(handle));
            }
        } else if (publisher.publications.registrationStarted.remove(theClass)) {
            publisher.post(to -> to.stopRegistrationForObjectClass(handle));
        }
    }

    private boolean isWanted(Federate publisher, ObjectClass theClass) {
        for (ObjectClass each : theClass.lineage()) {
            for (Federate subscriber : federation.declarations().subscribers(each)) {
                if (subscriber != publisher && subscriber.subscriptions.interests(each).entrySet().stream()
                        .anyMatch(interest -> interest.getValue().isActive()
                                && publisher.publications.publishes(theClass, interest.getKey()))) {
                    return true;
                }
            }
        }
        return false;
    }

    void publicationChanged(Federate publisher, InteractionClass theClass) {
        if (publisher.advisories.interactionRelevance) {
            refresh(publisher, theClass);
        }
    }

    void subscriptionChanged(InteractionClass theClass) {
        for (Federate publisher : federation.members()) {
            if (publisher.advisories.interactionRelevance) {
                for (InteractionClass published : publisher.publications.interactionClasses) {
                    if (published.lineage().contains(theClass)) {
                        refresh(publisher, published);
                    }
                }
            }
        }
    }

    private void refresh(Federate publisher, InteractionClass theClass) {
        int handle = theClass.handle();
        if (isWanted(publisher, theClass)) {
            if (publisher.publications.interactionsOn.add(theClass)) {
                publisher.post(to -> to.turnInteractionsOn(handle));
            }
        } else if (publisher.publications.interactionsOn.remove(theClass)) {
            publisher.post(to -> to.turnInteractionsOff(handle));
        }
    }

    private boolean isWanted(Federate publisher, InteractionClass theClass) {
        for (InteractionClass each : theClass.lineage()) {
            for (Federate subscriber : federation.declarations().subscribers(each)) {
                if (subscriber != publisher && subscriber.subscriptions.interest(each).isActive()) {
                    return true;
                }
            }
        }
        return false;
    }

    /** A switch that is put on begins with telling what is wanted now. */
    void objectClassSwitched(Federate publisher) {
        publisher.publications.registrationStarted.clear();
        if (publisher.advisories.objectClassRelevance) {
            publisher.publications.objectClasses.keySet().forEach(each -> refresh(publisher, each));
        }
    }

    void interactionSwitched(Federate publisher) {
        publisher.publications.interactionsOn.clear();
        if (publisher.advisories.interactionRelevance) {
            publisher.publications.interactionClasses.forEach(each -> refresh(publisher, each));
        }
    }
}
