package tovu.local.model.exchange;

import hla.rti1516e.exceptions.FederateInternalError;
import java.util.HashMap;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.function.Consumer;
import java.util.function.Supplier;
import tovu.local.fom.FomModule;
import tovu.local.model.port.Callback;
import tovu.local.model.port.CallbackSink;
import tovu.local.model.port.FederateCallbacks;
import tovu.local.model.port.RevocableCallback;
import tovu.local.model.time.FederateTime;
import tovu.local.model.time.MessageQueue;
import tovu.local.model.time.TimedFederate;
import tovu.local.model.value.ResignAction;
import tovu.local.model.value.Saved;
import tovu.local.model.value.Supplement;

/** A joined federate, and its own part of every chapter of the federation's state. */
@SuppressWarnings("serial") // read by what wrote it
public final class Federate implements TimedFederate, Saved {
    /** The handle of no member, and so of the federation's own. */
    static final int INFRASTRUCTURE = 0;

    private final Exchange federation;
    private final int handle;
    private final String name;
    private final String type;
    private transient Consumer<Federate> ambassador; // told as whom it is joined
    private transient CallbackSink sink;
    private ResignAction automaticResignDirective;
    private volatile int messageValidity;
    private final Supplement origin;
    /** The name by which it asked last for the transportation type of a code, which several may share. */
    final Map<Integer, String> transportationNames = new HashMap<>(2);
    final Advisories advisories;
    final Publications publications;
    final Subscriptions subscriptions = new Subscriptions();
    final Set<ObjectInstance> knownObjects = new LinkedHashSet<>();
    final FederateTime time;
    final Oversight oversight;
    final Inbox inbox = new Inbox(this);

    Federate(Exchange federation, int handle, String name, String type, List<FomModule> modules,
            Consumer<Federate> ambassador, CallbackSink sink) {
        this.federation = federation;
        this.handle = handle;
        this.name = name;
        this.type = type;
        this.ambassador = ambassador;
        this.sink = sink;
        origin = new Supplement(handle, null);
        automaticResignDirective = ResignAction.named(federation.switches().automaticResignAction());
        advisories = new Advisories(federation.switches());
        publications = new Publications(federation.privilegeToDelete());
        time = new FederateTime(federation.timeFamily());
        oversight = new Oversight(federation.switches(), modules);
    }

    /** A federate that is no member: the federation's own, which is told everything that management has to know. */
    static Federate infrastructure(Exchange federation) {
        Federate federate = new Federate(federation, INFRASTRUCTURE, "HLA", "HLA", List.of(), null, null);
        federate.advisories.silence();
        federate.oversight.conveysProducer = true;
        federate.oversight.reportsServices = false;
        federate.oversight.reportsExceptions = false;
        return federate;
    }

    /** Takes the place of another federate, whose ambassador becomes this one's. */
    void replace(Federate other) {
        ambassador = other.ambassador;
        sink = other.sink;
        enter();
    }

    /** Its ambassador is joined as this federate from now on. */
    void enter() {
        ambassador.accept(this);
    }

    /** The infrastructure's callbacks go there from now on. */
    public void replaceSink(CallbackSink newSink) {
        sink = newSink;
    }

    /** Its ambassador is joined no longer. */
    void leave() {
        ambassador.accept(null);
    }

    public Exchange federation() {
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

    public boolean isInfrastructure() {
        return handle == INFRASTRUCTURE;
    }

    public FederateStatus status() {
        return new FederateStatus(this);
    }

    /** All that is told of it at each change, as bits of {@code Condition}. */
    public int condition() {
        return time.condition() | oversight.condition() | federation.condition();
    }

    @Override
    public FederateTime time() {
        return time;
    }

    @Override
    public MessageQueue inbox() {
        return inbox;
    }

    public Oversight oversight() {
        return oversight;
    }

    public ResignAction automaticResignDirective() {
        return automaticResignDirective;
    }

    public void setAutomaticResignDirective(ResignAction action) {
        automaticResignDirective = action;
    }

    /** Leaves a callback for the federate. */
    public void post(Callback callback) {
        sink.post(callback);
    }

    /**
     * Leaves a callback that is made only when it is delivered, of how things are then.
     *
     * @param making null for no callback
     */
    void postLate(Supplier<Callback> making) {
        post(new Callback() {
            @Override
            public void deliver(FederateCallbacks to) throws FederateInternalError {
                Callback callback;
                synchronized (federation) {
                    callback = federation.isMember(Federate.this) ? making.get() : null;
                    federation.settle(Federate.this);
                }
                if (callback != null) {
                    callback.deliver(to);
                }
            }

            @Override
            public Foresight foresight() {
                return Foresight.NONE;
            }
        });
    }

    /**
     * Has a change of state come about that goes with a callback.
     *
     * @return whether it is a member still, and so is to have it
     */
    boolean change(Runnable change) {
        synchronized (federation) {
            boolean due = federation.isMember(this);
            if (due) {
                change.run();
                federation.settle(this);
            }
            return due;
        }
    }

    @Override
    public void postChange(Runnable change, Callback callback) {
        postLate(() -> {
            change.run();
            return callback;
        });
    }

    @Override
    public void postForeseenChange(Runnable change, Callback callback) {
        post(new RevocableCallback() {
            @Override
            public void foretell(FederateCallbacks to) throws FederateInternalError {
                callback.deliver(to);
            }

            @Override
            public boolean begin() {
                return Federate.this.change(change);
            }
        });
    }

    /** Takes back messages that may have been left for it. */
    void retract(List<Message> messages, Callback instead) {
        sink.retract(messages, instead);
    }

    /** The origin of messages that it sends with those regions. */
    Supplement supplement(Set<Region> sentRegions) {
        return sentRegions.isEmpty() ? origin
                : new Supplement(handle, sentRegions.stream().mapToInt(region -> region.handle).toArray());
    }

    @Override
    public void revokeLicences(int object) {
        sink.revoke(object);
    }

    @Override
    public void limitTimes() {
        sink.limitTimes(time.leastLicensedTime(), federation.timeFamily().last());
    }

    /** What it is told of a producer: its handle, or 0. */
    int conveyed(int producer) {
        return oversight.conveysProducer ? producer : 0;
    }

    /** What it is told of the origin of a message. */
    Supplement conveyed(Supplement sent) {
        boolean producer = oversight.conveysProducer;
        boolean regions = oversight.conveysRegions || sent.sentRegions() == null;
        return producer && regions ? sent : !producer && sent.sentRegions() == null ? Supplement.NONE
                : new Supplement(producer ? sent.producer() : 0, regions ? sent.sentRegions() : null);
    }

    void dropCallbacks() {
        sink.dropMembership();
    }

    /** Changes whenever messages on their way have to be looked at again before they are delivered. */
    int messageValidity() {
        return messageValidity;
    }

    @Override
    public void invalidateMessages() {
        ++messageValidity; // under the federation's lock only
        sink.review();
        federation.time().messagesChanged(this);
    }

    @Override
    public void expireRetractions(long before) {
        federation.retractions().expire(this, before);
    }

    @Override
    public void forgetRetractions() {
        federation.retractions().forget(this);
    }

    @Override
    public String toString() {
        return "Federate '" + name + "' (" + handle + ")";
    }
}
