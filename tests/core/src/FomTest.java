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
    private static final String DIMENSION_X = "<dimensions><dimension>X</dimension></dimensions>";
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
        return ObjectModel.of(FomReader.standardMim(), FomReader.ofModules().readAll(List.of(modules)));
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

    /** Elements of a path such as "dimensions/dimension", around entries such as "name=X upperBound=7". */
    private static String xml(String path, String... entries) {
        StringBuilder text = new StringBuilder();
        for (String each : entries) {
            String[] parts = each.split("=", 2);
            text.append(each.startsWith("<") ? each : "<" + parts[0] + ">" + parts[1] + "</" + parts[0] + ">");
        }
        String[] tags = path.split("/");
        for (int i = tags.length - 1; i >= 0; --i) {
            text.insert(0, "<" + tags[i] + ">").append("</").append(tags[i]).append(">");
        }
        return text.toString();
    }

    private static String attribute(String... entries) {
        return xml("attribute", entries);
    }

    private static String dimension(String... entries) {
        return xml("dimensions/dimension", entries);
    }

    private static String transportation(String name, String reliable) {
        return xml("transportations/transportation", "name=" + name, "reliable=" + reliable);
    }

    /** A module that contradicts another, and one that is wrong by itself; each with what must be told of it. */
    private static void contradictions() throws Exception {
        String air = TestFom.file(TestFom.AIR);
        String colour = attribute("name=colour");
        String car = xml("objectClass", "name=Car", colour);
        String[][] both = {
                {VEHICLE.formatted(colour), "position"},
                {VEHICLE.formatted(attribute("name=position", "order=Receive") + colour), "order"},
                {VEHICLE.formatted(attribute("name=position", "transportation=HLAbestEffort") + colour), "HLAbestEffort"},
                {VEHICLE.formatted(attribute("name=position", dimension().replace("></", ">X</")) + colour), "[X, Y]"},
                {VEHICLE.formatted(attribute("name=position") + attribute("name=colour", "dataType=HLAbyte")), "HLAbyte"},
                {REPORT.formatted("<order>Receive</order>"), "order"},
                {REPORT.formatted(xml("parameter", "name=other")), "other"},
                {ROOT.formatted(attribute("name=a")), "[a]", "HLAstandardMIM"},
                {dimension("name=X", "upperBound=7"), "'X'"},
                {dimension("name=Y", "value=[0..4)"), "[0..4)"},
                {xml("updateRates/updateRate", "name=fast", "rate=11"), "fast"},
                {transportation("Radio", "Yes"), "Radio"},
                {"<switches><autoProvide isEnabled='true'/></switches>", "autoProvide"},
                {xml("dataTypes/enumeratedDataTypes/enumeratedData", "name=Hue", xml("enumerator", "value=2")), "Hue"},
                {xml("synchronizations/synchronizationPoint", "label=Go", "dataType=HLAbyte"), "Go"},
                {xml("tags/updateReflectTag", "dataType=HLAbyte"), "updateReflectTag"},
                {xml("time/timeStamp", "dataType=HLAbyte"), "timeStamp"},
        };
        for (String[] row : both) {
            String module = TestFom.module(row[0]);
            String first = row.length > 2 ? row[2] : air;
            Harness.refuses("InconsistentFDD", () -> model(air, module), module + "', line", first + "', line", row[1]);
        }
        String[][] alone = {
                {VEHICLE.formatted(car), "colour"},
                {NEW.formatted(attribute("name=a", "order=Late")), "Late"},
                {NEW.formatted(attribute("name=a", DIMENSION_X.replace("X", "W"))), "'W'"},
                {ROOT.formatted("<objectClass></objectClass>"), "no name"},
                {xml("objects/objectClass", "name=Vehicle"), "HLAobjectRoot"},
                {REPORT.formatted(xml("interactionClass", "name=Alert", "<parameter><name>text</name></parameter>")),
                        "another parameter 'text"},
                {dimension("name=Z", "upperBound=many"), "many"},
                {dimension("name=Z", "upperBound=4294967296"), "4294967296"},
                {dimension("name=Z", "upperBound=5", "value=[0..6)"), "[0..6)"},
                {dimension("name=Z", "value=[3..3)"), "[3..3)"},
                {xml("updateRates/updateRate", "name=fast", "rate=x"), "'x'"},
                {xml("updateRates/updateRate", "name=fast", "rate=NaN"), "NaN"},
                {xml("updateRates/updateRate", "name=fast", "rate=-1"), "-1"},
                {transportation("HLAlow", "perhaps"), "perhaps"},
                {transportation("HLAreliable", "No"), "HLAreliable"},
                {"<switches><autoProvide isEnabled='perhaps'/></switches>", "perhaps"},
        };
        for (String[] row : alone) {
            String module = TestFom.module(row[0]);
            Harness.refuses("InconsistentFDD", () -> model(air, module), module, "line", row[1]);
        }
        String below = TestFom.module(VEHICLE.formatted(car));
        Harness.refuses("InconsistentFDD", () -> model(below, air), air, "below", "colour");
        model(air, air, TestFom.module(REPORT.formatted("<order>NA</order>") + dimension("name=NA", "upperBound=NA")));
    }

    /** What one module leaves open another one says, be it there at the creation or with a federate that joins. */
    private static void completion() throws Exception {
        String air = TestFom.module(VEHICLE.formatted(attribute("name=position")) + REPORT.formatted(""));
        String[][] rows = {
                {VEHICLE.formatted(attribute("name=position", "order=TimeStamp")), "TimeStamp HLAreliable [] , Receive [] []"},
                {VEHICLE.formatted(attribute("name=position", "dataType=Place")), "Receive HLAreliable [] Place, Receive [] []"},
                {VEHICLE.formatted(attribute("name=position", "transportation=Radio")) + transportation("Radio", "No"),
                        "Receive Radio [] , Receive [] []"},
                {REPORT.formatted("<order>TimeStamp</order>"), "Receive HLAreliable [] , TimeStamp [] []"},
                {REPORT.formatted(DIMENSION_X + xml("parameter", "name=text")) + dimension("name=X"),
                        "Receive HLAreliable [] , Receive [X] [text]"},
        };
        for (String[] row : rows) {
            String more = TestFom.module(row[0]);
            ObjectModel joined = model(air);
            Harness.that(joined.extend(FomReader.ofModules().readAll(List.of(more))), "it adds something");
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
