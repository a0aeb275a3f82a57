#include "Operations.h"

#include <utility>

#include "DeployedFiles.h"

namespace kv::endtoend {

namespace {

// A deletion's order, which is not that of the copying.
constexpr std::string_view kProgramsDeleted[] = {
    "kv.exe",    "kvcfg.exe", "kvclpbd.exe", "kvdir.exe",   "kvfile.exe", "kvhlp.exe",
    "kvimg.exe", "kvjs.exe",  "kvlogon.exe", "kvabout.exe", "kvwlcm.exe"};

}  // namespace

std::vector<std::string> deployedFiles(const Server& server) {
    std::vector<std::string> files{server.folder + "\\" + kScriptsSettings};
    for (const std::string_view name : kProgramsDeleted) {
        files.push_back(server.scripts() + "\\kv\\" + std::string(name));
    }
    for (const std::string_view name : kLibraries) {
        files.push_back(server.scripts() + "\\kv\\" + std::string(name));
    }
    for (const std::string_view name : kWebFiles) {
        files.push_back(server.home() + "\\kv\\" + std::string(name));
    }
    for (const std::string_view name : kImages) {
        files.push_back(server.home() + "\\images\\kv\\kvimg\\" + std::string(name));
    }
    return files;
}

std::vector<std::string> deployedFolders(const Server& server) {
    return {server.scripts() + "\\kv\\kvi\\",        server.scripts() + "\\kv\\",
            server.home() + "\\images\\kv\\kvimg\\", server.home() + "\\images\\kv\\cimg\\",
            server.home() + "\\images\\kv\\",        server.home() + "\\kv\\"};
}

void takeAway(Tree& tree, const Server& server) {
    for (const std::string& file : deployedFiles(server)) {
        tree.erase(file);
    }
    for (const std::string& folder : deployedFolders(server)) {
        tree.erase(folder);
    }
}

Operations::Operations() {
    for (const Server& server : {kOld, kNew}) {
        place().makeFolder(server.home());
        place().makeFolder(server.scripts());
    }
}

Entry Operations::entry(const Server& server, std::string_view kind) const {
    return {path(server.home()),
            path(server.scripts()),
            place().product(),
            std::string(kind),
            server.siteRoot ? "0" : "1",
            "",
            ""};
}

std::string Operations::record(const Server& server, std::string_view kind) const {
    return settingsText({"7", place().product() + "\\", rowsOf(entry(server, kind))});
}

std::string Operations::scriptsRecord(const Server& server) const {
    return settingsText({"1", place().product() + "\\", {path(server.home()) + "\\"}});
}

std::string Operations::emptyRecord() const {
    return settingsText({"0", place().product() + "\\", {}});
}

void Operations::addInstallation(Tree& tree, const Server& server, std::string_view kind) const {
    deploy(tree, server.plan());
    tree[settingsPath()] = record(server, kind);
    tree[server.folder + "\\" + kScriptsSettings] = scriptsRecord(server);
}

void Operations::haveInstallation(const Server& server, std::string_view kind) const {
    Tree tree = place().tree();
    addInstallation(tree, server, kind);
    for (const auto& [name, bytes] : tree) {
        if (name.ends_with('\\')) {
            place().makeFolder(name);
        } else if (name != "product\\bin\\kvwcfg.exe") {
            place().write(name, bytes);
        }
    }
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

void Operations::installNew(const Server& server) {
    start();
    next(wizard(), 1);
    chooseServer(wizard(), kApacheInstalled);
    chooseUrl(wizard(), server.siteRoot ? kUrlDefault : kUrlKv, 7);
    enterFolders(wizard(), path(server.home()), path(server.scripts()));
    next(wizard(), 10);
    confirm();
}

void Operations::modifyTo(const Server& server, int folderPanel) {
    goToModification(server, folderPanel);
    confirm();
}

void Operations::goToModification(const Server& server, int folderPanel) {
    pick(kModifyLabel, 1);
    next(wizard(), 6);
    chooseUrl(wizard(), server.siteRoot ? kUrlDefault : kUrlKv, folderPanel);
    enterFolders(wizard(), path(server.home()), path(server.scripts()));
    next(wizard(), 10);
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

void Operations::addBackup(Tree& tree) const {
    for (const auto& [source, name] :
         {std::pair{settingsPath(), "kvi.bak"}, std::pair{kMainSettings, "korvane.bak"},
          std::pair{kAdministratorSettings, "kvadm.bak"},
          std::pair{kAnonymousSettings, "kvan.bak"}}) {
        const auto found = tree.find(source);
        if (found != tree.end()) {
            tree[kOriginal + name] = found->second;
        }
    }
}

void Operations::haveUpgradeAtHand(std::string_view kind) {
    haveInstallation(kOld, kind);
    Tree tree = place().tree();
    addBackup(tree);
    for (const char* name : {"kvi.bak", "korvane.bak", "kvadm.bak", "kvan.bak"}) {
        place().write(kOriginal + name, tree.at(kOriginal + name));
    }
    place().write(settingsPath(), freshSettings());
    place().write("product\\bin\\kv.exe", "a newer program");
    place().write(kAdministratorSettings, "as unpacked");
    place().write(kAnonymousSettings, "as unpacked");
}

Tree Operations::upgraded(Tree tree) const {
    tree[kOld.scripts() + "\\kv\\kv.exe"] = "a newer program";
    tree[settingsPath()] = tree.at(kOriginal + "kvi.bak");
    tree[kMainSettings] += "\r\n";
    tree[kAdministratorSettings] = tree.at(kOriginal + "kvadm.bak");
    tree[kAnonymousSettings] = tree.at(kOriginal + "kvan.bak");
    return tree;
}

void Operations::expectTree(const Tree& expected) const {
    EXPECT_EQ(differences(expected, place().tree()), "");
}

void Operations::expectTreeBesideLog(const Tree& expected) const {
    Tree actual = place().tree();
    EXPECT_EQ(actual.erase("product\\log\\kvwcfg00.log"), 1U);
    EXPECT_EQ(differences(expected, actual), "");
}

}  // namespace kv::endtoend
