package tovu.local.model.value;

import java.io.Serializable;

/**
 * Marks what belongs to a federation's state: it is kept by a save, together with all that it refers to. What several
 * refer to and leads back to them has to be a class: while the parts of a record are read, the record itself is null to
 * them.
 */
public interface Saved extends Serializable {
}
