package morva.tovu1516e;

import hla.rti1516e.exceptions.InvalidLogicalTime;
import java.util.List;
import tovu.local.fom.FomReader;
import tovu.local.fom.ModuleSource;
import tovu.local.model.value.Timing;
import tovu.local.wire.FrameWriter;

/** Messages of services that name files, as a hub takes them: with what the files hold. */
final class HubMessages {
    private HubMessages() {
    }

    /** @param in the message as the library made it */
    static byte[] withModules(Service service, MessageReader in) {
        FrameWriter out = FrameWriter.withoutFrame();
        for (String code : service.codes()) {
            switch (code) {
                case "S" -> out.text(in.text());
                case "URL" -> put(out, in.module(), service == Service.createFederationExecution_S_URLX_URL_S
                        ? FomReader.ofMim() : FomReader.ofModules());
                case "URLX" -> {
                    List<ModuleSource> modules = in.modules();
                    out.integer(modules.size());
                    modules.forEach(each -> put(out, each, FomReader.ofModules()));
                }
                default -> throw new IllegalArgumentException(service.name());
            }
        }
        return out.content();
    }

    private static void put(FrameWriter out, ModuleSource module, FomReader reader) {
        ModuleSource read = reader.fetch(module);
        out.text(read.designator()).flag(read.text() != null);
        if (read.text() != null) {
            out.bytes(read.text());
        } else {
            out.text(read.failure());
        }
    }

    /** Reads what that wrote. */
    static final class Reader extends MessageReader {
        private final int retraction;

        /** @param retraction the number by which the federate may retract what it sends, or 0 */
        Reader(byte[] message, int retraction) {
            super(message);
            this.retraction = retraction;
        }

        @Override
        Timing timing() throws InvalidLogicalTime {
            return new Timing(true, time(), retraction);
        }

        @Override
        ModuleSource module() {
            String designator = text();
            return octet() != 0 ? ModuleSource.received(designator, bytes())
                    : ModuleSource.unreadable(designator, text());
        }
    }
}
