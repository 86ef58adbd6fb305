import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import java.util.regex.Matcher;
import java.util.regex.Pattern;
import tovu.local.fom.FomReader;
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
        harness.run("agreement", FomTest::agreement);
        harness.run("completion", FomTest::completion);
        harness.run("extension", FomTest::extension);
        harness.run("mim", FomTest::mim);
        harness.finish();
    }

    private static ObjectModel model(String... modules) throws Exception {
        return ObjectModel.of(FomReader.standardMim(), FomReader.ofModules().readAll(List.of(modules)));
    }

    private static void designators() throws Exception {
        Path folder = Files.createTempDirectory("fom modules");
        Path file = Files.writeString(folder.resolve("air \u00e9.xml"), TestFom.AIR);
        for (String designator : List.of(file.toUri().toString(), "file:" + file,
                "file://localhost" + file.toUri().getRawPath(), "FILE://" + file)) {
            Harness.that(model(designator).objectClass("Vehicle") != null, designator);
        }
        Harness.refuses("CouldNotOpenFDD", () -> model(folder.toString()), "folder", folder.toString());
        Harness.refuses("CouldNotOpenFDD", () -> model(""), "empty");
        Harness.refuses("CouldNotOpenFDD", () -> model("file:%zz"), "%zz");
        Harness.refuses("CouldNotOpenFDD", () -> model("a\0b"));
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

    private static String attribute(String name, String properties) {
        return "<attribute><name>" + name + "</name>" + properties + "</attribute>";
    }

    private static String dimension(String name, String upperBound) {
        return "<dimensions><dimension><name>" + name + "</name><upperBound>" + upperBound
                + "</upperBound></dimension></dimensions>";
    }

    private static String updateRate(String name, String rate) {
        return "<updateRates><updateRate><name>" + name + "</name><rate>" + rate + "</rate></updateRate></updateRates>";
    }

    private static String in(String place, String content) {
        return String.format(place, content);
    }

    private static String transportation(String name, String reliable) {
        return "<transportations><transportation><name>" + name + "</name><reliable>" + reliable
                + "</reliable></transportation></transportations>";
    }

    private static String enumeration(String name, String properties) {
        return "<dataTypes><enumeratedDataTypes><enumeratedData><name>" + name + "</name>" + properties
                + "</enumeratedData></enumeratedDataTypes></dataTypes>";
    }

    /** A module that contradicts another, and one that is wrong by itself; each with what must be told of it. */
    private static void contradictions() throws Exception {
        String air = TestFom.file(TestFom.AIR);
        String colour = attribute("colour", "");
        String car = "<objectClass><name>Car</name>" + colour + "</objectClass>";
        String[][] both = {
                {in(VEHICLE, colour), "position"},
                {in(VEHICLE, attribute("position", "<order>Receive</order>") + colour), "order"},
                {in(VEHICLE, attribute("position", "<transportation>HLAbestEffort</transportation>") + colour),
                        "transportation"},
                {in(VEHICLE, attribute("position", "<dimensions><dimension>X</dimension></dimensions>") + colour),
                        "dimensions"},
                {in(VEHICLE, attribute("position", "") + attribute("colour", "<dataType>HLAbyte</dataType>")),
                        "HLAbyte"},
                {in(REPORT, "<order>Receive</order>"), "order"},
                {in(REPORT, "<parameter><name>other</name></parameter>"), "other"},
                {in(ROOT, attribute("a", "")), "[a]", "HLAstandardMIM"},
                {dimension("X", "7"), "'X'"},
                {dimension("Y", "100</upperBound><value>[0..4)</value><upperBound>"), "[0..4)"},
                {updateRate("fast", "11"), "fast"},
                {transportation("Radio", "Yes"), "Radio"},
                {"<switches><autoProvide isEnabled='true'/></switches>", "autoProvide"},
                {enumeration("Hue", "<enumerator><name>red</name><value>2</value></enumerator>"), "Hue"},
                {"<synchronizations><synchronizationPoint><label>Go</label><dataType>HLAbyte</dataType>"
                        + "</synchronizationPoint></synchronizations>", "Go"},
                {"<tags><updateReflectTag><dataType>HLAbyte</dataType></updateReflectTag></tags>", "updateReflectTag"},
                {"<time><timeStamp><dataType>HLAbyte</dataType></timeStamp></time>", "timeStamp"},
        };
        for (String[] row : both) {
            String module = TestFom.module(row[0]);
            String first = row.length > 2 ? row[2] : air;
            Harness.refuses("InconsistentFDD", () -> model(air, module), module + "', line", first + "', line", row[1]);
            ObjectModel created = model(air);
            Harness.refuses("InconsistentFDD", () -> created.extend(FomReader.ofModules().readAll(List.of(module))),
                    module + "', line", first + "', line", row[1]);
        }
        String[][] alone = {
                {in(VEHICLE, car), "colour"},
                {in(NEW, attribute("a", "<order>Late</order>")), "Late"},
                {in(NEW, attribute("a", "<transportation>Pigeon</transportation>")), "Pigeon"},
                {in(NEW, attribute("a", "<dimensions><dimension>W</dimension></dimensions>")), "'W'"},
                {in(ROOT, "<objectClass></objectClass>"), "no name"},
                {"<objects><objectClass><name>Vehicle</name></objectClass></objects>", "HLAobjectRoot"},
                {in(REPORT, "<interactionClass><name>Alert</name><parameter><name>text</name></parameter>"
                        + "</interactionClass>"), "another parameter 'text"},
                {dimension("Z", "many"), "many"},
                {dimension("Z", "0"), "'0'"},
                {dimension("Z", "4294967296"), "4294967296"},
                {dimension("Z", "5</upperBound><value>[0..6)</value><upperBound>"), "[0..6)"},
                {dimension("Z", "5</upperBound><value>[3..3)</value><upperBound>"), "[3..3)"},
                {dimension("Z", "5</upperBound><value>all</value><upperBound>"), "'all'"},
                {updateRate("odd", "x"), "odd"},
                {updateRate("odd", "NaN"), "NaN"},
                {updateRate("odd", "-1"), "-1"},
                {updateRate("odd", "1e999"), "1e999"},
                {transportation("HLAlow", "perhaps"), "perhaps"},
                {transportation("HLAreliable", "No"), "HLAreliable"},
                {"<switches><autoProvide isEnabled='perhaps'/></switches>", "perhaps"},
        };
        for (String[] row : alone) {
            String module = TestFom.module(row[0]);
            Harness.refuses("InconsistentFDD", () -> model(air, module), module, "line", row[1]);
        }
        String below = TestFom.module(in(VEHICLE, car));
        Harness.refuses("InconsistentFDD", () -> model(below, air), air, "below", "colour");
    }

    /** Modules may repeat each other, leave out what another says, and add classes to another's. */
    private static void agreement() throws Exception {
        String air = TestFom.file(TestFom.AIR);
        String silent = TestFom.module(in(REPORT, "<dimensions><dimension>NA</dimension></dimensions>"));
        String scaffold = TestFom.module(in(VEHICLE, "<objectClass><name>Car</name></objectClass>"));
        model(air, air);
        model(silent, air, silent);
        for (ObjectModel merged : List.of(model(air, scaffold), model(scaffold, air))) {
            Harness.that(merged.objectClass("Vehicle.Car").member("position") != null, "modules extend each other");
        }
    }

    /** What one module leaves open another one says, be it there at the creation or with a federate that joins. */
    private static void completion() throws Exception {
        String air = TestFom.module(in(VEHICLE, attribute("position", "")) + in(REPORT, ""));
        String[][] rows = {
                {in(VEHICLE, attribute("position", "<order>TimeStamp</order>")), "TimeStamp HLAreliable [] , Receive []"},
                {in(VEHICLE, attribute("position", "<dataType>Place</dataType>")), "Receive HLAreliable [] Place, Receive []"},
                {in(VEHICLE, attribute("position", "<transportation>Radio</transportation>"))
                        + transportation("Radio", "No"), "Receive Radio [] , Receive []"},
                {in(REPORT, "<order>TimeStamp</order>"), "Receive HLAreliable [] , TimeStamp []"},
                {in(REPORT, "<dimensions><dimension>Z</dimension></dimensions><parameter><name>text</name></parameter>")
                        + dimension("Z", "9"), "Receive HLAreliable [] , Receive [Z] text"},
        };
        for (String[] row : rows) {
            List<String> more = List.of(TestFom.module(row[0]));
            ObjectModel joined = model(air);
            joined.extend(FomReader.ofModules().readAll(more));
            for (ObjectModel model : List.of(model(air, more.get(0)), model(more.get(0), air), joined)) {
                var position = model.objectClass("Vehicle").member("position");
                var report = model.interactionClass("Report");
                Harness.equal(position.order() + " " + position.transportation().hlaName() + " " + position.dimensions()
                        + " " + position.dataType() + ", " + report.order() + " " + report.dimensions()
                        + (report.member("text") == null ? "" : " text"), row[1]);
            }
        }
    }

    /** A model grows by what fits, handles staying what they are, and by nothing of what does not. */
    private static void extension() throws Exception {
        ObjectModel model = model(TestFom.file(TestFom.AIR));
        int vehicle = model.objectClass("Vehicle").handle();
        String bad = TestFom.module(in(NEW, "") + dimension("X", "1"));
        Harness.refuses("InconsistentFDD", () -> model.extend(FomReader.ofModules().readAll(List.of(bad))));
        Harness.equal(model.objectClass("New"), null);
        model.extend(FomReader.ofModules().readAll(List.of(TestFom.module(in(NEW, "")))));
        Harness.that(model.objectClass("New") != null, "the class is there");
        Harness.equal(model.objectClass("Vehicle").handle(), vehicle);
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
                FomReader.ofMim().readMim(changed);
            } else {
                Harness.refuses("ErrorReadingMIM", () -> FomReader.ofMim().readMim(changed), "MIM '" + changed, row[2]);
            }
        }
        Matcher used = Pattern.compile("<(?:dataType|representation)>(\\w+)<").matcher(standard);
        while (used.find()) {
            Harness.that(standard.contains("Data><name>" + used.group(1) + "<"), used.group(1) + " is not defined");
        }
    }
}
