package tovu.local.delivery;

import java.util.function.BooleanSupplier;

/** From where callbacks come that nobody else posts. */
@FunctionalInterface
public interface CallbackSource {
    /**
     * Posts what comes, until something is posted or the time is over. May return earlier.
     *
     * @param posted whether something is
     * @param nanos  0 to post what has come already
     */
    void await(BooleanSupplier posted, long nanos);
}
