// Modification, deletion, backup and upgrade, each on a whole installation and on damaged ones, and
// several starts of the wizard one after the other on one product.
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Damage.h"
#include "DeployedFiles.h"
#include "Operations.h"

namespace kv::endtoend {

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
    expected[settingsPath()] = emptyRecord();

    removeInstallation();

    expectTree(expected);
    EXPECT_TRUE(place().exists("server\\htdocs\\favicon.ico"));
    EXPECT_TRUE(place().exists("server\\htdocs\\images"));
    expectNoLog();
}

TEST_P(EveryKind, ABackupCopiesTheFourFilesAndNothingElse) {
    haveInstallation(kOld, GetParam().code);
    Tree expected = place().tree();
    addBackup(expected);

    backUp();

    expectTree(expected);
    EXPECT_EQ(place().read(kOriginal + "kvi.bak"), record(kOld, GetParam().code));
    expectNoLog();
}

TEST_P(EveryKind, AnUpgradeReplacesTheProgramsAndBringsTheConfigurationBack) {
    haveUpgradeAtHand(GetParam().code);
    const Tree expected = upgraded(place().tree());

    upgrade();

    expectTree(expected);
    EXPECT_EQ(place().read(settingsPath()), record(kOld, GetParam().code));
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

TEST_F(Operations, AnUpgradeTakesOverTheLastThreePropertiesAndNoFourth) {
    haveUpgradeAtHand();
    const std::string newFile =
        "110\017*Session expire time\02030\r\n"
        "111\017*Upload Temp Folder\020C:\\new\\temp\r\n"
        "112\017*User Home Folder\020C:\\new\\home\r\n"
        "113\017*Other\020new\r\n"
        "110\017*Session expire time\02030\r\n";
    const std::string oldFile =
        "113\017*Other\020old\r\n"
        "112\017*User Home Folder\020D:\\old\\home\r\n"
        "111\017*Upload Temp Folder\020D:\\old\\temp\r\n"
        "110\017*Session expire time\02045\r\n"
        "11\017*Administrator\020only here\r\n";
    place().remove(kMainSettings);
    place().write(kMainSettings, newFile);
    place().write(kOriginal + "korvane.bak", oldFile);

    upgrade();

    EXPECT_EQ(place().read(kMainSettings),
              "110\017*Session expire time\02045\r\n"
              "111\017*Upload Temp Folder\020D:\\old\\temp\r\n"
              "112\017*User Home Folder\020D:\\old\\home\r\n"
              "113\017*Other\020new\r\n"
              // A line that the new file repeats is replaced each time.
              "110\017*Session expire time\02045\r\n"
              "\r\n");
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
    expected[settingsPath()] = emptyRecord();

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
    Tree expected = place().tree();

    pick(kUpgradeLabel, 10);
    back(wizard(), 13);
    wizard().clickPictureButtonBeside(kNewLabel);
    wizard().waitForPanel(1);
    chooseServer(wizard(), kOtherInstalled);
    chooseUrl(wizard(), kUrlKv, 9);
    enterFolders(wizard(), path(kNew.home()), path(kNew.scripts()));
    next(wizard(), 10);
    confirm();

    deploy(expected, kNew.plan());
    replaceHelpPage(expected);
    expected[settingsPath()] = settingsText(
        {"14",
         place().product() + "\\",
         {path(kOld.home()) + "\\", path(kOld.scripts()) + "\\", place().product() + "\\",
          path(kNew.home()) + "\\", path(kNew.scripts()) + "\\", place().product() + "\\", "2", "1",
          "", "", "", "", "", ""}});
    expected["other\\" + kScriptsSettings] = scriptsRecord(kNew);
    expectTree(expected);
    expectNoLog();
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

TEST_F(Operations, AfterALookAtTheUpgradeTheSavedInstallationCanBeDeleted) {
    haveUpgradeAtHand();
    Tree expected = place().tree();
    takeAway(expected, kOld);
    expected[settingsPath()] = emptyRecord();

    pick(kUpgradeLabel, 10);
    back(wizard(), 13);
    back(wizard(), 0);
    next(wizard(), 13);
    wizard().clickPictureButtonBeside(kDeleteLabel);
    wizard().waitForPanel(10);
    EXPECT_TRUE(wizard().shows(kConfirmDeletion));
    confirm();

    expectTree(expected);
    expectNoLog();
}

// A product's life, over several starts.

class LifeOfAProduct : public Operations {
protected:
    // What an installation in the server makes of the product and the server as unpacked.
    void addFirstInstallation(Tree& tree, const Server& server) const {
        addInstallation(tree, server);
        replaceHelpPage(tree);
    }
};

TEST_F(LifeOfAProduct, IsWholeAtEveryStep) {
    Tree expected = place().tree();

    installNew(kOld);
    addFirstInstallation(expected, kOld);
    expectTree(expected);

    modifyTo(kNew);
    takeAway(expected, kOld);
    addInstallation(expected, kNew);
    expectTree(expected);

    modifyTo(kOld);
    takeAway(expected, kNew);
    addInstallation(expected, kOld);
    expectTree(expected);

    backUp();
    addBackup(expected);
    expectTree(expected);

    removeInstallation();
    takeAway(expected, kOld);
    expected[settingsPath()] = emptyRecord();
    expectTree(expected);
    expectNoLog();

    for (const std::string& file : {std::string("product\\bin\\kv.exe"), kAdministratorSettings}) {
        place().write(file, "of a newer product");
        expected[file] = "of a newer product";
    }

    // The deletion took away the folder of the programs, and the upgrade makes none.
    upgrade();
    expected[settingsPath()] = record(kOld);
    expected[kMainSettings] += "\r\n";
    expected[kAdministratorSettings] = expected.at(kOriginal + "kvadm.bak");
    expectTreeBesideLog(expected);
    Entries log = times(13, kMissingPath);
    expectLog(log);

    modifyTo(kNew);
    addInstallation(expected, kNew);
    expectTreeBesideLog(expected);
    log = log + times(38, "WARN  76, Path not found, ioDeleteFile");
    for (const char* entry :
         {"WARN  76, Path not found", "SERV  53, File not found", "WARN  76, Path not found",
          "WARN  76, Path not found", "SERV  53, File not found", "SERV  53, File not found"}) {
        log.push_back(std::string(entry) + ", ioDeleteDirectory");
    }
    expectLog(log);
}

TEST_F(LifeOfAProduct, AnUpgradeOfAStandingDeploymentIsFollowedByAModification) {
    Tree expected = place().tree();
    installNew(kOld);
    addFirstInstallation(expected, kOld);
    backUp();
    addBackup(expected);

    place().write("product\\bin\\kv.exe", "a newer program");
    place().write("product\\web-root\\kv\\index.html", "a newer page");
    place().write(settingsPath(), freshSettings());
    expected["product\\bin\\kv.exe"] = "a newer program";
    expected["product\\web-root\\kv\\index.html"] = "a newer page";

    upgrade();
    expected[kOld.scripts() + "\\kv\\kv.exe"] = "a newer program";
    expected[kMainSettings] += "\r\n";
    expectTree(expected);

    modifyTo(kNew);
    takeAway(expected, kOld);
    addInstallation(expected, kNew);
    expectTree(expected);
    EXPECT_EQ(place().read("other\\htdocs\\kv\\index.html"), "a newer page");
    expectNoLog();
}

TEST_F(LifeOfAProduct, ADeletionAndANewInstallationUnderKvLeaveTheSiteRootAsItWas) {
    Tree expected = place().tree();
    installNew(kOld);
    addFirstInstallation(expected, kOld);
    removeInstallation();
    takeAway(expected, kOld);
    expected[settingsPath()] = emptyRecord();
    expectTree(expected);
    EXPECT_TRUE(expected.contains("server\\htdocs\\index.html"));

    Server underKv = kOld;
    underKv.siteRoot = false;
    installNew(underKv);
    addInstallation(expected, underKv);
    expectTree(expected);
    expectNoLog();
}

}  // namespace kv::endtoend
