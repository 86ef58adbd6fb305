package tovu.local.fom;

/**
 * The switches that a federation starts with.
 *
 * @param automaticResignAction the resign action's name as the table has it, or an empty text
 */
public record Switches(boolean autoProvide, boolean conveyRegionDesignatorSets, boolean conveyProducingFederate,
        boolean attributeScopeAdvisory, boolean attributeRelevanceAdvisory, boolean objectClassRelevanceAdvisory,
        boolean interactionRelevanceAdvisory, boolean serviceReporting, boolean exceptionReporting,
        String automaticResignAction) {
}
