package tovu.local.model.federation;

import hla.rti1516e.exceptions.RTIexception;
import java.util.List;
import tovu.local.model.value.FederationInformation;

/** Which process hosts a federation, where several are one service. */
public interface Placement {
    /** A process that is a service of its own. */
    Placement ALONE = new Placement() {
        @Override
        public void claim(FederationPlan plan) {
            // nobody else could
        }

        @Override
        public void release(String federation) {
            // nobody else waits for the name
        }

        @Override
        public void seek(String federation) {
            // there is nowhere else
        }

        @Override
        public List<FederationInformation> others() {
            return List.of();
        }
    };

    /**
     * A federation is about to be here.
     *
     * @throws hla.rti1516e.exceptions.FederationExecutionAlreadyExists when it is somewhere
     */
    void claim(FederationPlan plan) throws RTIexception;

    /** A federation is here no longer: its name is free, at the latest when whoever keeps the names can be told. */
    void release(String federation);

    /**
     * A federation is asked for that is not here.
     *
     * @throws tovu.local.model.port.Elsewhere when it is somewhere else
     */
    void seek(String federation) throws RTIexception;

    /** The federations that are elsewhere. */
    List<FederationInformation> others() throws RTIexception;
}
