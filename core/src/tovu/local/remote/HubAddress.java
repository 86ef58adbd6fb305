package tovu.local.remote;

import hla.rti1516e.exceptions.InvalidLocalSettingsDesignator;
import java.nio.file.InvalidPathException;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;

/**
 * Where a hub is that an ambassador connects to, and how.
 *
 * @param host        its name or address
 * @param port        its port
 * @param ca          the file of certificates, one of which the hub's is signed by; null for a connection without TLS
 * @param certificate the file of the federate's own certificate; null for none
 * @param key         the file of the private key of that; null for none
 */
public record HubAddress(String host, int port, Path ca, Path certificate, Path key) {
    private static final String NONE = "none";
    private static final String HUB = "hub=";
    private static final String USAGE =
            "; write hub=HOST:PORT[,HOST:PORT...][;ca=FILE][;certificate=FILE;key=FILE], or hub=none for no hub";

    /**
     * What a local settings designator says. One that begins with something else than {@code hub=} is meant for another
     * infrastructure, and leaves the choice to the system properties.
     *
     * @return the hubs to try in turn: one is enough. Empty for none
     */
    public static List<HubAddress> of(String designator) throws InvalidLocalSettingsDesignator {
        if (designator.strip().startsWith(HUB)) {
            return parse(designator.strip());
        }
        String hub = System.getProperty("tovu.hub", NONE);
        List<String> settings = new ArrayList<>(List.of(HUB + hub));
        for (String name : List.of("ca", "certificate", "key")) {
            String value = System.getProperty("tovu.hub." + name);
            if (value != null && !hub.equals(NONE)) {
                settings.add(name + "=" + value);
            }
        }
        return parse(String.join(";", settings));
    }

    private static List<HubAddress> parse(String designator) throws InvalidLocalSettingsDesignator {
        String where = null;
        Path ca = null;
        Path certificate = null;
        Path key = null;
        for (String setting : designator.split(";")) {
            int equals = setting.indexOf('=');
            String name = setting.substring(0, Math.max(0, equals)).strip();
            String value = setting.substring(equals + 1).strip();
            if (value.isEmpty()) {
                throw refused(designator, "'" + setting.strip() + "' gives no value");
            }
            switch (name) {
                case "hub" -> where = value;
                case "ca" -> ca = path(designator, value);
                case "certificate" -> certificate = path(designator, value);
                case "key" -> key = path(designator, value);
                default -> throw refused(designator, "'" + setting.strip() + "' is no setting");
            }
        }
        if (NONE.equals(where)) {
            return List.of();
        }
        if ((certificate == null) != (key == null) || certificate != null && ca == null) {
            throw refused(designator, "a certificate needs its key, and the ca that the hub is known by");
        }
        List<HubAddress> hubs = new ArrayList<>();
        for (String each : where.split(",", -1)) {
            int colon = each.lastIndexOf(':');
            String host = host(each.strip());
            if (host.isEmpty()) {
                throw refused(designator, "'" + each + "' is not HOST:PORT");
            }
            hubs.add(new HubAddress(host, port(designator, each.substring(colon + 1).strip()), ca, certificate, key));
        }
        return hubs;
    }

    /** Without the brackets of an IPv6 address. */
    private static String host(String where) {
        String host = where.substring(0, Math.max(0, where.lastIndexOf(':')));
        return host.startsWith("[") && host.endsWith("]") ? host.substring(1, host.length() - 1) : host;
    }

    /** Another hub that is reached in the same way. */
    public HubAddress at(String where) {
        return new HubAddress(host(where), Integer.parseInt(where.substring(where.lastIndexOf(':') + 1)), ca, certificate,
                key);
    }

    private static Path path(String designator, String text) throws InvalidLocalSettingsDesignator {
        try {
            return Path.of(text);
        } catch (InvalidPathException e) {
            throw refused(designator, "'" + text + "' names no file here (" + e.getReason() + ")");
        }
    }

    private static int port(String designator, String text) throws InvalidLocalSettingsDesignator {
        try {
            int port = Integer.parseInt(text);
            if (port >= 1 && port <= 65_535) {
                return port;
            }
        } catch (NumberFormatException e) {
            // the same as a number that is no port
        }
        throw refused(designator, "'" + text + "' is no port");
    }

    private static InvalidLocalSettingsDesignator refused(String designator, String reason) {
        return new InvalidLocalSettingsDesignator("The local settings designator '" + designator
                + "' cannot be read: " + reason + USAGE);
    }

    boolean isSecured() {
        return ca != null;
    }

    @Override
    public String toString() {
        return (host.contains(":") ? "[" + host + "]" : host) + ":" + port;
    }
}
