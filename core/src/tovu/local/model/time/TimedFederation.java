package tovu.local.model.time;

import java.util.Collection;
import tovu.local.model.value.TimeFamily;

/** A federation as far as the time of its members goes. */
public interface TimedFederation {
    TimeFamily timeFamily();

    Collection<? extends TimedFederate> members();

    boolean isSavingOrRestoring();

    SaveBarrier save();
}
