import hla.rti1516e.exceptions.ErrorReadingFDD;
import hla.rti1516e.exceptions.ErrorReadingMIM;
import hla.rti1516e.exceptions.InconsistentFDD;
import java.io.IOException;
import java.lang.management.ManagementFactory;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Collection;
import java.util.HashSet;
import java.util.List;
import java.util.Random;
import java.util.Set;
import java.util.function.Function;
import java.util.function.IntFunction;
import java.util.regex.Matcher;
import java.util.regex.Pattern;
import java.util.stream.Stream;
import tovu.local.fom.Attribute;
import tovu.local.fom.ClassNode;
import tovu.local.fom.FomModule;
import tovu.local.fom.FomReader;
import tovu.local.fom.ObjectModel;

/**
 * Whatever is done to FOM modules, reading and merging them ends soon, in a consistent model or in an exception that
 * names the file.
 *
 * <p>Usage: FomMutationTest [rounds [seed]]; the system property {@code fom.modules} names a folder of more modules to
 * begin with.
 */
public final class FomMutationTest {
    private static final long LONGEST_NANOSECONDS = 10_000_000_000L;
    private static final byte[] MARKUP = "<>/&\"'=!?[]-;#\0\u00ff\u00c3".getBytes(StandardCharsets.ISO_8859_1);
    private static final Pattern TOKEN = Pattern.compile("<[^>]*>|[^<]+");
    private static final List<String> VALUES = List.of("", " ", "NA", "-1", "0", "1", "4294967295", "4294967296",
            "99999999999999999999", "1e999", "NaN", "0x1p3", "true", "Yes", "No", "Receive", "timestamp", "HLAreliable",
            "HLAobjectRoot", "HLAinteractionRoot", "HLAmanager", "Vehicle", "X", "position", "text", "a.b", "\u00e9",
            "&amp;", "&#x1F600;", "&undefined;", "]]>", "<!-- -->", "<![CDATA[x]]>", "<?x y?>");

    private final Random random;
    private final List<String> originals = new ArrayList<>();
    private final Path file = Files.createTempFile("mutant", ".xml");
    private final Path second = Files.createTempFile("mutant", ".xml");
    private int consistent;
    private int refused;

    private FomMutationTest(long seed) throws IOException {
        random = new Random(seed);
        originals.add(TestFom.AIR);
        try (var mim = FomReader.class.getResourceAsStream("HLAstandardMIM.xml")) {
            originals.add(new String(mim.readAllBytes(), StandardCharsets.UTF_8));
        }
        String folder = System.getProperty("fom.modules");
        if (folder != null) {
            try (Stream<Path> files = Files.list(Path.of(folder))) {
                for (Path each : files.sorted().toList()) {
                    originals.add(Files.readString(each));
                }
            }
        }
    }

    public static void main(String[] arguments) throws Exception {
        int rounds = arguments.length > 0 ? Integer.parseInt(arguments[0]) : 500;
        long seed = arguments.length > 1 ? Long.parseLong(arguments[1]) : 20240229;
        Harness harness = new Harness();
        FomMutationTest test = new FomMutationTest(seed);
        harness.run("mutations, seed " + seed, () -> test.run(rounds));
        harness.finish();
    }

    private void run(int rounds) throws Exception {
        for (int round = 0; round < rounds; ++round) {
            Files.write(file, mutant());
            Files.write(second, mutant());
            long start = processorTime();
            try {
                tryModules();
                tryMim();
            } catch (Exception | StackOverflowError | AssertionError e) {
                throw new AssertionError("round " + round + ", with " + file + " and " + second, e);
            }
            Harness.that(processorTime() - start < LONGEST_NANOSECONDS, "round " + round + " took too long");
        }
        System.out.println(consistent + " consistent, " + refused + " refused");
        Harness.that(consistent > rounds / 50 && refused > rounds / 50, "the mutations hit nothing or everything");
        Files.delete(file);
        Files.delete(second);
    }

    /** Of this thread, so that a busy machine is not taken for a reader that loops. */
    private static long processorTime() {
        return ManagementFactory.getThreadMXBean().getCurrentThreadCpuTime();
    }

    // Mutations, of bytes or of tags and what stands between them

    private byte[] mutant() {
        String original = originals.get(random.nextInt(originals.size()));
        if (random.nextInt(4) == 0) {
            return mutatedBytes(original.getBytes(StandardCharsets.UTF_8));
        }
        List<String> tokens = tokensOf(original);
        for (int left = random.nextInt(4); left >= 0; --left) {
            mutateTokens(tokens);
        }
        return String.join("", tokens).getBytes(StandardCharsets.UTF_8);
    }

    private byte[] mutatedBytes(byte[] mutant) {
        for (int left = random.nextInt(4); left >= 0 && mutant.length > 1; --left) {
            int at = random.nextInt(mutant.length);
            int length = Math.min(1 + random.nextInt(30), mutant.length - at);
            switch (random.nextInt(8)) {
                case 0 -> System.arraycopy(mutant, random.nextInt(mutant.length - length + 1), mutant, at, length);
                case 1 -> mutant = java.util.Arrays.copyOf(mutant, at);
                case 2 -> mutant[at] = (byte) random.nextInt(256);
                default -> mutant[at] = MARKUP[random.nextInt(MARKUP.length)];
            }
        }
        return mutant;
    }

    private static List<String> tokensOf(String text) {
        List<String> tokens = new ArrayList<>();
        for (Matcher matcher = TOKEN.matcher(text); matcher.find();) {
            tokens.add(matcher.group());
        }
        if (tokens.isEmpty()) {
            tokens.add("");
        }
        return tokens;
    }

    private void mutateTokens(List<String> tokens) {
        int at = random.nextInt(tokens.size());
        int[] element = elementAround(tokens, at);
        List<String> copy = List.copyOf(tokens.subList(element[0], element[1]));
        switch (random.nextInt(6)) {
            case 0 -> tokens.set(textNear(tokens, at), VALUES.get(random.nextInt(VALUES.size())));
            case 1 -> tokens.subList(element[0], element[1]).clear();
            case 2 -> tokens.addAll(element[1], copy);
            case 3 -> tokens.addAll(tagNear(tokens, random.nextInt(tokens.size())), copy);
            case 4 -> {
                List<String> other = tokensOf(originals.get(random.nextInt(originals.size())));
                int[] part = elementAround(other, random.nextInt(other.size()));
                tokens.addAll(element[1], other.subList(part[0], part[1]));
            }
            default -> tokens.set(textNear(tokens, at), tokens.get(textNear(tokens, random.nextInt(tokens.size()))));
        }
        if (tokens.isEmpty()) {
            tokens.add("");
        }
    }

    /** From the opening tag at or before a token to behind its closing tag; what is not well-formed ends somewhere. */
    private static int[] elementAround(List<String> tokens, int at) {
        int begin = at;
        while (begin > 0 && !tokens.get(begin).matches("<\\w.*")) {
            --begin;
        }
        int depth = 0;
        int end = begin;
        do {
            String token = tokens.get(end++);
            depth += token.startsWith("</") ? -1 : token.matches("(?s)<\\w.*[^/]>|<\\w>") ? 1 : 0;
        } while (depth > 0 && end < tokens.size());
        return new int[] {begin, end};
    }

    private static int textNear(List<String> tokens, int at) {
        for (int i = at; i < tokens.size(); ++i) {
            if (!tokens.get(i).startsWith("<") && !tokens.get(i).isBlank()) {
                return i;
            }
        }
        return at;
    }

    private static int tagNear(List<String> tokens, int at) {
        int i = at;
        while (i < tokens.size() - 1 && !tokens.get(i).startsWith("<")) {
            ++i;
        }
        return i;
    }

    // What must hold

    private void tryModules() throws Exception {
        List<List<Path>> choices = List.of(List.of(file), List.of(file, second), List.of(second, file));
        for (List<Path> choice : choices) {
            ObjectModel model = model(choice);
            if (model == null) {
                ++refused;
                continue;
            }
            ++consistent;
            requireConsistent(model);
            // What a model was made of agrees with it, and adds nothing.
            List<Path> twice = new ArrayList<>(choice);
            twice.addAll(choice);
            ObjectModel again = model(twice);
            Harness.that(again != null, "a module disagrees with itself");
            Harness.equal(describe(again), describe(model));
            List<FomModule> modules = new ArrayList<>();
            for (Path path : choice) {
                modules.add(FomReader.ofModules().read(path.toString()));
            }
            model.extend(modules);
            Harness.equal(describe(model), describe(again));
        }
    }

    /** Null if the modules are refused, as they may be. */
    private static ObjectModel model(List<Path> modules) throws Exception {
        List<String> designators = modules.stream().map(Path::toString).toList();
        try {
            return ObjectModel.of(FomReader.standardMim(), FomReader.ofModules().readAll(designators));
        } catch (ErrorReadingFDD | InconsistentFDD e) {
            Harness.that(designators.stream().anyMatch(e.getMessage()::contains), "the file is not named: " + e);
            return null;
        }
    }

    private void tryMim() throws Exception {
        try {
            requireConsistent(ObjectModel.of(FomReader.ofMim().readMim(file.toString()), List.of()));
        } catch (ErrorReadingMIM | InconsistentFDD e) {
            Harness.that(e.getMessage().contains(file.toString()), "the file is not named: " + e);
        }
    }

    private static void requireConsistent(ObjectModel model) {
        for (var each : all(model::objectClass)) {
            requireConsistent(each, model::objectClass, Attribute::name);
            Harness.that(each.member("HLAprivilegeToDeleteObject") == model.privilegeToDelete(), "cannot be deleted");
            for (Attribute attribute : each.members()) {
                Harness.that(model.attribute(attribute.handle()) == attribute, "an attribute's handle is another's");
                Harness.that(attribute.transportation() != null && attribute.order() != null, "undelivered");
                attribute.dimensions().forEach(dimension ->
                        Harness.that(model.dimension(dimension.name()) == dimension, "a dimension of nobody's"));
            }
        }
        for (var each : all(model::interactionClass)) {
            requireConsistent(each, model::interactionClass, parameter -> parameter.name());
            Harness.that(each.transportation() != null && each.order() != null, "undelivered");
        }
        for (var each : all(model::dimension)) {
            Harness.that(each.upperBound() >= 1 && each.upperBound() <= 0xFFFFFFFFL, "an odd bound");
        }
        model.switches();
    }

    private static <C extends ClassNode<C, M>, M> void requireConsistent(C theClass, Function<String, C> named,
            Function<M, String> nameOf) {
        Harness.that(named.apply(theClass.name()) == theClass, theClass + " is found by another's name");
        Harness.that(theClass.parent() == null || theClass.parent().children().contains(theClass), "an orphan");
        Collection<M> members = theClass.members();
        Set<String> names = new HashSet<>();
        for (M member : members) {
            Harness.that(names.add(nameOf.apply(member)), theClass + " has " + nameOf.apply(member) + " twice");
            Harness.that(theClass.member(nameOf.apply(member)) == member, theClass + " hides a member");
        }
    }

    private static <T> List<T> all(IntFunction<T> at) {
        List<T> all = new ArrayList<>();
        for (T row = at.apply(1); row != null; row = at.apply(all.size() + 1)) {
            all.add(row);
        }
        return all;
    }

    private static String describe(ObjectModel model) {
        StringBuilder text = new StringBuilder();
        all(model::objectClass).forEach(each -> text.append(each).append(each.members()).append('\n'));
        all(model::interactionClass).forEach(each -> text.append(each).append(each.members()).append(each.order())
                .append(each.transportation()).append(each.dimensions()).append('\n'));
        all(model::dimension).forEach(each -> text.append(each).append('\n'));
        return text.append(model.switches()).toString();
    }
}
