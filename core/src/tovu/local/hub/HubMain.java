package tovu.local.hub;

import java.io.IOException;
import java.net.InetAddress;
import java.net.InetSocketAddress;
import java.net.UnknownHostException;

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
        requireSecurity(settings);
        Hub hub = new Hub(settings);
        InetSocketAddress address = hub.start();
        // SIGTERM and SIGINT run this; the VM's own exit status would call an orderly end a failure.
        Runtime.getRuntime().addShutdownHook(new Thread(() -> {
            hub.stop();
            Runtime.getRuntime().halt(0);
        }, "end"));
        String host = settings.host(); // the system may say the same in another way
        System.out.println("listening on " + (host.contains(":") ? "[" + host + "]" : host) + ":" + address.getPort());
        System.out.flush();
    }

    private static void requireSecurity(HubSettings settings) throws IOException {
        boolean local;
        try {
            local = InetAddress.getByName(settings.host()).isLoopbackAddress();
        } catch (UnknownHostException e) {
            throw new IOException("the address '" + settings.host() + "' to listen on is unknown", e);
        }
        if (local || settings.certificate() != null) {
            return;
        }
        if (!settings.insecure()) {
            throw new IOException("other machines may connect to " + settings.host()
                    + " only with TLS: give --certificate and --key, or --insecure to do without");
        }
        HubLog.say("warning: whoever reaches " + settings.host() + " can join and read all federations (--insecure)");
    }
}
