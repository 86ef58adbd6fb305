package tovu.local.model.exchange;

import hla.rti1516e.exceptions.AttributeRelevanceAdvisorySwitchIsOff;
import hla.rti1516e.exceptions.AttributeRelevanceAdvisorySwitchIsOn;
import hla.rti1516e.exceptions.AttributeScopeAdvisorySwitchIsOff;
import hla.rti1516e.exceptions.AttributeScopeAdvisorySwitchIsOn;
import hla.rti1516e.exceptions.InteractionRelevanceAdvisorySwitchIsOff;
import hla.rti1516e.exceptions.InteractionRelevanceAdvisorySwitchIsOn;
import hla.rti1516e.exceptions.ObjectClassRelevanceAdvisorySwitchIsOff;
import hla.rti1516e.exceptions.ObjectClassRelevanceAdvisorySwitchIsOn;
import hla.rti1516e.exceptions.RTIexception;
import java.util.function.Function;

/** The switches by which each federate chooses the notices that it gets. */
public final class AdvisorySwitches {
    private final Exchange federation;

    AdvisorySwitches(Exchange federation) {
        this.federation = federation;
    }

    private static void requireChange(boolean on, boolean wanted, String name,
            Function<String, RTIexception> isOn, Function<String, RTIexception> isOff) throws RTIexception {
        if (on == wanted) {
            throw (on ? isOn : isOff).apply("The " + name + " advisory switch is " + (on ? "on" : "off") + " already");
        }
    }

    public void setObjectClassRelevance(Federate federate, boolean on) throws RTIexception {
        requireChange(federate.advisories.objectClassRelevance, on, "object class relevance",
                ObjectClassRelevanceAdvisorySwitchIsOn::new, ObjectClassRelevanceAdvisorySwitchIsOff::new);
        federate.advisories.objectClassRelevance = on;
        federation.relevance().objectClassSwitched(federate);
    }

    public void setInteractionRelevance(Federate federate, boolean on) throws RTIexception {
        requireChange(federate.advisories.interactionRelevance, on, "interaction relevance",
                InteractionRelevanceAdvisorySwitchIsOn::new, InteractionRelevanceAdvisorySwitchIsOff::new);
        federate.advisories.interactionRelevance = on;
        federation.relevance().interactionSwitched(federate);
    }

    public void setAttributeRelevance(Federate federate, boolean on) throws RTIexception {
        requireChange(federate.advisories.attributeRelevance, on, "attribute relevance",
                AttributeRelevanceAdvisorySwitchIsOn::new, AttributeRelevanceAdvisorySwitchIsOff::new);
        federate.advisories.attributeRelevance = on;
        federation.visibility().updatesSwitched(federate);
    }

    public void setAttributeScope(Federate federate, boolean on) throws RTIexception {
        requireChange(federate.advisories.attributeScope, on, "attribute scope",
                AttributeScopeAdvisorySwitchIsOn::new, AttributeScopeAdvisorySwitchIsOff::new);
        federate.advisories.attributeScope = on;
        federation.visibility().scopeSwitched(federate);
    }
}
