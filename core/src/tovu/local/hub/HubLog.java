package tovu.local.hub;

import io.netty.channel.Channel;
import tovu.local.management.Journal;

/** What a hub says on its standard error stream: one line for each thing that whoever runs it may want to know. */
public final class HubLog {
    private HubLog() {
    }

    static void refused(Channel channel, String reason) {
        Journal.add(Journal.Kind.REFUSED, "", String.valueOf(channel.remoteAddress()), reason);
        say("refused " + channel.remoteAddress() + ": " + reason);
    }

    static void lost(Object who, Channel channel, String reason) {
        say("lost " + who + " at " + channel.remoteAddress() + ": " + reason);
    }

    /** A fault of the hub's own. */
    public static void fault(Throwable fault) {
        fault.printStackTrace();
    }

    /** Names come from whoever connects: they write no lines of their own, and nothing that a terminal obeys. */
    public static void say(String line) {
        System.err.println(line.replaceAll("\\p{Cntrl}", "?"));
    }
}
