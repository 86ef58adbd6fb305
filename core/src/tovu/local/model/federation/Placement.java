package tovu.local.model.federation;

import hla.rti1516e.exceptions.RTIexception;
import java.util.List;
import java.util.function.Function;
import tovu.local.model.port.SaveStore;
import tovu.local.model.value.FederationInformation;

/** Which process hosts a federation, where several are one service. */
public interface Placement {
    /** A process that is a service of its own. */
    static Placement alone(Function<String, SaveStore> saves) {
        return new Placement() {
            @Override
            public SaveStore claim(FederationPlan plan) {
                return saves.apply(plan.name());
            }

            @Override
            public void release(String federation) {
                // nobody else waits for the name
            }

            @Override
            public boolean seek(String federation) {
                return false; // there is nowhere else
            }

            @Override
            public List<FederationInformation> others() {
                return List.of();
            }
        };
    }

    /**
     * A federation is about to be here.
     *
     * @return where its saves are
     * @throws hla.rti1516e.exceptions.FederationExecutionAlreadyExists when it is somewhere
     */
    SaveStore claim(FederationPlan plan) throws RTIexception;

    /** A federation is here no longer: its name is free, at the latest when whoever keeps the names can be told. */
    void release(String federation);

    /**
     * A federation is asked for that is not here.
     *
     * @return whether it is about to be
     * @throws tovu.local.model.port.Elsewhere when it is somewhere else
     */
    boolean seek(String federation) throws RTIexception;

    /** The federations that are elsewhere. */
    List<FederationInformation> others() throws RTIexception;
}
