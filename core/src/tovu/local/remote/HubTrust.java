package tovu.local.remote;

import java.net.Socket;
import java.security.cert.CertificateException;
import java.security.cert.CertificateParsingException;
import java.security.cert.X509Certificate;
import java.util.Collection;
import java.util.List;
import javax.net.ssl.SSLEngine;
import javax.net.ssl.SSLParameters;
import javax.net.ssl.SSLSocket;
import javax.net.ssl.X509ExtendedTrustManager;

/**
 * Trusts the hub that Java trusts and whose certificate names its host. What names it word for word is not left to Java: for its
 * answer that reads all the authorities that it knows, which takes a fifth of the handshake.
 */
final class HubTrust extends X509ExtendedTrustManager {
    private static final int DNS_NAME = 2; // as certificates number the kinds of names
    private static final int IP_ADDRESS = 7;

    private final X509ExtendedTrustManager java;
    private final String host;

    HubTrust(X509ExtendedTrustManager java, String host) {
        this.java = java;
        this.host = host;
    }

    @Override
    public void checkServerTrusted(X509Certificate[] chain, String keyExchange, Socket socket)
            throws CertificateException {
        java.checkServerTrusted(chain, keyExchange, socket);
        if (!isNamed(chain[0])) {
            SSLSocket secured = (SSLSocket) socket;
            SSLParameters parameters = secured.getSSLParameters();
            parameters.setEndpointIdentificationAlgorithm("HTTPS");
            secured.setSSLParameters(parameters);
            java.checkServerTrusted(chain, keyExchange, socket);
        }
    }

    private boolean isNamed(X509Certificate certificate) throws CertificateParsingException {
        Collection<List<?>> names = certificate.getSubjectAlternativeNames();
        if (names != null) {
            int kind = isAddress() ? IP_ADDRESS : DNS_NAME;
            for (List<?> each : names) {
                if (each.get(0).equals(kind) && host.equalsIgnoreCase(each.get(1).toString())) {
                    return true;
                }
            }
        }
        return false;
    }

    private boolean isAddress() {
        return host.indexOf(':') >= 0 || Character.isDigit(host.charAt(host.length() - 1));
    }

    @Override
    public void checkServerTrusted(X509Certificate[] chain, String keyExchange) throws CertificateException {
        throw new CertificateException("only a socket tells which host is meant");
    }

    @Override
    public void checkServerTrusted(X509Certificate[] chain, String keyExchange, SSLEngine engine)
            throws CertificateException {
        checkServerTrusted(chain, keyExchange);
    }

    @Override
    public void checkClientTrusted(X509Certificate[] chain, String keyExchange) throws CertificateException {
        throw new CertificateException("this side is the client");
    }

    @Override
    public void checkClientTrusted(X509Certificate[] chain, String keyExchange, Socket socket)
            throws CertificateException {
        checkClientTrusted(chain, keyExchange);
    }

    @Override
    public void checkClientTrusted(X509Certificate[] chain, String keyExchange, SSLEngine engine)
            throws CertificateException {
        checkClientTrusted(chain, keyExchange);
    }

    @Override
    public X509Certificate[] getAcceptedIssuers() {
        return java.getAcceptedIssuers();
    }
}
