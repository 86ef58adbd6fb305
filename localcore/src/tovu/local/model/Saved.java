package tovu.local.model;

import java.io.Serializable;

/** Marks what belongs to a federation's state: it is kept by a save, together with all that it refers to. */
interface Saved extends Serializable {
}
