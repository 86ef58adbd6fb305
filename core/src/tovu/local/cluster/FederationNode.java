package tovu.local.cluster;

/**
 * A federation that exists. Its node stays until it is destroyed, whatever becomes of its hub.
 *
 * @param hub                the node of the hub that has it
 * @param hubName            what that is called
 * @param epoch              goes up with each hub that gets it: whoever comes with less has lost it
 * @param timeImplementation the name of its logical time implementation
 * @param from               what the hub is called that it was taken over from; empty for none
 */
record FederationNode(String hub, String hubName, long epoch, String timeImplementation, String from) {
    static FederationNode of(byte[] content) {
        Fields fields = new Fields(content);
        return new FederationNode(fields.text("hub"), NodeName.original(fields.text("name")), fields.number("epoch"),
                NodeName.original(fields.text("time")), NodeName.original(fields.text("from")));
    }

    byte[] content() {
        return new Fields().with("hub", hub).with("name", NodeName.of(hubName)).with("epoch", epoch)
                .with("time", NodeName.of(timeImplementation)).with("from", from.isEmpty() ? "" : NodeName.of(from)).content();
    }
}
