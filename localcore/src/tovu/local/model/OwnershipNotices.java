package tovu.local.model;

/** What one step in the ownership of an object's attributes has to tell to whom. */
final class OwnershipNotices {
    final Notices acquired = new Notices();
    final Notices offered = new Notices();
    final Notices confirmable = new Notices();
    final Notices wanted = new Notices();
    final Notices unavailable = new Notices();

    void post(ObjectInstance object) {
        int handle = object.handle;
        acquired.post((to, attributes, tag) -> to.attributeOwnershipAcquisitionNotification(handle, attributes, tag));
        unavailable.post((to, attributes, tag) -> to.attributeOwnershipUnavailable(handle, attributes));
        confirmable.post((to, attributes, tag) -> to.requestDivestitureConfirmation(handle, attributes));
        wanted.post((to, attributes, tag) -> to.requestAttributeOwnershipRelease(handle, attributes, tag));
        offered.post((to, attributes, tag) -> to.requestAttributeOwnershipAssumption(handle, attributes, tag));
    }
}
