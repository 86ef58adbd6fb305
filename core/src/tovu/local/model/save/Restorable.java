package tovu.local.model.save;

import java.util.Map;
import tovu.local.model.exchange.Federate;

/** What a save keeps and a restore replaces. */
public interface Restorable {
    Snapshot snapshot();

    /** @param successors by each member the handle of the one that it was then */
    void restore(Snapshot from, Map<Federate, Integer> successors);
}
