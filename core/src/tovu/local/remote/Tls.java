package tovu.local.remote;

import java.io.IOException;
import java.nio.file.Path;
import java.security.GeneralSecurityException;
import java.security.KeyStore;
import java.security.cert.Certificate;
import javax.net.ssl.SSLContext;
import javax.net.ssl.TrustManager;
import javax.net.ssl.TrustManagerFactory;
import javax.net.ssl.X509ExtendedTrustManager;
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
        return context(trusting(ca), certificate, key);
    }

    /** The context of a connection to a hub on that host. */
    static SSLContext toHub(String host, Path ca, Path certificate, Path key)
            throws IOException, GeneralSecurityException {
        return context(new HubTrust(trusting(ca), host), certificate, key);
    }

    private static SSLContext context(TrustManager trust, Path certificate, Path key)
            throws IOException, GeneralSecurityException {
        SSLContext context = SSLContext.getInstance("TLS");
        context.init(certificate == null ? null : Identity.of(certificate, key).getKeyManagers(),
                new TrustManager[] {trust}, null);
        return context;
    }

    private static X509ExtendedTrustManager trusting(Path ca) throws IOException, GeneralSecurityException {
        TrustManagerFactory trust = TrustManagerFactory.getInstance(TrustManagerFactory.getDefaultAlgorithm());
        trust.init(ca == null ? null : store(ca));
        return (X509ExtendedTrustManager) trust.getTrustManagers()[0];
    }

    private static KeyStore store(Path ca) throws IOException, GeneralSecurityException {
        KeyStore trusted = KeyStore.getInstance(KeyStore.getDefaultType());
        trusted.load(null, null);
        int number = 0;
        for (Certificate each : Identity.certificates(ca)) {
            trusted.setCertificateEntry("ca" + number++, each);
        }
        return trusted;
    }
}
