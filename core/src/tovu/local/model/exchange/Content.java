package tovu.local.model.exchange;

import java.util.Set;
import tovu.local.fom.Transportation;
import tovu.local.model.value.HandleValues;
import tovu.local.model.value.Saved;
import tovu.local.model.value.Supplement;

/** What all messages that go out together carry: each receiver gets of the values what it wants. */
@SuppressWarnings("serial") // read by what wrote it
final class Content implements Saved {
    final HandleValues values;
    /** Where it was sent, as the regions were then; empty for the default region. */
    final Set<Region> regions;
    final Transportation transportation;
    final Supplement supplement;

    Content(HandleValues values, Set<Region> regions, Transportation transportation, Supplement supplement) {
        this.values = values;
        this.regions = Region.asRealized(regions);
        this.transportation = transportation;
        this.supplement = supplement;
    }

    boolean isByManagement() {
        return supplement.producer() == 0;
    }

    private Content(HandleValues values, Content whole) {
        this.values = values;
        regions = whole.regions;
        transportation = whole.transportation;
        supplement = whole.supplement;
    }

    /** The same with nothing but some of its values. */
    Content part(HandleValues some) {
        return some == values ? this : new Content(some, this);
    }
}
