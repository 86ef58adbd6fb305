import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import tovu.local.fom.ModuleSource;

/** What tests share. A test is a program that runs with assertions enabled, and fails at the first that does not hold. */
final class Harness {
    interface Case {
        void run() throws Exception;
    }

    static final String AIR = System.getProperty("fom.modules") + "/Air.xml";

    static void run(Case... cases) {
        try {
            for (Case each : cases) {
                each.run();
            }
        } catch (Exception | AssertionError e) {
            e.printStackTrace(System.out);
            System.exit(1);
        }
    }

    /** Expects an exception of that simple name, with all those words in its text. */
    static void refuses(String exception, Case body, String... words) {
        try {
            body.run();
        } catch (Exception e) {
            assert e.getClass().getSimpleName().equals(exception) : "expected " + exception + " but was " + e;
            for (String word : words) {
                assert e.getMessage().contains(word) : "'" + word + "' is missing in: " + e.getMessage();
            }
            return;
        }
        throw new AssertionError("expected " + exception + String.join(", ", words));
    }

    /** The path of a new file with that text. */
    static String file(String text) throws Exception {
        Path path = Files.createTempFile("fom", ".xml");
        path.toFile().deleteOnExit();
        return Files.writeString(path, text).toString();
    }

    /** Modules that are read from files. */
    static List<ModuleSource> sources(List<String> designators) {
        return designators.stream().map(ModuleSource::file).toList();
    }

    /** The path of an object model with just those tables. */
    static String module(String tables) throws Exception {
        return file("<objectModel>\n" + tables + "\n</objectModel>");
    }
}
