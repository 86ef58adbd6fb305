package morva.tovu1516e;

import static morva.tovu1516e.Service.*;

import hla.rti1516e.exceptions.RTIexception;
import tovu.local.delivery.CallbackDelivery;

/** Support services: what concerns a federate itself, and the control of its callbacks. */
abstract class SupportServices extends LookupServices {
    SupportServices(Connection connection) {
        super(connection);
    }

    public final int getAutomaticResignDirective() throws RTIexception {
        return askAnytime(getAutomaticResignDirective, (federation, me, in) -> me.automaticResignDirective().ordinal());
    }

    public final void setAutomaticResignDirective_RA(byte[] message) throws RTIexception {
        doAnytime(setAutomaticResignDirective_RA, message, (federation, me, in) ->
                me.setAutomaticResignDirective(resignAction(in.integer())));
    }

    public final int getFederateHandle_S(byte[] message) throws RTIexception {
        return askAnytime(getFederateHandle_S, message, (federation, me, in) -> federation.federateHandle(in.text()));
    }

    public final String getFederateName_FH(byte[] message) throws RTIexception {
        return askAnytime(getFederateName_FH, message, (federation, me, in) -> federation.federateName(in.handle()));
    }

    /** The name of the federation's logical time implementation. */
    public final String getTimeFactory() throws RTIexception {
        return askAnytime(getTimeFactory, (federation, me, in) -> federation.timeFamily().implementationName());
    }

    public final boolean evokeCallback_D(byte[] message) throws RTIexception {
        return serveHere(evokeCallback_D, message, in -> evoker("evokeCallback").evoke(in.real()));
    }

    public final boolean evokeMultipleCallbacks_D_D(byte[] message) throws RTIexception {
        return serveHere(evokeMultipleCallbacks_D_D, message, in ->
                evoker("evokeMultipleCallbacks").evokeMultiple(in.real(), in.real()));
    }

    private CallbackDelivery evoker(String service) throws RTIexception {
        connection.requireOutsideCallback(service);
        return connection.delivery();
    }

    public final void enableCallbacks() throws RTIexception {
        setCallbacksEnabled(enableCallbacks, true);
    }

    public final void disableCallbacks() throws RTIexception {
        setCallbacksEnabled(disableCallbacks, false);
    }

    private void setCallbacksEnabled(Service service, boolean on) throws RTIexception {
        serveHere(service, NO_ARGUMENTS, in -> {
            connection.setCallbacksEnabled(on);
            return null;
        });
    }
}
