package tovu.local.model.exchange;

import hla.rti1516e.exceptions.InteractionClassNotPublished;
import hla.rti1516e.exceptions.RTIexception;
import java.util.Set;
import tovu.local.fom.InteractionClass;
import tovu.local.model.exchange.Publications.Sending;
import tovu.local.model.value.HandleValues;
import tovu.local.model.value.Timing;

/** The sending of interactions. */
public final class InteractionManagement {
    private final Exchange federation;

    InteractionManagement(Exchange federation) {
        this.federation = federation;
    }

    public int send(Federate federate, int classHandle, HandleValues values, byte[] tag, Timing timing)
            throws RTIexception {
        return send(federate, federation.lookup().interactionClass(classHandle), values, Set.of(), tag, timing);
    }

    /** Everyone who subscribes gets it once, as the most specific class that it subscribes to. */
    int send(Federate federate, InteractionClass theClass, HandleValues values, Set<Region> regions, byte[] tag,
            Timing timing) throws RTIexception {
        Lookup.requireParameters(theClass, values);
        Sending how = requirePublished(federate, theClass);
        Dispatch dispatch = new Dispatch(federation, federate, tag, timing);
        Message.Origin sending = dispatch.sending(how.order);
        Content content = new Content(values, regions, how.transportation, federate.supplement(regions));
        federate.oversight.interactionsSent.count(theClass.handle(), how.transportation);
        for (InteractionClass received = theClass; received != null; received = received.parent()) {
            HandleValues known = null;
            for (Federate each : federation.declarations().subscribers(received)) {
                if (each != federate && each.subscriptions.receivedClass(theClass, regions) == received) {
                    known = known == null ? values.ofClass(received) : known;
                    dispatch.send(new Reception(each, sending, theClass, content, received, known));
                }
            }
        }
        return dispatch.retraction();
    }

    /** Whether the federation itself heeds interactions of a class. */
    public boolean isHeeded(int classHandle) {
        return federation.objectModel().interactionClass(classHandle).lineage().stream().anyMatch(each ->
                federation.declarations().subscribers(each).contains(federation.infrastructure()));
    }

    static Sending requirePublished(Federate federate, InteractionClass theClass)
            throws InteractionClassNotPublished {
        if (!federate.publications.publishes(theClass)) {
            throw new InteractionClassNotPublished(federate + " does not publish interaction class '"
                    + theClass.name() + "'; publish it first");
        }
        return federate.publications.sending(theClass);
    }
}
