package morva.tovu1516e;

import static morva.tovu1516e.Service.*;
import hla.rti1516e.exceptions.InvalidResignAction;
import hla.rti1516e.exceptions.RTIexception;
import hla.rti1516e.exceptions.UnsupportedCallbackModel;
import java.util.List;
import java.util.Set;
import tovu.local.model.federation.FederationPlan;
import tovu.local.model.value.ResignAction;

/** Federation management. */
abstract class FederationServices extends AmbassadorServices {
    private static final int EVOKED = 1;
    private static final int IMMEDIATE = 2;

    FederationServices(Connection connection) {
        super(connection);
    }

    public final void connect_FA_CM_S(byte[] message) throws RTIexception {
        serveHere(connect_FA_CM_S, message, in -> {
            int context = in.integer();
            int callbackModel = in.integer();
            connection.requireOutsideCallback("connect");
            if (callbackModel != EVOKED && callbackModel != IMMEDIATE) {
                throw new UnsupportedCallbackModel("Callback model " + callbackModel
                        + " is unknown; use HLA_EVOKED or HLA_IMMEDIATE");
            }
            connection.connect(context, callbackModel == IMMEDIATE, in.text(), message);
            return null;
        });
    }

    public final void disconnect() throws RTIexception {
        serveHere(disconnect, NO_ARGUMENTS, in -> {
            connection.requireOutsideCallback("disconnect");
            connection.disconnect();
            return null;
        });
    }

    public final void createFederationExecution_S_URL_S(byte[] message) throws RTIexception {
        create(createFederationExecution_S_URL_S, message, in ->
                new FederationPlan(in.text(), List.of(in.module()), null, in.text()));
    }

    public final void createFederationExecution_S_URLX_S(byte[] message) throws RTIexception {
        create(createFederationExecution_S_URLX_S, message, in ->
                new FederationPlan(in.text(), in.modules(), null, in.text()));
    }

    public final void createFederationExecution_S_URLX_URL_S(byte[] message) throws RTIexception {
        create(createFederationExecution_S_URLX_URL_S, message, in ->
                new FederationPlan(in.text(), in.modules(), in.module(), in.text()));
    }

    private void create(Service service, byte[] message, Call<FederationPlan> plan) throws RTIexception {
        serveHere(service, message, in -> hereOrWithModulesAtHub(service, in, here -> {
            connection.session.createFederationExecution(plan.serve(here));
            return null;
        }));
    }

    public final void destroyFederationExecution_S(byte[] message) throws RTIexception {
        serve(destroyFederationExecution_S, message, in -> {
            connection.session.destroyFederationExecution(in.text());
            return null;
        });
    }

    public final void listFederationExecutions() throws RTIexception {
        serve(listFederationExecutions, NO_ARGUMENTS, in -> {
            connection.session.listFederationExecutions();
            return null;
        });
    }

    public final int joinFederationExecution_S_S_S_URLX(byte[] message) throws RTIexception {
        return join(joinFederationExecution_S_S_S_URLX, message, MessageReader::text);
    }

    public final int joinFederationExecution_S_S_URLX(byte[] message) throws RTIexception {
        return join(joinFederationExecution_S_S_URLX, message, in -> null);
    }

    private int join(Service service, byte[] message, Call<String> federateName) throws RTIexception {
        int handle = serveHere(service, message, in -> {
            connection.requireOutsideCallback("joinFederationExecution");
            return hereOrWithModulesAtHub(service, in, here -> connection.session
                    .join(federateName.serve(here), here.text(), here.text(), here.modules()).handle());
        });
        String name = federateName.serve(reader(message));
        connection.nameMember(name == null ? "federate " + handle : name);
        return handle;
    }

    public final void resignFederationExecution_RA(byte[] message) throws RTIexception {
        serveHere(resignFederationExecution_RA, message, in -> {
            connection.requireOutsideCallback("resignFederationExecution");
            return hereOrAtHub(resignFederationExecution_RA, message, in, here -> {
                connection.session.resign(connection.session.call((federation, me) -> resignAction(here.integer())));
                return null;
            });
        });
        connection.nameMember(null);
    }

    static ResignAction resignAction(int code) throws InvalidResignAction {
        if (code < 0 || code >= ResignAction.values().length) {
            throw new InvalidResignAction("Resign action " + code + " is unknown; use one of the standard's six");
        }
        return ResignAction.values()[code];
    }

    public final void registerFederationSynchronizationPoint_S_BX(byte[] message) throws RTIexception {
        act(registerFederationSynchronizationPoint_S_BX, message, (federation, me, in) ->
                federation.synchronizationPoints().register(me, in.text(), in.bytes(), Set.of()));
    }

    public final void registerFederationSynchronizationPoint_S_BX_FHS(byte[] message) throws RTIexception {
        act(registerFederationSynchronizationPoint_S_BX_FHS, message, (federation, me, in) ->
                federation.synchronizationPoints().register(me, in.text(), in.bytes(), in.handleSet()));
    }

    public final void synchronizationPointAchieved_S_Z(byte[] message) throws RTIexception {
        act(synchronizationPointAchieved_S_Z, message, (federation, me, in) ->
                federation.synchronizationPoints().achieved(me, in.text(), in.flag()));
    }

    public final void requestFederationSave_S(byte[] message) throws RTIexception {
        act(requestFederationSave_S, message, (federation, me, in) -> federation.save().request(in.text()));
    }

    public final void requestFederationSave_S_LT(byte[] message) throws RTIexception {
        act(requestFederationSave_S_LT, message, (federation, me, in) ->
                federation.save().request(me, in.text(), in.time()));
    }

    public final void federateSaveBegun() throws RTIexception {
        doAnytime(federateSaveBegun, (federation, me, in) -> federation.save().begun(me));
    }

    public final void federateSaveComplete() throws RTIexception {
        completeSave(federateSaveComplete, true);
    }

    public final void federateSaveNotComplete() throws RTIexception {
        completeSave(federateSaveNotComplete, false);
    }

    private void completeSave(Service service, boolean successfully) throws RTIexception {
        doAnytime(service, (federation, me, in) -> federation.save().complete(me, successfully));
    }

    public final void abortFederationSave() throws RTIexception {
        doAnytime(abortFederationSave, (federation, me, in) -> federation.save().abort());
    }

    public final void queryFederationSaveStatus() throws RTIexception {
        doAnytime(queryFederationSaveStatus, (federation, me, in) -> federation.save().queryStatus(me));
    }

    public final void requestFederationRestore_S(byte[] message) throws RTIexception {
        act(requestFederationRestore_S, message, (federation, me, in) -> federation.restore().request(me, in.text()));
    }

    public final void federateRestoreComplete() throws RTIexception {
        completeRestore(federateRestoreComplete, true);
    }

    public final void federateRestoreNotComplete() throws RTIexception {
        completeRestore(federateRestoreNotComplete, false);
    }

    private void completeRestore(Service service, boolean successfully) throws RTIexception {
        doAnytime(service, (federation, me, in) -> federation.restore().complete(me, successfully));
    }

    public final void abortFederationRestore() throws RTIexception {
        doAnytime(abortFederationRestore, (federation, me, in) -> federation.restore().abort());
    }

    public final void queryFederationRestoreStatus() throws RTIexception {
        doAnytime(queryFederationRestoreStatus, (federation, me, in) -> federation.restore().queryStatus(me));
    }
}
