package tovu.local.fom;

import java.util.Set;

/** An object class attribute. */
public final class Attribute extends Member implements Dimensioned {
    final Delivery delivery = new Delivery();

    Attribute(int handle, String name) {
        super(handle, name);
    }

    /** How updates travel unless an instance changes it. */
    public Transportation transportation() {
        return delivery.transportation();
    }

    /** How updates are ordered unless an instance changes it. */
    public OrderType order() {
        return delivery.order();
    }

    @Override
    public Set<Dimension> dimensions() {
        return delivery.dimensions();
    }
}
