package tovu.local.fom;

import java.util.regex.Matcher;
import java.util.regex.Pattern;

/**
 * A part of a dimension.
 *
 * @param lower its first value
 * @param upper the value behind its last one
 */
public record Range(long lower, long upper) {
    /** Stands for a dimension that regions without it have no part of. */
    public static final Range EXCLUDED = new Range(0, 0);

    private static final Pattern SYNTAX = Pattern.compile("\\[(\\d{1,10})(?:\\.\\.(\\d{1,10})\\)|])|(\\d{1,10})");

    /** What {@code [lower..upper)}, {@code [value]}, {@code value} or {@code Excluded} stands for; null for other texts. */
    static Range parse(String text) {
        if (text.equalsIgnoreCase("Excluded")) {
            return EXCLUDED;
        }
        Matcher matcher = SYNTAX.matcher(text.replace(" ", ""));
        if (!matcher.matches()) {
            return null;
        }
        String first = matcher.group(1) == null ? matcher.group(3) : matcher.group(1);
        long lower = Long.parseLong(first);
        return new Range(lower, matcher.group(2) == null ? lower + 1 : Long.parseLong(matcher.group(2)));
    }

    @Override
    public String toString() {
        return equals(EXCLUDED) ? "Excluded" : "[" + lower + ".." + upper + ")";
    }
}
