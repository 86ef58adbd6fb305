package tovu.local.remote;

import java.nio.ByteBuffer;
import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Deque;
import java.util.List;
import java.util.Map;
import java.util.concurrent.ConcurrentHashMap;
import tovu.local.wire.Licence;

/**
 * What the hub lets the federate do without asking it, until it takes that back. It says both in the stream of frames,
 * and the thread that reads them notes it here before anybody sees what comes behind. No rule of the standard is known
 * here.
 */
final class Licences {
    private static final int GREATEST = 64; // of one subject: whoever sends in more ways asks for the others
    private static final byte[] NO_RETRACTION = null;
    private static final int[] NO_HANDLES = {};

    /** A service and its message, whose answer is known. */
    private record Question(int service, ByteBuffer message) {
    }

    /** An object instance, or an interaction class. */
    private record Subject(boolean isObject, int handle) {
        /** All that may be deleted. */
        static final Subject DELETIONS = new Subject(true, 0);
    }

    /** What may be sent: values of just those handles. */
    private record Sending(Licence licence, int[] handles, boolean retractable) {
    }

    /** @param number by which it may be retracted, or 0 */
    record Sent(int number) {
        /** What the service returns: the retraction handle's own encoding, or null for none. */
        Object result() {
            return number == 0 ? NO_RETRACTION : ByteBuffer.allocate(2 * Integer.BYTES).putInt(number).array();
        }
    }

    private record Range(int first, int count) {
    }

    /** The bytes of the first and the last time that may be sent with. */
    private record Limits(long first, long last) {
    }

    private static final Limits NO_TIMES = new Limits(0, -1);

    private final Map<Question, Object> answers = new ConcurrentHashMap<>();
    private final Map<Subject, List<Sending>> sendings = new ConcurrentHashMap<>();
    private volatile Limits limits = NO_TIMES;
    private final Deque<Range> numbers = new ArrayDeque<>(); // guarded by itself

    /** What a message is about, and how it is made up. */
    private static final class Message {
        private final Licence licence;
        private final ByteBuffer in;
        private final Subject subject;
        private final int[] handles;
        private long time;
        private boolean whole = true;

        Message(Licence licence, byte[] message) {
            this.licence = licence;
            in = ByteBuffer.wrap(message);
            subject = new Subject(licence.isOfObject(), in.getInt());
            handles = licence.isToDelete() ? NO_HANDLES : new int[in.getInt()];
            for (int i = 0; i < handles.length; ++i) {
                handles[i] = in.getInt();
                skipBytes();
            }
            skipBytes(); // the tag
            if (licence.isTimed()) {
                whole = in.remaining() == Long.BYTES;
                time = whole ? in.getLong() : 0;
            }
        }

        /** What has to be licensed to send it. */
        Subject licensed() {
            return licence == Licence.TIMED_DELETION ? Subject.DELETIONS : subject;
        }

        private void skipBytes() {
            int length = in.getInt();
            in.position(in.position() + length);
        }
    }

    /** The answer to a lookup, or null when it is not known. */
    Object answer(int service, byte[] message) {
        return answers.get(new Question(service, ByteBuffer.wrap(message)));
    }

    /** What becomes of a message that is sent without asking; null when it may not be. */
    Sent use(Licence licence, byte[] message) {
        Message sent = new Message(licence, message);
        if (!sent.whole || licence.isTimed() && !isWithinLimits(sent.time)) {
            return null;
        }
        Sending way = sending(sent.licensed(), licence, sent.handles);
        if (way == null || licence == Licence.TIMED_DELETION
                && sending(sent.subject, Licence.DELETION, NO_HANDLES) == null) {
            return null;
        }
        int number = way.retractable ? nextNumber() : 0;
        if (way.retractable && number == 0) {
            return null;
        }
        if (licence.isToDelete()) {
            sendings.put(sent.subject, List.of()); // nothing is certain of it until the hub has seen that
        }
        return new Sent(number);
    }

    private Sending sending(Subject subject, Licence licence, int[] handles) {
        for (Sending each : sendings.getOrDefault(subject, List.of())) {
            if (each.licence == licence && Arrays.equals(each.handles, handles)) {
                return each;
            }
        }
        return null;
    }

    private boolean isWithinLimits(long time) {
        Limits now = limits;
        return now.first <= time && time <= now.last;
    }

    private int nextNumber() {
        synchronized (numbers) {
            Range range = numbers.poll();
            if (range != null && range.count > 1) {
                numbers.addFirst(new Range(range.first + 1, range.count - 1));
            }
            return range == null ? 0 : range.first;
        }
    }

    /** The hub lets the federate do again what it has just done. */
    void add(int service, Licence licence, byte[] message, Object result) {
        if (licence == Licence.LOOKUP) {
            answers.put(new Question(service, ByteBuffer.wrap(message)), result);
        } else if (licence == Licence.REGISTRATION) {
            add(new Subject(true, (Integer) result), new Sending(Licence.DELETION, NO_HANDLES, false));
        } else {
            Message sent = new Message(licence, message);
            add(sent.licensed(), new Sending(licence, sent.handles, result != null));
        }
    }

    private void add(Subject subject, Sending sending) {
        sendings.compute(subject, (key, before) -> {
            if (before == null) {
                return List.of(sending);
            }
            boolean isOver = before.isEmpty();
            List<Sending> all = new ArrayList<>(before);
            all.add(sending);
            return isOver || before.size() >= GREATEST ? before : List.copyOf(all);
        });
    }

    /** @param object which they concern; 0 for all of them */
    void revoke(int object) {
        if (object != 0) {
            sendings.remove(new Subject(true, object));
        } else {
            answers.clear();
            sendings.values().removeIf(each -> !each.isEmpty()); // but for what the hub has still to see
        }
    }

    void limit(long first, long last) {
        limits = new Limits(first, last);
    }

    void addNumbers(int first, int count) {
        synchronized (numbers) {
            numbers.add(new Range(first, count));
        }
    }

    /** The federate is no member any more. */
    void clear() {
        answers.clear();
        sendings.clear();
        limits = NO_TIMES;
        synchronized (numbers) {
            numbers.clear();
        }
    }
}
