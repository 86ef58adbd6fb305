package tovu.local.model.value;

/**
 * Where one federate stands in a restore.
 *
 * @param before the handle it had before the restore
 * @param after  the handle it has after the restore, 0 while that is not known
 * @param status its status
 */
public record FederateRestoreStatus(int before, int after, RestoreStatus status) {
}
