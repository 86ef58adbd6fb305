package tovu.local.hub;

import java.io.IOException;
import java.net.InetSocketAddress;
import java.security.GeneralSecurityException;
import java.util.ServiceConfigurationError;
import java.util.ServiceLoader;
import tovu.local.remote.Tls;
import tovu.local.saves.SaveFolder;
import tovu.local.watch.WebServer;

/** The command rti1516e-hub. */
public final class HubMain {
    private static final int WRONG_USE = 2;

    private HubMain() {
    }

    public static void main(String[] arguments) {
        try {
            HubOptions options = HubOptions.parse(arguments);
            if (options.wantsHelp()) {
                System.out.print(HubOptions.HELP);
            } else if (options.wantsVersion()) {
                System.out.println("rti1516e-hub " + version());
            } else if (options.wantsList()) {
                ClusterSettings cluster = options.listedCluster();
                System.out.print(cluster == null ? options.list() : provided(() -> provider().list(cluster)));
            } else {
                run(options.settings());
            }
        } catch (HubOptions.WrongOption | IOException e) {
            System.err.println("rti1516e-hub: " + e.getMessage());
            System.exit(WRONG_USE);
        }
    }

    private static String version() {
        String version = HubMain.class.getPackage().getImplementationVersion();
        return version == null ? "(not installed)" : version;
    }

    private static void run(HubSettings settings) throws IOException {
        requireSecurity(settings, settings.listen(), "can join and read all federations");
        if (settings.web() != null) {
            requireSecurity(settings, settings.web(), "sees all federations");
        }
        Hub hub = new Hub(settings, cluster(settings));
        InetSocketAddress address = hub.start();
        WebServer page = settings.web() == null ? null : page(settings, hub);
        // the system may say the same host in another way
        String listening = new Endpoint(settings.listen().host(), address.getPort()).toString();
        hub.enterCluster(listening);
        // SIGTERM and SIGINT run this; the VM's own exit status would call an orderly end a failure.
        Runtime.getRuntime().addShutdownHook(new Thread(() -> {
            hub.stop();
            Runtime.getRuntime().halt(0);
        }, "end"));
        if (page != null) {
            System.out.println("page at " + page.url());
        }
        System.out.println("listening on " + listening);
        System.out.flush();
    }

    private static Cluster cluster(HubSettings settings) throws IOException {
        if (settings.cluster() == null) {
            if (settings.saves() != null) {
                System.setProperty(SaveFolder.PROPERTY, settings.saves().toString()); // before anything else looks at it
            }
            SaveFolder.openConfigured();
            return new Alone();
        }
        return provided(() -> provider().find(settings.cluster()));
    }

    private static Cluster.Provider provider() throws IOException {
        return ServiceLoader.load(Cluster.Provider.class).findFirst().orElseThrow(() ->
                new IOException("this hub was built without what --cluster needs: rti1516e-hub-cluster.jar is missing"));
    }

    private interface Work<R> {
        R run() throws IOException;
    }

    private static <R> R provided(Work<R> work) throws IOException {
        try {
            return work.run();
        } catch (NoClassDefFoundError | ServiceConfigurationError e) {
            throw new IOException("--cluster needs the packages libcurator-framework-java, libzookeeper-java and "
                    + "libslf4j-java (" + e.getMessage() + ")", e);
        }
    }

    /** Whoever needs a certificate to join needs one to look on. */
    private static WebServer page(HubSettings settings, Hub hub) throws IOException {
        try {
            return new WebServer(hub.federations()::all, hub::clusterView, settings.web().socketAddress(),
                    settings.certificate() == null ? null
                            : Tls.context(settings.clientCa(), settings.certificate(), settings.key()),
                    settings.clientCa() != null);
        } catch (GeneralSecurityException e) {
            throw new IOException(e.getMessage(), e);
        }
    }

    private static void requireSecurity(HubSettings settings, Endpoint where, String what) throws IOException {
        if (where.isLocal() || settings.certificate() != null) {
            return;
        }
        if (!settings.insecure()) {
            throw new IOException("other machines may connect to " + where.host()
                    + " only with TLS: give --certificate and --key, or --insecure to do without");
        }
        HubLog.say("warning: whoever reaches " + where + " " + what + " (--insecure)");
    }
}
