package tovu.local.model;

import java.util.HashMap;
import java.util.LinkedHashSet;
import java.util.Map;
import java.util.Set;
import java.util.function.Supplier;

/** A joined federate, and its own part of every chapter of the federation's state. */
@SuppressWarnings("serial") // kept in memory only
public final class Federate implements Saved {
    private final Federation federation;
    private final int handle;
    private final String name;
    private final String type;
    private transient Session session;
    private transient CallbackSink sink;
    private ResignAction automaticResignDirective;
    private volatile int messageValidity;
    /** The name by which it asked last for the transportation type of a code, which several may share. */
    final Map<Integer, String> transportationNames = new HashMap<>(2);
    final Advisories advisories;
    final Publications publications;
    final Subscriptions subscriptions = new Subscriptions();
    final Set<ObjectInstance> knownObjects = new LinkedHashSet<>();
    final FederateTime time;
    final Inbox inbox = new Inbox(this);

    Federate(Federation federation, int handle, String name, String type, Session session, CallbackSink sink) {
        this.federation = federation;
        this.handle = handle;
        this.name = name;
        this.type = type;
        this.session = session;
        this.sink = sink;
        automaticResignDirective = ResignAction.named(federation.switches().automaticResignAction());
        advisories = new Advisories(federation.switches());
        publications = new Publications(federation.privilegeToDelete());
        time = new FederateTime(federation.timeFamily());
    }

    /** Takes the place of another federate, whose ambassador becomes this one's. */
    void replace(Federate other) {
        session = other.session;
        sink = other.sink;
        session.become(this);
    }

    public Federation federation() {
        return federation;
    }

    public int handle() {
        return handle;
    }

    public String name() {
        return name;
    }

    public String type() {
        return type;
    }

    public ResignAction automaticResignDirective() {
        return automaticResignDirective;
    }

    public void setAutomaticResignDirective(ResignAction action) {
        automaticResignDirective = action;
    }

    /** Leaves a callback for the federate. */
    void post(Callback callback) {
        sink.post(callback);
    }

    /**
     * Leaves a callback that is made only when it is delivered, of how things are then.
     *
     * @param making null for no callback
     */
    void postLate(Supplier<Callback> making) {
        post(to -> {
            Callback callback;
            synchronized (federation) {
                callback = federation.isMember(this) ? making.get() : null;
            }
            if (callback != null) {
                callback.deliver(to);
            }
        });
    }

    /** Has a change of state come about that follows from a callback that was made. */
    void change(Runnable change) {
        synchronized (federation) {
            if (federation.isMember(this)) {
                change.run();
                federation.time().settle();
            }
        }
    }

    /** Leaves a callback with which a change of state comes about: not when it is left, but when it is delivered. */
    void postChange(Runnable change, Callback callback) {
        postLate(() -> {
            change.run();
            return callback;
        });
    }

    void dropCallbacks() {
        sink.dropMembership();
    }

    /** Changes whenever messages on their way have to be looked at again before they are delivered. */
    int messageValidity() {
        return messageValidity;
    }

    /** After a change of what it wants. Written under the federation's lock only. */
    void invalidateMessages() {
        ++messageValidity;
        federation.time().messagesChanged(this);
    }

    @Override
    public String toString() {
        return "Federate '" + name + "' (" + handle + ")";
    }
}
