package tovu.local.model.exchange;

import hla.rti1516e.exceptions.FederateInternalError;
import java.util.LinkedHashMap;
import java.util.LinkedHashSet;
import java.util.Map;
import java.util.Set;
import java.util.function.Consumer;
import tovu.local.model.exchange.InstanceAttribute.Candidate;
import tovu.local.model.port.FederateCallbacks;
import tovu.local.model.value.Condition;

/**
 * Attributes of one object gathered by whom to tell of them, so that each federate is told once. What has ceased to be
 * so by the time of the delivery is left out.
 */
final class Notices {
    /** The callback to make for what was gathered for one federate. */
    @FunctionalInterface
    interface Form {
        void tell(FederateCallbacks to, int[] attributes, byte[] tag) throws FederateInternalError;
    }

    /** Whether it is still so. */
    @FunctionalInterface
    interface Condition {
        /** @param asking the candidate that it is about, or null */
        boolean holds(InstanceAttribute attribute, Federate told, Candidate asking);
    }

    private record Addressee(Federate federate, byte[] tag) {
    }

    private record Subject(InstanceAttribute attribute, int tenure, Candidate asking) {
        boolean isSameTenure() {
            return tenure == attribute.tenure();
        }
    }

    static final byte[] NO_TAG = {};
    private static final Condition ALWAYS = (attribute, told, asking) -> true;

    private final Map<Addressee, Set<Subject>> gathered = new LinkedHashMap<>();
    private final boolean endWithTenure;
    private final Condition condition;

    private Notices(boolean endWithTenure, Condition condition) {
        this.endWithTenure = endWithTenure;
        this.condition = condition;
    }

    /** What stays so. */
    static Notices lasting() {
        return new Notices(false, ALWAYS);
    }

    /** What is so as long as the attribute has the owner that it has now. */
    static Notices untilHandedOver() {
        return untilHandedOver(ALWAYS);
    }

    /** The same, if something else holds too. */
    static Notices untilHandedOver(Condition condition) {
        return new Notices(true, condition);
    }

    /** What comes to be so when it is told, if the attribute still has the same owner then. */
    static Notices ofChange(Consumer<InstanceAttribute> change) {
        return untilHandedOver((attribute, told, asking) -> {
            change.accept(attribute);
            return true;
        });
    }

    void add(Federate federate, InstanceAttribute attribute) {
        add(federate, attribute, NO_TAG);
    }

    /** Attributes with different tags are told of separately. */
    void add(Federate federate, InstanceAttribute attribute, byte[] tag) {
        add(federate, attribute, tag, null);
    }

    /** Tells the owner, with the candidate's own tag, of who wants the attribute. */
    void addToOwner(InstanceAttribute attribute, Candidate asking) {
        add(attribute.owner(), attribute, asking.tag(), asking);
    }

    private void add(Federate federate, InstanceAttribute attribute, byte[] tag, Candidate asking) {
        gathered.computeIfAbsent(new Addressee(federate, tag), key -> new LinkedHashSet<>())
                .add(new Subject(attribute, attribute.tenure(), asking));
    }

    /** @param object whose attributes they are; everyone who is told knows it */
    void post(ObjectInstance object, Form form) {
        gathered.forEach((addressee, subjects) -> {
            Federate federate = addressee.federate;
            Knowledge knowledge = object.knowledgeOf(federate);
            federate.postLate(() -> {
                int[] attributes = subjects.stream().filter(each -> !endWithTenure || each.isSameTenure())
                        .filter(each -> condition.holds(each.attribute, federate, each.asking))
                        .mapToInt(each -> each.attribute.handle()).distinct().toArray();
                return attributes.length == 0 || knowledge.isOver() ? null
                        : to -> form.tell(to, attributes, addressee.tag);
            });
        });
    }
}
