package tovu.local.model.save;

import java.util.Map;
import tovu.local.model.exchange.Federate;
import tovu.local.model.value.Saved;

/** What a save keeps and a restore replaces. */
public interface Restorable {
    /** All of it, as it is. */
    Saved state();

    /** @param successors by each member the handle of the one that it was then */
    void restore(Saved state, Map<Federate, Integer> successors);
}
