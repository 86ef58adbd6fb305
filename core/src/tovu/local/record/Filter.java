package tovu.local.record;

import java.time.Instant;
import java.time.LocalTime;
import java.time.ZoneId;
import java.time.format.DateTimeParseException;
import java.util.concurrent.TimeUnit;

/**
 * Which lines are wanted. What is null is not asked for.
 *
 * @param federate a federate's name
 * @param service  the name of a service or callback
 * @param object   the name of an object instance
 * @param from     seconds since the recording began, or a time of the day
 * @param until    the same
 */
record Filter(String federate, String service, String object, String from, String until) {
    /** @throws IllegalArgumentException when a time is none */
    boolean wants(Line line, Instant begin) {
        return (federate == null || federate.equals(line.who())) && (service == null || service.equals(line.name()))
                && (object == null || line.arguments().contains(object)
                        || line.arguments().contains("\"" + object + "\""))
                && (from == null || line.entry().micros() >= micros(from, begin))
                && (until == null || line.entry().micros() <= micros(until, begin));
    }

    private static double micros(String time, Instant begin) {
        try {
            if (time.contains(":")) {
                long nanos = LocalTime.parse(time).toNanoOfDay()
                        - begin.atZone(ZoneId.systemDefault()).toLocalTime().toNanoOfDay();
                long day = TimeUnit.DAYS.toNanos(1);
                return TimeUnit.NANOSECONDS.toMicros((nanos + day) % day); // it may be the next day
            }
            return Double.parseDouble(time) * TimeUnit.SECONDS.toMicros(1);
        } catch (DateTimeParseException | NumberFormatException e) {
            throw new IllegalArgumentException("'" + time + "' is no time: give seconds since the beginning, or"
                    + " HH:MM:SS", e);
        }
    }
}
