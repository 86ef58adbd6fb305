import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import java.util.regex.Matcher;
import java.util.regex.Pattern;
import tovu.local.fom.FomReader;
import tovu.local.fom.ObjectModel;

/** Reading FOM modules and merging them; what is wrong with one must be told, with its name and line. */
final class FomTest {
    public static void main(String[] arguments) {
        Harness.run(FomTest::designators, FomTest::unreadable, FomTest::nothingOutsideIsLoaded, FomTest::contradictions,
                FomTest::completion, FomTest::mim);
    }

    private static ObjectModel model(String... modules) throws Exception {
        return ObjectModel.of(FomReader.standardMim(), FomReader.ofModules().readAll(List.of(modules)));
    }

    private static void designators() throws Exception {
        Path folder = Files.createTempDirectory("fom modules");
        Path file = Files.copy(Path.of(Harness.AIR), folder.resolve("air \u00e9.xml"));
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
            Harness.refuses("ErrorReadingFDD", () -> model(Harness.file(row[0])), row[1], row[row.length - 1]);
        }
        byte[] notUtf8 = "<objectModel>\u00e9</objectModel>".getBytes("ISO-8859-1");
        Path binary = Files.write(Files.createTempFile("fom", ".xml"), notUtf8);
        Harness.refuses("ErrorReadingFDD", () -> model(binary.toString()), "line 1", "UTF-8");
    }

    private static void nothingOutsideIsLoaded() throws Exception {
        String secret = Harness.file("secret");
        String external = "<!DOCTYPE objectModel [<!ENTITY x SYSTEM \"file://" + secret + "\">]>"
                + "<objectModel>" + vehicle("<objectClass><name>A&x;</name></objectClass>") + "</objectModel>";
        Harness.that(model(Harness.file(external)).objectClass("Vehicle.Asecret") == null, "an external entity was loaded");
        model(Harness.file("<!DOCTYPE objectModel SYSTEM \"http://localhost:1/x.dtd\"><objectModel/>"));
        StringBuilder laughs = new StringBuilder("<!DOCTYPE objectModel [<!ENTITY l0 \"ha\">");
        for (int i = 1; i < 30; ++i) {
            laughs.append("<!ENTITY l").append(i).append(" \"").append(("&l" + (i - 1) + ";").repeat(10)).append("\">");
        }
        Harness.refuses("ErrorReadingFDD", () -> model(Harness.file(laughs + "]><objectModel>&l29;</objectModel>")));
    }

    private static void contradictions() throws Exception {
        String cases = Files.readString(Path.of(System.getProperty("fom.contradictions")));
        Matcher each = Pattern.compile("(?s)<case told=\"(.*?)\"(?: against=\"(.*?)\")?>(.*?)</case>").matcher(cases);
        int tried = 0;
        for (; each.find(); ++tried) {
            String module = Harness.module(each.group(3));
            String other = each.group(2) == null ? module : each.group(2);
            Harness.refuses("InconsistentFDD", () -> model(Harness.AIR, module), module + "', line",
                    other + "', line", each.group(1));
        }
        Harness.that(tried > 30, "there are cases");
        String car = Harness.module(vehicle("<objectClass><name>Car</name><attribute><name>colour</name></attribute>"
                + "</objectClass>"));
        Harness.refuses("InconsistentFDD", () -> model(car, Harness.AIR), Harness.AIR + "', line", "below", "colour");
        model(Harness.AIR, Harness.AIR, Harness.module(report("<order>NA</order>")
                + "<dimensions><dimension><name>NA</name></dimension></dimensions>"));
    }

    private static String vehicle(String inside) {
        return "<objects><objectClass><name>HLAobjectRoot</name><objectClass><name>Vehicle</name>" + inside
                + "</objectClass></objectClass></objects>";
    }

    private static String position(String inside) {
        return vehicle("<attribute><name>position</name>" + inside + "</attribute>");
    }

    private static String report(String inside) {
        return "<interactions><interactionClass><name>HLAinteractionRoot</name><interactionClass><name>Report</name>"
                + inside + "</interactionClass></interactionClass></interactions>";
    }

    /** What one module leaves open another one says, be it there at the creation or with a federate that joins. */
    private static void completion() throws Exception {
        String open = Harness.module(position("") + report(""));
        String[][] rows = {
                {position("<order>TimeStamp</order><dataType>Place</dataType>"),
                        "TimeStamp HLAreliable [] Place, Receive [] []"},
                {position("<transportation>Radio</transportation>") + "<transportations><transportation><name>Radio</name>"
                        + "<reliable>No</reliable></transportation></transportations>", "Receive Radio [] , Receive [] []"},
                {report("<order>TimeStamp</order>"), "Receive HLAreliable [] , TimeStamp [] []"},
                {report("<dimensions><dimension>X</dimension></dimensions><parameter><name>text</name></parameter>")
                        + "<dimensions><dimension><name>X</name></dimension></dimensions>",
                        "Receive HLAreliable [] , Receive [X] [text]"},
        };
        for (String[] row : rows) {
            String more = Harness.module(row[0]);
            ObjectModel joined = model(open);
            joined.extend(FomReader.ofModules().readAll(List.of(more)));
            for (ObjectModel model : List.of(model(open, more), model(more, open), joined)) {
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
            String changed = Harness.file(standard.replace(row[0], row[1]));
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
