package tovu.local.record;

import hla.rti1516e.exceptions.FederateInternalError;
import hla.rti1516e.exceptions.RTIexception;
import java.io.IOException;
import java.io.PrintStream;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.Queue;
import java.util.concurrent.ConcurrentLinkedQueue;
import java.util.concurrent.TimeUnit;
import morva.tovu1516e.RecordedCalls;
import morva.tovu1516e.RecordedCalls.Discovery;
import tovu.local.delivery.CallbackMethod;
import tovu.local.model.port.Callback;
import tovu.local.model.port.CallbackSink;
import tovu.local.remote.HubAddress;
import tovu.local.remote.HubLink;

/**
 * Plays a recording's federates at a hub: calls their services again, in the order in which the hub got them, each when
 * its federate has been given as many callbacks as then.
 */
final class Player implements AutoCloseable {
    private static final long PATIENCE_MILLIS = 10_000; // for a callback
    private static final long IMPATIENCE_MILLIS = 100; // once one has not come

    /** A federate that is played. */
    private final class Part implements CallbackSink {
        final Queue<Callback> callbacks = new ConcurrentLinkedQueue<>();
        final Map<String, Integer> discovered = new HashMap<>(); // in the recording, by name
        final HubLink link;
        long patience = PATIENCE_MILLIS;

        Part(List<HubAddress> hubs) throws RTIexception {
            link = HubLink.open(hubs, this, this::told, fault -> { });
        }

        /** Who registers nothing itself, but discovers what the infrastructure does, knows that by its name. */
        private void told(CallbackMethod method, byte[] message) {
            Discovery now = RecordedCalls.discovery(method, Recording.bare(message));
            Integer then = now == null ? null : discovered.remove(now.name());
            if (then != null) {
                handles.discovered(then, now.object());
            }
        }

        @Override
        public void post(Callback callback) {
            callbacks.add(callback);
        }

        @Override
        public void postToConnection(Callback callback) {
            callbacks.add(callback);
        }

        @Override
        public void dropMembership() {
            callbacks.clear();
        }

        /** Takes callbacks until that one has begun; false when it does not come. */
        boolean takeUntil(long number) throws FederateInternalError {
            while (link.begun() < number) {
                link.await(() -> !callbacks.isEmpty(), TimeUnit.MILLISECONDS.toNanos(patience));
                Callback next = callbacks.poll();
                if (next == null) {
                    patience = IMPATIENCE_MILLIS;
                    return false;
                }
                next.deliver(null);
            }
            return true;
        }
    }

    /** What a service returned, or has thrown. */
    private record Answer(Object result, RTIexception exception) {
    }

    /** Of a service that nobody waited for: a difference, if it was not dropped then. */
    private record Failure(Entry request, String line) {
    }

    private final RecordingReader in;
    private final List<HubAddress> hubs;
    private final boolean realTime;
    private final PrintStream out;
    private final RecordedNames names = new RecordedNames();
    private final Handles handles = new Handles();
    private final Map<Integer, Part> parts = new HashMap<>();
    private final Map<Entry, Answer> answers = new HashMap<>(); // that the recorded one is still to come of
    private final List<Failure> failures = new ArrayList<>();
    private int services;
    private int different;
    private int missing;

    Player(RecordingReader in, List<HubAddress> hubs, boolean realTime, PrintStream out) {
        this.in = in;
        this.hubs = hubs;
        this.realTime = realTime;
        this.out = out;
    }

    /** @return whether all was as recorded */
    boolean play() throws IOException, RTIexception, InterruptedException {
        long begin = System.nanoTime();
        for (Entry entry = in.next(); entry != null; entry = in.next()) {
            long early = TimeUnit.MICROSECONDS.toNanos(entry.micros()) - (System.nanoTime() - begin);
            if (realTime && early > 0) {
                TimeUnit.NANOSECONDS.sleep(early);
            }
            Line.of(entry, names); // has the names follow
            switch (entry.kind()) {
                case REQUEST -> serve(entry);
                case RESULT, FAILURE -> compare(entry);
                case DROPPED -> drop(entry);
                case CLOSED -> leave(entry);
                case LATE_CALLBACK, PROGRESS -> {
                    take(entry);
                    Part part = parts.get(entry.connection());
                    if (part != null) {
                        part.link.beHeard();
                    }
                }
                case CALLBACK -> {
                    Discovery then = RecordedCalls.discovery(CallbackMethod.of(entry.code()), entry.content());
                    if (then != null && parts.containsKey(entry.connection())) {
                        parts.get(entry.connection()).discovered.put(then.name(), then.object());
                    }
                }
                default -> {
                    // the hub's affair
                }
            }
        }
        failures.forEach(each -> differ(each.line));
        out.println(services + " services played: " + different + " answers differ, " + missing
                + " callbacks did not come");
        return different + missing == 0;
    }

    private void serve(Entry entry) throws RTIexception {
        Part part = parts.get(entry.connection());
        if (part == null) {
            part = new Part(hubs);
            parts.put(entry.connection(), part);
        }
        take(entry);
        Answer answer;
        try {
            ++services;
            answer = new Answer(part.link.request(entry.code(),
                    RecordedCalls.translated(entry.code(), entry.content(), handles)), null);
        } catch (RTIexception e) {
            if (part.link.isLost()) {
                throw e;
            }
            answer = new Answer(null, e);
        }
        answers.put(entry, answer);
    }

    /** Gives the federate as many callbacks as it had been given then. */
    private void take(Entry entry) throws RTIexception {
        Part part = parts.get(entry.connection());
        if (part != null && !part.takeUntil(entry.number())) {
            ++missing;
            out.println(ReplayMain.stamp(in.begin(), entry, names.who(entry.connection())) + " then had got callback "
                    + entry.number() + ", and now only " + part.link.begun());
        }
    }

    private void compare(Entry recorded) {
        Entry request = recorded.request();
        Answer now = answers.remove(request);
        RTIexception thrown = now.exception;
        String service = RecordedCalls.name(request.code());
        boolean failed = recorded.kind() == Entry.Kind.FAILURE;
        boolean same = failed == (thrown != null) && (failed
                ? recorded.text().startsWith(thrown.getClass().getSimpleName() + ":")
                : handles.agree(service, RecordedNames.result(recorded), now.result));
        if (!same) {
            String line = difference(recorded, service,
                    failed ? ": " + recorded.text() : said(request, RecordedNames.result(recorded)),
                    thrown == null ? said(request, now.result) : ": " + thrown.getClass().getSimpleName() + ": "
                            + thrown.getMessage());
            if (!request.isAwaited() && thrown != null) {
                failures.add(new Failure(request, line));
            } else {
                differ(line);
            }
        }
    }

    /** What was not waited for and failed: now it has to have failed, too. */
    private void drop(Entry recorded) {
        boolean same = failures.removeIf(each -> each.request.connection() == recorded.connection()
                && each.request.code() == recorded.code()
                && Arrays.equals(each.request.content(), recorded.content()));
        if (!same) {
            differ(difference(recorded, RecordedCalls.name(recorded.code()), ": " + recorded.text(), " succeeded"));
        }
    }

    private String difference(Entry recorded, String service, String then, String now) {
        return ReplayMain.stamp(in.begin(), recorded, names.who(recorded.connection())) + " then " + service + then
                + "; now " + service + now;
    }

    private void differ(String line) {
        ++different;
        out.println(line);
    }

    private String said(Entry request, Object result) {
        List<String> words = RecordedCalls.results(names.describer(request.connection()), request.code(), result);
        return words.isEmpty() ? " succeeded" : " = " + words.get(0);
    }

    private void leave(Entry entry) {
        Part part = parts.remove(entry.connection());
        if (part != null) {
            part.link.close(entry.text());
        }
    }

    @Override
    public void close() {
        parts.values().forEach(each -> each.link.close("the recording ends"));
    }
}
