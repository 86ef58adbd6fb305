package tovu.local.fom;

import java.util.Set;

/** How what is sent of an attribute or of an interaction class travels. */
final class Delivery {
    final Property<Transportation> transportation = new Property<>();
    final Property<OrderType> order = new Property<>();
    final Property<Set<Dimension>> dimensions = new Property<>();

    Transportation transportation() {
        return transportation.or(Transportation.RELIABLE);
    }

    OrderType order() {
        return order.or(OrderType.RECEIVE);
    }

    Set<Dimension> dimensions() {
        return dimensions.or(Set.of());
    }
}
