package tovu.local.hub;

import java.io.IOException;
import java.net.InetSocketAddress;
import java.security.GeneralSecurityException;
import morva.tovu1516e.HubAmbassador;
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
                System.out.print(options.list());
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
        if (settings.saves() != null) {
            System.setProperty(SaveFolder.PROPERTY, settings.saves().toString()); // before anything else looks at it
        }
        SaveFolder.openConfigured();
        Hub hub = new Hub(settings);
        InetSocketAddress address = hub.start();
        WebServer page = settings.web() == null ? null : page(settings);
        // SIGTERM and SIGINT run this; the VM's own exit status would call an orderly end a failure.
        Runtime.getRuntime().addShutdownHook(new Thread(() -> {
            hub.stop();
            Runtime.getRuntime().halt(0);
        }, "end"));
        if (page != null) {
            System.out.println("page at " + page.url());
        }
        // the system may say the same host in another way
        System.out.println("listening on " + new Endpoint(settings.listen().host(), address.getPort()));
        System.out.flush();
    }

    /** Whoever needs a certificate to join needs one to look on. */
    private static WebServer page(HubSettings settings) throws IOException {
        try {
            return new WebServer(HubAmbassador.federations()::all, settings.web().socketAddress(),
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
