package tovu.local.remote;

import java.io.BufferedInputStream;
import java.io.IOException;
import java.io.InputStream;
import java.net.Socket;
import java.net.SocketTimeoutException;

/**
 * The socket that TLS is layered over. Whether a record comes can be waited for here: a time that ran out within one would
 * lose a part of it.
 */
final class SocketBelowTls extends Socket {
    private static final int ROOM = 1 << 15; // more than a record takes

    private InputStream in;

    @Override
    public synchronized InputStream getInputStream() throws IOException {
        if (in == null) {
            in = new BufferedInputStream(super.getInputStream(), ROOM);
        }
        return in;
    }

    /** Whether something comes, be it the end, within so many milliseconds. */
    boolean hasSomethingWithin(int millis) throws IOException {
        InputStream first = getInputStream();
        setSoTimeout(millis);
        try {
            first.mark(1);
            first.read();
            first.reset();
            return true;
        } catch (SocketTimeoutException e) {
            return false;
        } finally {
            setSoTimeout(0);
        }
    }
}
