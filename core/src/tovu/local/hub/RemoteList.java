package tovu.local.hub;

import java.io.IOException;
import java.io.InputStream;
import java.net.ConnectException;
import java.net.HttpURLConnection;
import java.net.MalformedURLException;
import java.net.URL;
import java.nio.charset.StandardCharsets;
import java.nio.file.Path;
import java.security.GeneralSecurityException;
import javax.net.ssl.HttpsURLConnection;
import tovu.local.remote.Tls;

/** Asks the page of a running hub what federations there are. */
final class RemoteList {
    private static final int PATIENCE_MILLIS = 5_000;

    private RemoteList() {
    }

    /**
     * @param page  the HOST:PORT of its page
     * @param json  whether for a program, and not for a person
     * @param ca    of the hub's certificate, or null where it has none
     * @param own   the certificate to show, or null
     * @param key   the private key of that
     */
    static String fetch(String page, boolean json, Path ca, Path own, Path key) throws IOException {
        try {
            HttpURLConnection connection = (HttpURLConnection) new URL((ca == null ? "http://" : "https://") + page
                    + (json ? "/api/federations" : "/api/federations.txt")).openConnection();
            if (connection instanceof HttpsURLConnection secured) {
                secured.setSSLSocketFactory(Tls.context(ca, own, key).getSocketFactory());
            }
            connection.setConnectTimeout(PATIENCE_MILLIS);
            connection.setReadTimeout(PATIENCE_MILLIS);
            if (connection.getResponseCode() != HttpURLConnection.HTTP_OK) {
                throw new IOException("it answers " + connection.getResponseCode());
            }
            try (InputStream in = connection.getInputStream()) {
                return new String(in.readAllBytes(), StandardCharsets.UTF_8);
            }
        } catch (MalformedURLException | IllegalArgumentException e) {
            throw new IOException("'" + page + "' is not HOST:PORT", e);
        } catch (ConnectException e) {
            throw new IOException("there is no page at " + page + " (" + e.getMessage()
                    + "); start the hub with --web, and give the address of that", e);
        } catch (IOException | GeneralSecurityException e) {
            throw new IOException("the page at " + page + " does not answer (" + e.getMessage()
                    + "); give the address of a hub's page, and --ca if the hub has a certificate", e);
        }
    }
}
