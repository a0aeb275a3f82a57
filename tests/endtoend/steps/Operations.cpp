#include "tests/endtoend/steps/Operations.h"

namespace kv::endtoend {

namespace {

constexpr std::string_view urlOf(const Site& site) {
    return site.style == UrlStyle::SiteRoot ? kUrlDefault : kUrlKv;
}

const ServerRoad& roadTo(Server server) {
    switch (server) {
        case Server::IIS: return kIisInstalled;
        case Server::Other: return kOtherInstalled;
        default: return kApacheInstalled;
    }
}

}  // namespace

Operations::Operations() {
    for (const Site& site : {old_, new_}) {
        place().makeFolder(site.home);
        place().makeFolder(site.scripts);
    }
}

void Operations::haveInstallation(const Site& site) const {
    Tree tree = place().tree();
    putDeployment(tree, site);
    place().bring(tree);
}

void Operations::haveUpgradeAtHand(const Site& site) const {
    place().bring(withUpgradeAtHand(place().tree(), site));
}

void Operations::pick(std::string_view label, int expectedPanel) {
    start();
    next(wizard(), 13);
    wizard().clickPictureButtonBeside(label);
    wizard().waitForPanel(expectedPanel);
}

void Operations::confirm(std::string_view title, std::string_view instruction, int progress) {
    wizard().click(kNext);
    wizard().waitForOperationEnd();
    EXPECT_EQ(wizard().progressWidth(), progress);
    EXPECT_TRUE(wizard().shows(title));
    EXPECT_TRUE(wizard().shows(instruction));
    finish();
}

void Operations::goToInstallation(const Site& site) {
    const ServerRoad& road = roadTo(site.server);
    start();
    next(wizard(), 1);
    chooseServer(wizard(), road);
    chooseUrl(wizard(), urlOf(site), road.folderPanel);
    enterFolders(wizard(), path(site.home), path(site.scripts));
    next(wizard(), 10);
}

void Operations::installNew(const Site& site) {
    goToInstallation(site);
    confirm();
}

void Operations::goToModification(const Site& site) {
    pick(kModifyLabel, 1);
    next(wizard(), 6);
    chooseUrl(wizard(), urlOf(site), roadTo(site.server).folderPanel);
    enterFolders(wizard(), path(site.home), path(site.scripts));
    next(wizard(), 10);
}

void Operations::modifyTo(const Site& site) {
    goToModification(site);
    confirm();
}

void Operations::backUp() {
    pick(kBackupLabel, 10);
    EXPECT_TRUE(wizard().shows(kConfirmBackup));
    confirm(kBackupTitle, kBackupCompleted);
}

void Operations::removeInstallation() {
    pick(kDeleteLabel, 10);
    EXPECT_TRUE(wizard().shows(kConfirmDeletion));
    confirm();
}

void Operations::upgrade() {
    pick(kUpgradeLabel, 10);
    EXPECT_TRUE(wizard().shows(kConfirmWriting));
    confirm();
}

}  // namespace kv::endtoend
