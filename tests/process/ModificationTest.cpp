// The modification: the product moves to the folders and settings that the user has now entered.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/process/OperationTest.h"

namespace kv {
namespace {

// Folders that no installation knows yet. The scripts folder of IIS is missing.
Site newSite(SampleDisk& disk, Server server, UrlStyle style) {
    disk.disk.makeFolder("C:\\Moved\\docs");
    if (server != Server::IIS) disk.disk.makeFolder("C:\\Moved\\cgi");
    return {server, style, "C:\\Moved\\docs", "C:\\Moved\\cgi", "", "81"};
}

class ModificationTest : public OperationTest {
protected:
    // Modifies the installation and returns what the log holds in the end.
    Lines modify(const Site& site) {
        start(site);
        return confirm();
    }
    void start(const Site& site) {
        choose(&frmWebConfig::cmdModify);
        describeSite(form(), site);
    }
};

class ModificationOfEachServer : public ModificationTest,
                                 public testing::WithParamInterface<Server> {};

INSTANTIATE_TEST_SUITE_P(Servers, ModificationOfEachServer,
                         testing::Values(Server::Apache, Server::IIS, Server::Other),
                         [](const auto& row) { return nameOf(row.param); });

TEST_P(ModificationOfEachServer, MovesTheDeploymentToTheNewFolders) {
    const Site before = sampleSite(GetParam(), UrlStyle::Kv);
    installBeforehand(disk_, before);
    unpackNewerFiles(disk_);
    const Site after = newSite(disk_, GetParam(), UrlStyle::SiteRoot);
    const Tree expected = afterModification(imageOf(disk_), before, after);

    const Lines log = modify(after);

    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    EXPECT_EQ(log, Lines{});
}

TEST_P(ModificationOfEachServer, ShowsItsTitleItsStagesAndEachStepOfTheProgressLine) {
    installBeforehand(disk_, sampleSite(GetParam(), UrlStyle::Kv));
    const Site after = newSite(disk_, GetParam(), UrlStyle::SiteRoot);

    modify(after);

    Growth line;
    EXPECT_EQ(changes_, joined({opening("Modifying configuration settings", "Deleting files..."),
                                line.by(50, kDeletedFileCount),
                                stage("Deleting folders..."),
                                line.by(50, kRemovedFolderCount),
                                stage("Ceating folders..."),
                                line.by(50, kMadeFolderCount),
                                stage("Copying files..."),
                                line.by(50, copiedFileCount(UrlStyle::SiteRoot)),
                                stage("Writing settings to configuration file..."),
                                line.by(kRecordStep),
                                {width(5655)},
                                closing()}));
}

TEST_P(ModificationOfEachServer, DeletesRemovesMakesCopiesAndWritesInThisOrder) {
    const Site before = sampleSite(GetParam(), UrlStyle::Kv);
    installBeforehand(disk_, before);
    const Site after = newSite(disk_, GetParam(), UrlStyle::Kv);

    modify(after);

    EXPECT_EQ(firstDifference(journal_, modificationCalls(before, after)), "");
}

TEST_P(ModificationOfEachServer, IntoTheSameFoldersEqualsAFreshDeployment) {
    const Site site = sampleSite(GetParam(), UrlStyle::SiteRoot);
    installBeforehand(disk_, site);
    unpackNewerFiles(disk_);
    Tree expected = imageOf(disk_);
    putDeployment(expected, site);

    const Lines log = modify(site);

    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    EXPECT_EQ(log, Lines{});
    expectCompletion();
}

TEST_F(ModificationTest, WithoutSiteRootCopiesTheProgressLineStopsThreeStepsEarlier) {
    installBeforehand(disk_, sampleSite(Server::Apache));

    modify(newSite(disk_, Server::Apache, UrlStyle::Kv));

    const auto writing = std::ranges::find(
        changes_, "lblFinishInstruction Caption Writing settings to configuration file...");
    ASSERT_NE(writing, changes_.end());
    EXPECT_EQ(*(writing - 1), width(progressBeforeRecord(Operation::Modify, UrlStyle::Kv)));
    expectCompletion();
}

TEST_F(ModificationTest, TakesTheOldFoldersFromTheEntryAndTheNewOnesFromTheChosenKind) {
    const Site before = sampleSite(Server::IIS, UrlStyle::Kv);
    const Site after = sampleSite(Server::Other, UrlStyle::Kv);
    installBeforehand(disk_, before);
    const Tree expected = afterModification(imageOf(disk_), before, after);

    modify(after);

    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
}

TEST_F(ModificationTest, FromTheSiteRootToASubFolderLeavesTheThreeSiteRootFiles) {
    const Site before = sampleSite(Server::Apache, UrlStyle::SiteRoot);
    const Site after = sampleSite(Server::Apache, UrlStyle::Kv);
    installBeforehand(disk_, before);
    unpackNewerFiles(disk_);

    modify(after);

    EXPECT_EQ(disk_.disk.read(before.home + "\\favicon.ico"),
              sampleContent("web-root\\favicon.ico"));
    EXPECT_EQ(disk_.disk.read(before.home + "\\index.html"), sampleContent("web-root\\index.html"));
    EXPECT_EQ(disk_.disk.read(before.home + "\\Default.htm"),
              sampleContent("web-root\\Default.htm"));
}

TEST_F(ModificationTest, DropsAllEntriesButTheOneItWrites) {
    const Site first = sampleSite(Server::Apache);
    const Site second = sampleSite(Server::Other);
    const Site third = sampleSite(Server::IIS);
    installBeforehand(disk_, second);
    installBeforehand(disk_, first);
    disk_.disk.write(kSampleInstallationFile,
                     settingsBytes(joined({settingsRows(first), settingsRows(second)})));
    const Tree expected = afterModification(imageOf(disk_), first, third);

    modify(third);

    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    EXPECT_EQ(wizard().program.state().InstallEntryCount, 2);
}

TEST_F(ModificationTest, WritesTheAddressWithoutBlanksAroundIt) {
    Site site = sampleSite(Server::Apache);
    installBeforehand(disk_, site);
    site.ip = "  10 . 0.0. 2 ";
    site.port = " 8081  ";

    modify(site);

    site.ip = "10.0.0.2";
    site.port = "8081";
    EXPECT_EQ(disk_.disk.read(kSampleInstallationFile), recordOf(site));
}

// Failures

TEST_F(ModificationTest, AfterAllFilesWereRemovedByHandLogsEachAndDeploysAnew) {
    const Site site = sampleSite(Server::Apache);
    installBeforehand(disk_, site);
    Tree expected = imageOf(disk_);
    putDeployment(expected, site);
    for (const std::string& file : deployedFiles(site)) disk_.disk.remove(file);

    const Lines log = modify(site);

    EXPECT_EQ(log, Lines(kDeletedFileCount, "SERV  53, File not found, ioDeleteFile"));
    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    expectCompletion();
}

TEST_F(ModificationTest, AFileOfTheUserKeepsItsFolder) {
    const Site before = sampleSite(Server::Other);
    installBeforehand(disk_, before);
    disk_.disk.write(before.home + "\\images\\kv\\cimg\\mine.gif", "mine");
    const Site after = newSite(disk_, Server::Other, UrlStyle::Kv);
    Tree expected = imageOf(disk_);
    takeAway(expected, before);
    expected[before.home + "\\images\\kv\\cimg\\"] = "";
    expected[before.home + "\\images\\kv\\"] = "";
    putDeployment(expected, after);

    const Lines log = modify(after);

    EXPECT_EQ(log, Lines(2, "SERV  75, Path/File access error, ioDeleteDirectory"));
    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
}

TEST_F(ModificationTest, AReadOnlyProgramIsNeitherDeletedNorReplaced) {
    if (!disk_.disk.honoursReadOnly()) GTEST_SKIP() << "this host ignores read-only";
    const Site site = sampleSite(Server::Apache);
    installBeforehand(disk_, site);
    unpackNewerFiles(disk_);
    disk_.disk.makeReadOnly(site.scripts + "\\kv\\kvdir.exe");
    Tree expected = imageOf(disk_);
    putDeployment(expected, site);
    expected[site.scripts + "\\kv\\kvdir.exe"] = sampleContent("bin\\kvdir.exe");

    const Lines log = modify(site);

    EXPECT_EQ(log, (Lines{"WARN  75, Path/File access error, ioDeleteFile",
                          "SERV  75, Path/File access error, ioDeleteDirectory",
                          "WARN  75, Path/File access error, ioCopyFile"}));
    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    expectCompletion();
}

TEST_F(ModificationTest, ALockedProgramIsNeitherDeletedNorReplaced) {
    const Site site = sampleSite(Server::Apache);
    installBeforehand(disk_, site);
    Lines log;
    {
        const auto lock = disk_.disk.lock(site.scripts + "\\kv\\kv.exe");
        log = modify(site);
    }

    EXPECT_EQ(log, (Lines{"SERV  55, File already open, ioDeleteFile",
                          "SERV  75, Path/File access error, ioDeleteDirectory",
                          "SERV  55, File already open, ioCopyFile"}));
    expectCompletion();
}

TEST_F(ModificationTest, WithoutAProductToCopyLeavesNoDeploymentButRecordsTheNewOne) {
    const Site before = sampleSite(Server::Apache);
    installBeforehand(disk_, before);
    const Site after = newSite(disk_, Server::Apache, UrlStyle::SiteRoot);
    for (const auto& [from, to] : copies(after)) disk_.disk.remove(from);
    Tree expected = imageOf(disk_);
    takeAway(expected, before);
    expected["C:\\Moved\\docs\\images\\"] = "";
    for (const std::string& folder : deployedFolders(after)) expected[folder + '\\'] = "";
    expected[kSampleInstallationFile] = recordOf(after);
    expected["C:\\Moved\\cgi\\kv\\kvi\\kvi.cfg"] = scriptsRecordOf(after);

    const Lines log = modify(after);

    EXPECT_EQ(log,
              Lines(copiedFileCount(UrlStyle::SiteRoot), "SERV  53, File not found, ioCopyFile"));
    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    expectCompletion();
}

TEST_F(ModificationTest, ALockedInstallationFileWithholdsTheSettingsStepOnly) {
    const Site site = sampleSite(Server::Apache);
    installBeforehand(disk_, site);
    start(newSite(disk_, Server::Apache, UrlStyle::Kv));
    Lines log;
    {
        const auto lock = disk_.disk.lock(kSampleInstallationFile);
        log = confirm();
    }

    EXPECT_EQ(log, Lines{"WARN  55, File already open, iocCfgWriteFile"});
    EXPECT_EQ(Lines(changes_.end() - 6, changes_.end()),
              (Lines{width(progressBeforeRecord(Operation::Modify, UrlStyle::Kv)),
                     "lblFinishInstruction Caption Writing settings to configuration file...",
                     width(5655), "lblFinishDescription Caption Configuration completed",
                     "lblFinishInstruction Caption The configuration completed, click on Finish to "
                     "exit.",
                     "cmdFinish Enabled yes"}));
    EXPECT_EQ(disk_.disk.read(kSampleInstallationFile), recordOf(site));
}

TEST_F(ModificationTest, AFolderOfTheNameOfTheScriptsFileLeavesTheLineShortByItsEnd) {
    installBeforehand(disk_, sampleSite(Server::Apache));
    const Site after = newSite(disk_, Server::Apache, UrlStyle::Kv);
    disk_.disk.makeFolder("C:\\Moved\\cgi\\kv\\kvi\\kvi.cfg");

    const Lines log = modify(after);

    EXPECT_EQ(log, Lines{"WARN  75, Path/File access error, iocCfgWriteFile"});
    expectCompletion(progressBeforeRecord(Operation::Modify, UrlStyle::Kv) + kRecordStep);
}

TEST_F(ModificationTest, AFolderThatDiffersInCaseOnlyIsTriedLoggedAndUsed) {
    installBeforehand(disk_, sampleSite(Server::Apache));
    const Site after = newSite(disk_, Server::Apache, UrlStyle::Kv);
    disk_.disk.makeFolder("C:\\Moved\\docs\\Images");

    const Lines log = modify(after);

    EXPECT_EQ(log, Lines{"WARN  75, Path/File access error, ioMakeDirectory"});
    EXPECT_EQ(disk_.disk.read("C:\\Moved\\docs\\Images\\kv\\kvimg\\quest_b.gif"),
              sampleContent("web-root\\images\\kvimg\\quest_b.gif"));
}

}  // namespace
}  // namespace kv
