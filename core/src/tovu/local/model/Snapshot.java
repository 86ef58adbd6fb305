package tovu.local.model;

import java.io.IOException;
import java.io.InvalidObjectException;
import java.io.ObjectInputStream;
import java.io.ObjectOutputStream;
import java.io.ObjectStreamException;
import java.io.OutputStream;
import java.util.ArrayList;
import java.util.List;
import java.util.Map;
import java.util.concurrent.Callable;
import java.util.concurrent.CompletableFuture;
import java.util.function.BiConsumer;
import java.util.function.IntFunction;
import tovu.local.fom.Attribute;
import tovu.local.fom.Dimension;
import tovu.local.fom.InteractionClass;
import tovu.local.fom.ObjectClass;
import tovu.local.fom.ObjectModel;

/**
 * How a federation's state is written and read. The federation and its object model are no part of it: a snapshot refers
 * to them, so that what is read fits the federation that it is read for.
 */
final class Snapshot {
    /** Stands for something that is not copied. */
    private record Reference(Kind kind, int handle) implements Saved {
    }

    enum Kind {
        FEDERATION, OBJECT_CLASS, INTERACTION_CLASS, ATTRIBUTE, DIMENSION
    }

    private static final long STACK_BYTES = 256L << 20; // which are taken as they are needed

    private Snapshot() {
    }

    /**
     * Does what reads or writes a snapshot, on a thread of its own: that goes down from federate to federate, and an
     * ordinary stack holds a hundred or so of them. Called under the federation's lock, which others may take
     * meanwhile if the store is slow.
     *
     * @param outcome is told, under the federation's lock, what came of it or why nothing did
     */
    static <R> void aside(Federation federation, Callable<R> work, BiConsumer<R, Throwable> outcome) {
        boolean quick = federation.saves().isQuick();
        CompletableFuture<Runnable> conclusion = new CompletableFuture<>();
        try {
            Thread thread = new Thread(null, () -> {
                Runnable concluding = conclusion(work, outcome);
                if (quick) {
                    conclusion.complete(concluding);
                } else {
                    synchronized (federation) {
                        concluding.run();
                    }
                }
            }, "snapshot", STACK_BYTES);
            thread.setDaemon(true);
            thread.start();
        } catch (OutOfMemoryError e) { // no room for a thread
            outcome.accept(null, e);
            return;
        }
        if (quick) {
            conclusion.join().run();
        }
    }

    private static <R> Runnable conclusion(Callable<R> work, BiConsumer<R, Throwable> outcome) {
        try {
            R result = work.call();
            return () -> outcome.accept(result, null);
        } catch (Exception | StackOverflowError | OutOfMemoryError e) {
            return () -> outcome.accept(null, e);
        }
    }

    static void write(Foundation foundation, FederationState state, OutputStream out) throws IOException {
        Writer writer = new Writer(out);
        writer.writeObject(foundation);
        writer.writeObject(state);
        writer.flush();
    }

    /** All that a state may refer to, as it is now: others may join with more modules while it is read. */
    static Map<Kind, List<Object>> referents(Federation federation) {
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

    /** @param foundation what the federation stands on */
    static FederationState read(SaveStore.Found save, Map<Kind, List<Object>> referents, Foundation foundation)
            throws IOException {
        try {
            Reader reader = new Reader(save, referents);
            String obstacle = ((Foundation) reader.readObject()).obstacle(foundation);
            if (obstacle != null) {
                throw new IOException(obstacle);
            }
            return (FederationState) reader.readObject();
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
            if (object instanceof Federation) {
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
