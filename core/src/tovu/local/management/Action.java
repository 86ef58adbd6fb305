package tovu.local.management;

import hla.rti1516e.exceptions.RTIexception;
import tovu.local.model.exchange.Federate;
import tovu.local.model.federation.Federation;

/** What an interaction asks for. */
@FunctionalInterface
interface Action {
    /** @param who the federate that it names; null for one that concerns the federation */
    void serve(Federation federation, Federate who, Arguments in) throws RTIexception, ParameterFault;
}
