package tovu.local.trace;

import java.util.function.Function;
import java.util.function.Supplier;
import tovu.local.fom.ObjectModel;

/** Names of what an object model defines. */
public abstract class ModelNames implements Names {
    /** The object model, or null. */
    protected abstract ObjectModel model();

    /** Reads a name while nothing changes what it is read from. */
    protected String read(Supplier<String> name) {
        return name.get();
    }

    private <T> String defined(Function<ObjectModel, T> thing, Function<T, String> name) {
        return read(() -> {
            T found = model() == null ? null : thing.apply(model());
            return found == null ? null : name.apply(found);
        });
    }

    @Override
    public String objectClass(int handle) {
        return defined(model -> model.objectClass(handle), each -> each.name());
    }

    @Override
    public String interactionClass(int handle) {
        return defined(model -> model.interactionClass(handle), each -> each.name());
    }

    @Override
    public String attribute(int handle) {
        return defined(model -> model.hasAttribute(handle) ? model.attribute(handle) : null, each -> each.name());
    }

    @Override
    public String parameter(int handle) {
        return defined(model -> model.hasParameter(handle) ? model.parameter(handle) : null, each -> each.name());
    }

    @Override
    public String dimension(int handle) {
        return defined(model -> model.dimension(handle), each -> each.name());
    }
}
