package tovu.local.remote;

import hla.rti1516e.exceptions.ConnectionFailed;
import hla.rti1516e.exceptions.FederateInternalError;
import hla.rti1516e.exceptions.NotConnected;
import hla.rti1516e.exceptions.RTIexception;
import hla.rti1516e.exceptions.RTIinternalError;
import java.io.EOFException;
import java.io.IOException;
import java.util.ArrayList;
import java.util.HashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.concurrent.ConcurrentHashMap;
import java.util.concurrent.Future;
import java.util.concurrent.ScheduledFuture;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.atomic.AtomicBoolean;
import java.util.concurrent.atomic.AtomicInteger;
import java.util.concurrent.locks.LockSupport;
import java.util.function.BooleanSupplier;
import java.util.function.Consumer;
import tovu.local.delivery.CallbackMethod;
import tovu.local.delivery.CallbackPort;
import tovu.local.delivery.CallbackSource;
import tovu.local.model.port.Callback;
import tovu.local.model.port.CallbackSink;
import tovu.local.model.port.FederateCallbacks;
import tovu.local.wire.CallbackFlags;
import tovu.local.wire.FrameReader;
import tovu.local.wire.FrameType;
import tovu.local.wire.FrameWriter;
import tovu.local.wire.Licence;
import tovu.local.wire.MalformedFrame;
import tovu.local.wire.Pulse;

/**
 * An ambassador's connection to a hub. Requests of several threads run side by side; callbacks come numbered, in one
 * stream with the answers, and wait in the federate's own queue. With every request the hub is told which callbacks
 * have begun and ended, so that a service sees what the federate's code has been told, no more and no less.
 */
public final class HubLink implements CallbackSource {
    private static final long TELL_IDLE_MILLIS = 5;
    private static final long PATIENCE_MILLIS = 4_500; // until one has let it in
    private static final long FAREWELL_MILLIS = 1_000; // for what an end needs of the other side
    private static final Consumer<Object> NO_LICENCE = result -> { };

    /** What the thread has said something with, or been called by, that the hub may not have heard yet. */
    private static final ThreadLocal<Set<HubLink>> UNHEARD = ThreadLocal.withInitial(() -> new HashSet<>(2));

    private final HubAddress hub;
    private final HubSocket socket;
    private final Inbox in;
    private final ReadingTurn turn;
    private final Outbox out;
    private final Licences licences = new Licences();
    private final int greatestFrame;
    private final int silence; // after so many seconds the other side is lost; 0 for never
    private final CallbackSink queue;
    private final CallbackPort federate;
    private final Consumer<String> onLoss;
    private final Map<Integer, Answer> awaited = new ConcurrentHashMap<>();
    private final AtomicInteger lastRequest = new AtomicInteger();
    private final Set<Long> retracted = new HashSet<>(); // guarded by the monitor, like the four below
    private long begun; // the last callback that was
    private long ended; // the last callback that has returned
    private long toldEnded; // as the hub knows it
    private long reviewed;
    private final AtomicBoolean tellingProgress = new AtomicBoolean();
    private final Pulse pulse = new Pulse();
    private final ScheduledFuture<?> beats;
    private volatile boolean closing; // from this side: how it ends is no loss then
    private volatile String lost; // why, or null

    /**
     * Returns when a hub has let it in, or none does.
     *
     * @param hubs     tried in turn
     * @param queue    takes the callbacks that come
     * @param federate is called with them when it is their turn
     * @param onLoss   is told, once, how the connection has ended if that is before it is closed
     */
    public static HubLink open(List<HubAddress> hubs, CallbackSink queue, CallbackPort federate,
            Consumer<String> onLoss) throws ConnectionFailed {
        long deadline = System.nanoTime() + TimeUnit.MILLISECONDS.toNanos(PATIENCE_MILLIS);
        List<String> failures = new ArrayList<>();
        for (HubAddress each : hubs) {
            long left = TimeUnit.NANOSECONDS.toMillis(deadline - System.nanoTime());
            try {
                return open(each, Math.max(1, left / (hubs.size() - failures.size())), false, queue, federate, onLoss);
            } catch (ConnectionFailed e) {
                failures.add(e.getMessage());
            }
        }
        throw new ConnectionFailed(String.join("; ", failures));
    }

    /** Opens a connection to another hub of the same service, to which this one has sent the federate. */
    public HubLink openElsewhere(String address, CallbackSink theQueue, CallbackPort theFederate,
            Consumer<String> toldOfLoss) throws ConnectionFailed {
        return open(hub.at(address), PATIENCE_MILLIS, true, theQueue, theFederate, toldOfLoss);
    }

    private static HubLink open(HubAddress hub, long patienceMillis, boolean sent, CallbackSink queue,
            CallbackPort federate, Consumer<String> onLoss) throws ConnectionFailed {
        HubSocket socket = HubSocket.connect(hub, patienceMillis);
        try {
            HubLink link = new HubLink(hub, socket, sent, queue, federate, onLoss);
            Thread reader = new Thread(link.turn::standBy, "hub " + hub);
            reader.setDaemon(true);
            reader.start();
            return link;
        } catch (IOException | MalformedFrame e) {
            throw socket.failed(e);
        }
    }

    private HubLink(HubAddress hub, HubSocket socket, boolean sent, CallbackSink queue, CallbackPort federate,
            Consumer<String> onLoss) throws IOException, ConnectionFailed {
        this.hub = hub;
        this.socket = socket;
        this.queue = queue;
        this.federate = federate;
        this.onLoss = onLoss;
        in = new Inbox(socket, pulse);
        turn = new ReadingTurn(this::isLost, this::takeWhatComes);
        out = new Outbox(socket.output(), this::sendingFailed);
        HubSocket.Welcome welcome = socket.greet(in, sent);
        greatestFrame = welcome.greatestFrame();
        in.limitFrames(greatestFrame);
        silence = welcome.lostAfterSeconds();
        long period = TimeUnit.SECONDS.toMillis(silence) / Pulse.BEATS;
        beats = silence == 0 ? null
                : HubClock.INSTANCE.scheduleWithFixedDelay(this::beat, period, period, TimeUnit.MILLISECONDS);
    }

    /**
     * A service. With a licence it is not waited for.
     *
     * @param licence what one for this service is for
     * @return what the hub's core returns
     */
    public Object serve(int service, Licence licence, byte[] message) throws RTIexception {
        if (licence == Licence.LOOKUP) {
            Object known = licences.answer(service, message);
            if (known != null && !isLost()) {
                return known;
            }
        } else if (licence.isToSend() && !isLost()) {
            hearOthers();
            Licences.Sent sent = licences.use(licence, message);
            if (sent != null) {
                out.leave(checked(progress(new FrameWriter(FrameType.SEND, message.length + 24))
                        .integer(service).integer(sent.number()).rest(message).end()));
                pulse.say();
                UNHEARD.get().add(this);
                return sent.result();
            }
        }
        return licence == Licence.NONE ? request(service, message)
                : request(service, message, result -> licences.add(service, licence, message, result));
    }

    /** A service that is waited for in any case. */
    public Object request(int service, byte[] message) throws RTIexception {
        return request(service, message, NO_LICENCE);
    }

    private Object request(int service, byte[] message, Consumer<Object> onLicence) throws RTIexception {
        hearOthers();
        int number = lastRequest.incrementAndGet();
        FrameWriter frame = new FrameWriter(FrameType.REQUEST, message.length + 24).integer(number);
        return ask(number, onLicence, progress(frame).integer(service).rest(message)).result();
    }

    private Answer ask(int number, Consumer<Object> onLicence, FrameWriter request)
            throws NotConnected, RTIinternalError {
        byte[] frame = checked(request.end());
        Answer answer = new Answer(onLicence);
        awaited.put(number, answer);
        if (lost == null) { // whoever loses it from here on finds the answer awaited
            out.send(frame);
            pulse.say();
        } else {
            answer.give(null);
        }
        turn.await(answer, Long.MAX_VALUE);
        awaited.remove(number);
        UNHEARD.get().remove(this);
        if (answer.frame() == null) {
            throw notConnected();
        }
        return answer;
    }

    /**
     * What a thread has done as one federate happens before what it does as another of the same program, as it does
     * where nothing is sent without waiting.
     */
    private void hearOthers() {
        Set<HubLink> unheard = UNHEARD.get();
        if (unheard.isEmpty() || unheard.size() == 1 && unheard.contains(this)) {
            return;
        }
        for (HubLink each : List.copyOf(unheard)) {
            if (each != this) {
                each.beHeard();
            }
        }
    }

    /** Returns when the hub knows what callbacks have begun and ended. */
    public void beHeard() {
        try {
            int number = lastRequest.incrementAndGet();
            ask(number, NO_LICENCE, progress(new FrameWriter(FrameType.FENCE).integer(number)));
        } catch (RTIexception e) {
            UNHEARD.get().remove(this); // it is lost, and the hub will hear no more of it
        }
    }

    public NotConnected notConnected() {
        return new NotConnected("The connection to the hub at " + hub + " is lost (" + lost
                + "); connect again");
    }

    private byte[] checked(byte[] frame) throws RTIinternalError {
        if (frame.length > greatestFrame) {
            throw new RTIinternalError("A message of " + frame.length + " bytes is more than the hub at " + hub
                    + " takes, which is " + greatestFrame + "; send less at once, or start the hub with a greater limit");
        }
        return frame;
    }

    /** The hub may have said why it ends the connection, which is still to be read. */
    private void sendingFailed(IOException failure) {
        HubClock.INSTANCE.schedule(() -> lose("sending failed: " + HubSocket.reason(failure)),
                FAREWELL_MILLIS, TimeUnit.MILLISECONDS);
    }

    private void tell(byte[] frame) {
        out.send(frame);
        pulse.say();
    }

    /** What comes is posted; who waits for that may be the one that takes it. */
    @Override
    public void await(BooleanSupplier posted, long nanos) {
        if (isLost()) {
            LockSupport.parkNanos(this, nanos);
        } else {
            turn.await(posted, nanos);
        }
    }

    private void takeWhatComes(long nanos) {
        try {
            if (!takeAll()) {
                in.read(nanos);
                takeAll();
            }
        } catch (EOFException e) {
            lose("the hub has closed it");
        } catch (IOException e) {
            lose(HubSocket.reason(e));
        } catch (MalformedFrame e) {
            lose("the hub sent " + e.getMessage());
        }
    }

    private boolean takeAll() {
        boolean any = false;
        for (FrameReader frame = in.next(); frame != null; frame = in.next()) {
            take(frame);
            any = true;
        }
        return any;
    }

    private void take(FrameReader frame) {
        switch (frame.type()) {
            case REPLY, FAILURE, ELSEWHERE, RESOLVED -> {
                Answer answer = awaited.get(frame.integer());
                if (answer != null) {
                    answer.give(frame);
                }
            }
            case CALLBACK -> {
                long number = frame.longInteger();
                int flags = frame.octet();
                post(flags, new Numbered(number, (flags & CallbackFlags.CERTAIN) != 0, method(frame), frame.rest()));
            }
            case LATE_CALLBACK -> {
                long number = frame.longInteger();
                post(frame.octet(), new Numbered(number, false, null, null));
            }
            case REVIEW -> review(frame.longInteger());
            case RETRACT -> {
                boolean any = false;
                int count = frame.count(Long.BYTES);
                FrameWriter answer = new FrameWriter(FrameType.RETRACTED).integer(count);
                for (int i = 0; i < count; ++i) {
                    long number = frame.longInteger();
                    boolean told = !retract(number);
                    answer.longInteger(number).flag(told);
                    any |= told;
                }
                tell(answer.end());
                if (any) {
                    queue.post(new Numbered(frame.longInteger(), true, method(frame), frame.rest()));
                }
            }
            case DROP -> drop();
            case REVOKE -> licences.revoke(frame.integer());
            case LIMITS -> licences.limit(frame.longInteger(), frame.longInteger());
            case NUMBERS -> licences.addNumbers(frame.integer(), frame.integer());
            case HEARTBEAT -> {
                // that it came is what it says
            }
            case CLOSING -> lose(frame.text());
            default -> throw new MalformedFrame("a frame of type " + frame.type() + ", which only federates send");
        }
    }

    private synchronized void drop() {
        licences.clear();
        retracted.clear();
        queue.dropMembership();
    }

    private void post(int flags, Numbered callback) {
        if ((flags & CallbackFlags.OUTLIVES_MEMBERSHIP) != 0) {
            queue.postToConnection(callback);
        } else {
            queue.post(callback);
        }
    }

    private static CallbackMethod method(FrameReader frame) {
        CallbackMethod method = CallbackMethod.of(frame.integer());
        if (method == null) {
            throw new MalformedFrame("a callback that is none");
        }
        return method;
    }

    /** A callback as it came; without a method it has to be asked for when it is its turn. */
    private final class Numbered implements Callback {
        private final long number;
        private final boolean certain;
        private final CallbackMethod method;
        private final byte[] message;

        Numbered(long number, boolean certain, CallbackMethod method, byte[] message) {
            this.number = number;
            this.certain = certain;
            this.method = method;
            this.message = message;
        }

        @Override
        public void deliver(FederateCallbacks nobody) throws FederateInternalError {
            Beginning beginning = beginCallback(number, certain, method == null);
            if (beginning == Beginning.DROPPED) {
                return; // retracted before anybody saw it
            }
            try {
                if (beginning == Beginning.TO_BE_ASKED) {
                    resolve();
                } else {
                    federate.call(method, message);
                }
            } finally {
                endCallback(number);
                UNHEARD.get().add(HubLink.this);
                tellProgressSoon();
            }
        }

        private void resolve() throws FederateInternalError {
            FrameReader answer;
            try {
                hearOthers();
                int request = lastRequest.incrementAndGet();
                answer = ask(request, NO_LICENCE,
                        new FrameWriter(FrameType.RESOLVE).integer(request).longInteger(number)).frame();
            } catch (RTIexception e) {
                return; // whoever is told nothing more is told of the loss
            }
            answered(number);
            if (answer.hasMore()) {
                federate.call(method(answer), answer.rest());
            }
        }
    }

    private enum Beginning {
        DROPPED, KNOWN, TO_BE_ASKED
    }

    private synchronized Beginning beginCallback(long number, boolean certain, boolean late) {
        if (retracted.remove(number)) {
            return Beginning.DROPPED;
        }
        if (late || !certain && number <= reviewed) {
            return Beginning.TO_BE_ASKED; // it begins when the hub has answered
        }
        begun = number;
        return Beginning.KNOWN;
    }

    private synchronized void answered(long number) {
        begun = number;
        retracted.remove(number);
    }

    private synchronized void endCallback(long number) {
        ended = number;
    }

    private synchronized FrameWriter progress(FrameWriter frame) {
        toldEnded = ended;
        return frame.longInteger(begun).longInteger(ended);
    }

    /** The number of the last callback that has begun. */
    public synchronized long begun() {
        return begun;
    }

    private synchronized boolean isProgressNew() {
        return toldEnded != ended;
    }

    private synchronized void review(long number) {
        reviewed = number;
    }

    private synchronized boolean retract(long number) {
        return number > begun && retracted.add(number);
    }

    /** So that others need not wait until this federate has a request. */
    private void tellProgressSoon() {
        if (!tellingProgress.get() && tellingProgress.compareAndSet(false, true)) {
            HubClock.INSTANCE.schedule(() -> HubClock.WAITERS.execute(() -> {
                tellingProgress.set(false);
                if (isProgressNew()) {
                    tell(progress(new FrameWriter(FrameType.PROGRESS)).end());
                }
            }), TELL_IDLE_MILLIS, TimeUnit.MILLISECONDS);
        }
    }

    private void beat() {
        switch (pulse.beat()) {
            case LOST -> lose("the hub has been silent for " + silence + " s");
            case SAY_SOMETHING -> HubClock.WAITERS.execute(() -> tell(new FrameWriter(FrameType.HEARTBEAT).end()));
            default -> {
                // all is well
            }
        }
    }

    private void lose(String reason) {
        if (end(reason) && !closing) {
            onLoss.accept("The connection to the hub at " + hub + " is lost: " + reason);
        }
    }

    /**
     * Ends the connection from this side; the hub is told if that is possible.
     *
     * @param reason what the others are told if the federate is still joined
     */
    public void close(String reason) {
        closing = true;
        if (lost == null) { // a hub that does not read holds it up no longer than that
            Future<?> last = HubClock.INSTANCE.schedule(() -> end(reason), FAREWELL_MILLIS, TimeUnit.MILLISECONDS);
            tell(new FrameWriter(FrameType.GOODBYE).text(reason).end());
            last.cancel(false);
        }
        end(reason);
    }

    private boolean end(String reason) {
        synchronized (this) {
            if (lost != null) {
                return false;
            }
            lost = reason;
        }
        if (beats != null) {
            beats.cancel(false);
        }
        socket.close();
        out.end();
        awaited.values().forEach(each -> each.give(null));
        return true;
    }

    public boolean isLost() {
        return lost != null;
    }
}
