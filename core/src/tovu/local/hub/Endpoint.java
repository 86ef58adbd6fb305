package tovu.local.hub;

import java.io.IOException;
import java.net.InetAddress;
import java.net.InetSocketAddress;
import java.net.UnknownHostException;

/**
 * An address to listen on.
 *
 * @param host its name or address, an IPv6 address without brackets
 * @param port 0 for one that is free
 */
record Endpoint(String host, int port) {
    /** Whether only this machine reaches it. */
    boolean isLocal() throws IOException {
        return address().isLoopbackAddress();
    }

    InetSocketAddress socketAddress() throws IOException {
        return new InetSocketAddress(address(), port);
    }

    private InetAddress address() throws IOException {
        try {
            return InetAddress.getByName(host);
        } catch (UnknownHostException e) {
            throw new IOException("the address '" + host + "' to listen on is unknown", e);
        }
    }

    @Override
    public String toString() {
        return (host.contains(":") ? "[" + host + "]" : host) + ":" + port;
    }
}
