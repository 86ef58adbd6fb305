package tovu.local.fom;

import java.util.Set;

/** What can be sent and wanted with regions: an attribute or an interaction class. */
public interface Dimensioned {
    /** The dimensions that regions may have for it. */
    Set<Dimension> dimensions();
}
