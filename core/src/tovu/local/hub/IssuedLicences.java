package tovu.local.hub;

import java.util.HashSet;
import java.util.Set;
import java.util.function.Consumer;
import tovu.local.wire.FrameType;
import tovu.local.wire.FrameWriter;
import tovu.local.wire.Licence;
import tovu.local.wire.Result;

/**
 * The licences of one federate. A licence goes with the reply to a service that has just succeeded, unless anything was
 * taken back since that began: then it may be what the licence would be for.
 */
final class IssuedLicences {
    private static final int SET_ASIDE = 1 << 12; // numbers at a time

    private final Consumer<byte[]> out;
    private final Set<Integer> objects = new HashSet<>(); // that there are some for
    private boolean others; // whether there are some that are for no object
    private long revocations; // of any
    private long revocationsOfAll;
    private boolean timed; // whether it has to know the limits
    private long first;
    private long last = -1;
    private int numbers; // the first of those set aside last, or 0
    private int numbersBefore; // and of those before
    private int left; // of all of them

    /** @param out takes the frames, in order */
    IssuedLicences(Consumer<byte[]> out) {
        this.out = out;
    }

    /**
     * To be told to {@link #reply} after the service.
     *
     * @param licence what one for this service is for
     */
    synchronized long revocations(Licence licence) {
        // To delete takes back what concerns the object.
        return licence == Licence.TIMED_DELETION ? revocationsOfAll : revocations;
    }

    /**
     * Answers a request.
     *
     * @param licence what one for this service is for; NONE for none
     * @param object  which it concerns, or 0
     * @param since   what {@link #revocations} was before the service
     */
    synchronized void reply(int request, Object result, Licence licence, int object, long since) {
        boolean licensed = licence != Licence.NONE && since == revocations(licence);
        if (licensed) {
            others |= object == 0;
            if (object != 0) {
                objects.add(object);
            }
            if (licence.isTimed() && !timed) {
                timed = true;
                tellLimits();
            }
        }
        FrameWriter reply = new FrameWriter(FrameType.REPLY).integer(request).flag(licensed);
        Result.write(reply, result);
        out.accept(reply.end());
    }

    /** @param object which they concern; 0 for all of them */
    synchronized void revoke(int object) {
        ++revocations;
        revocationsOfAll += object == 0 ? 1 : 0;
        boolean any = object == 0 ? others || !objects.isEmpty() : objects.remove(object);
        if (object == 0) {
            others = false;
            objects.clear();
        }
        if (any) {
            tellRevocation(object);
        }
    }

    /** The federate has deleted an object with a licence, and has none for it until it is told so. */
    synchronized void deleted(int object) {
        objects.remove(object);
        tellRevocation(object);
    }

    private void tellRevocation(int object) {
        out.accept(new FrameWriter(FrameType.REVOKE).integer(object).end());
    }

    synchronized void limit(long theFirst, long theLast) {
        boolean changed = theFirst != first || theLast != last;
        first = theFirst;
        last = theLast;
        if (timed && changed) {
            tellLimits();
        }
    }

    private void tellLimits() {
        out.accept(new FrameWriter(FrameType.LIMITS).longInteger(first).longInteger(last).end());
    }

    /** The federate is no member any more, and has no licences. */
    synchronized void clear() {
        ++revocations;
        ++revocationsOfAll;
        others = false;
        objects.clear();
        timed = false;
        last = -1;
        left = 0;
    }

    /** How many numbers have to be set aside for it now. */
    synchronized int numbersWanted() {
        return left <= SET_ASIDE / 2 ? SET_ASIDE : 0;
    }

    synchronized void addNumbers(int firstNumber, int count) {
        numbersBefore = numbers;
        numbers = firstNumber;
        left += count;
        out.accept(new FrameWriter(FrameType.NUMBERS).integer(firstNumber).integer(count).end());
    }

    /** It has used one. @return whether it could have that */
    synchronized boolean use(int used) {
        --left;
        return isAmong(numbers, used) || isAmong(numbersBefore, used);
    }

    private static boolean isAmong(int begin, int used) {
        return begin != 0 && used >= begin && used - begin < SET_ASIDE;
    }
}
