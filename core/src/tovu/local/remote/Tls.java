package tovu.local.remote;

import java.io.IOException;
import java.security.GeneralSecurityException;
import java.security.KeyStore;
import java.security.cert.Certificate;
import javax.net.ssl.SSLContext;
import javax.net.ssl.TrustManagerFactory;
import tovu.local.wire.Identity;

/** Whom a federate trusts and what it shows. */
final class Tls {
    private Tls() {
    }

    static SSLContext context(HubAddress hub) throws IOException, GeneralSecurityException {
        KeyStore trusted = KeyStore.getInstance(KeyStore.getDefaultType());
        trusted.load(null, null);
        int number = 0;
        for (Certificate each : Identity.certificates(hub.ca())) {
            trusted.setCertificateEntry("ca" + number++, each);
        }
        TrustManagerFactory trust = TrustManagerFactory.getInstance(TrustManagerFactory.getDefaultAlgorithm());
        trust.init(trusted);
        SSLContext context = SSLContext.getInstance("TLS");
        context.init(hub.certificate() == null ? null : Identity.of(hub.certificate(), hub.key()).getKeyManagers(),
                trust.getTrustManagers(), null);
        return context;
    }
}
