package tovu.local.fom;

import java.util.Set;

/** An interaction class with its parameters. */
public final class InteractionClass extends ClassNode<InteractionClass, Parameter> implements Dimensioned {
    final Delivery delivery = new Delivery();

    InteractionClass(int handle, String name, InteractionClass parent) {
        super(handle, name, parent);
    }

    @Override
    InteractionClass self() {
        return this;
    }

    public Transportation transportation() {
        return delivery.transportation();
    }

    public OrderType order() {
        return delivery.order();
    }

    @Override
    public Set<Dimension> dimensions() {
        return delivery.dimensions();
    }
}
