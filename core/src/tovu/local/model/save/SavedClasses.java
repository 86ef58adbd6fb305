package tovu.local.model.save;

import java.io.ObjectInputFilter;
import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.HashSet;
import java.util.LinkedHashMap;
import java.util.LinkedHashSet;
import java.util.Map;
import java.util.Set;
import java.util.TreeMap;
import java.util.TreeSet;
import tovu.local.fom.Attribute;
import tovu.local.fom.Dimension;
import tovu.local.fom.InteractionClass;
import tovu.local.fom.ObjectClass;
import tovu.local.fom.Transportation;
import tovu.local.model.exchange.Exchange;
import tovu.local.model.value.Saved;

/**
 * Lets a save make objects of the model's classes, and of those of the language that they are made of, and nothing else;
 * and no more room for them than its own length accounts for.
 */
final class SavedClasses implements ObjectInputFilter {
    /** They cannot be written, and so not be read: they stand where a snapshot refers to them. */
    private static final Set<Class<?>> REFERRED_TO = Set.of(Exchange.class, ObjectClass.class, InteractionClass.class,
            Attribute.class, Dimension.class);
    private static final Set<Class<?>> OTHERS = Set.of(Transportation.class, Enum.class, Object.class,
            String.class, Number.class, Integer.class, Long.class, ArrayList.class, ArrayDeque.class, HashMap.class,
            LinkedHashMap.class, TreeMap.class, HashSet.class, LinkedHashSet.class, TreeSet.class, Map.Entry.class);
    private static final Set<String> UNMODIFIABLE = Set.of( // what List.of and its like make, and are written as
            "java.util.ImmutableCollections", "java.util.CollSer");
    private static final String CORE = "tovu.local.";
    /** The table of a map of two bytes an entry is the least dense array that is made. */
    private static final int ELEMENTS_PER_BYTE = 4;

    private long elementsLeft;

    /** @param length of the save, in bytes */
    SavedClasses(long length) {
        elementsLeft = ELEMENTS_PER_BYTE * length;
    }

    @Override
    public Status checkInput(FilterInfo info) {
        elementsLeft -= Math.max(0, info.arrayLength());
        return elementsLeft >= 0 && (info.serialClass() == null || isKnown(info.serialClass())) ? Status.ALLOWED
                : Status.REJECTED;
    }

    private static boolean isKnown(Class<?> type) {
        return type.isArray() ? isKnown(type.getComponentType())
                : type.isPrimitive() || Saved.class.isAssignableFrom(type) || OTHERS.contains(type)
                || REFERRED_TO.stream().anyMatch(each -> each.isAssignableFrom(type))
                || type.isEnum() && type.getPackageName().startsWith(CORE)
                || UNMODIFIABLE.contains(type.getName().replaceFirst("\\$.*", ""));
    }
}
