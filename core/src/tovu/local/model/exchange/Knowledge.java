package tovu.local.model.exchange;

import hla.rti1516e.exceptions.FederateInternalError;
import java.util.List;
import java.util.Set;
import tovu.local.fom.Attribute;
import tovu.local.fom.ObjectClass;
import tovu.local.model.port.Callback;
import tovu.local.model.port.FederateCallbacks;
import tovu.local.model.port.RevocableCallback;
import tovu.local.model.value.HandleSet;
import tovu.local.model.value.Saved;

/** What one federate knows of one object instance: as which class, and which attributes it was told are in scope. */
@SuppressWarnings("serial") // read by what wrote it
final class Knowledge implements Saved {
    final Federate federate;
    final ObjectInstance object;
    final ObjectClass knownClass;
    Set<Integer> toldInScope = Set.of();
    /** What holds updates to the rates at which they are wanted; null while none is. */
    Pacing pacing;
    private volatile boolean over;
    /** Its end was left with the delivery: what is left behind that may not be told any more. */
    boolean ending;
    /** Whether the federate has ever updated the object. */
    boolean updated;
    /** Whether it was ever told of an update. Written where callbacks are made. */
    boolean reflected;

    Knowledge(Federate federate, ObjectInstance object, ObjectClass knownClass) {
        this.federate = federate;
        this.object = object;
        this.knownClass = knownClass;
    }

    /** The federate knows the object no more: what is on its way to it about the object is not told. */
    void end() {
        over = true;
        federate.revokeLicences(object.handle);
        federate.invalidateMessages();
    }

    boolean isOver() {
        return over;
    }

    Callback.Foresight foresightOfMessages() {
        return ending ? Callback.Foresight.NONE : Callback.Foresight.REVOCABLE;
    }

    /** Leaves a callback about the object. */
    void post(Callback callback) {
        federate.post(new RevocableCallback() {
            @Override
            public Foresight foresight() {
                return foresightOfMessages();
            }

            @Override
            public void foretell(FederateCallbacks to) throws FederateInternalError {
                callback.deliver(to);
            }

            @Override
            public boolean begin() {
                return !over;
            }
        });
    }

    /** The federate's interest in an attribute at its known class, or null. */
    Interest interest(int attribute) {
        return federate.subscriptions.interest(knownClass, attribute);
    }

    /** The attributes that the federate wants of what is sent with those regions. */
    HandleSet wanted(Set<Region> sentRegions) {
        return federate.subscriptions.wanted(knownClass, sentRegions);
    }

    /** Whether an update in receive order may have to wait, or takes the place of one that does. */
    boolean isPaced(boolean reliable) {
        return pacing != null || !reliable && federate.subscriptions.hasRates(knownClass);
    }

    /** On what terms updates of an attribute are wanted where they are sent now; none when they are not. */
    List<Interest.Terms> terms(InstanceAttribute attribute) {
        Interest interest = interest(attribute.handle());
        return interest == null ? List.of() : interest.terms(attribute.updateRegions());
    }

    boolean isInScope(InstanceAttribute attribute) {
        if (attribute.owner() == null || attribute.owner() == federate) {
            return false;
        }
        Interest interest = interest(attribute.handle());
        return interest != null && interest.meets(attribute.updateRegions());
    }

    /** Whether the federate publishes the attribute, as owning it takes. */
    boolean publishes(Attribute attribute) {
        return federate.publications.publishes(knownClass, attribute.handle());
    }
}
