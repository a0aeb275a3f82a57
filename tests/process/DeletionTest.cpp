// The deletion: the deployment that is recorded goes, and so does the record.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/process/OperationTest.h"

namespace kv {
namespace {

class DeletionTest : public OperationTest {
protected:
    // Deletes the installation and returns what the log holds in the end.
    Lines deleteInstallation() {
        start();
        return confirm();
    }
    void start() { choose(&frmWebConfig::cmdDelete); }

    // What a deletion of the installation leaves of the present disk.
    Tree imageAfterDeletionOf(const Site& site) const {
        return afterDeletion(imageOf(disk_), site);
    }
};

class DeletionOfEachServer : public DeletionTest, public testing::WithParamInterface<Server> {};

INSTANTIATE_TEST_SUITE_P(Servers, DeletionOfEachServer,
                         testing::Values(Server::Apache, Server::IIS, Server::Other),
                         [](const auto& row) { return nameOf(row.param); });

TEST_P(DeletionOfEachServer, LeavesTheImagesFolderTheScriptsFolderAndTheSiteRootFiles) {
    const Site site = sampleSite(GetParam(), UrlStyle::SiteRoot);
    installBeforehand(disk_, site);
    const Tree expected = imageAfterDeletionOf(site);

    const Lines log = deleteInstallation();

    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    EXPECT_EQ(log, Lines{});
    for (const char* name : {"\\favicon.ico", "\\index.html", "\\Default.htm", "\\images"}) {
        EXPECT_TRUE(disk_.disk.exists(site.home + name)) << name;
    }
    EXPECT_TRUE(disk_.disk.exists(site.scripts));
}

TEST_P(DeletionOfEachServer, ShowsItsTitleItsStagesAndEachStepOfTheProgressLine) {
    installBeforehand(disk_, sampleSite(GetParam()));

    deleteInstallation();

    Growth line;
    EXPECT_EQ(firstDifference(
                  changes_, joined({opening("Deleting configuration settings", "Deleting files..."),
                                    line.by(100, kDeletedFileCount),
                                    stage("Deleting folders..."),
                                    line.by(100, kRemovedFolderCount),
                                    stage("Writing settings to configuration file..."),
                                    {width(5655)},
                                    closing()})),
              "");
}

TEST_P(DeletionOfEachServer, DeletesRemovesAndWritesInThisOrder) {
    const Site site = sampleSite(GetParam());
    installBeforehand(disk_, site);

    deleteInstallation();

    EXPECT_EQ(firstDifference(journal_, deletionCalls(site)), "");
}

TEST_F(DeletionTest, LeavesTheCountOfEntriesAsItWas) {
    installBeforehand(disk_, sampleSite(Server::Apache));

    deleteInstallation();

    EXPECT_EQ(wizard().program.state().InstallEntryCount, 1);
}

TEST_F(DeletionTest, OfSeveralEntriesRemovesTheFirstDeploymentAndEveryRecord) {
    const Site first = sampleSite(Server::Apache);
    const Site second = sampleSite(Server::Other);
    installBeforehand(disk_, second);
    installBeforehand(disk_, first);
    disk_.disk.write(kSampleInstallationFile,
                     settingsBytes(joined({settingsRows(first), settingsRows(second)})));
    const Tree expected = imageAfterDeletionOf(first);

    deleteInstallation();

    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
}

TEST_F(DeletionTest, TakesTheFoldersFromTheEntryAndNotFromThePanels) {
    const Site site = sampleSite(Server::Apache);
    const Site other = sampleSite(Server::Other);
    installBeforehand(disk_, other);
    installBeforehand(disk_, site);
    const Tree expected = imageAfterDeletionOf(site);
    choose(&frmWebConfig::cmdModify);
    describeSite(form(), other);
    for (int i = 0; i < 5; ++i) form().cmdBack.click();
    ASSERT_TRUE(form().picPanel[13].visible());
    form().cmdDelete.click();

    confirm();

    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
}

// Damaged installations

TEST_F(DeletionTest, AfterTheFilesWereRemovedByHandLogsEachFile) {
    const Site site = sampleSite(Server::Apache);
    installBeforehand(disk_, site);
    const Tree expected = imageAfterDeletionOf(site);
    for (const std::string& file : deployedFiles(site)) disk_.disk.remove(file);

    const Lines log = deleteInstallation();

    EXPECT_EQ(log, Lines(kDeletedFileCount, "SERV  53, File not found, ioDeleteFile"));
    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    expectCompletion();
}

TEST_F(DeletionTest, AfterTheFoldersWereRemovedByHandLogsEachFileAndEachFolder) {
    const Site site = sampleSite(Server::Apache);
    installBeforehand(disk_, site);
    const Tree expected = imageAfterDeletionOf(site);
    for (const char* folder : {"\\kv", "\\images\\kv"}) disk_.disk.remove(site.home + folder);
    disk_.disk.remove(site.scripts + "\\kv");

    const Lines log = deleteInstallation();

    EXPECT_EQ(log, joined({Lines(kDeletedFileCount, "WARN  76, Path not found, ioDeleteFile"),
                           {"WARN  76, Path not found, ioDeleteDirectory",
                            "SERV  53, File not found, ioDeleteDirectory",
                            "WARN  76, Path not found, ioDeleteDirectory",
                            "WARN  76, Path not found, ioDeleteDirectory",
                            "SERV  53, File not found, ioDeleteDirectory",
                            "SERV  53, File not found, ioDeleteDirectory"}}));
    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    expectCompletion();
}

TEST_F(DeletionTest, OfATreeThatWasNeverDeployedLogsEveryItemAndCompletes) {
    disk_.disk.write(kSampleInstallationFile, recordOf(sampleSite(Server::IIS)));
    const Tree before = imageOf(disk_);

    const Lines log = deleteInstallation();

    Tree expected = before;
    expected[kSampleInstallationFile] = settingsBytes({});
    EXPECT_EQ(log.size(), kDeletedFileCount + kRemovedFolderCount);
    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    expectCompletion();
}

struct Remaining {
    const char* name;
    const char* folder;  // in which the user has put a file
    Lines folders;       // that stay for it
};

void PrintTo(const Remaining& remaining, std::ostream* out) { *out << remaining.name; }

class DeletionAroundAFileOfTheUser : public DeletionTest,
                                     public testing::WithParamInterface<Remaining> {};

INSTANTIATE_TEST_SUITE_P(
    Folders, DeletionAroundAFileOfTheUser,
    testing::Values(
        Remaining{"Kvi", "S\\kv\\kvi", {"S\\kv\\kvi", "S\\kv"}},
        Remaining{"ScriptsKv", "S\\kv", {"S\\kv"}},
        Remaining{"Kvimg", "H\\images\\kv\\kvimg", {"H\\images\\kv\\kvimg", "H\\images\\kv"}},
        Remaining{"Cimg", "H\\images\\kv\\cimg", {"H\\images\\kv\\cimg", "H\\images\\kv"}},
        Remaining{"ImagesKv", "H\\images\\kv", {"H\\images\\kv"}},
        Remaining{"HomeKv", "H\\kv", {"H\\kv"}}, Remaining{"Images", "H\\images", {}}),
    [](const auto& row) { return row.param.name; });

TEST_P(DeletionAroundAFileOfTheUser, LeavesTheFoldersThatHoldItAndLogsEachAsSerious) {
    const Site site = sampleSite(Server::IIS);
    installBeforehand(disk_, site);
    disk_.disk.write(placed(site, {std::string(GetParam().folder) + "\\mine.txt"}).front(), "mine");
    Tree expected = imageAfterDeletionOf(site);
    for (const std::string& folder : placed(site, GetParam().folders)) expected[folder + '\\'] = "";

    const Lines log = deleteInstallation();

    EXPECT_EQ(log, Lines(GetParam().folders.size(),
                         "SERV  75, Path/File access error, ioDeleteDirectory"));
    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    expectCompletion();
}

TEST_F(DeletionTest, AReadOnlyFileStaysWithItsFolders) {
    if (!disk_.disk.honoursReadOnly()) GTEST_SKIP() << "this host ignores read-only";
    const Site site = sampleSite(Server::Other);
    installBeforehand(disk_, site);
    const std::string file = site.home + "\\images\\kv\\kvimg\\red_v1x2.gif";
    disk_.disk.makeReadOnly(file);
    Tree expected = imageAfterDeletionOf(site);
    expected[file] = sampleContent("web-root\\images\\kvimg\\red_v1x2.gif");
    expected[site.home + "\\images\\kv\\kvimg\\"] = "";
    expected[site.home + "\\images\\kv\\"] = "";

    const Lines log = deleteInstallation();

    EXPECT_EQ(log, (Lines{"WARN  75, Path/File access error, ioDeleteFile",
                          "SERV  75, Path/File access error, ioDeleteDirectory",
                          "SERV  75, Path/File access error, ioDeleteDirectory"}));
    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    expectCompletion();
}

TEST_F(DeletionTest, ALockedFileStaysWithItsFolder) {
    const Site site = sampleSite(Server::Apache);
    installBeforehand(disk_, site);
    const std::string file = site.home + "\\kv\\index.html";
    Tree expected = imageAfterDeletionOf(site);
    expected[file] = sampleContent("web-root\\kv\\index.html");
    expected[site.home + "\\kv\\"] = "";
    Lines log;
    {
        const auto lock = disk_.disk.lock(file);
        log = deleteInstallation();
    }

    EXPECT_EQ(log, (Lines{"SERV  55, File already open, ioDeleteFile",
                          "SERV  75, Path/File access error, ioDeleteDirectory"}));
    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    expectCompletion();
}

TEST_F(DeletionTest, WritesARecordThatWasRemovedByHandWithoutAWord) {
    const Site site = sampleSite(Server::Apache);
    installBeforehand(disk_, site);
    const Tree expected = imageAfterDeletionOf(site);
    start();
    disk_.disk.remove(kSampleInstallationFile);

    const Lines log = confirm();

    EXPECT_EQ(log, Lines{});
    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    expectCompletion();
}

TEST_F(DeletionTest, ALockedRecordLeavesTheProgressLineShort) {
    const Site site = sampleSite(Server::Apache);
    installBeforehand(disk_, site);
    Tree expected = imageAfterDeletionOf(site);
    expected[kSampleInstallationFile] = recordOf(site);
    start();
    Lines log;
    {
        const auto lock = disk_.disk.lock(kSampleInstallationFile);
        log = confirm();
    }

    EXPECT_EQ(log, Lines{"WARN  55, File already open, iocCfgWriteFile"});
    expectCompletion(progressBeforeRecord(Operation::Delete));
    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
}

TEST_F(DeletionTest, ARecordThatCannotBeEmptiedStaysAsItIs) {
    const Site site = sampleSite(Server::Apache);
    installBeforehand(disk_, site);
    const std::string old = recordOf(site);
    start();
    disk_.files.add({.text = "truncate C:\\Korvane\\bin\\kvi\\kvi.cfg"});

    const Lines log = confirm();

    EXPECT_EQ(log, Lines{"WARN  57, Device I/O error, iocCfgWriteFile"});
    EXPECT_EQ(disk_.disk.read(kSampleInstallationFile), old);
    expectCompletion(progressBeforeRecord(Operation::Delete));
}

}  // namespace
}  // namespace kv
