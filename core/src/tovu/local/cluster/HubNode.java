package tovu.local.cluster;

/**
 * A hub that lives: its node goes with its session.
 *
 * @param name    what it is called
 * @param address where federates reach it
 * @param load    its federations and connections
 * @param version of the program
 * @param since   when ZooKeeper got to know of it, in milliseconds since 1970
 */
record HubNode(String name, String address, int load, String version, long since) {
    static HubNode of(byte[] content, long since) {
        Fields fields = new Fields(content);
        return new HubNode(fields.text("name"), fields.text("address"), (int) fields.number("load"),
                fields.text("version"), since);
    }

    static byte[] content(String name, String address, int load, String version) {
        return new Fields().with("name", name).with("address", address).with("load", load).with("version", version)
                .content();
    }
}
