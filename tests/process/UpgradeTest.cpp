// The upgrade: newer programs go into the recorded folders, and the configuration that a backup
// has put aside comes back.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "process/modWebCfgProcess.h"
#include "tests/process/OperationTest.h"

namespace kv {
namespace {

const std::string kNewMain =
    cfgBytes({"#", "00|T|1001", "10|*Default Administrator|new", "15|*Optional Language 1|new"});
const std::string kOldMain =
    cfgBytes({"00|T|1000", "15|*Optional Language 1|the old one", "16|*More|old"});
const std::string kMigratedMain = cfgBytes(
    {"#", "00|T|1001", "10|*Default Administrator|new", "15|*Optional Language 1|the old one", ""});

// An installation of an earlier product whose configuration was put aside, and newer files.
void prepareUpgrade(Tree& image, const Site& site) {
    putDeployment(image, site);
    image[kSavedInstallation] = recordOf(site);
    image[kSavedMain] = kOldMain;
    image[kSavedAdministrator] = "old administrator";
    image[kSavedAnonymous] = "old anonymous";
    unpackNewerFiles(image);
    image[kSampleInstallationFile] = settingsBytes({});
    image[kSampleMain] = kNewMain;
}
void prepareUpgrade(SampleDisk& disk, const Site& site) {
    Tree image = imageOf(disk);
    prepareUpgrade(image, site);
    bring(image, disk);
}

class UpgradeTest : public OperationTest {
protected:
    UpgradeTest() { prepareUpgrade(disk_, site_); }

    Lines upgrade() {
        start();
        return confirm();
    }
    void start() { choose(&frmWebConfig::cmdUpgrade); }

    Site site_ = sampleSite(Server::Apache, UrlStyle::SiteRoot);
};

class UpgradeOfEachServer : public OperationOfEachServer {};

INSTANTIATE_TEST_SUITE_P(Servers, UpgradeOfEachServer,
                         testing::Values(Server::Apache, Server::IIS, Server::Other),
                         [](const auto& row) { return nameOf(row.param); });

TEST_P(UpgradeOfEachServer, RenewsProgramsAndLibrariesAndRestoresTheFourFiles) {
    const Site site = sampleSite(GetParam(), UrlStyle::SiteRoot);
    prepareUpgrade(disk_, site);
    const Tree expected = afterUpgrade(imageOf(disk_), site);
    choose(&frmWebConfig::cmdUpgrade);

    const Lines log = confirm();

    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    EXPECT_EQ(log, Lines{});
}

TEST_F(UpgradeTest, ShowsItsTitleItsStagesAndEachStepOfTheProgressLine) {
    upgrade();

    Growth line;
    EXPECT_EQ(firstDifference(
                  changes_, joined({opening("Updating configuration settings", "Copying files..."),
                                    line.by(300, kProgramFileCount),
                                    stage("Restoring data..."),
                                    line.by(75, kBackups.size()),
                                    {width(5655)},
                                    closing()})),
              "");
}

TEST_F(UpgradeTest, CopiesReadsAndWritesInThisOrder) {
    upgrade();

    EXPECT_EQ(firstDifference(journal_, upgradeCalls(site_, kNewMain, kOldMain)), "");
}

TEST_F(UpgradeTest, UsesTheSavedFoldersWhateverThePanelsHold) {
    const Tree expected = afterUpgrade(imageOf(disk_), site_);
    form().optInstalledOther.setValue(true);
    form().txtFolderScriptsOthers.typed("C:\\Other Server\\cgi");
    start();

    confirm();

    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
}

TEST_F(UpgradeTest, OfSeveralSavedEntriesRenewsTheFirst) {
    const Site second = sampleSite(Server::Other);
    const Lines rows = joined({settingsRows(site_), settingsRows(second)});
    disk_.disk.write(kSavedInstallation, settingsBytes(rows));
    Tree expected = afterUpgrade(imageOf(disk_), site_);
    expected[kSampleInstallationFile] = settingsBytes(rows);

    upgrade();

    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
}

struct Restored {
    const char* name;
    const char* saved;
    const char* target;
    const char* entry;  // in the log when the saved file is missing
};

void PrintTo(const Restored& restored, std::ostream* out) { *out << restored.name; }

class UpgradeWithoutASavedFile : public UpgradeTest,
                                 public testing::WithParamInterface<Restored> {};

INSTANTIATE_TEST_SUITE_P(
    Files, UpgradeWithoutASavedFile,
    testing::Values(Restored{"Installation", kSavedInstallation, kSampleInstallationFile,
                             "SERV  53, File not found, ioCopyFile"},
                    Restored{"Main", kSavedMain, kSampleMain,
                             "SERV  53, File not found, iocCfgReadFile"},
                    Restored{"Administrator", kSavedAdministrator, kSampleAdministrator,
                             "SERV  53, File not found, ioCopyFile"},
                    Restored{"Anonymous", kSavedAnonymous, kSampleAnonymous,
                             "SERV  53, File not found, ioCopyFile"}),
    [](const auto& row) { return row.param.name; });

TEST_P(UpgradeWithoutASavedFile, LogsOneEntryAndRestoresTheOthers) {
    Tree expected = afterUpgrade(imageOf(disk_), site_);
    expected[GetParam().target] = disk_.disk.read(GetParam().target);
    if (GetParam().target == std::string(kSampleMain)) expected[kSampleMain] += "\r\n";
    start();
    disk_.disk.remove(GetParam().saved);
    expected.erase(GetParam().saved);

    const Lines log = confirm();

    EXPECT_EQ(log, Lines{GetParam().entry});
    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    expectCompletion();
}

TEST_F(UpgradeTest, AfterTheProgramFolderWasRemovedLogsEachCopyAndRestores) {
    start();
    disk_.disk.remove(site_.scripts + "\\kv");

    const Lines log = confirm();

    EXPECT_EQ(log, Lines(kProgramFileCount, "WARN  76, Path not found, ioCopyFile"));
    EXPECT_EQ(disk_.disk.read(kSampleInstallationFile), recordOf(site_));
    expectCompletion();
}

TEST_F(UpgradeTest, ALockedProgramKeepsItsOldContent) {
    Lines log;
    {
        const auto lock = disk_.disk.lock(site_.scripts + "\\kv\\kv.exe");
        log = upgrade();
    }

    EXPECT_EQ(log, Lines{"SERV  55, File already open, ioCopyFile"});
    EXPECT_EQ(disk_.disk.read(site_.scripts + "\\kv\\kv.exe"), sampleContent("bin\\kv.exe"));
    expectCompletion();
}

TEST_F(UpgradeTest, AFailureInTheMigrationIsLoggedUnderItsNameAndTheNextFilesAreRestored) {
    Tree expected = afterUpgrade(imageOf(disk_), site_);
    expected[kSampleMain] = kNewMain;
    start();
    disk_.files.add({.text = "openForWrite C:\\Korvane\\cfg\\general\\korvane.cfg"});

    const Lines log = confirm();

    EXPECT_EQ(log, Lines{"WARN  57, Device I/O error, wcpConfigMigrateMain"});
    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    expectCompletion();
}

TEST_F(UpgradeTest, OfASavedFileWithoutEntriesFailsAndTouchesNothing) {
    disk_.disk.write(kSavedInstallation, settingsBytes({}));
    start();
    ASSERT_TRUE(form().picPanel[10].visible());
    const Tree before = imageOf(disk_);

    EXPECT_EQ(failureOf([this] { runOperation(wizard()); }), 9);

    EXPECT_EQ(differences(before, imageOf(disk_)), "");
    EXPECT_EQ(disk_.files.journal(), Lines{});
}

TEST_F(UpgradeTest, WithoutASavedInstallationFileEndsOnTheErrorPanel) {
    disk_.disk.remove(kSavedInstallation);
    const Tree before = imageOf(disk_);

    start();

    EXPECT_TRUE(form().picPanel[12].visible());
    EXPECT_EQ(form().lblErrInstruction.caption(),
              "The previous settings are not available, click on Help for detailed instructions "
              "to get upgrading done.");
    EXPECT_EQ(form().cmdFinish.box().left, 5640);
    form().close();
    EXPECT_EQ(disk_.log(), Lines{"SERV  53, File not found, iocCfgReadFile"});
    EXPECT_EQ(differences(before, imageOf(disk_)), "");
}

// Records of the installation

class RecordTest : public testing::Test {
protected:
    RecordTest() {
        bench_.disk.write("C:\\Korvane\\bin\\kvi\\kvi.cfg", recordOf(sampleSite(Server::Apache)));
        ExistingInstallation installation(bench_.state, bench_.configuration, bench_.log);
        installation.wcpConfigInstallRead("C:\\Korvane\\bin\\kvi", "cfg");
    }

    int failureOfRecord(std::int16_t index) {
        std::string home = "before";
        std::string scripts = "before";
        return failureOf([&] { deployed_.wcpGetInstalledFolders(home, scripts, index); });
    }

    Workbench bench_;
    DeployedFiles deployed_{bench_.form, bench_.state, bench_.io, bench_.files, bench_.progress};
};

TEST_F(RecordTest, GivesItsFoldersWithoutTheirLastBackslash) {
    std::string home;
    std::string scripts;

    deployed_.wcpGetInstalledFolders(home, scripts, 0);

    EXPECT_EQ(home, "C:\\Program Files\\Apache Group\\Apache2\\htdocs");
    EXPECT_EQ(scripts, "C:\\Program Files\\Apache Group\\Apache2\\cgi-bin");
}

TEST_F(RecordTest, OutsideTheListIsABoundsError) {
    EXPECT_EQ(bench_.state.InstallEntries.size(), 2U);
    EXPECT_EQ(failureOfRecord(-1), 9);
    EXPECT_EQ(failureOfRecord(2), 9);
    EXPECT_EQ(failureOfRecord(32767), 9);
}

}  // namespace
}  // namespace kv
