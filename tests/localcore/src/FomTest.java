import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import tovu.local.fom.FomReader;
import tovu.local.fom.ObjectModel;
import tovu.local.fom.OrderType;
import tovu.local.fom.Transportation;
import tovu.local.model.Federations;

/** Reading FOM modules and merging them; what is wrong with one must be told, with its name and line. */
final class FomTest {
    private static final String ROOT = "<objects><objectClass><name>HLAobjectRoot</name>%s</objectClass></objects>";
    private static final String VEHICLE = String.format(ROOT, "<objectClass><name>Vehicle</name>%s</objectClass>");
    private static final String REPORT = "<interactions><interactionClass><name>HLAinteractionRoot</name>"
            + "<interactionClass><name>Report</name>%s</interactionClass></interactionClass></interactions>";

    public static void main(String[] arguments) {
        Harness harness = new Harness();
        harness.run("designators", FomTest::designators);
        harness.run("unreadable", FomTest::unreadable);
        harness.run("nothing outside is loaded", FomTest::nothingOutsideIsLoaded);
        harness.run("object model", FomTest::objectModel);
        harness.run("contradictions", FomTest::contradictions);
        harness.run("joining extends", FomTest::joiningExtends);
        harness.run("mim", FomTest::mim);
        harness.finish();
    }

    private static ObjectModel model(String... modules) throws Exception {
        return ObjectModel.of(FomReader.standardMim(), FomReader.ofModules().readAll(List.of(modules)));
    }

    private static void designators() throws Exception {
        Path folder = Files.createTempDirectory("fom modules");
        Path file = Files.writeString(folder.resolve("air \u00e9.xml"), TestFom.AIR);
        for (String designator : List.of(file.toString(), file.toUri().toString(), "file:" + file,
                "file://localhost" + file.toUri().getRawPath(), "FILE://" + file)) {
            Harness.that(model(designator).objectClass("Vehicle") != null, designator);
        }
        Harness.refuses("CouldNotOpenFDD", () -> model(folder.toString()), "folder", folder.toString());
        Harness.refuses("CouldNotOpenFDD", () -> model(folder + "/none.xml"), "none.xml", "does not exist");
        Harness.refuses("CouldNotOpenFDD", () -> model(""), "empty");
        Harness.refuses("CouldNotOpenFDD", () -> model("file:%zz"), "%zz");
        Harness.refuses("CouldNotOpenFDD", () -> model("a\0b"));
    }

    private static void unreadable() throws Exception {
        Harness.refuses("ErrorReadingFDD", () -> model(TestFom.file("")), "line");
        Harness.refuses("ErrorReadingFDD", () -> model(TestFom.file("no XML")), "line 1");
        Harness.refuses("ErrorReadingFDD", () -> model(TestFom.file("<objectModel>\n\n<objects></objectModel>")), "line 3");
        Harness.refuses("ErrorReadingFDD", () -> model(TestFom.file("<html/>")), "html", "objectModel");
        Harness.refuses("ErrorReadingFDD", () -> model(TestFom.file("<a>".repeat(100_000))), "deep");
        Path binary = Files.write(Files.createTempFile("fom", ".xml"), new byte[] {(byte) 0xC3, 0x28, 0, 1});
        Harness.refuses("ErrorReadingFDD", () -> model(binary.toString()));
    }

    private static void nothingOutsideIsLoaded() throws Exception {
        String secret = TestFom.file("secret");
        String external = "<!DOCTYPE objectModel [<!ENTITY x SYSTEM \"file://" + secret + "\">]>"
                + "<objectModel><objects><objectClass><name>HLAobjectRoot</name>"
                + "<objectClass><name>A&x;</name></objectClass></objectClass></objects></objectModel>";
        Harness.that(model(TestFom.file(external)).objectClass("Asecret") == null, "an external entity was loaded");
        model(TestFom.file("<!DOCTYPE objectModel SYSTEM \"http://localhost:1/x.dtd\"><objectModel/>"));
        StringBuilder laughs = new StringBuilder("<!DOCTYPE objectModel [<!ENTITY l0 \"ha\">");
        for (int i = 1; i < 30; ++i) {
            laughs.append("<!ENTITY l").append(i).append(" \"").append(("&l" + (i - 1) + ";").repeat(10)).append("\">");
        }
        Harness.refuses("ErrorReadingFDD", () -> model(TestFom.file(laughs + "]><objectModel>&l29;</objectModel>")));
    }

    private static void objectModel() throws Exception {
        ObjectModel air = model(TestFom.file(TestFom.AIR));
        var vehicle = air.objectClass("HLAobjectRoot.Vehicle");
        var aircraft = air.objectClass("Vehicle.Aircraft");
        Harness.equal(aircraft.name(), "HLAobjectRoot.Vehicle.Aircraft");
        Harness.equal(aircraft.member("position"), vehicle.member("position"));
        Harness.equal(vehicle.member("altitude"), null);
        Harness.equal(aircraft.member("HLAprivilegeToDeleteObject"), air.privilegeToDelete());
        Harness.equal(aircraft.member("altitude").order(), OrderType.TIMESTAMP);
        Harness.equal(vehicle.member("colour").transportation(), Transportation.BEST_EFFORT);
        Harness.equal(vehicle.member("position").dimensions().size(), 2);
        Harness.equal(air.dimension("X").upperBound(), 100L);
        Harness.equal(air.updateRate("fast"), 10.0);
        Harness.equal(air.switches().conveyProducingFederate(), true);
        Harness.equal(air.switches().autoProvide(), false);
        Harness.that(air.interactionClass("Report.Alarm").member("text") != null, "parameters are inherited");
        Harness.that(air.objectClass("HLAmanager.HLAfederate").member("HLAlogicalTime") != null, "the MIM is there");
    }

    /** A second module, and what must be told of it. */
    private static void contradictions() throws Exception {
        String air = TestFom.file(TestFom.AIR);
        String attribute = "<attribute><name>%s</name>%s</attribute>";
        String position = String.format(attribute, "position", "%s");
        String colour = String.format(attribute, "colour", "");
        String[][] rows = {
                {String.format(VEHICLE, colour), "position"},
                {String.format(VEHICLE, String.format(position, "<order>Receive</order>") + colour), "order"},
                {String.format(VEHICLE, String.format(position, "<transportation>HLAbestEffort</transportation>") + colour),
                        "transportation"},
                {String.format(VEHICLE, String.format(position, "<dimensions><dimension>X</dimension></dimensions>") + colour),
                        "dimensions"},
                {"<dimensions><dimension><name>X</name><upperBound>7</upperBound></dimension></dimensions>", "'X'"},
                {"<dimensions><dimension><name>Z</name><upperBound>many</upperBound></dimension></dimensions>", "many"},
                {"<updateRates><updateRate><name>fast</name><rate>11</rate></updateRate></updateRates>", "fast"},
                {"<updateRates><updateRate><name>odd</name><rate>x</rate></updateRate></updateRates>", "odd"},
                {"<updateRates><updateRate><name>odd</name><rate>NaN</rate></updateRate></updateRates>", "NaN"},
                {"<transportations><transportation><name>HLAlow</name><reliable>No</reliable></transportation>"
                        + "<transportation><name>HLAlow</name><reliable>Yes</reliable></transportation></transportations>",
                        "HLAlow"},
                {"<objects><objectClass><name>Vehicle</name></objectClass></objects>", "HLAobjectRoot"},
                {String.format(ROOT, "<objectClass></objectClass>"), "no name"},
                {String.format(ROOT, "<objectClass><name>B</name><attribute><name>a</name><order>Late</order></attribute>"
                        + "</objectClass>"), "Late"},
                {String.format(ROOT, "<objectClass><name>B</name><attribute><name>a</name>"
                        + "<transportation>Pigeon</transportation></attribute></objectClass>"), "Pigeon"},
                {String.format(ROOT, "<objectClass><name>B</name><attribute><name>a</name>"
                        + "<dimensions><dimension>W</dimension></dimensions></attribute></objectClass>"), "'W'"},
                {String.format(VEHICLE, "<objectClass><name>Car</name>" + colour + "</objectClass>"), "colour"},
                {String.format(REPORT, "<order>Receive</order>"), "order"},
                {String.format(REPORT, "<parameter><name>other</name></parameter>"), "other"},
        };
        for (String[] row : rows) {
            String module = TestFom.module(row[0]);
            Harness.refuses("InconsistentFDD", () -> model(air, module), module, "line", row[1]);
        }
        model(air, air);
        String below = TestFom.module(String.format(VEHICLE, "<objectClass><name>Car</name>" + colour + "</objectClass>"));
        Harness.refuses("InconsistentFDD", () -> model(below, air), air, "below", "colour");
        String silent = TestFom.module(String.format(REPORT, "<dimensions></dimensions>"));
        model(air, silent);
        model(silent, air, silent);
        String scaffold = TestFom.module(String.format(VEHICLE, "<objectClass><name>Car</name></objectClass>"));
        for (ObjectModel merged : List.of(model(air, scaffold), model(scaffold, air))) {
            Harness.that(merged.objectClass("Vehicle.Car").member("position") != null, "modules extend each other");
        }
    }

    private static void joiningExtends() throws Exception {
        Federations federations = new Federations();
        TestFederate.create(federations, "f", List.of(TestFom.file(TestFom.AIR)), "");
        TestFederate a = TestFederate.join(federations, "f", "a");
        int before = a.ask((federation, me) -> federation.lookups().objectClassHandle("Vehicle"));
        String bad = TestFom.module(String.format(ROOT, "<objectClass><name>New</name></objectClass>")
                + "<dimensions><dimension><name>X</name><upperBound>1</upperBound></dimension></dimensions>");
        TestFederate b = new TestFederate(federations);
        Harness.refuses("InconsistentFDD", () -> b.session.join("b", "t", "f", List.of(bad)));
        Harness.refuses("CouldNotOpenFDD", () -> b.session.join("b", "t", "f", List.of("nowhere.xml")));
        Harness.refuses("NameNotFound", () -> a.act((federation, me) -> federation.lookups().objectClassHandle("New")));
        b.session.join("b", "t", "f", List.of(TestFom.module(String.format(ROOT,
                "<objectClass><name>New</name></objectClass>"))));
        a.act((federation, me) -> federation.lookups().objectClassHandle("New"));
        Harness.equal(a.ask((federation, me) -> federation.lookups().objectClassHandle("Vehicle")), before);
    }

    private static void mim() throws Exception {
        Harness.refuses("CouldNotOpenMIM", () -> FomReader.ofMim().readMim("nowhere.xml"));
        Harness.refuses("ErrorReadingMIM", () -> FomReader.ofMim().readMim(TestFom.file("x")));
        Harness.refuses("ErrorReadingMIM", () -> FomReader.ofMim().readMim(TestFom.file(TestFom.AIR)),
                "HLAprivilegeToDeleteObject");
    }
}
