package tovu.local.model.save;

import java.io.IOException;
import java.io.InvalidObjectException;
import java.io.ObjectInputStream;
import java.io.ObjectOutputStream;
import java.io.ObjectStreamException;
import java.io.OutputStream;
import java.util.ArrayList;
import java.util.List;
import java.util.Map;
import java.util.function.IntFunction;
import tovu.local.fom.Attribute;
import tovu.local.fom.Dimension;
import tovu.local.fom.InteractionClass;
import tovu.local.fom.ObjectClass;
import tovu.local.fom.ObjectModel;
import tovu.local.model.exchange.Exchange;
import tovu.local.model.port.SaveStore;
import tovu.local.model.value.Saved;

/**
 * A federation's state, to be written as it is and to be read any number of times. The federation and its object model
 * are no part of it: it refers to them, so that what is read fits the federation that it is read for.
 *
 * @param foundation what the state stands on
 * @param members    the federates that it is the state of
 * @param state      the state itself
 */
record Snapshot(Foundation foundation, List<Member> members, Saved state) {
    /** A federate as it is known by. */
    record Member(int handle, String name, String type) implements Saved {
        @Override
        public String toString() {
            return "'" + name + "' of type '" + type + "'";
        }
    }

    /** Stands for something that is not copied. */
    private record Reference(Kind kind, int handle) implements Saved {
    }

    enum Kind {
        FEDERATION, OBJECT_CLASS, INTERACTION_CLASS, ATTRIBUTE, DIMENSION
    }

    static Snapshot of(Exchange federation, Saved state) {
        return new Snapshot(Foundation.of(federation.timeFamily(), federation.objectModel()), members(federation), state);
    }

    static List<Member> members(Exchange federation) {
        return federation.members().stream().map(each -> new Member(each.handle(), each.name(), each.type())).toList();
    }

    void write(OutputStream out) throws IOException {
        Writer writer = new Writer(out);
        writer.writeObject(foundation);
        writer.writeObject(members);
        writer.writeObject(state);
        writer.flush();
    }

    /** All that a state may refer to, as it is now: others may join with more modules while it is read. */
    static Map<Kind, List<Object>> referents(Exchange federation) {
        ObjectModel model = federation.objectModel();
        return Map.of(Kind.FEDERATION, List.of(federation), Kind.OBJECT_CLASS, all(model::objectClass),
                Kind.INTERACTION_CLASS, all(model::interactionClass), Kind.ATTRIBUTE, all(model::attribute),
                Kind.DIMENSION, all(model::dimension));
    }

    private static List<Object> all(IntFunction<Object> byHandle) {
        List<Object> all = new ArrayList<>();
        for (Object each = byHandle.apply(1); each != null; each = byHandle.apply(all.size() + 1)) {
            all.add(each);
        }
        return all;
    }

    /** @param here what the federation stands on */
    @SuppressWarnings("unchecked") // it is what was written
    static Snapshot read(SaveStore.Found save, Map<Kind, List<Object>> referents, Foundation here)
            throws IOException {
        try {
            Reader reader = new Reader(save, referents);
            Foundation foundation = (Foundation) reader.readObject();
            String obstacle = foundation.obstacle(here);
            if (obstacle != null) {
                throw new IOException(obstacle);
            }
            return new Snapshot(foundation, (List<Member>) reader.readObject(), (Saved) reader.readObject());
        } catch (ObjectStreamException | ClassNotFoundException | ClassCastException e) {
            throw new IOException("it was not written by this version of the core (" + e.getMessage() + ")", e);
        }
    }

    private static final class Writer extends ObjectOutputStream {
        Writer(OutputStream out) throws IOException {
            super(out);
            enableReplaceObject(true);
        }

        @Override
        protected Object replaceObject(Object object) {
            if (object instanceof Exchange) {
                return new Reference(Kind.FEDERATION, 1);
            }
            if (object instanceof ObjectClass theClass) {
                return new Reference(Kind.OBJECT_CLASS, theClass.handle());
            }
            if (object instanceof InteractionClass theClass) {
                return new Reference(Kind.INTERACTION_CLASS, theClass.handle());
            }
            if (object instanceof Attribute attribute) {
                return new Reference(Kind.ATTRIBUTE, attribute.handle());
            }
            if (object instanceof Dimension dimension) {
                return new Reference(Kind.DIMENSION, dimension.handle());
            }
            return object;
        }
    }

    private static final class Reader extends ObjectInputStream {
        private final Map<Kind, List<Object>> referents;

        Reader(SaveStore.Found save, Map<Kind, List<Object>> referents) throws IOException {
            super(save.content());
            this.referents = referents;
            enableResolveObject(true);
            setObjectInputFilter(new SavedClasses(save.length()));
        }

        @Override
        protected Object resolveObject(Object object) throws InvalidObjectException {
            if (!(object instanceof Reference reference)) {
                return object;
            }
            List<Object> all = referents.get(reference.kind);
            if (reference.handle < 1 || reference.handle > all.size()) {
                throw new InvalidObjectException("no " + reference.kind + " has the handle " + reference.handle);
            }
            return all.get(reference.handle - 1);
        }
    }
}
