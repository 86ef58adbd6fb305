package tovu.local.record;

import java.nio.ByteBuffer;
import java.nio.charset.StandardCharsets;
import java.util.ArrayDeque;
import java.util.HashMap;
import java.util.Map;
import java.util.Queue;
import java.util.function.Consumer;
import morva.tovu1516e.RecordedCalls;
import tovu.local.record.Entry.Kind;
import tovu.local.wire.FrameReader;
import tovu.local.wire.FrameWriter;
import tovu.local.wire.MalformedFrame;
import tovu.local.wire.Result;

/** Makes entries of the frames of one connection. What is no frame is none of the entries either. */
final class RecordedFrames {
    private static final byte[] NOTHING = {};

    private final int connection;
    private final Consumer<Entry> out;
    private final RecordedStream received = new RecordedStream();
    private final RecordedStream sent = new RecordedStream();
    private final Map<Integer, Queue<Entry>> requests = new HashMap<>(); // that are not answered, by number
    private final Map<Integer, Long> resolving = new HashMap<>(); // callbacks that are asked for, by request
    private long micros;

    /** @param out takes the entries */
    RecordedFrames(int connection, Consumer<Entry> out) {
        this.connection = connection;
        this.out = out;
    }

    void record(Recording.Kind kind, long now, ByteBuffer content) {
        micros = now;
        switch (kind) {
            case OPENED -> add(Kind.OPENED, text(content));
            case CLOSED -> add(Kind.CLOSED, text(content));
            case DROPPED -> {
                int service = content.getInt();
                byte[] message = new byte[content.getInt()];
                content.get(message);
                add(Kind.DROPPED, null, false, service, 0, message, text(content));
            }
            case RECEIVED -> cut(received, content, this::fromFederate);
            case SENT -> cut(sent, content, this::fromHub);
        }
    }

    private static String text(ByteBuffer content) {
        return StandardCharsets.UTF_8.decode(content).toString();
    }

    private static void cut(RecordedStream stream, ByteBuffer content, Consumer<FrameReader> reader) {
        stream.add(content);
        for (byte[] frame = stream.next(); frame != null; frame = stream.next()) {
            try {
                reader.accept(new FrameReader(frame));
            } catch (MalformedFrame e) {
                // its hub has closed the connection for that
            }
        }
    }

    private Entry add(Kind kind, Entry request, boolean isAwaited, int code, long number, byte[] content, String text) {
        Entry made = new Entry(kind, micros, connection, request, isAwaited, code, number, content, text);
        out.accept(made);
        return made;
    }

    private void add(Kind kind, String text) {
        add(kind, null, false, 0, 0, NOTHING, text);
    }

    private void fromFederate(FrameReader frame) {
        switch (frame.type()) {
            case REQUEST -> {
                int tag = frame.integer();
                long begun = frame.longInteger();
                frame.longInteger();
                int service = frame.integer();
                if (RecordedCalls.isService(service)) {
                    requests.computeIfAbsent(tag, one -> new ArrayDeque<>(1))
                            .add(add(Kind.REQUEST, null, true, service, begun, frame.rest(), ""));
                }
            }
            case SEND -> {
                long begun = frame.longInteger();
                frame.longInteger();
                int service = frame.integer();
                int retraction = frame.integer();
                if (RecordedCalls.isService(service)) {
                    answer(add(Kind.REQUEST, null, false, service, begun, frame.rest(), ""), encoded(retraction == 0
                            ? null : ByteBuffer.allocate(2 * Integer.BYTES).putInt(retraction).array()));
                }
            }
            case RESOLVE -> resolving.put(frame.integer(), frame.longInteger());
            case PROGRESS -> progress(frame.longInteger());
            case FENCE -> {
                frame.integer();
                progress(frame.longInteger());
            }
            default -> {
                // the two sides' own affair
            }
        }
    }

    private void fromHub(FrameReader frame) {
        switch (frame.type()) {
            case REPLY -> {
                Entry request = request(frame.integer());
                frame.flag();
                if (request != null) {
                    answer(request, frame.rest());
                }
            }
            case FAILURE -> {
                Entry request = request(frame.integer());
                if (request != null) {
                    add(Kind.FAILURE, request, false, 0, 0, NOTHING, frame.text() + ": " + frame.text());
                }
            }
            case ELSEWHERE -> request(frame.integer());
            case CALLBACK -> {
                long number = frame.longInteger();
                frame.octet();
                callback(Kind.CALLBACK, number, frame);
            }
            case RESOLVED -> {
                Long number = resolving.remove(frame.integer());
                if (number != null && frame.hasMore()) {
                    callback(Kind.LATE_CALLBACK, number, frame);
                }
            }
            case RETRACT -> {
                for (int left = frame.count(Long.BYTES); left > 0; --left) {
                    frame.longInteger();
                }
                add(Kind.RETRACTED, "");
                callback(Kind.CALLBACK, frame.longInteger(), frame);
            }
            default -> {
                // the two sides' own affair
            }
        }
    }

    /** The one that is answered: with its number, the first that is not answered yet. */
    private Entry request(int tag) {
        Queue<Entry> waiting = requests.get(tag);
        Entry first = waiting == null ? null : waiting.remove();
        if (waiting != null && waiting.isEmpty()) {
            requests.remove(tag);
        }
        return first;
    }

    private void answer(Entry request, byte[] result) {
        add(Kind.RESULT, request, false, 0, 0, result, "");
    }

    private void progress(long begun) {
        add(Kind.PROGRESS, null, false, 0, begun, NOTHING, "");
    }

    private void callback(Kind kind, long number, FrameReader frame) {
        add(kind, null, false, frame.integer(), number, Recording.bare(frame.rest()), "");
    }

    private static byte[] encoded(Object result) {
        FrameWriter writing = FrameWriter.withoutFrame();
        Result.write(writing, result);
        return writing.content();
    }
}
