package tovu.local.management;

import java.util.function.BiConsumer;

/**
 * A row of a table of attributes.
 *
 * @param name      the attribute's name
 * @param periodic  whether it is updated again and again
 * @param condition the bits of the subject's condition with a change of which it is updated
 * @param writing   how its value is reckoned and written
 * @param <S>       what it is an attribute of
 */
record ManagementAttribute<S>(String name, boolean periodic, int condition, BiConsumer<ValueWriter, S> writing) {
    /** One that is updated on request, and when those who change it say so. */
    static <S> ManagementAttribute<S> of(String name, BiConsumer<ValueWriter, S> writing) {
        return new ManagementAttribute<>(name, false, 0, writing);
    }

    byte[] value(S subject) {
        return ValueWriter.valueOf(writer -> writing.accept(writer, subject));
    }
}
