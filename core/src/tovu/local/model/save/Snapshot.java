package tovu.local.model.save;

import java.io.ByteArrayInputStream;
import java.io.ByteArrayOutputStream;
import java.io.IOException;
import java.io.InputStream;
import java.io.ObjectInputStream;
import java.io.ObjectOutputStream;
import java.io.OutputStream;
import java.io.Serializable;
import java.util.concurrent.Callable;
import java.util.concurrent.ExecutionException;
import java.util.concurrent.FutureTask;
import tovu.local.fom.Attribute;
import tovu.local.fom.Dimension;
import tovu.local.fom.InteractionClass;
import tovu.local.fom.ObjectClass;
import tovu.local.model.exchange.Exchange;
import tovu.local.model.value.Saved;

/**
 * A federation's state as it was, any number of copies of which can be made. The federation and its object model are no
 * part of it: a snapshot refers to them, so that a copy fits the federation that it is made for.
 */
public final class Snapshot {
    /** Stands for something that is not copied. */
    private record Reference(Kind kind, int handle) implements Serializable {
    }

    private enum Kind {
        FEDERATION, OBJECT_CLASS, INTERACTION_CLASS, ATTRIBUTE, DIMENSION
    }

    private static final long STACK_BYTES = 256L << 20; // which are taken as they are needed

    private final Exchange federation;
    private final byte[] bytes;

    /** Takes a snapshot of the state that the federation is in. */
    public Snapshot(Exchange federation, Saved state) {
        this.federation = federation;
        ByteArrayOutputStream out = new ByteArrayOutputStream();
        onDeepStack(() -> {
            try (Writer writer = new Writer(out)) {
                writer.writeObject(state);
            }
            return null;
        }, "kept");
        bytes = out.toByteArray();
    }

    public Saved copy() {
        return onDeepStack(() -> {
            try (Reader reader = new Reader(new ByteArrayInputStream(bytes), federation)) {
                return (Saved) reader.readObject();
            }
        }, "restored");
    }

    /** Writing and reading go down from federate to federate: an ordinary stack holds a hundred or so of them. */
    private <R> R onDeepStack(Callable<R> task, String what) {
        FutureTask<R> result = new FutureTask<>(task);
        Thread thread = new Thread(null, result, "snapshot", STACK_BYTES);
        thread.setDaemon(true);
        thread.start();
        try {
            return result.get();
        } catch (ExecutionException e) {
            throw new IllegalStateException("The state of federation '" + federation.name() + "' cannot be " + what
                    + ": " + e.getCause(), e);
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
            throw new IllegalStateException("The state of federation '" + federation.name() + "' was not " + what
                    + ": the thread was interrupted", e);
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
                return new Reference(Kind.FEDERATION, 0);
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
        private final Exchange federation;

        Reader(InputStream in, Exchange federation) throws IOException {
            super(in);
            this.federation = federation;
            enableResolveObject(true);
        }

        @Override
        protected Object resolveObject(Object object) {
            return object instanceof Reference reference ? switch (reference.kind) {
                case FEDERATION -> federation;
                case OBJECT_CLASS -> federation.objectModel().objectClass(reference.handle);
                case INTERACTION_CLASS -> federation.objectModel().interactionClass(reference.handle);
                case ATTRIBUTE -> federation.objectModel().attribute(reference.handle);
                case DIMENSION -> federation.objectModel().dimension(reference.handle);
            } : object;
        }
    }
}
