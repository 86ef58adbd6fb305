package morva.tovu1516e;

import hla.rti1516e.exceptions.AlreadyConnected;
import hla.rti1516e.exceptions.ConnectionFailed;
import hla.rti1516e.exceptions.FederateInternalError;
import hla.rti1516e.exceptions.FederateIsExecutionMember;
import hla.rti1516e.exceptions.NotConnected;
import hla.rti1516e.exceptions.RTIexception;
import hla.rti1516e.exceptions.RTIinternalError;
import java.util.List;
import java.util.concurrent.CompletableFuture;
import java.util.concurrent.TimeUnit;
import tovu.local.delivery.CallbackDelivery;
import tovu.local.delivery.CallbackMethod;
import tovu.local.delivery.CallbackPort;
import tovu.local.management.Manager;
import tovu.local.model.federation.Federations;
import tovu.local.model.federation.Placement;
import tovu.local.model.federation.Session;
import tovu.local.model.port.Elsewhere;
import tovu.local.model.port.FederateCallbacks;
import tovu.local.remote.HubAddress;
import tovu.local.remote.HubLink;
import tovu.local.saves.SaveFolder;
import tovu.local.trace.Trace;
import tovu.local.watch.ProcessPage;
import tovu.local.wire.Licence;

/** The connection of an ambassador whose federate runs in this process: to the federations here, or to a hub. */
final class FederateConnection extends Connection {
    private static final String DESTROYED = "Its ambassador was destroyed while it was joined";

    /** Those that all ambassadors of this process share. */
    private static final Federations FEDERATIONS = new Federations(Manager::new, Placement.alone(SaveFolder.stores()));
    private static final int MOST_HUBS_ASKED = 8;

    /** How it came to a hub, to come to another one in the same way. */
    private record Way(CallbackDelivery delivery, int context, byte[] message) {
    }

    private final CallbackPort natives = new NativePort();
    private volatile String nameAtHub;
    private volatile CallbackDelivery delivery;
    private volatile HubLink hub;
    private Way way;

    FederateConnection() {
        super(new Session(FEDERATIONS));
    }

    @Override
    void connect(int context, boolean immediate, String designator, byte[] message) throws RTIexception {
        List<HubAddress> hubs = HubAddress.of(designator);
        CallbackDelivery created;
        if (hubs.isEmpty()) {
            created = CallbackDelivery.toContext(context, natives, session::federate);
            connectHere(created);
        } else {
            created = CallbackDelivery.ofSelfDelivering(() -> "The federate at the hub " + hubs);
            connectToHub(hubs, new Way(created, context, message));
        }
        CallbackDelivery previous = delivery; // of a hub that was lost
        delivery = created;
        if (previous != null) {
            previous.close();
        }
        if (immediate) {
            created.deliverImmediately();
        }
    }

    private synchronized void connectHere(CallbackDelivery created) throws RTIexception {
        requireNotConnectedToHub();
        session.connect(created);
        hub = null;
        ProcessPage.show(FEDERATIONS::all);
    }

    private synchronized void connectToHub(List<HubAddress> hubs, Way theWay) throws RTIexception {
        requireNotConnectedToHub();
        session.requireNotConnected();
        hub = introduced(HubLink.open(hubs, theWay.delivery, callbacks(), fault -> lost(theWay, fault)), theWay);
        way = theWay;
        way.delivery.setSource(hub);
    }

    private CallbackPort callbacks() {
        return Trace.ON ? this::trace : natives;
    }

    private static HubLink introduced(HubLink link, Way way) throws RTIexception {
        try {
            link.serve(Service.connect_FA_CM_S.ordinal(), Licence.NONE, way.message);
            return link;
        } catch (NotConnected e) {
            throw new ConnectionFailed(e.getMessage());
        } catch (RTIexception e) {
            link.close(e.getMessage());
            throw e;
        }
    }

    /** Who joins stays where the federation is; for anything else going there and back is enough. */
    @Override
    Object requestElsewhere(Elsewhere first, Service service, byte[] message) throws RTIexception {
        Elsewhere next = first;
        for (int left = MOST_HUBS_ASKED; left > 0; --left) {
            try {
                return service.isJoin() ? move(next).serve(service.ordinal(), Licence.NONE, message)
                        : runErrand(next, service, message);
            } catch (Elsewhere e) {
                next = e;
            } catch (ConnectionFailed e) {
                throw new RTIinternalError("What this service asks for is at another hub. " + e.getMessage());
            }
        }
        throw new RTIinternalError("One hub after the other says that it is the next one that serves this; try again");
    }

    private synchronized HubLink move(Elsewhere to) throws RTIexception {
        HubLink from = hub;
        if (from == null) {
            throw new NotConnected("This ambassador has been disconnected meanwhile; connect again");
        }
        Way theWay = way;
        hub = introduced(from.openElsewhere(to.address(), theWay.delivery, callbacks(), fault -> lost(theWay, fault)),
                theWay);
        theWay.delivery.setSource(hub);
        from.close("it joins at " + to.address());
        return hub;
    }

    private Object runErrand(Elsewhere to, Service service, byte[] message) throws RTIexception {
        HubLink from;
        Way theWay;
        synchronized (this) {
            from = hub;
            theWay = way;
        }
        if (from == null) {
            throw new NotConnected("This ambassador has been disconnected meanwhile; connect again");
        }
        HubLink there = introduced(from.openElsewhere(to.address(), theWay.delivery, natives, fault -> { }), theWay);
        try {
            return there.serve(service.ordinal(), Licence.NONE, message);
        } finally {
            there.close("its errand is done");
        }
    }

    /** Names and values stand in the hub's own trace, and only there. */
    private void trace(CallbackMethod method, byte[] message) throws FederateInternalError {
        Trace.print(memberName(), "<- " + method.name().replaceFirst("_.*", "") + "(...)");
        natives.call(method, message);
    }

    private void requireNotConnectedToHub() throws AlreadyConnected {
        HubLink current = hub;
        if (current != null && !current.isLost()) {
            throw new AlreadyConnected("This ambassador is connected already; disconnect it first");
        }
    }

    /** What came of a federation that the federate is no member of any more is not true any more, either. */
    private void lost(Way theWay, String fault) {
        theWay.delivery.dropMembership();
        FederateCallbacks federate = CallbackDelivery.encoder(theWay.context, natives, session::federate);
        theWay.delivery.postToConnection(nobody -> federate.connectionLost(fault));
    }

    @Override
    void disconnect() throws RTIexception {
        HubLink current = hub;
        try {
            if (current == null) {
                session.disconnect();
            } else if (!current.isLost()) {
                current.serve(Service.disconnect.ordinal(), Licence.NONE, AmbassadorServices.NO_ARGUMENTS);
            }
        } catch (FederateIsExecutionMember e) {
            suspectDestruction();
            throw e;
        }
        CallbackDelivery ended = endDelivery("It has disconnected");
        if (ended != null) {
            ended.awaitEnd();
        }
    }

    /**
     * An ambassador that is destroyed while it is joined disconnects in vain and is dropped by the library right after.
     * Only the garbage collector sees that, and the federation should not have to wait for it to come round. How soon
     * "right after" is depends on how busy the machine is, so it looks again, after longer and longer.
     */
    private void suspectDestruction() {
        for (long delay = 100; delay <= 10_000; delay *= 10) {
            CompletableFuture.delayedExecutor(delay, TimeUnit.MILLISECONDS).execute(() -> {
                if (session.federate() != null || hub != null) {
                    System.gc();
                }
            });
        }
    }

    /** @return what delivered until now, or null */
    private CallbackDelivery endDelivery(String reason) {
        CallbackDelivery ended = delivery;
        delivery = null;
        if (ended != null) {
            ended.close();
        }
        HubLink link = hub;
        hub = null;
        nameAtHub = null;
        if (link != null) {
            link.close(reason);
        }
        return ended;
    }

    /** Lets go of everything on behalf of an ambassador that no longer exists. */
    void abandon() {
        if (session.federate() != null) {
            System.err.println(session.federate()
                    + " is gone without resigning; it leaves as its automatic resign directive says");
        }
        session.abandon(DESTROYED);
        endDelivery(DESTROYED);
    }

    @Override
    void setCallbacksEnabled(boolean on) throws RTIexception {
        HubLink current = hub;
        if (current == null) {
            session.requireNoSaveOrRestore();
        } else {
            Service service = on ? Service.enableCallbacks : Service.disableCallbacks;
            current.serve(service.ordinal(), Licence.NONE, AmbassadorServices.NO_ARGUMENTS);
        }
        delivery().setEnabled(on);
    }

    @Override
    String memberName() {
        return hub == null ? super.memberName() : nameAtHub;
    }

    @Override
    void nameMember(String name) {
        nameAtHub = name;
    }

    @Override
    HubLink hub() {
        return hub;
    }

    @Override
    CallbackDelivery delivery() throws RTIexception {
        CallbackDelivery current = delivery;
        if (current == null) {
            throw new RTIinternalError("This ambassador is not connected; call connect first");
        }
        return current;
    }

    @Override
    void requireOutsideCallback(String service) throws RTIexception {
        CallbackDelivery current = delivery;
        if (current != null) {
            current.requireOutsideCallback(service);
        }
    }
}
