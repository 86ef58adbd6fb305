package tovu.local.model.exchange;

import hla.rti1516e.exceptions.AttributeAlreadyBeingChanged;
import hla.rti1516e.exceptions.InteractionClassAlreadyBeingChanged;
import hla.rti1516e.exceptions.InvalidTransportationType;
import hla.rti1516e.exceptions.RTIexception;
import hla.rti1516e.exceptions.RTIinternalError;
import java.util.List;
import tovu.local.fom.InteractionClass;
import tovu.local.fom.OrderType;
import tovu.local.fom.Transportation;
import tovu.local.model.exchange.Publications.Sending;

/** Changes to how a federate's own updates and interactions travel. */
public final class DeliveryChanges {
    private final Exchange federation;

    DeliveryChanges(Exchange federation) {
        this.federation = federation;
    }

    public static Transportation transportation(int code) throws InvalidTransportationType {
        Transportation type = Transportation.ofCode(code);
        if (type == null) {
            throw new InvalidTransportationType("Transportation type " + code
                    + " is unknown; use 1 (reliable) or 2 (best effort)");
        }
        return type;
    }

    /** The change takes effect when the federate is told so. */
    public void changeTransportation(Federate federate, int object, int[] attributes, int code) throws RTIexception {
        Transportation type = transportation(code);
        Knowledge knowledge = federation.objects().known(federate, object);
        List<InstanceAttribute> owned = OwnershipManagement.owned(knowledge, attributes);
        for (InstanceAttribute each : owned) {
            if (each.isTransportationChanging()) {
                throw new AttributeAlreadyBeingChanged("The transportation type of attribute '"
                        + each.definition.name() + "' is being changed already; wait for the confirmation");
            }
        }
        Notices changed = Notices.ofChange(attribute -> attribute.transportBy(type));
        for (InstanceAttribute each : owned) {
            each.beginTransportationChange();
            changed.add(federate, each);
        }
        changed.post(knowledge.object, (to, handles, tag) ->
                to.confirmAttributeTransportationTypeChange(object, handles, type));
    }

    public void queryTransportation(Federate federate, int object, int attribute) throws RTIexception {
        Knowledge knowledge = federation.objects().known(federate, object);
        Transportation type = ObjectRegistry.attribute(knowledge, attribute).transportation();
        knowledge.post(to -> to.reportAttributeTransportationType(object, attribute, type));
    }

    public void changeInteractionTransportation(Federate federate, int classHandle, int code) throws RTIexception {
        Transportation type = transportation(code);
        InteractionClass theClass = federation.lookup().interactionClass(classHandle);
        Sending sending = InteractionManagement.requirePublished(federate, theClass);
        if (sending.transportationChanging) {
            throw new InteractionClassAlreadyBeingChanged("The transportation type of interaction class '"
                    + theClass.name() + "' is being changed already; wait for the confirmation");
        }
        sending.transportationChanging = true;
        federate.postChange(() -> {
            sending.transportation = type;
            sending.transportationChanging = false;
        }, to -> to.confirmInteractionTransportationTypeChange(classHandle, type));
    }

    public void queryInteractionTransportation(Federate federate, int asked, int classHandle) throws RTIexception {
        InteractionClass theClass = federation.lookup().interactionClass(classHandle);
        Federate sender = federation.member(asked);
        if (sender == null) {
            throw new RTIinternalError("No federate with handle " + asked + " is joined");
        }
        Transportation type = sender.publications.sending(theClass).transportation;
        federate.post(to -> to.reportInteractionTransportationType(asked, classHandle, type));
    }

    public void changeOrder(Federate federate, int object, int[] attributes, OrderType order) throws RTIexception {
        OwnershipManagement.owned(federation.objects().known(federate, object), attributes)
                .forEach(each -> each.orderBy(order));
    }

    public void changeInteractionOrder(Federate federate, int classHandle, OrderType order) throws RTIexception {
        InteractionClass theClass = federation.lookup().interactionClass(classHandle);
        InteractionManagement.requirePublished(federate, theClass).order = order;
        federate.revokeLicences(0);
    }
}
