// The backup: the product's configuration files are put aside in cfg\original.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/process/OperationTest.h"

namespace kv {
namespace {

struct Saved {
    const char* name;
    std::string source;
    std::string copy;
};

std::vector<Saved> savedFiles() {
    std::vector<Saved> files;
    for (const Backup& file : kBackups)
        files.push_back({file.name, std::string("C:\\Korvane\\") + file.source,
                         std::string("C:\\Korvane\\") + file.saved});
    return files;
}
const std::vector<Saved> kSaved = savedFiles();

void PrintTo(const Saved& saved, std::ostream* out) { *out << saved.name; }

class BackupTest : public OperationTest {
protected:
    BackupTest() { installBeforehand(disk_, sampleSite(Server::IIS, UrlStyle::SiteRoot)); }

    // Runs a backup in a new wizard and returns what the log holds in the end.
    Lines backUp() {
        start();
        return confirm();
    }
    void start() { choose(&frmWebConfig::cmdBackup); }

    void expectCompletion() const {
        OperationTest::expectCompletion(
            5655, "Configuration backup completed",
            "The configuration backup completed, click on Finish to exit.");
    }
};

class BackupOfEachFile : public BackupTest, public testing::WithParamInterface<Saved> {};

INSTANTIATE_TEST_SUITE_P(Files, BackupOfEachFile, testing::ValuesIn(kSaved),
                         [](const auto& row) { return row.param.name; });

class BackupOfEachServer : public OperationOfEachServer {};

INSTANTIATE_TEST_SUITE_P(Servers, BackupOfEachServer,
                         testing::Values(Server::Apache, Server::IIS, Server::Other),
                         [](const auto& row) { return nameOf(row.param); });

TEST_P(BackupOfEachServer, CopiesTheFourFilesAndTouchesNothingElse) {
    installBeforehand(disk_, sampleSite(GetParam(), UrlStyle::SiteRoot));
    const Tree expected = afterBackup(imageOf(disk_), {});
    choose(&frmWebConfig::cmdBackup);

    confirm();

    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
}

TEST_F(BackupTest, ShowsTheDeletionTitleItsStageAndFourStepsOfTheProgressLine) {
    backUp();

    EXPECT_EQ(changes_,
              joined({opening("Deleting configuration settings", "backing up files..."),
                      {width(1255), width(2255), width(3255), width(4255), width(5655)},
                      closing("Configuration backup completed",
                              "The configuration backup completed, click on Finish to exit.")}));
}

TEST_F(BackupTest, MakesFourCopiesAndNoOtherCall) {
    backUp();

    EXPECT_EQ(journal_, backupCalls({}));
}

TEST_F(BackupTest, ASecondOneReplacesTheFirstSet) {
    backUp();
    for (const Saved& saved : kSaved) {
        if (saved.name != std::string("Installation")) disk_.disk.write(saved.source, "second");
    }
    const Tree expected = afterBackup(imageOf(disk_), {});

    const Lines log = backUp();

    EXPECT_EQ(log, Lines{});
    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    EXPECT_EQ(disk_.disk.read(kSavedAnonymous), "second");
    expectCompletion();
}

TEST_F(BackupTest, WithoutTheFolderForTheCopiesLogsFourFailuresAndMakesNone) {
    disk_.disk.remove("C:\\Korvane\\cfg\\original");
    const Tree before = imageOf(disk_);

    const Lines log = backUp();

    EXPECT_EQ(log, Lines(4, "WARN  76, Path not found, ioCopyFile"));
    EXPECT_EQ(differences(before, imageOf(disk_)), "");
    expectCompletion();
}

TEST_P(BackupOfEachFile, AMissingSourceIsLoggedAndTheOthersAreCopied) {
    start();
    disk_.disk.remove(GetParam().source);
    disk_.disk.write(GetParam().copy, "of an earlier backup");

    const Lines log = confirm();

    EXPECT_EQ(log, Lines{"SERV  53, File not found, ioCopyFile"});
    EXPECT_EQ(disk_.disk.read(GetParam().copy), "of an earlier backup");
    for (const Saved& saved : kSaved) {
        if (saved.name == GetParam().name) continue;
        EXPECT_EQ(disk_.disk.read(saved.copy), disk_.disk.read(saved.source)) << saved.name;
    }
    expectCompletion();
}

TEST_P(BackupOfEachFile, AReadOnlyCopyStaysAsItIs) {
    if (!disk_.disk.honoursReadOnly()) GTEST_SKIP() << "this host ignores read-only";
    Tree expected = afterBackup(imageOf(disk_), {});
    expected[GetParam().copy] = "of an earlier backup";
    disk_.disk.write(GetParam().copy, "of an earlier backup");
    disk_.disk.makeReadOnly(GetParam().copy);

    const Lines log = backUp();

    EXPECT_EQ(log, Lines{"WARN  75, Path/File access error, ioCopyFile"});
    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    expectCompletion();
}

TEST_P(BackupOfEachFile, ALockedSourceIsLoggedAsSerious) {
    start();
    Lines log;
    {
        const auto lock = disk_.disk.lock(GetParam().source);
        log = confirm();
    }

    EXPECT_EQ(log, Lines{"SERV  55, File already open, ioCopyFile"});
    EXPECT_FALSE(disk_.disk.exists(GetParam().copy));
    expectCompletion();
}

}  // namespace
}  // namespace kv
