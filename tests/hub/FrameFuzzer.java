import java.io.DataInputStream;
import java.io.EOFException;
import java.io.IOException;
import java.io.OutputStream;
import java.net.InetAddress;
import java.net.ServerSocket;
import java.net.Socket;
import java.util.ArrayList;
import java.util.List;
import java.util.Random;

/**
 * Records the frames of a real session with a hub, and sends them again and again, each time with some that are changed.
 * A session has to end with a frame that says why, or be answered. FrameFuzzer HUB SECONDS PLAYER FOM [SEED]
 */
final class FrameFuzzer {
    private static final byte CLOSING = 2;
    private static final int[] HOSTILE = {-1, 0, 1, 0x7FFFFFFF, 0x80000000, 0x10000, 0x4000000, 0x40000001};

    private final int port;
    private final Random random;

    private FrameFuzzer(int port, long seed) {
        this.port = port;
        random = new Random(seed);
    }

    public static void main(String[] arguments) throws Exception {
        long seed = arguments.length > 4 ? Long.parseLong(arguments[4]) : System.nanoTime();
        FrameFuzzer fuzzer = new FrameFuzzer(Integer.parseInt(arguments[0].replaceFirst(".*:", "")), seed);
        List<byte[]> frames = fuzzer.record(arguments[2], arguments[3]);
        long end = System.nanoTime() + Long.parseLong(arguments[1]) * 1_000_000_000L;
        int sessions = 0;
        int reasons = 0;
        for (; System.nanoTime() < end; ++sessions) {
            reasons += fuzzer.session(frames) ? 1 : 0;
        }
        System.out.println("fuzzed with seed " + seed + ": " + frames.size() + " frames, " + sessions + " sessions, "
                + reasons + " ended by the hub with a reason");
        if (reasons == 0) {
            throw new AssertionError("the hub takes everything");
        }
    }

    /** What a federate sends that lies between itself and the hub. */
    private List<byte[]> record(String player, String fom) throws Exception {
        try (ServerSocket server = new ServerSocket(0, 1, InetAddress.getLoopbackAddress())) {
            Process federate = new ProcessBuilder(player).redirectOutput(ProcessBuilder.Redirect.DISCARD).start();
            try (OutputStream lines = federate.getOutputStream()) {
                lines.write(("connect hub=127.0.0.1:" + server.getLocalPort() + "\ncreate " + fom + "\njoin fuzzed\n"
                        + "person\nregulate\nconstrain\ngreet 3\nadvance 5\nsave x\nresign\ndisconnect\n").getBytes());
            }
            List<byte[]> frames = new ArrayList<>();
            try (Socket there = server.accept(); Socket hub = new Socket("127.0.0.1", port)) {
                new Thread(() -> {
                    try {
                        hub.getInputStream().transferTo(there.getOutputStream());
                    } catch (IOException e) {
                        // the session is over
                    }
                }).start();
                DataInputStream in = new DataInputStream(there.getInputStream());
                for (;;) {
                    byte[] frame = in.readNBytes(in.readInt());
                    frames.add(frame);
                    hub.getOutputStream().write(framed(frame, frame.length));
                }
            } catch (EOFException e) {
                return frames;
            } finally {
                federate.waitFor();
            }
        }
    }

    private static byte[] framed(byte[] frame, int length) {
        byte[] framed = new byte[4 + frame.length];
        put(framed, 0, length);
        System.arraycopy(frame, 0, framed, 4, frame.length);
        return framed;
    }

    private static void put(byte[] to, int at, int value) {
        for (int i = 0; i < 4 && at + i < to.length; ++i) {
            to[at + i] = (byte) (value >> 8 * (3 - i));
        }
    }

    /** @return whether the hub has said why it ends the connection */
    private boolean session(List<byte[]> frames) throws IOException {
        try (Socket hub = new Socket("127.0.0.1", port)) {
            hub.setSoTimeout(10_000);
            try {
                OutputStream out = hub.getOutputStream();
                int changed = 1 + random.nextInt(frames.size() * 2);
                for (int i = 0; i < frames.size(); ++i) {
                    boolean asIs = i == 0 && random.nextInt(8) != 0 || random.nextInt(frames.size()) >= changed;
                    out.write(asIs ? framed(frames.get(i), frames.get(i).length) : mutated(frames.get(i)));
                }
                hub.shutdownOutput();
            } catch (IOException e) {
                // it has ended the connection already
            }
            DataInputStream in = new DataInputStream(hub.getInputStream());
            boolean said = false;
            try {
                for (;;) {
                    said = in.readNBytes(in.readInt())[0] == CLOSING;
                }
            } catch (java.net.SocketTimeoutException e) {
                throw new AssertionError("the hub leaves a connection open that has ended", e);
            } catch (IOException e) {
                return said;
            }
        }
    }

    private byte[] mutated(byte[] original) {
        byte[] frame = original.clone();
        switch (random.nextInt(5)) {
            case 0 -> frame[random.nextInt(frame.length)] ^= (byte) (1 << random.nextInt(8));
            case 1 -> put(frame, random.nextInt(frame.length), HOSTILE[random.nextInt(HOSTILE.length)]);
            case 2 -> frame = java.util.Arrays.copyOf(frame, random.nextInt(frame.length));
            case 3 -> frame[0] = (byte) random.nextInt(20);
            default -> {
                return framed(frame, HOSTILE[random.nextInt(HOSTILE.length)]);
            }
        }
        return framed(frame, frame.length);
    }
}
