package tovu.local.hub;

import io.netty.buffer.ByteBuf;
import io.netty.buffer.Unpooled;
import io.netty.channel.ChannelHandlerContext;
import io.netty.handler.codec.LengthFieldBasedFrameDecoder;
import tovu.local.record.RecordedConnection;
import tovu.local.wire.Protocol;
import tovu.local.wire.Pulse;

/** Cuts what comes into frames, and lets none out while its connection is not to be read. */
final class FrameDecoder extends LengthFieldBasedFrameDecoder {
    private final Pulse pulse;
    private final RecordedConnection recording;
    private ChannelHandlerContext context;
    private int pauses;

    FrameDecoder(int greatestFrame, Pulse pulse, RecordedConnection recording) {
        super(greatestFrame, 0, Protocol.LENGTH_BYTES, 0, Protocol.LENGTH_BYTES);
        this.pulse = pulse;
        this.recording = recording;
    }

    @Override
    public void handlerAdded(ChannelHandlerContext theContext) throws Exception {
        super.handlerAdded(theContext);
        context = theContext;
    }

    @Override
    public void channelRead(ChannelHandlerContext from, Object read) throws Exception {
        pulse.hear();
        recording.received(((ByteBuf) read).nioBuffer());
        super.channelRead(from, read);
    }

    @Override
    protected Object decode(ChannelHandlerContext from, ByteBuf in) throws Exception {
        return from.channel().config().isAutoRead() ? super.decode(from, in) : null;
    }

    /** In the connection's thread, as what ends it. Whoever pauses has to resume. */
    void pause() {
        ++pauses;
        context.channel().config().setAutoRead(false);
    }

    /** Goes on with what has come already, unless somebody else has paused. */
    void resume() {
        --pauses;
        if (pauses > 0) {
            return;
        }
        context.channel().config().setAutoRead(true);
        try {
            super.channelRead(context, Unpooled.EMPTY_BUFFER);
        } catch (Exception e) {
            context.pipeline().fireExceptionCaught(e);
        }
    }
}
