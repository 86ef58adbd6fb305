package tovu.local.remote;

import hla.rti1516e.exceptions.ConnectionFailed;
import java.io.EOFException;
import java.io.IOException;
import java.io.InputStream;
import java.io.InterruptedIOException;
import java.io.OutputStream;
import java.net.ConnectException;
import java.net.InetAddress;
import java.net.InetSocketAddress;
import java.net.Socket;
import java.net.SocketTimeoutException;
import java.net.StandardSocketOptions;
import java.net.UnknownHostException;
import java.security.GeneralSecurityException;
import java.security.cert.CertificateException;
import java.util.concurrent.ExecutionException;
import java.util.concurrent.Future;
import java.util.concurrent.FutureTask;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.TimeoutException;
import javax.net.ssl.SSLException;
import javax.net.ssl.SSLHandshakeException;
import javax.net.ssl.SSLSocket;
import tovu.local.wire.FrameReader;
import tovu.local.wire.FrameType;
import tovu.local.wire.FrameWriter;
import tovu.local.wire.MalformedFrame;
import tovu.local.wire.Protocol;

/** The socket of a connection to a hub, with TLS layered over it if the address says so, and the first words on it. */
final class HubSocket {
    /** What the hub says when it lets a federate in. */
    record Welcome(int lostAfterSeconds, int greatestFrame) {
    }

    private final HubAddress hub;
    private final long patienceMillis; // for all until the welcome
    private final Socket plain;
    private final long deadline;
    private Socket socket;
    private boolean secure; // TLS is agreed on, but with TLS 1.3 the hub looks at the federate's certificate only now
    private volatile boolean late;

    private HubSocket(HubAddress hub, long patienceMillis) {
        this.hub = hub;
        this.patienceMillis = patienceMillis;
        deadline = System.nanoTime() + TimeUnit.MILLISECONDS.toNanos(patienceMillis);
        plain = hub.isSecured() ? new SocketBelowTls() : new Socket();
        socket = plain;
    }

    static HubSocket connect(HubAddress hub, long patienceMillis) throws ConnectionFailed {
        HubSocket made = new HubSocket(hub, patienceMillis);
        Future<?> watchdog = HubClock.INSTANCE.schedule(made::expire, patienceMillis, TimeUnit.MILLISECONDS);
        try {
            made.connect();
            return made;
        } catch (IOException | GeneralSecurityException | IllegalArgumentException e) {
            throw made.failed(e);
        } finally {
            watchdog.cancel(false);
        }
    }

    private void connect() throws IOException, GeneralSecurityException {
        InetSocketAddress address = new InetSocketAddress(resolve(), hub.port());
        plain.setOption(StandardSocketOptions.TCP_NODELAY, true);
        plain.connect(address, left());
        if (hub.isSecured()) {
            SSLSocket secured = (SSLSocket) Tls.toHub(hub.host(), hub.ca(), hub.certificate(), hub.key())
                    .getSocketFactory().createSocket(plain, hub.host(), hub.port(), true);
            secured.setEnabledProtocols(new String[] {"TLSv1.3", "TLSv1.2"});
            socket = secured;
            secured.startHandshake();
            secure = true;
        }
    }

    /** A name service that does not answer holds up no longer than a hub. */
    private InetAddress resolve() throws IOException {
        FutureTask<InetAddress> resolution = new FutureTask<>(() -> InetAddress.getByName(hub.host()));
        HubClock.WAITERS.execute(resolution);
        try {
            return resolution.get(left(), TimeUnit.MILLISECONDS);
        } catch (ExecutionException e) {
            throw new UnknownHostException(hub.host());
        } catch (TimeoutException e) {
            throw new IOException("no name service has told within " + patienceMillis / 1_000.0 + " s where it is", e);
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
            throw new InterruptedIOException("connecting was interrupted");
        }
    }

    private int left() {
        return (int) Math.max(1, TimeUnit.NANOSECONDS.toMillis(deadline - System.nanoTime()));
    }

    /** What is blocked in a socket under TLS wakes for nothing but its end. */
    private void expire() {
        late = true;
        close();
    }

    /**
     * @param nanos how long it waits for something; under TLS, when new keys come, which is once in 128 GB, until something
     *              comes behind them
     * @return how much has been read, -1 at the end
     */
    int read(byte[] to, int from, int length, long nanos) throws IOException {
        InputStream in = socket.getInputStream();
        if (nanos <= 0 && in.available() == 0 && plain.getInputStream().available() == 0) {
            return 0;
        }
        long millis = TimeUnit.NANOSECONDS.toMillis(nanos);
        int timeout = millis > Integer.MAX_VALUE ? 0 : (int) Math.max(1, millis); // 0 is for ever
        if (!(plain instanceof SocketBelowTls belowTls)) {
            plain.setSoTimeout(timeout);
        } else if (timeout != 0 && in.available() == 0 && !belowTls.hasSomethingWithin(timeout)) {
            return 0;
        }
        try {
            return in.read(to, from, length);
        } catch (SocketTimeoutException e) {
            return 0;
        }
    }

    OutputStream output() throws IOException {
        return socket.getOutputStream();
    }

    /**
     * Only the hub's welcome means that the federate is in: under TLS its certificate may still be refused.
     *
     * @param sent whether another hub has sent it here
     */
    Welcome greet(Inbox in, boolean sent) throws IOException, ConnectionFailed {
        Future<?> watchdog = HubClock.INSTANCE.schedule(this::expire, left(), TimeUnit.MILLISECONDS);
        try {
            output().write(new FrameWriter(FrameType.HELLO).integer(Protocol.MAGIC).integer(Protocol.VERSION).flag(sent)
                    .end());
            output().flush();
            FrameReader answer = in.await();
            if (answer.type() == FrameType.CLOSING) {
                throw ended(answer.text());
            }
            if (answer.type() != FrameType.WELCOME) {
                throw new MalformedFrame("a frame of type " + answer.type() + " instead of a welcome");
            }
            int version = answer.integer();
            if (version != Protocol.VERSION) {
                throw ended("it speaks version " + version + " of the protocol and this library version "
                        + Protocol.VERSION + "; install the same release on both sides");
            }
            return new Welcome(answer.integer(), answer.integer());
        } finally {
            watchdog.cancel(false);
        }
    }

    ConnectionFailed failed(Exception failure) {
        return ended(late ? "it did not answer within " + patienceMillis / 1_000.0 + " s"
                : failure instanceof MalformedFrame ? "what listens there is no hub: it sent " + failure.getMessage()
                : secure ? notAccepted(failure)
                : reason(failure));
    }

    private ConnectionFailed ended(String reason) {
        close();
        return new ConnectionFailed("The hub at " + hub + " cannot be used: " + reason);
    }

    private static String notAccepted(Exception failure) {
        return "it does not accept this federate's certificate, or the lack of one (" + failure.getMessage()
                + "); give certificate and key";
    }

    static String reason(Exception failure) {
        if (failure instanceof UnknownHostException) {
            return "the host is unknown";
        }
        if (failure instanceof ConnectException) {
            return "nobody listens there (" + failure.getMessage() + "); start rti1516e-hub, or correct the address";
        }
        if (failure instanceof SocketTimeoutException) {
            return "it did not answer in time";
        }
        if (failure instanceof EOFException) {
            return "it closed the connection; if it listens with a certificate, give the ca that it is known by";
        }
        if (failure instanceof SSLException && failure.getMessage() != null
                && failure.getMessage().startsWith("Unsupported or unrecognized")) {
            return "it does not speak TLS; leave out the ca, or start the hub with a certificate";
        }
        if (failure instanceof SSLHandshakeException && failure.getCause() instanceof CertificateException) {
            return "its certificate is not accepted (" + failure.getMessage() + "); give the ca that it is signed by";
        }
        if (failure instanceof SSLException && String.valueOf(failure.getMessage()).contains("alert: ")) {
            return notAccepted(failure);
        }
        return failure.getMessage() == null ? failure.toString() : failure.getMessage();
    }

    /** Closes what lies below TLS: to say goodbye in TLS could wait for a hub that does not read. */
    void close() {
        try {
            plain.close();
        } catch (IOException e) {
            // it is as good as closed
        }
    }
}
