package tovu.local.cluster;

import java.io.ByteArrayInputStream;
import java.io.ByteArrayOutputStream;
import java.io.DataInputStream;
import java.io.DataOutputStream;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.List;
import tovu.local.fom.ModuleSource;
import tovu.local.model.federation.FederationPlan;

/** What a federation is made of, for whoever takes it over: the texts of its modules are those that the federate read. */
final class PlanFile {
    private static final int VERSION = 1;

    private PlanFile() {
    }

    static byte[] content(FederationPlan plan) {
        ByteArrayOutputStream content = new ByteArrayOutputStream();
        try (DataOutputStream out = new DataOutputStream(content)) {
            out.writeInt(VERSION);
            put(out, plan.timeImplementation().getBytes(StandardCharsets.UTF_8));
            out.writeBoolean(plan.mim() != null);
            if (plan.mim() != null) {
                put(out, plan.mim());
            }
            out.writeInt(plan.fomModules().size());
            for (ModuleSource each : plan.fomModules()) {
                put(out, each);
            }
        } catch (IOException e) {
            throw new IllegalStateException(e); // memory takes everything
        }
        return content.toByteArray();
    }

    private static void put(DataOutputStream out, ModuleSource module) throws IOException {
        put(out, module.designator().getBytes(StandardCharsets.UTF_8));
        put(out, module.text());
    }

    private static void put(DataOutputStream out, byte[] bytes) throws IOException {
        out.writeInt(bytes.length);
        out.write(bytes);
    }

    static FederationPlan plan(String federation, byte[] content) throws IOException {
        DataInputStream in = new DataInputStream(new ByteArrayInputStream(content));
        int version = in.readInt();
        if (version != VERSION) {
            throw new IOException("it was kept by another release of the hub, in version " + version);
        }
        String time = text(in);
        ModuleSource mim = in.readBoolean() ? module(in) : null;
        List<ModuleSource> modules = new ArrayList<>();
        for (int left = in.readInt(); left > 0; --left) {
            modules.add(module(in));
        }
        return new FederationPlan(federation, modules, mim, time);
    }

    private static ModuleSource module(DataInputStream in) throws IOException {
        String designator = text(in);
        return ModuleSource.received(designator, bytes(in));
    }

    private static String text(DataInputStream in) throws IOException {
        return new String(bytes(in), StandardCharsets.UTF_8);
    }

    private static byte[] bytes(DataInputStream in) throws IOException {
        return in.readNBytes(in.readInt());
    }
}
