import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import java.util.Objects;
import tovu.local.fom.ModuleSource;

/** What tests expect. A test is a program, which fails at the first thing that is not as expected. */
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

    static void equal(Object actual, Object expected) {
        that(Objects.equals(actual, expected), "expected " + expected + "\n but was " + actual);
    }

    static void that(boolean condition, String message) {
        if (!condition) {
            throw new AssertionError(message);
        }
    }

    /** Expects an exception of that simple name, with all those words in its text. */
    static void refuses(String exception, Case body, String... words) {
        try {
            body.run();
        } catch (Exception e) {
            that(e.getClass().getSimpleName().equals(exception), "expected " + exception + " but was " + e);
            for (String word : words) {
                that(e.getMessage().contains(word), "'" + word + "' is missing in: " + e.getMessage());
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
