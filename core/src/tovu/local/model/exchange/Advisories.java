package tovu.local.model.exchange;

import tovu.local.fom.Switches;
import tovu.local.model.value.Saved;

/** Which notices a federate wants to get; the federation's switches say what it begins with. */
@SuppressWarnings("serial") // read by what wrote it
final class Advisories implements Saved {
    boolean objectClassRelevance;
    boolean attributeRelevance;
    boolean attributeScope;
    boolean interactionRelevance;

    Advisories(Switches switches) {
        objectClassRelevance = switches.objectClassRelevanceAdvisory();
        attributeRelevance = switches.attributeRelevanceAdvisory();
        attributeScope = switches.attributeScopeAdvisory();
        interactionRelevance = switches.interactionRelevanceAdvisory();
    }

    void silence() {
        objectClassRelevance = false;
        attributeRelevance = false;
        attributeScope = false;
        interactionRelevance = false;
    }
}
