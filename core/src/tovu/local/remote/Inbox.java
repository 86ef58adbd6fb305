package tovu.local.remote;

import java.io.EOFException;
import java.io.IOException;
import java.nio.ByteBuffer;
import tovu.local.wire.FrameReader;
import tovu.local.wire.MalformedFrame;
import tovu.local.wire.Protocol;
import tovu.local.wire.Pulse;

/** Frames as they come from a hub, for one thread at a time. */
final class Inbox {
    private static final int ROOM = 1 << 16;

    private final HubSocket socket;
    private final Pulse pulse;
    private ByteBuffer come = ByteBuffer.allocate(ROOM).flip();
    private int greatestFrame = Protocol.GREATEST_FRAME;

    /** @param pulse hears of whatever comes, be it a part of a frame */
    Inbox(HubSocket socket, Pulse pulse) {
        this.socket = socket;
        this.pulse = pulse;
    }

    void limitFrames(int greatest) {
        greatestFrame = greatest;
    }

    /** The next frame that is here whole, or null. */
    FrameReader next() {
        if (come.remaining() < Integer.BYTES) {
            return null;
        }
        int length = nextLength();
        if (come.remaining() - Integer.BYTES < length) {
            return null;
        }
        byte[] frame = new byte[length];
        come.position(come.position() + Integer.BYTES).get(frame);
        return new FrameReader(frame);
    }

    private int nextLength() {
        int length = come.getInt(come.position());
        if (length < 1 || length > greatestFrame) {
            throw new MalformedFrame(isTlsAlert(length) ? "TLS; give the ca that it is known by"
                    : "a frame of " + length + " bytes");
        }
        return length;
    }

    /** The first bytes of a TLS record that says that something was not TLS. */
    private static boolean isTlsAlert(int length) {
        return length >> Short.SIZE == 0x1503;
    }

    /** Waits until a frame is here whole. */
    FrameReader await() throws IOException {
        FrameReader frame = next();
        for (; frame == null; frame = next()) {
            read(Long.MAX_VALUE);
        }
        return frame;
    }

    /**
     * Reads what there is, once {@link #next} has nothing more.
     *
     * @param nanos it waits no longer than that for something, if the socket can
     * @throws EOFException when the other side has ended the stream
     */
    void read(long nanos) throws IOException {
        makeRoom();
        int count = socket.read(come.array(), come.limit(), come.capacity() - come.limit(), nanos);
        if (count < 0) {
            throw new EOFException();
        }
        if (count > 0) {
            come.limit(come.limit() + count);
            pulse.hear();
        }
    }

    /** A great frame has a buffer of its own, or its memory would be kept for ever. */
    private void makeRoom() {
        int wanted = come.remaining() < Integer.BYTES ? ROOM : Math.max(ROOM, Integer.BYTES + nextLength());
        if (wanted != come.capacity()) {
            come = ByteBuffer.allocate(wanted).put(come).flip();
        } else {
            come.compact().flip();
        }
    }
}
