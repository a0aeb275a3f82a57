#include "tests/endtoend/steps/Roads.h"

#include "tests/endtoend/steps/PanelTexts.h"

namespace kv::endtoend {

const ServerRoad kApacheInstalled{"ApacheInstalled", kInstalledApache, "", 0, 7, Server::Apache};
const ServerRoad kApacheToInstall{"ApacheToInstall", kInstalledNothing, kInstallingApache, 3, 7,
                                  Server::Apache};
const ServerRoad kNoPreference{"NoPreference", kInstalledNothing, kInstallingAnyone, 3, 7,
                               Server::Apache};
const ServerRoad kIisInstalled{"IisInstalled", kInstalledIis, "", 0, 8, Server::IIS};
const ServerRoad kIisToInstall{"IisToInstall", kInstalledNothing, kInstallingIis, 4, 8,
                               Server::IIS};
const ServerRoad kOtherInstalled{"OtherInstalled", kInstalledOther, "", 0, 9, Server::Other};
const ServerRoad kOtherToInstall{"OtherToInstall", kInstalledNothing, kInstallingOther, 5, 9,
                                 Server::Other};

void next(const WizardDriver& wizard, int expectedPanel) {
    wizard.click(kNext);
    wizard.waitForPanel(expectedPanel);
}

void back(const WizardDriver& wizard, int expectedPanel) {
    wizard.click(kBack);
    wizard.waitForPanel(expectedPanel);
}

void chooseServer(const WizardDriver& wizard, const ServerRoad& road) {
    wizard.choose(road.installed);
    if (!road.installing.empty()) {
        next(wizard, 2);
        wizard.choose(road.installing);
        next(wizard, road.installPanel);
    }
    next(wizard, 6);
}

void chooseUrl(const WizardDriver& wizard, std::string_view url, int folderPanel) {
    wizard.choose(url);
    next(wizard, folderPanel);
}

void enterFolders(const WizardDriver& wizard, const std::string& home, const std::string& scripts) {
    wizard.fillField(0, home);
    wizard.fillField(1, scripts);
    next(wizard, 14);
}

}  // namespace kv::endtoend
