package tovu.local.model;

import hla.rti1516e.exceptions.FederateInternalError;
import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;

/** Attributes of one object gathered by whom to tell of them, so that each federate is told once. */
final class Notices {
    /** The callback to make for what was gathered for one federate. */
    @FunctionalInterface
    interface Form {
        void tell(FederateCallbacks to, int[] attributes, byte[] tag) throws FederateInternalError;
    }

    private record Addressee(Federate federate, byte[] tag) {
    }

    static final byte[] NO_TAG = {};

    private final Map<Addressee, List<Integer>> gathered = new LinkedHashMap<>();

    void add(Federate federate, int attribute) {
        add(federate, attribute, NO_TAG);
    }

    /** Attributes with different tags are told of separately. */
    void add(Federate federate, int attribute, byte[] tag) {
        gathered.computeIfAbsent(new Addressee(federate, tag), key -> new ArrayList<>()).add(attribute);
    }

    void post(Form form) {
        gathered.forEach((addressee, list) -> {
            int[] attributes = list.stream().mapToInt(Integer::intValue).toArray();
            addressee.federate.post(to -> form.tell(to, attributes, addressee.tag));
        });
    }
}
