package tovu.local.model.exchange;

import tovu.local.model.exchange.InstanceAttribute.Divestiture;

/** What one step in the ownership of an object's attributes has to tell to whom. */
final class OwnershipNotices {
    final Notices acquired = Notices.untilHandedOver();
    final Notices offered;
    final Notices confirmable = Notices.untilHandedOver((attribute, told, asking) ->
            attribute.divestiture == Divestiture.CONFIRMATION_REQUESTED);
    final Notices wanted = Notices.untilHandedOver((attribute, told, asking) ->
            attribute.candidate(asking.federate()) == asking);
    final Notices unavailable = Notices.lasting();
    private final ObjectInstance object;

    OwnershipNotices(ObjectInstance object) {
        this.object = object;
        offered = Notices.untilHandedOver((attribute, told, asking) ->
                attribute.isFree() && object.mayBeOffered(attribute, told));
    }

    void post() {
        int handle = object.handle;
        acquired.post(object, (to, attributes, tag) ->
                to.attributeOwnershipAcquisitionNotification(handle, attributes, tag));
        unavailable.post(object, (to, attributes, tag) -> to.attributeOwnershipUnavailable(handle, attributes));
        confirmable.post(object, (to, attributes, tag) -> to.requestDivestitureConfirmation(handle, attributes));
        wanted.post(object, (to, attributes, tag) -> to.requestAttributeOwnershipRelease(handle, attributes, tag));
        offered.post(object, (to, attributes, tag) -> to.requestAttributeOwnershipAssumption(handle, attributes, tag));
    }
}
