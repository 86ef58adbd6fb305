import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import java.util.regex.Matcher;
import java.util.regex.Pattern;
import tovu.local.fom.FomReader;
import tovu.local.fom.ModuleSource;
import tovu.local.fom.ObjectModel;

/** Reading FOM modules and merging them; what is wrong with one must be told, with its name and line. */
final class FomTest {
    private static final String ROOT = "<objects><objectClass><name>HLAobjectRoot</name>%s</objectClass></objects>";
    private static final String VEHICLE = String.format(ROOT, "<objectClass><name>Vehicle</name>%s</objectClass>");
    private static final String NEW = String.format(ROOT, "<objectClass><name>New</name>%s</objectClass>");
    private static final String REPORT = "<interactions><interactionClass><name>HLAinteractionRoot</name>"
            + "<interactionClass><name>Report</name>%s</interactionClass></interactionClass></interactions>";

    public static void main(String[] arguments) {
        Harness harness = new Harness();
        harness.run("designators", FomTest::designators);
        harness.run("unreadable", FomTest::unreadable);
        harness.run("nothing outside is loaded", FomTest::nothingOutsideIsLoaded);
        harness.run("contradictions", FomTest::contradictions);
        harness.run("completion", FomTest::completion);
        harness.run("mim", FomTest::mim);
        harness.finish();
    }

    private static ObjectModel model(String... modules) throws Exception {
        return ObjectModel.of(FomReader.standardMim(), FomReader.ofModules().readAll(TestFom.sources(List.of(modules))));
    }

    private static void designators() throws Exception {
        Path folder = Files.createTempDirectory("fom modules");
        Path file = Files.writeString(folder.resolve("air \u00e9.xml"), TestFom.AIR);
        for (String designator : List.of(file.toUri().toString(), "file:" + file,
                "file://localhost" + file.toUri().getRawPath(), "FILE://" + file)) {
            Harness.that(model(designator).objectClass("Vehicle") != null, designator);
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
            Harness.refuses("ErrorReadingFDD", () -> model(TestFom.file(row[0])), row[1], row[row.length - 1]);
        }
        byte[] notUtf8 = "<objectModel>\u00e9</objectModel>".getBytes("ISO-8859-1");
        Path binary = Files.write(Files.createTempFile("fom", ".xml"), notUtf8);
        Harness.refuses("ErrorReadingFDD", () -> model(binary.toString()), "line 1", "UTF-8");
    }

    private static void nothingOutsideIsLoaded() throws Exception {
        String secret = TestFom.file("secret");
        String external = "<!DOCTYPE objectModel [<!ENTITY x SYSTEM \"file://" + secret + "\">]>"
                + "<objectModel>" + NEW.replace("New", "A&x;").replace("%s", "") + "</objectModel>";
        Harness.that(model(TestFom.file(external)).objectClass("Asecret") == null, "an external entity was loaded");
        model(TestFom.file("<!DOCTYPE objectModel SYSTEM \"http://localhost:1/x.dtd\"><objectModel/>"));
        StringBuilder laughs = new StringBuilder("<!DOCTYPE objectModel [<!ENTITY l0 \"ha\">");
        for (int i = 1; i < 30; ++i) {
            laughs.append("<!ENTITY l").append(i).append(" \"").append(("&l" + (i - 1) + ";").repeat(10)).append("\">");
        }
        Harness.refuses("ErrorReadingFDD", () -> model(TestFom.file(laughs + "]><objectModel>&l29;</objectModel>")));
    }

    /** Such as "dimensions/dimension name=X upperBound=7": elements in each other, and what the innermost contains. */
    private static String x(String elements, String... inside) {
        String[] words = elements.split(" ");
        String text = String.join("", inside);
        for (int i = words.length - 1; i > 0; --i) {
            text = words[i].replaceFirst("(.*?)=(.*)", "<$1>$2</$1>") + text;
        }
        String[] path = words[0].split("/");
        for (int i = path.length - 1; i >= 0; --i) {
            text = "<" + path[i] + ">" + text + "</" + path[i] + ">";
        }
        return text;
    }

    /** A module beside the common one, what must be told of it, and what it contradicts if it is not wrong by itself. */
    private static void contradictions() throws Exception {
        String air = TestFom.file(TestFom.AIR);
        String colour = x("attribute name=colour");
        String car = VEHICLE.formatted(x("objectClass name=Car", colour));
        String[][] rows = {
                {VEHICLE.formatted(colour), "position", air},
                {VEHICLE.formatted(x("attribute name=position order=Receive") + colour), "order", air},
                {VEHICLE.formatted(x("attribute name=position transportation=Radio") + colour), "Radio", air},
                {VEHICLE.formatted(x("attribute name=position", x("dimensions dimension=X")) + colour), "[X, Y]", air},
                {VEHICLE.formatted(x("attribute name=position") + x("attribute name=colour dataType=Red")), "Red", air},
                {REPORT.formatted("<order>Receive</order>"), "order", air},
                {REPORT.formatted(x("parameter name=other")), "other", air},
                {ROOT.formatted(x("attribute name=a")), "[a]", "HLAstandardMIM"},
                {x("dimensions/dimension name=X upperBound=7"), "'X'", air},
                {x("dimensions/dimension name=Y value=[0..4)"), "[0..4)", air},
                {x("updateRates/updateRate name=fast rate=11"), "fast", air},
                {x("transportations/transportation name=Radio reliable=Yes"), "Radio", air},
                {"<switches><autoProvide isEnabled='true'/></switches>", "autoProvide", air},
                {x("dataTypes/enumeratedDataTypes/enumeratedData name=Hue", x("enumerator value=2")), "Hue", air},
                {x("synchronizations/synchronizationPoint label=Go dataType=HLAbyte"), "Go", air},
                {x("tags/updateReflectTag dataType=HLAbyte"), "updateReflectTag", air},
                {x("time/timeStamp dataType=HLAbyte"), "timeStamp", air},
                {car, "colour"},
                {NEW.formatted(x("attribute name=a order=Late")), "Late"},
                {NEW.formatted(x("attribute name=a", x("dimensions dimension=W"))), "'W'"},
                {ROOT.formatted("<objectClass></objectClass>"), "no name"},
                {x("objects/objectClass name=Vehicle"), "HLAobjectRoot"},
                {REPORT.formatted(x("interactionClass name=Alert", x("parameter name=text"))), "another parameter 'text"},
                {x("dimensions/dimension name=Z upperBound=many"), "many"},
                {x("dimensions/dimension name=Z upperBound=4294967296"), "4294967296"},
                {x("dimensions/dimension name=Z upperBound=5 value=[0..6)"), "[0..6)"},
                {x("dimensions/dimension name=Z value=[3..3)"), "[3..3)"},
                {x("updateRates/updateRate name=odd rate=x"), "'x'"},
                {x("updateRates/updateRate name=odd rate=NaN"), "NaN"},
                {x("updateRates/updateRate name=odd rate=-1"), "-1"},
                {x("transportations/transportation name=HLAlow reliable=perhaps"), "perhaps"},
                {x("transportations/transportation name=HLAreliable reliable=No"), "HLAreliable"},
                {"<switches><autoProvide isEnabled='perhaps'/></switches>", "perhaps"},
        };
        for (String[] row : rows) {
            String module = TestFom.module(row[0]);
            String other = row.length > 2 ? row[2] : module;
            Harness.refuses("InconsistentFDD", () -> model(air, module), module + "', line", other + "', line", row[1]);
        }
        Harness.refuses("InconsistentFDD", () -> model(TestFom.module(car), air), air, "below", "colour");
        model(air, air, TestFom.module(REPORT.formatted("<order>NA</order>") + x("dimensions/dimension name=NA")));
    }

    /** What one module leaves open another one says, be it there at the creation or with a federate that joins. */
    private static void completion() throws Exception {
        String air = TestFom.module(VEHICLE.formatted(x("attribute name=position")) + REPORT.formatted(""));
        String[][] rows = {
                {VEHICLE.formatted(x("attribute name=position order=TimeStamp dataType=Place")),
                        "TimeStamp HLAreliable [] Place, Receive [] []"},
                {VEHICLE.formatted(x("attribute name=position transportation=Radio"))
                        + x("transportations/transportation name=Radio reliable=No"), "Receive Radio [] , Receive [] []"},
                {REPORT.formatted("<order>TimeStamp</order>"), "Receive HLAreliable [] , TimeStamp [] []"},
                {REPORT.formatted(x("dimensions dimension=X") + x("parameter name=text"))
                        + x("dimensions/dimension name=X"), "Receive HLAreliable [] , Receive [X] [text]"},
        };
        for (String[] row : rows) {
            String more = TestFom.module(row[0]);
            ObjectModel joined = model(air);
            joined.extend(FomReader.ofModules().readAll(TestFom.sources(List.of(more))));
            for (ObjectModel model : List.of(model(air, more), model(more, air), joined)) {
                var position = model.objectClass("Vehicle").member("position");
                var report = model.interactionClass("Report");
                Harness.equal(position.order() + " " + position.transportation().hlaName() + " " + position.dimensions()
                        + " " + position.dataType() + ", " + report.order() + " " + report.dimensions() + " "
                        + report.members(), row[1]);
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
            String changed = TestFom.file(standard.replace(row[0], row[1]));
            if (row[2].isEmpty()) {
                FomReader.ofMim().readMim(ModuleSource.file(changed));
            } else {
                Harness.refuses("ErrorReadingMIM", () -> FomReader.ofMim().readMim(ModuleSource.file(changed)), "MIM '" + changed, row[2]);
            }
        }
        Matcher used = Pattern.compile("<(?:dataType|representation)>(\\w+)<").matcher(standard);
        while (used.find()) {
            Harness.that(standard.contains("Data><name>" + used.group(1) + "<"), used.group(1) + " is not defined");
        }
    }
}
