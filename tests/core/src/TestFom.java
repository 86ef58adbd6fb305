import java.util.List;
import java.nio.file.Files;
import java.nio.file.Path;
import tovu.local.fom.ModuleSource;

/** The object model that the tests use, and files of object models made on the spot. */
final class TestFom {
    static final String AIR = """
            <?xml version="1.0" encoding="UTF-8"?>
            <objectModel xmlns="http://standards.ieee.org/IEEE1516-2010">
             <objects><objectClass><name>HLAobjectRoot</name>
              <objectClass><name>Vehicle</name>
               <attribute><name>position</name><dimensions><dimension>X</dimension><dimension>Y</dimension></dimensions>
                <transportation>HLAreliable</transportation><order>TimeStamp</order></attribute>
               <attribute><name>colour</name><dataType>Hue</dataType><transportation>HLAbestEffort</transportation><order>Receive</order></attribute>
               <objectClass><name>Aircraft</name>
                <attribute><name>altitude</name><transportation>HLAreliable</transportation><order>TimeStamp</order></attribute>
               </objectClass>
              </objectClass></objectClass></objects>
             <interactions><interactionClass><name>HLAinteractionRoot</name>
              <interactionClass><name>Report</name><dimensions><dimension>X</dimension></dimensions>
               <transportation>HLAreliable</transportation><order>TimeStamp</order>
               <parameter><name>text</name></parameter>
               <interactionClass><name>Alarm</name><transportation>HLAreliable</transportation><order>TimeStamp</order>
                <parameter><name>level</name></parameter></interactionClass>
              </interactionClass></interactionClass></interactions>
             <dimensions>
              <dimension><name>X</name><upperBound>100</upperBound></dimension>
              <dimension><name>Y</name><upperBound>100</upperBound><value>[0..5)</value></dimension>
             </dimensions>
             <updateRates><updateRate><name>slow</name><rate>1</rate></updateRate>
              <updateRate><name>fast</name><rate>10</rate></updateRate></updateRates>
             <time><timeStamp><dataType>HLAinteger64Time</dataType></timeStamp></time>
             <tags><updateReflectTag><dataType>HLAopaqueData</dataType></updateReflectTag></tags>
             <synchronizations><synchronizationPoint><label>Go</label><dataType>HLAopaqueData</dataType>
              </synchronizationPoint></synchronizations>
             <transportations><transportation><name>Radio</name><reliable>No</reliable></transportation></transportations>
             <dataTypes><enumeratedDataTypes><enumeratedData><name>Hue</name>
              <enumerator><name>red</name><value>1</value></enumerator></enumeratedData></enumeratedDataTypes></dataTypes>
             <switches><autoProvide isEnabled="false"/><conveyProducingFederate isEnabled="true"/>
              <conveyRegionDesignatorSets isEnabled="true"/></switches>
            </objectModel>
            """;

    private TestFom() {
    }

    /** The path of a new file with that text. */
    static String file(String text) throws Exception {
        Path path = Files.createTempFile("fom", ".xml");
        path.toFile().deleteOnExit();
        return Files.writeString(path, text).toString();
    }

    /** The path of a module with just those tables. */
    static String module(String tables) throws Exception {
        return file("<objectModel>\n" + tables + "\n</objectModel>");
    }

    static List<ModuleSource> sources(List<String> designators) {
        return designators.stream().map(ModuleSource::file).toList();
    }
}
