import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Objects;

/** Runs named cases and counts them; the first failure of a case ends that case and no other. */
final class Harness {
    interface Case {
        void run() throws Exception;
    }

    private final List<String> failures = new ArrayList<>();
    private int passed;

    void run(String name, Case body) {
        try {
            body.run();
            ++passed;
        } catch (Exception | AssertionError e) {
            failures.add(name);
            System.out.println("FAILED " + name);
            e.printStackTrace(System.out);
        }
    }

    /** Prints the counts and ends the process with 1 when a case failed or none ran. */
    void finish() {
        System.out.println(passed + " passed, " + failures.size() + " failed");
        if (!failures.isEmpty() || passed == 0) {
            System.exit(1);
        }
    }

    static void equal(Object actual, Object expected) {
        if (!Objects.equals(actual, expected)) {
            throw new AssertionError("expected " + expected + "\n but was " + actual);
        }
    }

    static void that(boolean condition, String message) {
        if (!condition) {
            throw new AssertionError(message);
        }
    }

    /** Expects an exception of that simple name, with all those words in its text. */
    static void refuses(String exception, Case body, String... words) throws Exception {
        try {
            body.run();
        } catch (Exception e) {
            that(e.getClass().getSimpleName().equals(exception), "expected " + exception + " but was " + e);
            for (String word : words) {
                that(e.getMessage().contains(word), "'" + word + "' is missing in: " + e.getMessage());
            }
            return;
        }
        throw new AssertionError("expected " + exception + Arrays.toString(words));
    }
}
