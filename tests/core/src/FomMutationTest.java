import hla.rti1516e.exceptions.ErrorReadingFDD;
import hla.rti1516e.exceptions.ErrorReadingMIM;
import hla.rti1516e.exceptions.InconsistentFDD;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.Random;
import java.util.Set;
import java.util.TreeSet;
import java.util.function.IntFunction;
import java.util.regex.Pattern;
import java.util.stream.IntStream;
import java.util.stream.Stream;
import tovu.local.fom.ClassNode;
import tovu.local.fom.FomReader;
import tovu.local.fom.ObjectModel;

/**
 * Whatever is done to FOM modules, reading and merging them ends soon, in a consistent model or in an exception that
 * names a file; and joining with a module does what creating with it does. Usage: FomMutationTest [rounds [seed]]; the
 * system property {@code fom.modules} names a folder of more modules to begin with.
 */
public final class FomMutationTest {
    private static final Pattern BETWEEN_TOKENS = Pattern.compile("(?=<)|(?<=>)");
    private static final String[] VALUES = {"", "NA", "-1", "0", "1", "4294967296", "1e999", "NaN", "[0..3)", "Excluded",
        "Yes", "No", "timestamp", "HLAreliable", "HLAobjectRoot", "HLAmanager", "Vehicle", "X", "position", "text",
        "\u00e9", "&#x1F600;", "&undefined;", "]]>", "<!-- -->", "<![CDATA[x]]>", "<?x y?>", "<", "/>", "\0"};

    private final Random random;
    private final List<String> originals = new ArrayList<>(List.of(TestFom.AIR, FomReader.standardMim().text()));
    private int consistent;
    private int refused;

    private FomMutationTest(long seed) throws Exception {
        random = new Random(seed);
        String folder = System.getProperty("fom.modules");
        try (Stream<Path> files = folder == null ? Stream.of() : Files.list(Path.of(folder))) {
            for (Path each : files.sorted().toList()) {
                originals.add(Files.readString(each));
            }
        }
    }

    public static void main(String[] arguments) throws Exception {
        int rounds = arguments.length > 0 ? Integer.parseInt(arguments[0]) : 500;
        long seed = arguments.length > 1 ? Long.parseLong(arguments[1]) : 20240229;
        FomMutationTest test = new FomMutationTest(seed);
        Harness harness = new Harness();
        harness.run("mutations, seed " + seed, () -> test.run(rounds));
        harness.finish();
    }

    private void run(int rounds) throws Exception {
        for (int round = 0; round < rounds; ++round) {
            String one = TestFom.file(mutant());
            String other = TestFom.file(mutant());
            try {
                tryModules(one, other);
                tryMim(one);
            } catch (Exception | StackOverflowError | AssertionError e) {
                throw new AssertionError("round " + round + ", with " + one + " and " + other, e);
            }
            Files.delete(Path.of(one));
            Files.delete(Path.of(other));
        }
        System.out.println(consistent + " consistent, " + refused + " refused");
        Harness.that(consistent > rounds / 20 && refused > rounds / 20, "the mutations hit nothing or everything");
    }

    private String mutant() {
        List<String> tokens = tokens();
        for (int left = random.nextInt(4); left >= 0; --left) {
            List<String> element = element(tokens);
            switch (random.nextInt(5)) {
                case 0 -> element.clear();
                case 1 -> element.addAll(List.copyOf(element));
                case 2 -> element.addAll(element(tokens()));
                default -> element.set(element.size() / 2, VALUES[random.nextInt(VALUES.length)]);
            }
            tokens.add("");
        }
        return String.join("", tokens);
    }

    private List<String> tokens() {
        String original = originals.get(random.nextInt(originals.size()));
        return new ArrayList<>(List.of(BETWEEN_TOKENS.split(original)));
    }

    /** From some opening tag to its closing tag; what is not well-formed ends somewhere. */
    private List<String> element(List<String> tokens) {
        int begin = random.nextInt(tokens.size());
        while (begin > 0 && !tokens.get(begin).matches("<\\w.*")) {
            --begin;
        }
        int end = begin;
        int depth = 0;
        do {
            String token = tokens.get(end++);
            depth += token.startsWith("</") ? -1 : token.matches("<\\w.*") && !token.endsWith("/>") ? 1 : 0;
        } while (depth > 0 && end < tokens.size());
        return tokens.subList(begin, end);
    }

    private void tryModules(String one, String other) throws Exception {
        for (List<String> modules : List.of(List.of(one), List.of(one, other), List.of(other, one))) {
            String created = describe(modules, List.of());
            consistent += created == null ? 0 : 1;
            refused += created == null ? 1 : 0;
            Harness.equal(describe(modules, modules), created);
            String first = describe(modules.subList(0, 1), List.of());
            if (modules.size() == 2 && first != null && describe(modules.subList(1, 2), List.of()) != null) {
                Harness.equal(describe(modules.subList(0, 1), modules.subList(1, 2)), created);
            }
        }
    }

    /** What a federation created with some modules and joined with others is made of; null if they are refused. */
    private static String describe(List<String> modules, List<String> joining) throws Exception {
        ObjectModel model = null;
        String before = null;
        try {
            model = ObjectModel.of(FomReader.standardMim(), FomReader.ofModules().readAll(modules));
            before = describe(model);
            model.extend(FomReader.ofModules().readAll(joining));
            return describe(model);
        } catch (ErrorReadingFDD | InconsistentFDD e) {
            Harness.that(modules.stream().anyMatch(e.getMessage()::contains), "no file is named: " + e);
            Harness.that(model == null || describe(model).equals(before), "what was refused changes the model");
            return null;
        }
    }

    private static void tryMim(String module) throws Exception {
        try {
            describe(ObjectModel.of(FomReader.ofMim().readMim(module), List.of()));
        } catch (ErrorReadingMIM e) {
            Harness.that(e.getMessage().contains(module), "the file is not named: " + e);
        }
    }

    private static String describe(ObjectModel model) {
        StringBuilder text = new StringBuilder().append(model.switches());
        all(model::objectClass).forEach(each -> describe(each, text).append(model.privilegeToDelete()));
        all(model::attribute).forEach(each -> text.append('\n').append(each.handle()).append(each).append(each.dataType())
                .append(each.order()).append(each.transportation()).append(each.dimensions()));
        all(model::interactionClass).forEach(each -> describe(each, text).append(each.order())
                .append(each.transportation()).append(each.dimensions()));
        all(model::dimension).forEach(each -> text.append(each).append(each.upperBound()).append(each.unspecified()));
        return text.toString();
    }

    private static StringBuilder describe(ClassNode<?, ?> theClass, StringBuilder text) {
        Set<String> names = new TreeSet<>();
        theClass.members().forEach(each -> {
            Harness.that(names.add(each.name()), theClass + " has " + each + " twice");
            Harness.that(theClass.member(each.handle()) == each, theClass + " hides " + each);
        });
        return text.append('\n').append(theClass.handle()).append(theClass).append(names);
    }

    private static <T> List<T> all(IntFunction<T> at) {
        return IntStream.iterate(1, handle -> at.apply(handle) != null, handle -> handle + 1).mapToObj(at).toList();
    }
}
