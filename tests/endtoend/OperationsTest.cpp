// Modification, deletion, backup and upgrade, each on a whole installation and on damaged ones, and
// several starts of the wizard one after the other on one product.
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "DeployedFiles.h"
#include "Deployment.h"
#include "PanelTexts.h"
#include "Scenario.h"
#include "SettingsText.h"

namespace kv::endtoend {

namespace {

const std::string kScriptsSettings = "cgi-bin\\kv\\kvi\\kvi.cfg";
const std::string kOriginal = "product\\cfg\\original\\";
constexpr std::string_view kBackupTitle = "Configuration backup completed";
constexpr std::string_view kBackupCompleted =
    "The configuration backup completed, click on Finish to exit.";

// A web server's folders, relative to the workplace.
struct Server {
    std::string folder;
    bool siteRoot;

    std::string home() const { return folder + "\\htdocs"; }
    std::string scripts() const { return folder + "\\cgi-bin"; }
    DeploymentPlan plan() const { return {home(), scripts(), siteRoot, false}; }
};

const Server kOld{"server", true};
const Server kNew{"other", false};

// What a deletion takes away: the files, then the folders that are empty.
std::vector<std::string> deployedFiles(const Server& server) {
    std::vector<std::string> files{server.folder + "\\" + kScriptsSettings};
    for (const std::string_view name : kPrograms) {
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

std::vector<std::string> times(std::size_t count, std::string_view entry) {
    return std::vector<std::string>(count, std::string(entry));
}

}  // namespace

class Operations : public Scenario {
protected:
    Operations() {
        for (const Server& server : {kOld, kNew}) {
            place().makeFolder(server.home());
            place().makeFolder(server.scripts());
        }
    }

    std::string path(const std::string& relative) const { return place().path(relative); }

    Entry entry(const Server& server, std::string_view kind = "1") const {
        return {path(server.home()),
                path(server.scripts()),
                place().product(),
                std::string(kind),
                server.siteRoot ? "0" : "1",
                "",
                ""};
    }

    std::string record(const Server& server, std::string_view kind = "1") const {
        return settingsText({"7", place().product() + "\\", rowsOf(entry(server, kind))});
    }

    std::string scriptsRecord(const Server& server) const {
        return settingsText({"1", place().product() + "\\", {path(server.home()) + "\\"}});
    }

    // What the wizard leaves after installing into the server's folders.
    void addInstallation(Tree& tree, const Server& server, std::string_view kind = "1") const {
        deploy(tree, server.plan());
        tree[settingsPath()] = record(server, kind);
        tree[server.folder + "\\" + kScriptsSettings] = scriptsRecord(server);
    }

    // Puts such an installation on the disk, without the wizard.
    void haveInstallation(const Server& server, std::string_view kind = "1") const {
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

    void pick(std::string_view label, int expectedPanel) {
        start();
        next(wizard(), 13);
        wizard().clickPictureButtonBeside(label);
        wizard().waitForPanel(expectedPanel);
    }

    // From the confirmation on; checks the texts at the end and leaves.
    void confirm(std::string_view title = kCompletedTitle,
                 std::string_view instruction = kCompleted, int progress = kProgressDone) {
        wizard().click(kNext);
        wizard().waitForOperationEnd();
        EXPECT_EQ(wizard().progressWidth(), progress);
        EXPECT_TRUE(wizard().shows(title));
        EXPECT_TRUE(wizard().shows(instruction));
        finish();
    }

    void installNew(const Server& server) {
        start();
        next(wizard(), 1);
        chooseServer(wizard(), kApacheInstalled);
        chooseUrl(wizard(), server.siteRoot ? kUrlDefault : kUrlKv, 7);
        enterFolders(wizard(), path(server.home()), path(server.scripts()));
        next(wizard(), 10);
        confirm();
    }

    void modifyTo(const Server& server, int folderPanel = 7) {
        pick(kModifyLabel, 1);
        next(wizard(), 6);
        chooseUrl(wizard(), server.siteRoot ? kUrlDefault : kUrlKv, folderPanel);
        enterFolders(wizard(), path(server.home()), path(server.scripts()));
        next(wizard(), 10);
        confirm();
    }

    void backUp() {
        pick(kBackupLabel, 10);
        EXPECT_TRUE(wizard().shows(kConfirmBackup));
        confirm(kBackupTitle, kBackupCompleted);
    }

    void removeInstallation() {
        pick(kDeleteLabel, 10);
        EXPECT_TRUE(wizard().shows(kConfirmDeletion));
        confirm();
    }

    void upgrade() {
        pick(kUpgradeLabel, 10);
        EXPECT_TRUE(wizard().shows(kConfirmWriting));
        confirm();
    }

    void addBackup(Tree& tree) const {
        tree[kOriginal + "kvi.bak"] = tree.at(settingsPath());
        tree[kOriginal + "korvane.bak"] = tree.at("product\\cfg\\general\\korvane.cfg");
        tree[kOriginal + "kvadm.bak"] = tree.at("product\\cfg\\user\\dadmin\\kvadm.cfg");
        tree[kOriginal + "kvan.bak"] = tree.at("product\\cfg\\user\\anony\\kvan.cfg");
    }

    // A product with a backup of an installation in the old server, freshly unpacked over it.
    void haveUpgradeAtHand() {
        haveInstallation(kOld);
        Tree tree = place().tree();
        addBackup(tree);
        for (const char* name : {"kvi.bak", "korvane.bak", "kvadm.bak", "kvan.bak"}) {
            place().write(kOriginal + name, tree.at(kOriginal + name));
        }
        place().write(settingsPath(), freshSettings());
        place().write("product\\bin\\kv.exe", "a newer program");
        place().write("product\\cfg\\user\\dadmin\\kvadm.cfg", "as unpacked");
        place().write("product\\cfg\\user\\anony\\kvan.cfg", "as unpacked");
    }

    // What an upgrade of that leaves, given what it was before.
    Tree upgraded(Tree tree) const {
        tree[kOld.scripts() + "\\kv\\kv.exe"] = "a newer program";
        overwrite(tree, settingsPath(), tree.at(kOriginal + "kvi.bak"));
        tree["product\\cfg\\general\\korvane.cfg"] += "\r\n";
        overwrite(tree, "product\\cfg\\user\\dadmin\\kvadm.cfg", "");
        tree["product\\cfg\\user\\dadmin\\kvadm.cfg"] = tree.at(kOriginal + "kvadm.bak");
        tree["product\\cfg\\user\\anony\\kvan.cfg"] = tree.at(kOriginal + "kvan.bak");
        return tree;
    }

    void expectTree(const Tree& expected) const {
        EXPECT_EQ(differences(expected, place().tree()), "");
    }

    // Of a run that has logged failures.
    void expectTreeBesideLog(const Tree& expected) const {
        Tree actual = place().tree();
        EXPECT_EQ(actual.erase("product\\log\\kvwcfg00.log"), 1U);
        EXPECT_EQ(differences(expected, actual), "");
    }
};

struct KindCase {
    std::string_view name;
    std::string_view code;
    int folderPanel;
};

class EveryKind : public Operations, public testing::WithParamInterface<KindCase> {};

TEST_P(EveryKind, AModificationMovesTheDeploymentAndRecordsTheNewPlace) {
    haveInstallation(kOld, GetParam().code);
    Tree expected = place().tree();
    takeAway(expected, kOld);
    addInstallation(expected, kNew, GetParam().code);

    modifyTo(kNew, GetParam().folderPanel);

    expectTree(expected);
    expectNoLog();
}

TEST_P(EveryKind, AModificationToTheSameFoldersGivesAFreshDeployment) {
    haveInstallation(kOld, GetParam().code);
    const Tree expected = place().tree();
    place().write("server\\htdocs\\kv\\index.html", "edited by hand");

    modifyTo(kOld, GetParam().folderPanel);

    expectTree(expected);
    expectNoLog();
}

TEST_P(EveryKind, ADeletionLeavesTheSiteRootAndTheImagesFolder) {
    haveInstallation(kOld, GetParam().code);
    Tree expected = place().tree();
    takeAway(expected, kOld);
    expected[settingsPath()] = settingsText({"0", place().product() + "\\", {}});

    removeInstallation();

    expectTree(expected);
    EXPECT_TRUE(place().exists("server\\htdocs\\favicon.ico"));
    EXPECT_TRUE(place().exists("server\\htdocs\\images"));
    expectNoLog();
}

INSTANTIATE_TEST_SUITE_P(Kinds, EveryKind,
                         testing::Values(KindCase{"Apache", "1", 7}, KindCase{"Iis", "0", 8},
                                         KindCase{"Other", "2", 9}),
                         [](const testing::TestParamInfo<KindCase>& which) {
                             return std::string(which.param.name);
                         });

TEST_F(Operations, TheWayOfAnsweringAndTheAddressComeBackFromTheRecord) {
    haveInstallation(kNew, "2");
    Entry recorded = entry(kNew, "2");
    recorded.address = "10.0.0.1";
    recorded.port = "8080";
    place().write(settingsPath(), settingsText({"7", place().product() + "\\", rowsOf(recorded)}));

    pick(kModifyLabel, 1);

    EXPECT_TRUE(wizard().isChosen(kInstalledOther));
    next(wizard(), 6);
    EXPECT_TRUE(wizard().isChosen(kUrlKv));
    next(wizard(), 9);
    EXPECT_EQ(wizard().fieldText(0), path(kNew.home()));
    EXPECT_EQ(wizard().fieldText(1), path(kNew.scripts()));
    next(wizard(), 14);
    EXPECT_EQ(wizard().fieldText(0), "10.0.0.1");
    EXPECT_EQ(wizard().fieldText(1), "8080");
}

TEST_F(Operations, ABackupCopiesTheFourFilesAndNothingElse) {
    haveInstallation(kOld);
    Tree expected = place().tree();
    addBackup(expected);

    backUp();

    expectTree(expected);
    expectNoLog();
}

TEST_F(Operations, ASecondBackupReplacesTheFirst) {
    haveInstallation(kOld);
    backUp();
    place().write("product\\cfg\\general\\korvane.cfg", "changed since");
    Tree expected = place().tree();
    addBackup(expected);

    backUp();

    expectTree(expected);
}

TEST_F(Operations, ABackupWithoutItsFolderLogsFourFailuresAndReportsCompletion) {
    haveInstallation(kOld);
    place().remove("product\\cfg\\original");

    backUp();

    expectLog(times(4, "WARN  76, Path not found, ioCopyFile"));
}

TEST_F(Operations, AnUpgradeReplacesTheProgramsAndBringsTheConfigurationBack) {
    haveUpgradeAtHand();
    const Tree expected = upgraded(place().tree());

    upgrade();

    expectTree(expected);
    expectNoLog();
}

TEST_F(Operations, AnUpgradeTakesOverOldPropertiesAndKeepsNewOnes) {
    haveUpgradeAtHand();
    const std::string newFile =
        "#\r\n00\x0FT\x10"
        "1001\r\n10\x0F*Default Administrator\x10new\r\n15\x0F*Optional Language 1\x10new\r\n"
        "110\x0F*Session expire time\x10new\r\n112\x0F*User Home Folder\x10new\r\n"
        "20\x0F"
        "2\x10row\r\n";
    const std::string oldFile =
        "#10\x0Fno\x10no\r\n00\x0FT\x10old\r\n10\x0F*Default Administrator\x10old\r\n"
        "10\x0F*Default Administrator\x10second\r\n15\x0Frenamed\x10old\r\n"
        "14\x0F*Default Language\x10only old\r\n112\x0F*User Home Folder\x10old\r\n"
        "20\x0F"
        "2\x10old row\r\n";
    place().write("product\\cfg\\general\\korvane.cfg", newFile);
    place().write(kOriginal + "korvane.bak", oldFile);

    upgrade();

    EXPECT_EQ(place().read("product\\cfg\\general\\korvane.cfg"),
              "#\r\n00\x0FT\x10"
              "1001\r\n10\x0F*Default Administrator\x10old\r\n15\x0Frenamed\x10old\r\n"
              "110\x0F*Session expire time\x10new\r\n112\x0F*User Home Folder\x10old\r\n"
              "20\x0F"
              "2\x10row\r\n\r\n"
              // The file is not truncated: what it held beyond the new end stays.
              "\n20\x0F"
              "2\x10row\r\n");
    expectNoLog();
}

struct MissingBackup {
    std::string_view name;
    std::string_view entry;
};

class WithoutOneBackup : public Operations, public testing::WithParamInterface<MissingBackup> {};

TEST_P(WithoutOneBackup, AnUpgradeLogsItAndRestoresTheRest) {
    haveUpgradeAtHand();
    const std::string name(GetParam().name);
    Tree expected = upgraded(place().tree());
    const std::string restored = name == "kvadm" ? "product\\cfg\\user\\dadmin\\kvadm.cfg"
                                                 : "product\\cfg\\user\\anony\\kvan.cfg";
    expected[restored] = "as unpacked";
    place().remove(kOriginal + name + ".bak");
    expected.erase(kOriginal + name + ".bak");

    upgrade();

    expectTreeBesideLog(expected);
    expectLog({std::string(GetParam().entry)});
}

INSTANTIATE_TEST_SUITE_P(
    Backups, WithoutOneBackup,
    testing::Values(MissingBackup{"kvadm", "SERV  53, File not found, ioCopyFile"},
                    MissingBackup{"kvan", "SERV  53, File not found, ioCopyFile"}),
    [](const testing::TestParamInfo<MissingBackup>& which) {
        return std::string(which.param.name);
    });

TEST_F(Operations, AnUpgradeWithoutTheSavedRecordEndsOnTheErrorPanel) {
    haveUpgradeAtHand();
    place().remove(kOriginal + "kvi.bak");
    const Tree before = place().tree();

    pick(kUpgradeLabel, 12);

    EXPECT_TRUE(wizard().shows(kUpgradeUnavailable));
    EXPECT_FALSE(wizard().frameButton(kBack).enabled);
    EXPECT_FALSE(wizard().frameButton(kCancel).enabled);
    finish();
    expectTreeBesideLog(before);
    expectLog({"SERV  53, File not found, iocCfgReadFile"});
}

TEST_F(Operations, AnUpgradeOfASavedRecordWithoutEntriesEndsWithOneMessage) {
    haveUpgradeAtHand();
    place().write(kOriginal + "kvi.bak", freshSettings());
    const Tree before = place().tree();

    pick(kUpgradeLabel, 10);
    wizard().click(kNext);

    const MessageBoxView box = wizard().waitForMessageBox();
    EXPECT_EQ(box.title, kWizardTitle);
    EXPECT_NE(box.text.find("9"), std::string::npos) << box.text;
    EXPECT_NE(box.text.find("Subscript out of range"), std::string::npos) << box.text;
    wizard().answer(box, IDOK);
    wizard().waitForExit();
    EXPECT_EQ(differences(before, place().tree()), "");
}

TEST_F(Operations, ADeletionOfFilesRemovedByHandLogsEach) {
    haveInstallation(kOld);
    for (const std::string& file : deployedFiles(kOld)) {
        place().remove(file);
    }

    removeInstallation();

    expectLog(times(38, "SERV  53, File not found, ioDeleteFile"));
}

TEST_F(Operations, ADeletionOfFoldersRemovedByHandLogsEach) {
    haveInstallation(kOld);
    for (const char* folder :
         {"server\\cgi-bin\\kv", "server\\htdocs\\kv", "server\\htdocs\\images\\kv"}) {
        place().remove(folder);
    }

    removeInstallation();

    std::vector<std::string> entries = times(38, "WARN  76, Path not found, ioDeleteFile");
    for (const char* entry :
         {"WARN  76, Path not found", "SERV  53, File not found", "WARN  76, Path not found",
          "WARN  76, Path not found", "SERV  53, File not found", "SERV  53, File not found"}) {
        entries.push_back(std::string(entry) + ", ioDeleteDirectory");
    }
    expectLog(entries);
}

TEST_F(Operations, AUsersFileKeepsItsFolderThroughADeletion) {
    haveInstallation(kOld);
    place().write("server\\htdocs\\kv\\own.html", "the administrator's own");
    Tree expected = place().tree();
    takeAway(expected, kOld);
    expected["server\\htdocs\\kv\\"] = "";
    expected[settingsPath()] = settingsText({"0", place().product() + "\\", {}});

    removeInstallation();

    expectTreeBesideLog(expected);
    expectLog({"SERV  75, Path/File access error, ioDeleteDirectory"});
}

TEST_F(Operations, ALockedFileAndItsFolderStay) {
    haveInstallation(kOld);
    const auto lock = place().lock("server\\cgi-bin\\kv\\kvdir.exe");

    removeInstallation();

    EXPECT_TRUE(place().exists("server\\cgi-bin\\kv\\kvdir.exe"));
    EXPECT_FALSE(place().exists("server\\cgi-bin\\kv\\kv.exe"));
    expectLog({"SERV  55, File already open, ioDeleteFile",
               "SERV  75, Path/File access error, ioDeleteDirectory"});
}

TEST_F(Operations, AReadOnlyFileStays) {
    haveInstallation(kOld);
    place().makeReadOnly("server\\htdocs\\kv\\index.html");

    removeInstallation();

    EXPECT_TRUE(place().exists("server\\htdocs\\kv\\index.html"));
    expectLog({"WARN  75, Path/File access error, ioDeleteFile",
               "SERV  75, Path/File access error, ioDeleteDirectory"});
}

// The roads that a person finds by going back.

TEST_F(Operations, AfterModifyTheActionPanelStillOffersABackup) {
    haveInstallation(kOld);
    Tree expected = place().tree();
    addBackup(expected);

    pick(kModifyLabel, 1);
    back(wizard(), 13);
    wizard().clickPictureButtonBeside(kBackupLabel);
    wizard().waitForPanel(10);
    confirm(kBackupTitle, kBackupCompleted);

    expectTree(expected);
}

TEST_F(Operations, ANewInstallationAfterALookAtTheUpgradeIsRecordedBehindTheSavedOne) {
    haveUpgradeAtHand();

    pick(kUpgradeLabel, 10);
    back(wizard(), 13);
    wizard().clickPictureButtonBeside(kNewLabel);
    wizard().waitForPanel(1);
    chooseServer(wizard(), kOtherInstalled);
    chooseUrl(wizard(), kUrlKv, 9);
    enterFolders(wizard(), path(kNew.home()), path(kNew.scripts()));
    next(wizard(), 10);
    confirm();

    EXPECT_EQ(place().read(settingsPath()),
              settingsText(
                  {"14",
                   place().product() + "\\",
                   {path(kOld.home()) + "\\", path(kOld.scripts()) + "\\", place().product() + "\\",
                    path(kNew.home()) + "\\", path(kNew.scripts()) + "\\", place().product() + "\\",
                    "2", "1", "", "", "", "", "", ""}}));
}

TEST_F(Operations, AfterALookAtTheUpgradeTheWelcomePanelLeadsToTheOtherActions) {
    haveUpgradeAtHand();

    pick(kUpgradeLabel, 10);
    back(wizard(), 13);
    back(wizard(), 0);
    next(wizard(), 13);

    EXPECT_TRUE(wizard().shows(kActionModifyTitle));
    EXPECT_TRUE(wizard().shows(kModifyLabel));
    EXPECT_FALSE(wizard().shows(kUpgradeLabel));
}

// A product's life, over several starts.

TEST_F(Operations, AProductGoesThroughItsWholeLife) {
    installNew(kOld);
    modifyTo(kNew);
    modifyTo(kOld);
    Tree expected = place().tree();
    addBackup(expected);
    backUp();
    expectTree(expected);

    takeAway(expected, kOld);
    expected[settingsPath()] = settingsText({"0", place().product() + "\\", {}});
    removeInstallation();
    expectTree(expected);
    expectNoLog();

    place().write("product\\bin\\kv.exe", "a newer program");
    place().makeFolder("server\\cgi-bin\\kv");
    expected = place().tree();
    for (const std::string_view name : kPrograms) {
        const std::string program(name);
        expected["server\\cgi-bin\\kv\\" + program] = expected.at("product\\bin\\" + program);
    }
    for (const std::string_view name : kLibraries) {
        const std::string library(name);
        expected["server\\cgi-bin\\kv\\" + library] = expected.at("product\\bin\\" + library);
    }
    expected[settingsPath()] = record(kOld);
    expected["product\\cfg\\general\\korvane.cfg"] += "\r\n";
    upgrade();
    expectTree(expected);
    expectNoLog();

    modifyTo(kNew);
    EXPECT_EQ(place().read(settingsPath()), record(kNew));
}

TEST_F(Operations, ADeletionAndANewInstallationUnderKvLeaveTheSiteRootAsItWas) {
    installNew(kOld);
    removeInstallation();
    const Tree after = place().tree();
    EXPECT_TRUE(place().exists("server\\htdocs\\index.html"));

    Server underKv = kOld;
    underKv.siteRoot = false;
    installNew(underKv);

    Tree expected = after;
    addInstallation(expected, underKv);
    expectTree(expected);
    expectNoLog();
}

}  // namespace kv::endtoend
