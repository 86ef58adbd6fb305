package tovu.local.fom;

import java.util.Set;

/** An interaction class with its parameters. */
public final class InteractionClass extends ClassNode<InteractionClass, Parameter> {
    private Transportation transportation;
    private OrderType order;
    private Set<Dimension> dimensions = Set.of();

    InteractionClass(int handle, String name, InteractionClass parent) {
        super(handle, name, parent);
    }

    @Override
    InteractionClass self() {
        return this;
    }

    /** Takes over what a module states and no earlier one did; null and an empty set state nothing. */
    void complete(Transportation theTransportation, OrderType theOrder, Set<Dimension> theDimensions) {
        transportation = transportation == null ? theTransportation : transportation;
        order = order == null ? theOrder : order;
        dimensions = dimensions.isEmpty() ? theDimensions : dimensions;
    }

    Transportation statedTransportation() {
        return transportation;
    }

    OrderType statedOrder() {
        return order;
    }

    public Transportation transportation() {
        return transportation == null ? Transportation.RELIABLE : transportation;
    }

    public OrderType order() {
        return order == null ? OrderType.RECEIVE : order;
    }

    /** The dimensions that regions may have for it. */
    public Set<Dimension> dimensions() {
        return dimensions;
    }
}
