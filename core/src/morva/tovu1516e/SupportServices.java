package morva.tovu1516e;

import hla.rti1516e.exceptions.RTIexception;
import tovu.local.delivery.CallbackDelivery;

/** Support services: what concerns a federate itself, and the control of its callbacks. */
abstract class SupportServices extends LookupServices {
    public final int getAutomaticResignDirective() throws RTIexception {
        return askAnytime((federation, me, in) -> me.automaticResignDirective().ordinal());
    }

    public final void setAutomaticResignDirective_RA(byte[] message) throws RTIexception {
        doAnytime(message, (federation, me, in) -> me.setAutomaticResignDirective(resignAction(in.integer())));
    }

    public final int getFederateHandle_S(byte[] message) throws RTIexception {
        return askAnytime(message, (federation, me, in) -> federation.federateHandle(in.text()));
    }

    public final String getFederateName_FH(byte[] message) throws RTIexception {
        return askAnytime(message, (federation, me, in) -> federation.federateName(in.handle()));
    }

    /** The name of the federation's logical time implementation. */
    public final String getTimeFactory() throws RTIexception {
        return askAnytime((federation, me, in) -> federation.timeFamily().implementationName());
    }

    public final boolean evokeCallback_D(byte[] message) throws RTIexception {
        return serve(message, in -> evoker("evokeCallback").evoke(in.real()));
    }

    public final boolean evokeMultipleCallbacks_D_D(byte[] message) throws RTIexception {
        return serve(message, in -> evoker("evokeMultipleCallbacks").evokeMultiple(in.real(), in.real()));
    }

    private CallbackDelivery evoker(String service) throws RTIexception {
        connection.requireOutsideCallback(service);
        return connection.delivery();
    }

    public final void enableCallbacks() throws RTIexception {
        setCallbacksEnabled(true);
    }

    public final void disableCallbacks() throws RTIexception {
        setCallbacksEnabled(false);
    }

    private void setCallbacksEnabled(boolean on) throws RTIexception {
        serve(NO_ARGUMENTS, in -> {
            connection.session.requireNoSaveOrRestore();
            connection.delivery().setEnabled(on);
            return null;
        });
    }
}
