package tovu.local.remote;

import java.io.IOException;
import java.nio.file.Path;
import java.security.GeneralSecurityException;
import java.security.KeyStore;
import java.security.cert.Certificate;
import javax.net.ssl.SSLContext;
import javax.net.ssl.TrustManager;
import javax.net.ssl.TrustManagerFactory;
import tovu.local.wire.Identity;

/** Whom one side of a connection trusts and what it shows. */
public final class Tls {
    private Tls() {
    }

    /**
     * @param ca          the authorities whose certificates are trusted, or null for those that Java trusts
     * @param certificate what is shown, or null for nothing
     * @param key         the private key of that
     */
    public static SSLContext context(Path ca, Path certificate, Path key) throws IOException, GeneralSecurityException {
        SSLContext context = SSLContext.getInstance("TLS");
        context.init(certificate == null ? null : Identity.of(certificate, key).getKeyManagers(),
                ca == null ? null : trusting(ca), null);
        return context;
    }

    private static TrustManager[] trusting(Path ca) throws IOException, GeneralSecurityException {
        KeyStore trusted = KeyStore.getInstance(KeyStore.getDefaultType());
        trusted.load(null, null);
        int number = 0;
        for (Certificate each : Identity.certificates(ca)) {
            trusted.setCertificateEntry("ca" + number++, each);
        }
        TrustManagerFactory trust = TrustManagerFactory.getInstance(TrustManagerFactory.getDefaultAlgorithm());
        trust.init(trusted);
        return trust.getTrustManagers();
    }
}
