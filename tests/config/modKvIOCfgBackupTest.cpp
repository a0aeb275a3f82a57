#include <string>

#include <gtest/gtest.h>

#include "tests/support/ServicesTest.h"

namespace kv {
namespace {

constexpr char kPresent[] = "C:\\cfg\\korvane.cfg";
constexpr char kGeneration1[] = "C:\\cfg\\backup\\korvane-1.cfg";
constexpr char kGeneration2[] = "C:\\cfg\\backup\\korvane-2.cfg";
constexpr char kMissingFile[] = "SERV  53, File not found, ioBackupFile";

class modKvIOCfgBackupTest : public ServicesTest {
protected:
    modKvIOCfgBackupTest() { disk_.makeFolder("C:\\cfg\\backup"); }

    int backUp() { return cfg_.iocCfgBackupFile("C:\\cfg", "korvane", "cfg"); }

    // Rewrites the file with a backup; its content differs by the version only.
    int rewrite(const std::string& version) {
        const CfgHeader header{"1008", version, "0", "0", "", "", "", "", "", "", ""};
        return cfg_.iocCfgWriteFile("C:\\cfg", "korvane", "cfg", header, {}, {}, true);
    }

    bool holdsVersion(const std::string& path, const std::string& version) {
        return disk_.read(path).find("01\017V\020" + version + "\r\n") != std::string::npos;
    }
};

TEST_F(modKvIOCfgBackupTest, BothFilesMoveOneGenerationOn) {
    disk_.write(kPresent, "present");
    disk_.write(kGeneration1, "newest");
    disk_.write(kGeneration2, "oldest");

    EXPECT_EQ(backUp(), 0);

    EXPECT_FALSE(disk_.exists(kPresent));
    EXPECT_EQ(disk_.read(kGeneration1), "present");
    EXPECT_EQ(disk_.read(kGeneration2), "newest");
    EXPECT_EQ(logged(), Lines{});
}

TEST_F(modKvIOCfgBackupTest, TheOlderGenerationMovesFirst) {
    disk_.write(kPresent, "present");
    disk_.write(kGeneration1, "newest");

    backUp();

    EXPECT_EQ(files_.journal(),
              (Lines{"copyFile C:\\cfg\\backup\\korvane-1.cfg -> C:\\cfg\\backup\\korvane-2.cfg",
                     "deleteFiles C:\\cfg\\backup\\korvane-1.cfg",
                     "copyFile C:\\cfg\\korvane.cfg -> C:\\cfg\\backup\\korvane-1.cfg",
                     "deleteFiles C:\\cfg\\korvane.cfg"}));
}

TEST_F(modKvIOCfgBackupTest, TheFirstBackupMissesTheNewestGeneration) {
    disk_.write(kPresent, "present");

    EXPECT_EQ(backUp(), 0);

    EXPECT_EQ(disk_.tree("C:\\cfg"), (Lines{"backup\\", "backup\\korvane-1.cfg"}));
    EXPECT_EQ(disk_.read(kGeneration1), "present");
    EXPECT_EQ(logged(), Lines{kMissingFile});
}

TEST_F(modKvIOCfgBackupTest, WithoutAPresentFileTheGenerationsStillMove) {
    disk_.write(kGeneration1, "newest");

    EXPECT_EQ(backUp(), 0);

    EXPECT_FALSE(disk_.exists(kGeneration1));
    EXPECT_EQ(disk_.read(kGeneration2), "newest");
    EXPECT_EQ(logged(), Lines{kMissingFile});
}

TEST_F(modKvIOCfgBackupTest, WithoutAnyFileNothingIsMade) {
    EXPECT_EQ(backUp(), 0);

    EXPECT_EQ(disk_.tree("C:\\cfg"), Lines{"backup\\"});
    EXPECT_EQ(logged(), Lines(2, kMissingFile));
}

TEST_F(modKvIOCfgBackupTest, WithoutTheBackupFolderThePresentFileStays) {
    disk_.write(kPresent, "present");
    disk_.remove("C:\\cfg\\backup");

    backUp();

    EXPECT_EQ(disk_.tree("C:\\cfg"), Lines{"korvane.cfg"});
    EXPECT_EQ(disk_.read(kPresent), "present");
    EXPECT_EQ(logged(), (Lines{"WARN  76, Path not found, ioBackupFile",
                               "WARN  76, Path not found, ioBackupFile"}));
}

TEST_F(modKvIOCfgBackupTest, AGenerationThatCannotMoveIsOverwritten) {
    disk_.write(kPresent, "present");
    disk_.write(kGeneration1, "newest");
    files_.add({.text = "-2.cfg", .number = ErrorNumber::DiskFull});

    EXPECT_EQ(backUp(), 0);

    EXPECT_EQ(disk_.read(kGeneration1), "present");
    EXPECT_FALSE(disk_.exists(kGeneration2));
    EXPECT_EQ(logged(), Lines{"WARN  61, Disk full, ioBackupFile"});
}

TEST_F(modKvIOCfgBackupTest, OtherFilesStay) {
    disk_.write(kPresent, "present");
    disk_.write("C:\\cfg\\korvane.bak", "bak");
    disk_.write("C:\\cfg\\backup\\korvane-1.bak", "bak");
    disk_.write("C:\\cfg\\backup\\korvane-3.cfg", "third");

    backUp();

    EXPECT_EQ(disk_.tree("C:\\cfg"),
              (Lines{"backup\\", "backup\\korvane-1.bak", "backup\\korvane-1.cfg",
                     "backup\\korvane-3.cfg", "korvane.bak"}));
}

TEST_F(modKvIOCfgBackupTest, TheFirstRewriteKeepsThePreviousFile) {
    disk_.write(kPresent, "previous, and longer than what is written" + std::string(2000, '.'));

    EXPECT_EQ(rewrite("1"), 0);

    EXPECT_EQ(disk_.read(kGeneration1),
              "previous, and longer than what is written" + std::string(2000, '.'));
    EXPECT_FALSE(disk_.exists(kGeneration2));
    EXPECT_TRUE(disk_.read(kPresent).ends_with("# *Peoperty Section\r\n#\r\n"));
    EXPECT_EQ(logged(), Lines{kMissingFile});
}

TEST_F(modKvIOCfgBackupTest, TheThirdRewriteKeepsTheLastTwoFiles) {
    disk_.write(kPresent, "first of all");
    rewrite("1");
    rewrite("2");

    EXPECT_EQ(rewrite("3"), 0);

    EXPECT_TRUE(holdsVersion(kPresent, "3"));
    EXPECT_TRUE(holdsVersion(kGeneration1, "2"));
    EXPECT_TRUE(holdsVersion(kGeneration2, "1"));
    EXPECT_EQ(logged(), Lines{kMissingFile});
}

}  // namespace
}  // namespace kv
