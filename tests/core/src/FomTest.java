import hla.rti1516e.exceptions.RTIexception;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.Random;
import java.util.regex.MatchResult;
import java.util.regex.Matcher;
import java.util.regex.Pattern;
import tovu.local.fom.FomModule;
import tovu.local.fom.FomReader;
import tovu.local.fom.ModuleSource;
import tovu.local.fom.ObjectModel;

/** Reading FOM modules and merging them; what is wrong with one must be told, with its name and line. */
final class FomTest {
    public static void main(String[] arguments) {
        Harness.run(FomTest::designators, FomTest::unreadable, FomTest::nothingOutsideIsLoaded, FomTest::contradictions,
                FomTest::completion, FomTest::mim, FomTest::mutants);
    }

    private static List<FomModule> read(String... modules) throws Exception {
        return FomReader.ofModules().readAll(Harness.sources(List.of(modules)));
    }

    private static ObjectModel model(String... modules) throws Exception {
        return ObjectModel.of(FomReader.standardMim(), read(modules));
    }

    private static void designators() throws Exception {
        Path folder = Files.createTempDirectory("fom modules");
        Path file = Files.copy(Path.of(Harness.AIR), folder.resolve("air \u00e9.xml"));
        for (String designator : List.of(file.toUri().toString(), "file:" + file,
                "file://localhost" + file.toUri().getRawPath(), "FILE://" + file)) {
            assert model(designator).objectClass("Vehicle") != null : designator;
        }
        for (String[] row : new String[][] {{folder.toString(), "folder"}, {"", "empty"}, {"file:%zz", "%zz"}, {"a\0b", ""}}) {
            Harness.refuses("CouldNotOpenFDD", () -> model(row[0]), row);
        }
    }

    private static void unreadable() throws Exception {
        String[][] rows = {
                {"", "line"},
                {"no XML", "line 1"},
                {"<objectModel>\n\n<objects></objectModel>", "line 3"},
                {"<html/>", "html", "objectModel"},
                {"<a>".repeat(100_000), "deep"},
                {"<?xml version=\"1.0\" encoding=\"Klingon\"?><objectModel/>", "encoding"},
        };
        for (String[] row : rows) {
            Harness.refuses("ErrorReadingFDD", () -> model(Harness.file(row[0])), row[1], row[row.length - 1]);
        }
        byte[] notUtf8 = "<objectModel>\u00e9</objectModel>".getBytes("ISO-8859-1");
        Path binary = Files.write(Files.createTempFile("fom", ".xml"), notUtf8);
        Harness.refuses("ErrorReadingFDD", () -> model(binary.toString()), "line 1", "UTF-8");
    }

    private static void nothingOutsideIsLoaded() throws Exception {
        String secret = Harness.file("secret");
        String external = "<!DOCTYPE objectModel [<!ENTITY x SYSTEM \"file://" + secret + "\">]>"
                + "<objectModel><objects><objectClass><name>HLAobjectRoot</name><objectClass><name>A&x;</name>"
                + "</objectClass></objectClass></objects></objectModel>";
        assert model(Harness.file(external)).objectClass("Asecret") == null : "an external entity was loaded";
        model(Harness.file("<!DOCTYPE objectModel SYSTEM \"http://localhost:1/x.dtd\"><objectModel/>"));
        StringBuilder laughs = new StringBuilder("<!DOCTYPE objectModel [<!ENTITY l0 \"ha\">");
        for (int i = 1; i < 30; ++i) {
            laughs.append("<!ENTITY l").append(i).append(" \"").append(("&l" + (i - 1) + ";").repeat(10)).append("\">");
        }
        Harness.refuses("ErrorReadingFDD", () -> model(Harness.file(laughs + "]><objectModel>&l29;</objectModel>")));
    }

    /** The modules of that kind: what is said of each, what it contradicts if anything, and its tables. */
    private static List<MatchResult> cases(String kind) throws Exception {
        String all = Files.readString(Path.of(System.getProperty("fom.cases")));
        List<MatchResult> cases = Pattern.compile("(?s)<case " + kind + "=\"(.*?)\"(?: against=\"(.*?)\")?>(.*?)</case>")
                .matcher(all).results().toList();
        assert !cases.isEmpty() : kind;
        return cases;
    }

    /** Whoever brings one changes nothing, be it at the creation or with a federate that joins. */
    private static void contradictions() throws Exception {
        ObjectModel joined = model(Harness.AIR);
        for (MatchResult each : cases("told")) {
            String module = Harness.module(each.group(3));
            String other = each.group(2) == null ? module : each.group(2);
            for (Harness.Case bringing : List.<Harness.Case>of(() -> model(Harness.AIR, module),
                    () -> joined.extend(read(module)))) {
                Harness.refuses("InconsistentFDD", bringing, module + "', line", other + "', line", each.group(1));
            }
            assert joined.objectClass("New") == null && joined.dimension("Z") == null : module + " was taken";
        }
        String below = Harness.module(cases("below").get(0).group(3));
        Harness.refuses("InconsistentFDD", () -> model(below, Harness.AIR), Harness.AIR + "', line", "below", "colour");
        model(Harness.AIR, Harness.AIR, Harness.module(cases("fits").get(0).group(3)));
    }

    /** What one module leaves open another one says, be it there at the creation or with a federate that joins. */
    private static void completion() throws Exception {
        String open = Harness.module(cases("open").get(0).group(3));
        for (MatchResult each : cases("gives")) {
            String more = Harness.module(each.group(3));
            ObjectModel joined = model(open);
            joined.extend(read(more));
            for (ObjectModel model : List.of(model(open, more), model(more, open), joined)) {
                var vehicle = model.objectClass("Vehicle");
                assert vehicle.members().stream().allMatch(any -> vehicle.member(any.handle()) == any) : vehicle;
                var position = vehicle.member("position");
                var report = model.interactionClass("Report");
                String made = position.order() + " " + position.transportation().hlaName() + " " + position.dimensions()
                        + " " + position.dataType() + ", " + report.order() + " " + report.dimensions() + " "
                        + report.members();
                assert made.equals(each.group(1)) : made;
            }
        }
    }

    /** A MIM may add to the standard one and lack nothing of it; the standard one uses no data type it has not. */
    private static void mim() throws Exception {
        String standard = FomReader.standardMim().text();
        String[][] rows = { // what is replaced, by what, and what is told of it
                {"HLAreportFederateLost", "Lost", "HLAreportFederateLost"},
                {"<name>HLAfederateHost", "<name>Host", "'HLAfederateHost' of 'HLAobjectRoot.HLAmanager.HLAfederate'"},
                {"HLAserviceGroup", "Group", "dimension 'HLAserviceGroup'"},
                {"<name>HLAhandle<", "<name>Handle<", "data type 'HLAhandle'"},
                {"HLAinteractionRoot", "Root", "line"},
                {"</objectModel>", "", "line"},
                {"<value>Enabled", "<value>", ""},
        };
        for (String[] row : rows) {
            String changed = Harness.file(standard.replace(row[0], row[1]));
            if (row[2].isEmpty()) {
                FomReader.ofMim().readMim(ModuleSource.file(changed));
            } else {
                Harness.refuses("ErrorReadingMIM", () -> FomReader.ofMim().readMim(ModuleSource.file(changed)), "MIM '" + changed, row[2]);
            }
        }
        Matcher used = Pattern.compile("<(?:dataType|representation)>(\\w+)<").matcher(standard);
        while (used.find()) {
            assert standard.contains("Data><name>" + used.group(1) + "<") : used.group(1) + " is not defined";
        }
    }

    /** Whatever has happened to a module, it is taken, or it is refused by its name and changes nothing. */
    private static void mutants() throws Exception {
        long seed = Long.getLong("fom.seed", 1516);
        System.out.println("seed " + seed);
        Random random = new Random(seed);
        List<String> words = List.of("", "NA", "-1", "Yes", "timestamp", "Vehicle", "position", "&x;", "<", "/>", "\0");
        List<String> original = List.of(Files.readString(Path.of(Harness.AIR)).split("(?=<)|(?<=>)"));
        int refused = 0;
        int rounds = Integer.getInteger("fom.mutants", 500);
        for (int round = 0; round < rounds; ++round) {
            List<String> tokens = new ArrayList<>(original);
            for (int left = random.nextInt(3); left >= 0; --left) {
                int begin = random.nextInt(tokens.size() - 12);
                List<String> part = tokens.subList(begin, begin + 1 + random.nextInt(12));
                switch (random.nextInt(4)) {
                    case 0 -> part.clear();
                    case 1 -> part.addAll(List.copyOf(part));
                    default -> part.set(part.size() / 2, words.get(random.nextInt(words.size())));
                }
            }
            ObjectModel joined = round % 2 == 0 ? model() : model(Harness.AIR);
            String before = joined.modules() + " " + joined.objectClass("Vehicle");
            byte[] mutant = String.join("", tokens).getBytes(StandardCharsets.UTF_8);
            try {
                joined.extend(FomReader.ofModules().readAll(List.of(ModuleSource.received("the mutant", mutant))));
            } catch (RTIexception e) {
                ++refused;
                assert e.getMessage().contains("the mutant") : e;
                assert before.equals(joined.modules() + " " + joined.objectClass("Vehicle")) : "changed by " + e;
            }
        }
        assert refused > rounds / 10 && refused < rounds : refused;
    }
}
