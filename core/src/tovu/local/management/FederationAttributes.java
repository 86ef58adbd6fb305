package tovu.local.management;

import java.util.List;
import tovu.local.model.exchange.Federate;
import tovu.local.model.federation.Federation;

/** The attributes of HLAmanager.HLAfederation. */
final class FederationAttributes {
    static final String FEDERATES = "HLAfederatesInFederation";
    static final String MODULES = "HLAFOMmoduleDesignatorList";
    static final String FDD = "HLAcurrentFDD";
    static final String AUTO_PROVIDE = "HLAautoProvide";
    static final String[] SAVES = {"HLAlastSaveName", "HLAlastSaveTime", "HLAnextSaveName", "HLAnextSaveTime"};

    static final List<ManagementAttribute<Federation>> ALL = List.of(
            ManagementAttribute.of("HLAfederationName", (to, of) -> to.text(of.name())),
            ManagementAttribute.of(FEDERATES, (to, of) ->
                    to.handles(of.members().stream().map(Federate::handle).toList())),
            ManagementAttribute.of("HLARTIversion", (to, of) -> to.text(Product.VERSION)),
            ManagementAttribute.of("HLAMIMdesignator", (to, of) -> to.text(of.objectModel().mim().designator())),
            ManagementAttribute.of(MODULES, (to, of) ->
                    to.list(of.objectModel().modules(), (list, each) -> list.text(each.designator()))),
            ManagementAttribute.of(FDD, (to, of) -> to.text(of.objectModel().text())),
            ManagementAttribute.of("HLAtimeImplementationName", (to, of) ->
                    to.text(of.timeFamily().implementationName())),
            ManagementAttribute.of(SAVES[0], (to, of) -> to.text(of.save().lastName())),
            ManagementAttribute.of(SAVES[1], (to, of) -> to.time(of.save().lastTime())),
            ManagementAttribute.of(SAVES[2], (to, of) -> to.text(of.save().nextName())),
            ManagementAttribute.of(SAVES[3], (to, of) -> to.time(of.save().nextTime())),
            ManagementAttribute.of(AUTO_PROVIDE, (to, of) -> to.flag(of.autoProvide())));

    private FederationAttributes() {
    }
}
