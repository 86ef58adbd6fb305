package tovu.local.watch;

import com.sun.net.httpserver.HttpExchange;
import com.sun.net.httpserver.HttpServer;
import com.sun.net.httpserver.HttpsConfigurator;
import com.sun.net.httpserver.HttpsParameters;
import com.sun.net.httpserver.HttpsServer;
import java.io.IOException;
import java.io.InputStream;
import java.io.OutputStream;
import java.net.InetAddress;
import java.net.InetSocketAddress;
import java.nio.charset.StandardCharsets;
import java.util.Collection;
import java.util.Map;
import java.util.concurrent.Executors;
import java.util.concurrent.Semaphore;
import java.util.function.Supplier;
import javax.net.ssl.SSLContext;
import javax.net.ssl.SSLParameters;
import tovu.local.model.federation.Federation;

/** Shows the federations of this process, as a page and as figures. Nothing can be changed from there. */
public final class WebServer {
    public static final int DEFAULT_PORT = 15_161;
    private static final int PAGES = 32; // that may be open at once
    private static final int THREADS = PAGES + 8;
    private static final Map<String, String> FILES = Map.of("/", "text/html", "/watch.js", "text/javascript",
            "/watch.css", "text/css", "/icon.svg", "image/svg+xml");

    private final Watch watch;
    private final HttpServer server;
    private final Semaphore places = new Semaphore(PAGES);
    private final boolean localOnly;
    private final String scheme;

    /**
     * @param cluster     gives what this process is a part of at the moment, without waiting for anything, or null
     * @param address     where it listens
     * @param tls         with what certificate, or null for no TLS
     * @param clientKnown whether a browser, too, has to show a certificate that is trusted
     */
    public WebServer(Supplier<Collection<Federation>> federations, Supplier<ClusterView> cluster,
            InetSocketAddress address, SSLContext tls, boolean clientKnown) throws IOException {
        if (System.getProperty("sun.net.httpserver.maxReqTime") == null) {
            System.setProperty("sun.net.httpserver.maxReqTime", "10"); // seconds; else a request may take for ever
        }
        try {
            server = tls == null ? HttpServer.create(address, 0) : HttpsServer.create(address, 0);
        } catch (IOException e) {
            throw new IOException("cannot show a page on " + address.getHostString() + ":" + address.getPort() + " ("
                    + e.getMessage() + ")", e);
        }
        if (server instanceof HttpsServer secured) {
            secured.setHttpsConfigurator(new HttpsConfigurator(tls) {
                @Override
                public void configure(HttpsParameters parameters) {
                    SSLParameters ssl = getSSLContext().getDefaultSSLParameters();
                    ssl.setProtocols(new String[] {"TLSv1.3", "TLSv1.2"});
                    ssl.setNeedClientAuth(clientKnown);
                    parameters.setSSLParameters(ssl);
                }
            });
        }
        localOnly = tls == null && address.getAddress().isLoopbackAddress();
        scheme = tls == null ? "http" : "https";
        watch = new Watch(federations, cluster);
        server.setExecutor(Executors.newFixedThreadPool(THREADS, task -> {
            Thread thread = new Thread(task, "web");
            thread.setDaemon(true);
            return thread;
        }));
        server.createContext("/", exchange -> {
            try (exchange) {
                answer(exchange);
            }
        });
        server.start();
    }

    /** Where the page is. */
    public String url() {
        InetAddress host = server.getAddress().getAddress();
        String text = host.getHostAddress();
        return scheme + "://" + (text.contains(":") ? "[" + text + "]" : text) + ":" + server.getAddress().getPort()
                + "/";
    }

    private void answer(HttpExchange exchange) throws IOException {
        String path = exchange.getRequestURI().getPath();
        if (!exchange.getRequestMethod().equals("GET")) {
            exchange.getResponseHeaders().set("Allow", "GET");
            send(exchange, 405, "text/plain", "This can only be read: GET\n");
        } else if (localOnly && !isLocal(exchange.getRequestHeaders().getFirst("Host"))) {
            send(exchange, 403, "text/plain", "This is for this machine only, by the name of localhost\n");
        } else if (FILES.containsKey(path)) {
            send(exchange, 200, FILES.get(path) + "; charset=utf-8", file(path.equals("/") ? "/watch.html" : path));
        } else {
            switch (path) {
                case "/healthz" -> send(exchange, 200, "text/plain", "ok\n");
                case "/metrics" -> send(exchange, 200, Metrics.CONTENT_TYPE, Metrics.of(watch.latest()));
                case "/api/federations" ->
                    send(exchange, 200, "application/json", StateJson.of(watch.latest()) + "\n");
                case "/api/federations.txt" ->
                    send(exchange, 200, "text/plain; charset=utf-8", StateText.of(watch.latest()));
                case "/events" -> follow(exchange);
                default -> send(exchange, 404, "text/plain", "There is nothing here; the page is at /\n");
            }
        }
    }

    /** A page from elsewhere whose name has come to mean this machine must not read what is here. */
    private static boolean isLocal(String host) {
        return host == null || host.matches("(localhost|127\\.[0-9.]+|\\[::1])(:[0-9]+)?");
    }

    private static byte[] file(String name) throws IOException {
        try (InputStream in = WebServer.class.getResourceAsStream(name.substring(1))) {
            return in.readAllBytes();
        }
    }

    private static void send(HttpExchange exchange, int status, String type, String body) throws IOException {
        send(exchange, status, type, body.getBytes(StandardCharsets.UTF_8));
    }

    private static void send(HttpExchange exchange, int status, String type, byte[] body) throws IOException {
        head(exchange, type);
        exchange.sendResponseHeaders(status, body.length);
        exchange.getResponseBody().write(body);
    }

    private static void head(HttpExchange exchange, String type) {
        exchange.getResponseHeaders().set("Content-Type", type);
        exchange.getResponseHeaders().set("Cache-Control", "no-store");
        exchange.getResponseHeaders().set("X-Content-Type-Options", "nosniff");
        exchange.getResponseHeaders().set("Content-Security-Policy",
                "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; connect-src 'self';"
                        + " base-uri 'none'; form-action 'none'; frame-ancestors 'none'");
    }

    /** Server-sent events: first what the charts need of the past, then each sample as it comes. */
    private void follow(HttpExchange exchange) throws IOException {
        if (!places.tryAcquire()) {
            send(exchange, 503, "text/plain", PAGES + " pages are open already; close one\n");
            return;
        }
        try {
            head(exchange, "text/event-stream");
            exchange.sendResponseHeaders(200, 0);
            OutputStream out = exchange.getResponseBody();
            event(out, "history", watch.history());
            for (Sample sample = watch.latest();; sample = watch.after(sample)) {
                event(out, "state", StateJson.of(sample));
            }
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
        } finally {
            places.release();
        }
    }

    private static void event(OutputStream out, String name, String data) throws IOException {
        out.write(("event: " + name + "\ndata: " + data + "\n\n").getBytes(StandardCharsets.UTF_8));
        out.flush();
    }
}
