import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
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

    /** A second module, and what must be told of it. */
    private static void contradictions() throws Exception {
        String air = TestFom.file(TestFom.AIR);
        String colour = attribute("colour", "");
        String car = "<objectClass><name>Car</name>" + colour + "</objectClass>";
        String[][] rows = {
                {in(VEHICLE, colour), "position"},
                {in(VEHICLE, attribute("position", "<order>Receive</order>") + colour), "order"},
                {in(VEHICLE, attribute("position", "<transportation>HLAbestEffort</transportation>") + colour),
                        "transportation"},
                {in(VEHICLE, attribute("position", "<dimensions><dimension>X</dimension></dimensions>") + colour),
                        "dimensions"},
                {in(VEHICLE, car), "colour"},
                {in(NEW, attribute("a", "<order>Late</order>")), "Late"},
                {in(NEW, attribute("a", "<transportation>Pigeon</transportation>")), "Pigeon"},
                {in(NEW, attribute("a", "<dimensions><dimension>W</dimension></dimensions>")), "'W'"},
                {in(ROOT, "<objectClass></objectClass>"), "no name"},
                {"<objects><objectClass><name>Vehicle</name></objectClass></objects>", "HLAobjectRoot"},
                {in(REPORT, "<order>Receive</order>"), "order"},
                {in(REPORT, "<parameter><name>other</name></parameter>"), "other"},
                {in(REPORT, "<interactionClass><name>Alert</name><parameter><name>text</name></parameter>"
                        + "</interactionClass>"), "another parameter 'text"},
                {dimension("X", "7"), "'X'"},
                {dimension("Z", "many"), "many"},
                {dimension("Z", "0"), "'0'"},
                {dimension("Z", "4294967296"), "4294967296"},
                {updateRate("fast", "11"), "fast"},
                {updateRate("odd", "x"), "odd"},
                {updateRate("odd", "NaN"), "NaN"},
                {updateRate("odd", "-1"), "-1"},
                {updateRate("odd", "1e999"), "1e999"},
                {"<transportations><transportation><name>HLAlow</name><reliable>No</reliable></transportation>"
                        + "<transportation><name>HLAlow</name><reliable>Yes</reliable></transportation></transportations>",
                        "HLAlow"},
        };
        for (String[] row : rows) {
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

    private static void mim() throws Exception {
        Harness.refuses("ErrorReadingMIM", () -> FomReader.ofMim().readMim(TestFom.file(TestFom.AIR)),
                "HLAprivilegeToDeleteObject");
        Harness.refuses("ErrorReadingMIM", () -> FomReader.ofMim().readMim(TestFom.module(in(ROOT,
                attribute("HLAprivilegeToDeleteObject", "")))), "HLAinteractionRoot");
    }
}
