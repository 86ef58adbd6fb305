import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.IntStream;
import tovu.local.fom.ModuleSource;
import tovu.local.management.Manager;
import tovu.local.model.federation.FederationPlan;
import tovu.local.model.federation.Federations;
import tovu.local.model.federation.Placement;
import tovu.local.model.save.MemorySaves;
import tovu.local.model.federation.Session;
import tovu.local.model.port.Callback;
import tovu.local.model.port.CallbackSink;

/** Prints how much of the Java heap an object instance takes that two federates know. */
final class ObjectMemory {
    private static final int OBJECTS = 100_000;
    private static final int ATTRIBUTES = 10;

    private ObjectMemory() {
    }

    /** Tells nobody anything. */
    private static final class Silence implements CallbackSink {
        @Override
        public void post(Callback callback) {
            // not told
        }

        @Override
        public void postToConnection(Callback callback) {
            // not told
        }

        @Override
        public void dropMembership() {
            // there is nothing left
        }
    }

    public static void main(String[] arguments) throws Exception {
        Path fom = Files.createTempFile("tracks", ".xml");
        Files.writeString(fom, IntStream.range(0, ATTRIBUTES)
                .mapToObj(i -> "<attribute><name>a" + i + "</name></attribute>")
                .collect(Collectors.joining("", "<objectModel><objects><objectClass><name>HLAobjectRoot</name>"
                        + "<objectClass><name>Track</name>", "</objectClass></objectClass></objects></objectModel>")));
        Federations federations = new Federations(Manager::new, Placement.alone(name -> new MemorySaves()));
        Session owner = new Session(federations);
        owner.connect(new Silence());
        owner.createFederationExecution(new FederationPlan("tracks", List.of(ModuleSource.file(fom.toString())), null, ""));
        Files.delete(fom);
        owner.join("owner", "test", "tracks", List.of());
        Session reader = new Session(federations);
        reader.connect(new Silence());
        reader.join("reader", "test", "tracks", List.of());
        int track = owner.call((federation, federate) -> federation.lookups().objectClassHandle("Track"));
        int[] attributes = new int[ATTRIBUTES];
        for (int i = 0; i < ATTRIBUTES; ++i) {
            String name = "a" + i;
            attributes[i] = owner.call((federation, federate) -> federation.lookups().attributeHandle(track, name));
        }
        reader.call((federation, federate) -> {
            federation.declarations().subscribeObjectClass(federate, track, attributes, true, "");
            return null;
        });
        long before = used();
        owner.call((federation, federate) -> {
            federation.declarations().publishObjectClass(federate, track, attributes);
            for (int i = 0; i < OBJECTS; ++i) {
                federation.objectManagement().register(federate, track, null);
            }
            return null;
        });
        System.out.println("| object instances | attributes | federates that know them | bytes for each |");
        System.out.println("|--:|--:|--:|--:|");
        System.out.println("| " + OBJECTS + " | " + ATTRIBUTES + " | 2 | " + (used() - before) / OBJECTS + " |");
        owner.federate(); // lives until here
    }

    private static long used() throws InterruptedException {
        for (int i = 0; i < 3; ++i) {
            System.gc();
            Thread.sleep(50);
        }
        return Runtime.getRuntime().totalMemory() - Runtime.getRuntime().freeMemory();
    }
}
