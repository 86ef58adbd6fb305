package tovu.local.model.value;

import hla.rti1516e.exceptions.CouldNotCreateLogicalTimeFactory;
import hla.rti1516e.exceptions.InvalidLogicalTime;
import hla.rti1516e.exceptions.InvalidLookahead;

/**
 * The two standard families of logical time. Inside the core a time or interval of either family is one {@code long},
 * its ordinal: ordinals compare as the times do, the zero interval and the initial time are 0, and the ordinal plus one
 * is the next time that the family can tell apart.
 */
public enum TimeFamily {
    INTEGER64("HLAinteger64Time") {
        @Override
        boolean isNumber(long bits) {
            return true;
        }

        @Override
        public long last() {
            return Long.MAX_VALUE;
        }

        @Override
        long ordinal(long bits) {
            return bits;
        }

        @Override
        long bits(long ordinal) {
            return ordinal;
        }

        @Override
        public long plus(long time, long interval) {
            long sum = time + interval;
            return ((time ^ sum) & (interval ^ sum)) >= 0 ? sum : interval > 0 ? Long.MAX_VALUE : Long.MIN_VALUE;
        }

        @Override
        public long minus(long time, long other) {
            return plus(time, -other);
        }

        @Override
        public String text(long ordinal) {
            return Long.toString(ordinal);
        }

        /** Integers that are ordinary real numbers, bit for bit, are beyond 4e18. */
        @Override
        public boolean looksForeign(long bits) {
            double real = Math.abs(Double.longBitsToDouble(bits));
            return real > 0x1p-64 && real < 0x1p64;
        }
    },

    FLOAT64("HLAfloat64Time") {
        private static final long INFINITY = Double.doubleToRawLongBits(Double.POSITIVE_INFINITY);

        @Override
        boolean isNumber(long bits) {
            return !Double.isNaN(Double.longBitsToDouble(bits));
        }

        @Override
        public long last() {
            return INFINITY;
        }

        @Override
        long ordinal(long bits) {
            return bits == Long.MIN_VALUE ? 0 : flip(bits); // minus zero is zero
        }

        /** Later than infinity are bounds only: nothing more can come. */
        @Override
        long bits(long ordinal) {
            return flip(Math.min(ordinal, INFINITY));
        }

        /** Turns the order of the negative half around, so that all doubles compare as their bits do. */
        private long flip(long bits) {
            return bits ^ ((bits >> 63) & Long.MAX_VALUE);
        }

        private double real(long ordinal) {
            return Double.longBitsToDouble(bits(ordinal));
        }

        @Override
        public long plus(long time, long interval) {
            double sum = real(time) + real(interval);
            long absorbed = interval > 0 ? time + 1 : time;
            return sum == real(time) ? absorbed : ordinal(Double.doubleToRawLongBits(sum));
        }

        @Override
        public long minus(long time, long other) {
            double difference = real(time) - real(other);
            return Double.isNaN(difference) ? 0 : ordinal(Double.doubleToRawLongBits(difference)); // of two infinities
        }

        @Override
        public String text(long ordinal) {
            return Double.toString(real(ordinal));
        }

        /** Real numbers that are ordinary integers, bit for bit, are below 3e-308; epsilon is one that is in use. */
        @Override
        public boolean looksForeign(long bits) {
            double real = Math.abs(Double.longBitsToDouble(bits));
            return real > Double.MIN_VALUE && real < Double.MIN_NORMAL;
        }
    };

    /** Later than any time that can be asked for: what has no bound is bounded by this. */
    public static final long NEVER = Long.MAX_VALUE;

    private final String implementationName;

    TimeFamily(String implementationName) {
        this.implementationName = implementationName;
    }

    /** The family of that name; the empty name is the default family's. */
    public static TimeFamily named(String name) throws CouldNotCreateLogicalTimeFactory {
        if (name.isEmpty()) {
            return FLOAT64;
        }
        for (TimeFamily family : values()) {
            if (family.implementationName.equals(name)) {
                return family;
            }
        }
        throw new CouldNotCreateLogicalTimeFactory("Logical time implementation '" + name
                + "' is unknown; use HLAinteger64Time, HLAfloat64Time or an empty name");
    }

    public String implementationName() {
        return implementationName;
    }

    abstract boolean isNumber(long bits);

    /** The ordinal of the last time. From the initial one to that, ordinals are the times' own eight bytes. */
    public abstract long last();

    /** The ordinal of a time or interval's own eight bytes. */
    abstract long ordinal(long bits);

    /** The eight bytes of an ordinal. */
    abstract long bits(long ordinal);

    /** The time an interval later; never equal to the time unless the interval is zero. */
    public abstract long plus(long time, long interval);

    public abstract long minus(long time, long other);

    /** The earliest time that an interval takes to that time: the difference, or the next if rounding has cut that. */
    public long earliestReaching(long time, long interval) {
        long difference = minus(time, interval);
        return plus(difference, interval) < time ? difference + 1 : difference;
    }

    public abstract String text(long ordinal);

    /** Whether those bytes make sense as a time or interval of the other family rather than of this one. */
    public abstract boolean looksForeign(long bits);

    private TimeFamily other() {
        return this == INTEGER64 ? FLOAT64 : INTEGER64;
    }

    /** What to say to who gave the bytes of a time or interval that look foreign. */
    public String doubtAbout(long bits) {
        return "gives the time or interval " + describe(bits) + "; was " + other().describe(bits)
                + " meant? Those of this federation are of " + implementationName + ": use its classes";
    }

    /** The time or interval with those bytes, in words. */
    public String describe(long bits) {
        return isNumber(bits) ? text(ordinal(bits)) : "not a number";
    }

    public long time(long bits) throws InvalidLogicalTime {
        if (!isNumber(bits)) {
            throw new InvalidLogicalTime("The logical time is not a number; give a number");
        }
        return ordinal(bits);
    }

    public long lookahead(long bits) throws InvalidLookahead {
        if (!isNumber(bits) || ordinal(bits) < 0) {
            throw new InvalidLookahead("The lookahead is " + (isNumber(bits) ? text(ordinal(bits)) : "not a number")
                    + "; give zero or more");
        }
        return ordinal(bits);
    }
}
