package tovu.local.hub;

import hla.rti1516e.exceptions.RTIexception;
import io.netty.buffer.ByteBuf;
import io.netty.buffer.ByteBufUtil;
import io.netty.buffer.Unpooled;
import io.netty.channel.Channel;
import io.netty.channel.ChannelFutureListener;
import io.netty.channel.ChannelHandlerContext;
import io.netty.channel.ChannelInboundHandlerAdapter;
import io.netty.channel.ChannelOutboundBuffer;
import io.netty.handler.codec.CorruptedFrameException;
import io.netty.handler.codec.TooLongFrameException;
import io.netty.handler.ssl.NotSslRecordException;
import io.netty.util.ReferenceCountUtil;
import io.netty.util.concurrent.Future;
import java.nio.ByteBuffer;
import java.util.Queue;
import java.util.concurrent.ConcurrentLinkedQueue;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.atomic.AtomicBoolean;
import morva.tovu1516e.HubAmbassador;
import morva.tovu1516e.MalformedMessage;
import tovu.local.model.exchange.Federate;
import tovu.local.model.port.Elsewhere;
import tovu.local.record.RecordedConnection;
import tovu.local.wire.FrameReader;
import tovu.local.wire.FrameType;
import tovu.local.wire.FrameWriter;
import tovu.local.wire.Licence;
import tovu.local.wire.MalformedFrame;
import tovu.local.wire.Protocol;
import tovu.local.wire.Pulse;
import tovu.local.wire.Result;

/**
 * One connection: an ambassador at the hub, and the stream to its federate. Requests are served one after the other in
 * the thread of the connection, but for those that take long and what comes meanwhile; what goes out is left in a queue
 * by whoever has it, and written by that thread.
 */
final class FederateChannel extends ChannelInboundHandlerAdapter {
    private static final int TOGETHER = 1 << 14; // bytes of frames that leave as one

    private final Hub hub;
    private final Channel channel;
    private final HubAmbassador ambassador;
    private final Queue<byte[]> outgoing = new ConcurrentLinkedQueue<>();
    private final AtomicBoolean writing = new AtomicBoolean();
    private final Brake brake;
    private RecordedConnection recording = RecordedConnection.NONE;
    private volatile RemoteSink sink; // once it has connected
    private boolean greeted;
    private boolean sent; // by another hub: what it wants is to be here
    private volatile boolean ended;
    private final Pulse pulse = new Pulse();
    private FrameDecoder decoder;

    FederateChannel(Hub hub, Channel channel) {
        this.hub = hub;
        this.channel = channel;
        ambassador = new HubAmbassador(this::connect, hub.federations());
        brake = new Brake(channel, () -> sink == null ? 0 : sink.remembered(), hub.settings().queueLimit() / 2);
    }

    /** @param greatestFrame in bytes, for now */
    FrameDecoder decoder(int greatestFrame) {
        decoder = new FrameDecoder(greatestFrame, pulse, recording);
        brake.setDecoder(decoder);
        return decoder;
    }

    private RemoteSink connect(int context) {
        sink = new RemoteSink(context, ambassador.session()::federate, this::send);
        return sink;
    }

    /** Leaves a frame for the federate. From any thread. */
    private void send(byte[] frame) {
        if (ended) {
            return; // nobody takes it any more
        }
        outgoing.add(frame);
        brake.burden();
        if (!writing.get() && writing.compareAndSet(false, true)) {
            channel.eventLoop().execute(this::write);
        }
    }

    /** Small frames leave together. */
    private void write() {
        writing.set(false);
        byte[] next = outgoing.poll();
        if (next == null) {
            return;
        }
        ByteBuf together = null;
        for (; next != null; next = outgoing.poll()) {
            if (together != null && together.readableBytes() + next.length > TOGETHER) {
                write(together);
                together = null;
            }
            if (next.length > TOGETHER) {
                write(Unpooled.wrappedBuffer(next));
            } else {
                together = together == null ? channel.alloc().buffer() : together;
                together.writeBytes(next);
            }
        }
        if (together != null) {
            write(together);
        }
        pulse.say();
        channel.flush();
        limitWhatWaits();
    }

    private void write(ByteBuf frames) {
        recording.sent(frames.nioBuffer());
        channel.write(frames, channel.voidPromise());
    }

    private void limitWhatWaits() {
        ChannelOutboundBuffer unread = channel.unsafe().outboundBuffer();
        long limit = hub.settings().queueLimit();
        if (unread != null && unread.totalPendingWriteBytes() > limit || sink != null && sink.remembered() > limit) {
            lose((channel.isWritable() ? "its program takes no callbacks: " : "its process does not read: ")
                    + (limit >> 20) + " MB wait for it");
        }
    }

    /** A timer would keep a connection that has ended. */
    private void untilClosed(Future<?> timer) {
        channel.closeFuture().addListener(closed -> timer.cancel(false));
    }

    void requireGreeting(int seconds) {
        untilClosed(channel.eventLoop().schedule(() -> {
            if (!greeted && !ended) {
                refuse("it has not said what it is");
            }
        }, seconds, TimeUnit.SECONDS));
    }

    @Override
    public void channelRead(ChannelHandlerContext context, Object read) {
        try {
            if (!ended) {
                take(new FrameReader(ByteBufUtil.getBytes((ByteBuf) read)));
            }
        } finally {
            ReferenceCountUtil.release(read);
        }
    }

    @Override
    public void channelWritabilityChanged(ChannelHandlerContext context) {
        brake.relieve();
    }

    private void take(FrameReader frame) {
        if (!greeted) {
            greet(frame);
            return;
        }
        switch (frame.type()) {
            case REQUEST -> {
                int request = frame.integer();
                long begun = frame.longInteger();
                long endedUpTo = frame.longInteger();
                int service = frame.integer();
                byte[] message = frame.rest();
                serve(HubAmbassador.isLong(service), () -> {
                    progress(begun, endedUpTo);
                    answer(request, service, message);
                });
            }
            case SEND -> {
                long begun = frame.longInteger();
                long endedUpTo = frame.longInteger();
                int service = frame.integer();
                int retraction = frame.integer();
                byte[] message = frame.rest();
                serve(false, () -> {
                    progress(begun, endedUpTo);
                    serveUnderWay(service, retraction, message);
                });
            }
            case FENCE -> {
                int request = frame.integer();
                long begun = frame.longInteger();
                long endedUpTo = frame.longInteger();
                serve(false, () -> {
                    progress(begun, endedUpTo);
                    send(reply(request, null));
                });
            }
            case RESOLVE -> {
                int request = frame.integer();
                long number = frame.longInteger();
                if (sink != null) {
                    serve(false, () -> send(sink.resolve(request, number)));
                }
            }
            case RETRACTED -> {
                for (int left = frame.count(Long.BYTES + 1); left > 0; --left) {
                    retracted(frame.longInteger(), frame.flag());
                }
            }
            case PROGRESS -> {
                long begun = frame.longInteger();
                long endedUpTo = frame.longInteger();
                serve(false, () -> progress(begun, endedUpTo));
            }
            case HEARTBEAT -> {
                // that it came is what it says
            }
            case GOODBYE -> leave(frame.text());
            default -> throw new MalformedFrame("a frame of type " + frame.type() + ", which only hubs send");
        }
    }

    private void greet(FrameReader frame) {
        if (frame.type() != FrameType.HELLO || frame.integer() != Protocol.MAGIC) {
            refuse("it is no federate");
            return;
        }
        int version = frame.integer();
        if (version != Protocol.VERSION) {
            refuse("it speaks version " + version + " of the protocol, and this hub version " + Protocol.VERSION
                    + "; install the same release on both sides");
            return;
        }
        sent = frame.flag();
        greeted = true;
        recording = hub.record(channel.remoteAddress().toString());
        send(new FrameWriter(FrameType.WELCOME).integer(Protocol.VERSION).integer(hub.settings().lostAfter())
                .integer(hub.settings().greatestFrame()).end());
        if (hub.settings().lostAfter() > 0) {
            long period = TimeUnit.SECONDS.toMillis(hub.settings().lostAfter()) / Pulse.BEATS;
            untilClosed(channel.eventLoop().scheduleWithFixedDelay(this::beat, period, period, TimeUnit.MILLISECONDS));
        }
        hub.entered(this);
        channel.pipeline().replace(decoder, null, decoder(hub.settings().greatestFrame())); // takes what has come already
    }

    private void beat() {
        if (!channel.config().isAutoRead()) {
            pulse.hear(); // it is the hub that does not listen, for as long as a service takes
        }
        Pulse.Next next = pulse.beat();
        if (!ended && next == Pulse.Next.LOST) {
            lose("it has been silent for " + hub.settings().lostAfter() + " s");
        } else if (!ended && next == Pulse.Next.SAY_SOMETHING) {
            send(new FrameWriter(FrameType.HEARTBEAT).end());
        }
    }

    private void progress(long begun, long endedUpTo) {
        if (sink != null) {
            sink.progress(begun, endedUpTo);
            brake.relieve();
        }
    }

    private void retracted(long number, boolean begun) {
        if (sink != null) {
            sink.retracted(number, begun);
        }
    }

    /** Serves what may take the locks of the model: at once, or, where that may take its time, apart. */
    private void serve(boolean isLong, Runnable service) {
        if (!isLong && !hub.isServingLong()) {
            brake.serve(service);
            return;
        }
        decoder.pause(); // what comes behind it waits
        Runnable served = () -> {
            try {
                brake.serve(service);
                if (!ended) {
                    channel.eventLoop().execute(decoder::resume);
                }
            } catch (RuntimeException | Error e) {
                channel.eventLoop().execute(() -> failed(e));
            }
        };
        if (isLong) {
            hub.serveLong(served);
        } else {
            hub.serveApart(served);
        }
    }

    private void answer(int number, int service, byte[] message) {
        try {
            if (!sent && HubAmbassador.isCreation(service)) {
                hub.place();
            }
            Licence licence = HubAmbassador.licence(service);
            long since = sink == null ? 0 : sink.licences().revocations(licence);
            Object result = ambassador.serve(service, message);
            if (licence == Licence.NONE || !mayRepeat(licence, message, result)) {
                send(reply(number, result));
            } else {
                int object = licence == Licence.REGISTRATION ? (Integer) result
                        : licence.isOfObject() && !licence.isToDelete() ? handle(message) : 0;
                sink.licences().reply(number, result, licence, object, since);
            }
        } catch (Elsewhere e) {
            send(new FrameWriter(FrameType.ELSEWHERE).integer(number).text(e.address()).end());
        } catch (RTIexception e) {
            send(failure(number, e.getClass().getSimpleName(), String.valueOf(e.getMessage())));
        } catch (MalformedMessage e) {
            throw e;
        } catch (RuntimeException | Error e) {
            HubLog.fault(e);
            send(failure(number, "RTIinternalError", e.toString()));
        }
    }

    /** Whether the federate may do without asking what it has just done with success. */
    private boolean mayRepeat(Licence licence, byte[] message, Object result) throws RTIexception {
        Federate member = ambassador.session().federate();
        if (member == null || licence == Licence.DELETION) {
            return false;
        }
        if (licence == Licence.LOOKUP) {
            return !member.oversight().reportsServices; // each of them is reported
        }
        if (result != null && licence.isTimed()) {
            setNumbersAside();
        }
        // what the federation itself heeds may change what the federate may do next
        return licence.isOfObject() || !ambassador.session().call((federation, me) ->
                federation.interactions().isHeeded(handle(message)));
    }

    /** What object instance or class a message is about. */
    private static int handle(byte[] message) {
        return ByteBuffer.wrap(message).getInt();
    }

    private void setNumbersAside() throws RTIexception {
        int wanted = sink.licences().numbersWanted();
        if (wanted > 0) {
            int first = ambassador.session().call((federation, me) -> federation.retractions().setAside(wanted));
            sink.licences().addNumbers(first, wanted);
        }
    }

    /** What turns out not to be possible any more is as if it had come a moment too late. */
    private void serveUnderWay(int service, int retraction, byte[] message) {
        Licence licence = HubAmbassador.licence(service);
        if (!licence.isToSend() || sink == null || retraction != 0 && !sink.licences().use(retraction)) {
            throw new MalformedFrame("a message without a licence");
        }
        try {
            ambassador.serveUnderWay(service, retraction, message);
            if (retraction != 0) {
                setNumbersAside();
            }
        } catch (RTIexception e) {
            recording.dropped(service, message, e.getClass().getSimpleName(), String.valueOf(e.getMessage()));
        } catch (MalformedMessage e) {
            throw e;
        } catch (RuntimeException | Error e) {
            HubLog.fault(e);
        }
        if (licence.isToDelete()) {
            sink.licences().deleted(handle(message));
        }
    }

    private static byte[] reply(int number, Object result) {
        FrameWriter reply = new FrameWriter(FrameType.REPLY).integer(number).flag(false);
        Result.write(reply, result);
        return reply.end();
    }

    private static byte[] failure(int number, String exception, String text) {
        return new FrameWriter(FrameType.FAILURE).integer(number).text(exception).text(text).end();
    }

    /** The federate ends the connection. One that is still joined is lost. */
    private void leave(String reason) {
        if (ambassador.session().federate() == null) {
            close(reason);
        } else {
            lose(reason);
        }
    }

    void refuse(String reason) {
        HubLog.refused(channel, reason);
        close(reason);
    }

    private void lose(String reason) {
        if (!ended) {
            Federate member = ambassador.session().federate();
            HubLog.lost(member == null ? "a federate that is not joined" : member, channel, reason);
            close(reason);
        }
    }

    /** Ends the connection, telling the federate why. From any thread. */
    Future<?> end(String reason) {
        return channel.eventLoop().submit(() -> close(reason));
    }

    private void close(String reason) {
        if (ended) {
            return;
        }
        ended = true;
        hub.left(this);
        recording.closed(reason);
        hub.serveApart(() -> ambassador.session().abandon(reason)); // one of its services may still run
        outgoing.clear();
        channel.writeAndFlush(Unpooled.wrappedBuffer(new FrameWriter(FrameType.CLOSING).text(reason).end()))
                .addListener(ChannelFutureListener.CLOSE);
        untilClosed(channel.eventLoop().schedule(() -> channel.close(), 1, TimeUnit.SECONDS)); // it may not read any more
    }

    @Override
    public void channelInactive(ChannelHandlerContext context) {
        brake.end();
        if (greeted) {
            lose("its connection is closed");
        } else {
            close("it has gone");
        }
    }

    @Override
    public void exceptionCaught(ChannelHandlerContext context, Throwable cause) {
        failed(cause);
    }

    private void failed(Throwable cause) {
        if (greeted) {
            lose(reason(cause));
        } else if (!ended) {
            refuse(reason(cause));
        }
    }

    private String reason(Throwable cause) {
        if (cause instanceof MalformedFrame || cause instanceof MalformedMessage) {
            return "it sent " + cause.getMessage();
        }
        if (cause instanceof NotSslRecordException || cause.getCause() instanceof NotSslRecordException) {
            return "it does not use TLS";
        }
        if (cause instanceof TooLongFrameException || cause instanceof CorruptedFrameException) {
            return !greeted ? "it is no federate, or uses TLS"
                    : "it sent a frame of more than the " + hub.settings().greatestFrame() + " bytes that are taken";
        }
        return cause.getMessage() == null ? cause.toString() : cause.getMessage();
    }
}
