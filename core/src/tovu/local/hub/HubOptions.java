package tovu.local.hub;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayDeque;
import java.util.Deque;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.Set;
import tovu.local.watch.WebServer;
import tovu.local.wire.Protocol;

/** What the command line of a hub says, and its file of settings, which has the same names. */
final class HubOptions {
    static final String HELP = """
            usage: rti1516e-hub [OPTION]...
                   rti1516e-hub --list HOST:PORT [--json] [--ca FILE [--certificate FILE --key FILE]]
            Hosts HLA federations for federates of other processes and machines.

              --listen HOST:PORT      where federates connect (127.0.0.1:15160; port 0 takes a free one)
              --certificate FILE      the hub's certificate, in PEM: connections use TLS
              --key FILE              the private key of that, in PEM
              --client-ca FILE        lets in only federates with a certificate of this authority
              --insecure              lets other machines connect without TLS
              --saves DIRECTORY       keeps what federations save in files there
              --lost-after SECONDS    a federate that is silent for so long is lost (20; 0 for never)
              --queue-limit MB        a federate that leaves so much unread, or takes no callbacks for so much, is lost (256)
              --connections NUMBER    how many there may be at once (1000)
              --greatest-message MB   a message that is greater ends its connection (64)
              --cluster SERVERS       is one of several hubs that ZooKeeper keeps together: HOST:PORT[,HOST:PORT...][/PATH]
              --name NAME             what this hub is called there (its address)
              --advertise HOST:PORT   where federates reach this hub (where it listens)
              --takeover-after SECONDS
                                      a hub that is silent for so long is dead, and others take over (3)
              --cluster-login FILE    USER:PASSWORD for ZooKeeper, in a file
              --cluster-ca FILE       connects to ZooKeeper with TLS; its certificate is of this authority, in PEM
              --cluster-identity FILE
                                      the hub's certificate for ZooKeeper and the key of that, in one file
              --web [HOST:PORT]       shows the federations on a page (without an address 127.0.0.1:15161)
              --record FILE           records what crosses, for rti1516e-replay
              --config FILE           a file of such settings: a line each, such as lost-after = 5
              --help, --version       says so and ends

              --list HOST:PORT        lists the federations of the hub whose page is there, and ends
              --json                  lists them for a program
              --ca FILE               the authority of that hub's certificate; --certificate and --key are one's own
            """;

    private static final Set<String> VALUES = Set.of("listen", "certificate", "key", "client-ca", "saves",
            "lost-after", "queue-limit", "connections", "greatest-message", "cluster", "name", "advertise",
            "takeover-after", "cluster-login", "cluster-ca", "cluster-identity", "config", "web", "list", "ca", "record");
    private static final Set<String> FLAGS = Set.of("insecure", "help", "version", "json");
    private static final Map<String, String> DEFAULTS = Map.of("web", "127.0.0.1:" + WebServer.DEFAULT_PORT, "list",
            "127.0.0.1:" + WebServer.DEFAULT_PORT);
    private static final int MEGABYTE_BITS = 20;

    /** A command line that means nothing. */
    static final class WrongOption extends Exception {
        private static final long serialVersionUID = 1;

        WrongOption(String message) {
            super(message + " (rti1516e-hub --help lists the options)");
        }
    }

    private final Map<String, String> values = new HashMap<>();

    private HubOptions() {
    }

    static HubOptions parse(String[] arguments) throws WrongOption, IOException {
        HubOptions options = new HubOptions();
        Deque<String> left = new ArrayDeque<>(List.of(arguments));
        while (!left.isEmpty()) {
            String argument = left.poll();
            String name = argument.replaceFirst("^--", "").replaceFirst("=.*", "");
            if (!argument.startsWith("--") || !VALUES.contains(name) && !FLAGS.contains(name)) {
                throw new WrongOption("unknown option '" + argument + "'");
            }
            int equals = argument.indexOf('=');
            boolean isAlone = left.isEmpty() || left.peek().startsWith("--");
            String value = equals >= 0 ? argument.substring(equals + 1) : FLAGS.contains(name) ? ""
                    : isAlone && DEFAULTS.containsKey(name) ? DEFAULTS.get(name) : left.poll();
            if (value == null || FLAGS.contains(name) && equals >= 0) {
                throw new WrongOption("option '--" + name + (value == null ? "' needs a value" : "' takes no value"));
            }
            options.values.put(name, value);
        }
        if (options.values.containsKey("config")) {
            options.addFile(Path.of(options.values.get("config")));
        }
        return options;
    }

    /** The command line counts before the file. */
    private void addFile(Path file) throws WrongOption, IOException {
        List<String> lines;
        try {
            lines = Files.readAllLines(file);
        } catch (IOException e) {
            throw new IOException("the settings '" + file + "' cannot be read (" + e + ")", e);
        }
        for (String line : lines) {
            String setting = line.replaceFirst("#.*", "").strip();
            if (setting.isEmpty()) {
                continue;
            }
            String[] parts = setting.split("\\s*=\\s*", 2);
            boolean known = parts.length == 2 ? VALUES.contains(parts[0])
                    : FLAGS.contains(parts[0]) || DEFAULTS.containsKey(parts[0]);
            if (!known || parts[0].equals("config")) {
                throw new WrongOption("'" + setting + "' in '" + file + "' is no setting");
            }
            values.putIfAbsent(parts[0], parts.length == 2 ? parts[1] : DEFAULTS.getOrDefault(parts[0], ""));
        }
    }

    boolean wantsHelp() {
        return values.containsKey("help");
    }

    boolean wantsVersion() {
        return values.containsKey("version");
    }

    boolean wantsList() {
        return values.containsKey("list");
    }

    /** The cluster that is to be listed, or null when it is a hub. */
    ClusterSettings listedCluster() throws WrongOption {
        return cluster();
    }

    /** What is to be listed. */
    String list() throws WrongOption, IOException {
        requireKey();
        if (values.containsKey("certificate") && !values.containsKey("ca")) {
            throw new WrongOption("--list needs the --ca of a hub that asks for a certificate");
        }
        return RemoteList.fetch(values.get("list"), values.containsKey("json"), file("ca"), file("certificate"),
                file("key"));
    }

    private void requireKey() throws WrongOption {
        if (values.containsKey("certificate") != values.containsKey("key")) {
            throw new WrongOption("a certificate needs its key: give --certificate and --key");
        }
    }

    HubSettings settings() throws WrongOption {
        requireKey();
        if (values.containsKey("client-ca") && !values.containsKey("certificate")) {
            throw new WrongOption("--client-ca needs --certificate and --key");
        }
        return new HubSettings(endpoint("listen", "127.0.0.1:" + Protocol.DEFAULT_PORT),
                values.containsKey("web") ? endpoint("web", null) : null, file("record"),
                file("certificate"), file("key"), file("client-ca"), values.containsKey("insecure"), file("saves"),
                number("lost-after", "20", 0, 86_400),
                (long) number("queue-limit", "256", 1, 1 << MEGABYTE_BITS) << MEGABYTE_BITS,
                number("connections", "1000", 1, 1_000_000),
                Math.min(number("greatest-message", "64", 1, 2_047), 2_047) << MEGABYTE_BITS, cluster());
    }

    private ClusterSettings cluster() throws WrongOption {
        if (!values.containsKey("cluster")) {
            for (String each : List.of("name", "advertise", "takeover-after", "cluster-login", "cluster-ca",
                    "cluster-identity")) {
                if (values.containsKey(each)) {
                    throw new WrongOption("--" + each + " needs --cluster");
                }
            }
            return null;
        }
        if (!values.get("cluster").matches("[^/]+:\\d{1,5}(/[\\w.-]+(/[\\w.-]+)*)?")) {
            throw new WrongOption("'" + values.get("cluster") + "' for cluster is not HOST:PORT[,HOST:PORT...][/PATH]");
        }
        String advertised = values.get("advertise");
        if (advertised != null && !advertised.matches(".+:\\d{1,5}")) {
            throw new WrongOption("'" + advertised + "' for advertise is not HOST:PORT");
        }
        if (values.containsKey("cluster-identity") && !values.containsKey("cluster-ca")) {
            throw new WrongOption("--cluster-identity needs --cluster-ca");
        }
        return new ClusterSettings(values.get("cluster"), values.get("name"), advertised,
                number("takeover-after", "3", 1, 3_600), file("cluster-ca"), file("cluster-identity"),
                file("cluster-login"), file("saves"));
    }

    private Endpoint endpoint(String name, String standard) throws WrongOption {
        String address = values.getOrDefault(name, standard);
        int colon = address.lastIndexOf(':');
        if (colon < 1) {
            throw new WrongOption("'" + address + "' is not HOST:PORT");
        }
        return new Endpoint(address.substring(0, colon).replaceAll("^\\[(.*)]$", "$1"),
                number("port of --" + name, address.substring(colon + 1), 0, 65_535));
    }

    private Path file(String name) {
        return values.containsKey(name) ? Path.of(values.get(name)) : null;
    }

    private int number(String name, String standard, int least, int greatest) throws WrongOption {
        String text = values.getOrDefault(name, standard);
        try {
            int number = Integer.parseInt(text);
            if (number >= least && number <= greatest) {
                return number;
            }
        } catch (NumberFormatException e) {
            // the same as a number out of range
        }
        throw new WrongOption("'" + text + "' for " + name + " is not a number from " + least + " to " + greatest);
    }
}
