package tovu.local.watch;

import java.io.IOException;
import java.net.InetSocketAddress;
import java.util.Collection;
import java.util.function.Supplier;
import tovu.local.model.federation.Federation;

/** The page of a process without a hub: where the system property tovu.web says. */
public final class ProcessPage {
    private static boolean begun;

    private ProcessPage() {
    }

    /** Begins to show it, once, if that is wished for. A page that cannot be shown is told of, and holds nobody up. */
    public static void show(Supplier<Collection<Federation>> federations) {
        String where = System.getProperty("tovu.web");
        if (where != null && isFirst()) {
            try {
                WebServer page = new WebServer(federations, () -> null, address(where), null, false);
                System.err.println("watch this process at " + page.url());
            } catch (IOException e) {
                System.err.println("There is no page to watch this process: " + e.getMessage());
            }
        }
    }

    private static synchronized boolean isFirst() {
        boolean first = !begun;
        begun = true;
        return first;
    }

    private static InetSocketAddress address(String where) throws IOException {
        int colon = where.lastIndexOf(':');
        String port = where.substring(colon + 1);
        if (colon < 1 || !port.matches("[0-9]{1,5}") || Integer.parseInt(port) > 65_535) {
            throw new IOException("'" + where + "' in -Dtovu.web is not HOST:PORT");
        }
        InetSocketAddress address = new InetSocketAddress(where.substring(0, colon).replaceAll("^\\[(.*)]$", "$1"),
                Integer.parseInt(port));
        if (address.isUnresolved() || !address.getAddress().isLoopbackAddress()) {
            throw new IOException("'" + where + "' in -Dtovu.web is no address of this machine alone, such as"
                    + " 127.0.0.1:" + WebServer.DEFAULT_PORT + "; only a hub shows its federations to others");
        }
        return address;
    }
}
