package tovu.local.cluster;

/**
 * A hub that lives: its node goes with its session.
 *
 * @param name    what it is called
 * @param address where federates reach it
 * @param load    its federations and connections
 * @param version of the program
 */
record HubNode(String name, String address, int load, String version) {
    static HubNode of(byte[] content) {
        Fields fields = new Fields(content);
        return new HubNode(fields.text("name"), fields.text("address"), (int) fields.number("load"),
                fields.text("version"));
    }

    byte[] content() {
        return new Fields().with("name", name).with("address", address).with("load", load).with("version", version)
                .content();
    }
}
