package tovu.local.model.federation;

import hla.rti1516e.exceptions.AlreadyConnected;
import hla.rti1516e.exceptions.FederateAlreadyExecutionMember;
import hla.rti1516e.exceptions.FederateIsExecutionMember;
import hla.rti1516e.exceptions.FederateNotExecutionMember;
import hla.rti1516e.exceptions.NotConnected;
import hla.rti1516e.exceptions.RTIexception;
import java.util.List;
import tovu.local.fom.ModuleSource;
import tovu.local.model.exchange.Federate;
import tovu.local.model.port.CallbackSink;
import tovu.local.model.value.FederationInformation;
import tovu.local.model.value.ResignAction;
import tovu.local.model.value.ServiceCall;

/**
 * One ambassador's way into the model: whether it is connected, and as which federate it is joined. Every service of a
 * member passes through here, and it is here, and nowhere else, that the federation's lock is taken.
 */
public final class Session {
    private final Federations federations;
    private CallbackSink sink;
    private volatile Federation federation;
    private volatile Federate federate;

    /**
     * A service of a member, run while the federation stands still.
     *
     * @param <R> its result
     */
    @FunctionalInterface
    public interface Service<R> {
        R serve(Federation federation, Federate federate) throws RTIexception;
    }

    public Session(Federations federations) {
        this.federations = federations;
    }

    public synchronized void requireNotConnected() throws AlreadyConnected {
        if (sink != null) {
            throw new AlreadyConnected("This ambassador is connected already; disconnect it first");
        }
    }

    /** @param theSink takes the federate's callbacks until it disconnects */
    public synchronized void connect(CallbackSink theSink) throws AlreadyConnected {
        requireNotConnected();
        sink = theSink;
    }

    /** Does nothing when not connected. */
    public synchronized void disconnect() throws FederateIsExecutionMember {
        Federate member = federate;
        if (member != null) {
            throw new FederateIsExecutionMember(member + " is still joined to federation '"
                    + member.federation().name() + "'; resign first");
        }
        sink = null;
    }

    /**
     * Leaves everything without being asked nicely: for a federate that will never say anything again.
     *
     * @param fault what has become of it
     */
    public synchronized void abandon(String fault) {
        Federation joined = federation;
        if (joined != null) {
            synchronized (joined) {
                if (federation == joined) { // meanwhile it may have resigned
                    joined.lose(federate, fault);
                }
            }
        }
        sink = null;
    }

    public synchronized void requireConnected() throws NotConnected {
        if (sink == null) {
            throw new NotConnected("This ambassador is not connected; call connect first");
        }
    }

    public synchronized void createFederationExecution(FederationPlan plan) throws RTIexception {
        requireConnected();
        federations.create(plan);
    }

    public synchronized void destroyFederationExecution(String name) throws RTIexception {
        requireConnected();
        federations.destroy(name);
    }

    public synchronized void listFederationExecutions() throws RTIexception {
        requireConnected();
        List<FederationInformation> executions = federations.list();
        sink.postToConnection(to -> to.reportFederationExecutions(executions));
    }

    /**
     * @param federateName null for a name of the federation's choice
     * @return the new member
     */
    public synchronized Federate join(String federateName, String federateType, String federationName,
            List<ModuleSource> fomModules) throws RTIexception {
        requireConnected();
        if (federate != null) {
            throw new FederateAlreadyExecutionMember(federate + " is joined to federation '"
                    + federate.federation().name() + "' already; resign first");
        }
        return federations.find(federationName).join(this, sink, federateName, federateType, fomModules);
    }

    public synchronized void resign(ResignAction action) throws RTIexception {
        call((federation, member) -> {
            federation.resign(member, action);
            return null;
        });
    }

    /** A service that also serves while the federation saves or restores. */
    public <R> R call(Service<R> service) throws RTIexception {
        Federation joined = federation;
        if (joined != null) {
            synchronized (joined) {
                if (federation == joined) { // meanwhile it may have resigned
                    Federate member = federate;
                    member.oversight().served();
                    R result = service.serve(joined, member);
                    joined.settle(member);
                    return result;
                }
            }
        }
        requireConnected();
        throw new FederateNotExecutionMember("This ambassador is not joined to a federation execution; join one first");
    }

    /** Whether each service of the federate is to be reported. */
    public boolean isReported() {
        Federate member = federate;
        return member != null && member.oversight().reportsAnything();
    }

    /**
     * Reports a call that a federate has made or got to those who want to know.
     *
     * @param member null for an ambassador that is not joined, of which nobody does
     */
    public static void report(Federate member, ServiceCall call) {
        if (member != null && member.oversight().reportsAnything()) {
            synchronized (member.federation()) {
                member.federation().served(member, call);
            }
        }
    }

    /** A service that has to wait for the end of a save or restore. */
    public <R> R callOutsideSave(Service<R> service) throws RTIexception {
        return call((federation, member) -> {
            federation.requireNoSaveOrRestore();
            return service.serve(federation, member);
        });
    }

    /** A service that the federate called before it knew of a save, and does not wait for. */
    public <R> R callOutsideRestore(Service<R> service) throws RTIexception {
        return call((federation, member) -> {
            federation.restore().requireNotInProgress();
            return service.serve(federation, member);
        });
    }

    /** Fails while the federation that this ambassador is joined to saves or restores; being joined is not needed. */
    public void requireNoSaveOrRestore() throws RTIexception {
        if (federate != null) {
            callOutsideSave((federation, member) -> null);
        }
    }

    /**
     * The ambassador is joined as that federate from now on: a new one, or after a restore the one that was saved. Null
     * when it is joined no longer.
     * Called under the federation's lock, so that whatever the federate is told finds it joined.
     */
    void become(Federation joined, Federate member) {
        federation = member == null ? null : joined;
        federate = member;
    }

    /** The federate that this ambassador is joined as, or null. */
    public Federate federate() {
        return federate;
    }
}
