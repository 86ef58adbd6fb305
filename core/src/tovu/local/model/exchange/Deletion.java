package tovu.local.model.exchange;

import java.util.List;
import tovu.local.fom.ObjectClass;
import tovu.local.model.exchange.InstanceAttribute.Possession;
import tovu.local.model.value.Saved;

/**
 * What it takes to undo a deletion that is retracted.
 *
 * @param object     the object instance
 * @param deleter    who deleted it
 * @param knownClass as which class the deleter knew it
 * @param owned      the attributes that the deleter owned
 */
record Deletion(ObjectInstance object, Federate deleter, ObjectClass knownClass, List<Possession> owned)
        implements Saved {
}
