import hla.rti1516e.exceptions.RTIexception;
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
import tovu.local.fom.ClassNode;
import tovu.local.fom.FomReader;
import tovu.local.fom.ModuleSource;
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
    private final List<String> originals = new ArrayList<>(List.of(FomReader.standardMim().text()));
    private int consistent;
    private int refused;

    private FomMutationTest(long seed) throws Exception {
        random = new Random(seed);
        for (Path each : Files.list(Path.of(System.getProperty("fom.modules"))).sorted().toList()) {
            originals.add(Files.readString(each));
        }
    }

    public static void main(String[] arguments) {
        int rounds = arguments.length > 0 ? Integer.parseInt(arguments[0]) : 300;
        long seed = arguments.length > 1 ? Long.parseLong(arguments[1]) : 20240229;
        System.out.println("Seed " + seed);
        Harness.run(() -> new FomMutationTest(seed).run(rounds));
    }

    private void run(int rounds) throws Exception {
        for (int round = 0; round < rounds; ++round) {
            ModuleSource one = ModuleSource.received("one module", mutant());
            ModuleSource other = ModuleSource.received("another module", mutant());
            try {
                tryModules(one, other);
                tryModules(other, one);
            } catch (Exception | StackOverflowError | AssertionError e) {
                throw new AssertionError("round " + round, e);
            }
        }
        System.out.println(consistent + " consistent, " + refused + " refused");
        Harness.that(consistent > rounds / 20 && refused > rounds / 20, "the mutations hit nothing or everything");
    }

    private byte[] mutant() {
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
        return String.join("", tokens).getBytes(StandardCharsets.UTF_8);
    }

    private List<String> tokens() {
        return new ArrayList<>(List.of(BETWEEN_TOKENS.split(originals.get(random.nextInt(originals.size())))));
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

    private void tryModules(ModuleSource one, ModuleSource other) throws Exception {
        List<ModuleSource> both = List.of(one, other);
        String alone = describe(List.of(one), List.of());
        String created = describe(both, List.of());
        consistent += alone == null ? 0 : 1;
        refused += alone == null ? 1 : 0;
        Harness.equal(describe(List.of(one), List.of(one)), alone);
        Harness.equal(describe(both, both), created);
        if (alone != null && describe(List.of(other), List.of()) != null) {
            Harness.equal(describe(List.of(one), List.of(other)), created);
        }
        try {
            describe(ObjectModel.of(FomReader.ofMim().readMim(one), List.of()));
        } catch (RTIexception e) {
            Harness.that(e.getMessage().contains(one.designator()), "the module is not named: " + e);
        }
    }

    /** What a federation created with some modules and joined with others is made of; null if they are refused. */
    private static String describe(List<ModuleSource> modules, List<ModuleSource> joining) throws Exception {
        ObjectModel model = null;
        String before = null;
        try {
            model = ObjectModel.of(FomReader.standardMim(), FomReader.ofModules().readAll(modules));
            before = describe(model);
            model.extend(FomReader.ofModules().readAll(joining));
            return describe(model);
        } catch (RTIexception e) {
            Harness.that(e.getMessage().contains(" module'"), "no module is named: " + e);
            Harness.that(model == null || describe(model).equals(before), "what was refused changes the model");
            return null;
        }
    }

    private static String describe(ObjectModel model) {
        List<Object> parts = new ArrayList<>(List.of(model.switches()));
        all(model::objectClass).forEach(each -> parts.addAll(List.of(members(each), model.privilegeToDelete())));
        all(model::attribute).forEach(each -> parts.addAll(List.of(each.handle(), each, "" + each.dataType(),
                each.order(), each.transportation(), each.dimensions())));
        all(model::interactionClass).forEach(each -> parts.addAll(List.of(members(each), each.order(),
                each.transportation(), each.dimensions())));
        all(model::dimension).forEach(each -> parts.addAll(List.of(each, each.upperBound(), "" + each.unspecified())));
        return parts.toString();
    }

    private static String members(ClassNode<?, ?> theClass) {
        Set<String> names = new TreeSet<>();
        theClass.members().forEach(each -> {
            Harness.that(names.add(each.name()), theClass + " has " + each + " twice");
            Harness.that(theClass.member(each.handle()) == each, theClass + " hides " + each);
        });
        return theClass.handle() + " " + theClass + names;
    }

    private static <T> List<T> all(IntFunction<T> at) {
        return IntStream.iterate(1, handle -> at.apply(handle) != null, handle -> handle + 1).mapToObj(at).toList();
    }
}
