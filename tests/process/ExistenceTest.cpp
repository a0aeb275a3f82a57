#include "process/Existence.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/disks/FaultyFileSystem.h"
#include "tests/support/disks/TestDisk.h"

namespace kv {
namespace {

class ExistenceTest : public testing::Test {
protected:
    ExistenceTest() {
        disk_.makeFolder("C:\\www\\images");
        disk_.write("C:\\www\\page.html", "page");
    }

    TestDisk disk_;
    FaultyFileSystem files_{disk_.fileSystem()};
};

TEST_F(ExistenceTest, AFolderThatIsThereIsNotMissing) {
    EXPECT_FALSE(wcpFolderMissing(files_, "C:\\www", "images"));
}

TEST_F(ExistenceTest, AFolderThatIsNotThereIsMissing) {
    EXPECT_TRUE(wcpFolderMissing(files_, "C:\\www", "sounds"));
}

TEST_F(ExistenceTest, AFolderOfAnotherLetterCaseIsMissing) {
    EXPECT_TRUE(wcpFolderMissing(files_, "C:\\www", "Images"));
}

TEST_F(ExistenceTest, AFileOfTheFoldersNameCountsAsTheFolder) {
    EXPECT_FALSE(wcpFolderMissing(files_, "C:\\www", "page.html"));
}

TEST_F(ExistenceTest, AFolderInAMissingParentIsMissing) {
    EXPECT_TRUE(wcpFolderMissing(files_, "C:\\nowhere", "images"));
}

TEST_F(ExistenceTest, TheParentsLetterCaseDoesNotMatter) {
    EXPECT_FALSE(wcpFolderMissing(files_, "C:\\WWW", "images"));
}

TEST_F(ExistenceTest, AFolderIsLookedUpAmongFilesAndFolders) {
    wcpFolderMissing(files_, "C:\\www", "images");

    EXPECT_EQ(files_.journal(), Lines{"findName C:\\www\\images, files and folders"});
}

TEST_F(ExistenceTest, AFileThatIsThereIsNotMissing) {
    EXPECT_FALSE(wcpFileMissing(files_, "C:\\www", "page.html"));
}

TEST_F(ExistenceTest, AReadOnlyFileIsNotMissing) {
    disk_.makeReadOnly("C:\\www\\page.html");

    EXPECT_FALSE(wcpFileMissing(files_, "C:\\www", "page.html"));
}

TEST_F(ExistenceTest, AFileThatIsNotThereIsMissing) {
    EXPECT_TRUE(wcpFileMissing(files_, "C:\\www", "other.html"));
}

TEST_F(ExistenceTest, AFileOfAnotherLetterCaseIsMissing) {
    EXPECT_TRUE(wcpFileMissing(files_, "C:\\www", "Page.html"));
}

TEST_F(ExistenceTest, AFolderOfTheFilesNameIsNoFile) {
    EXPECT_TRUE(wcpFileMissing(files_, "C:\\www", "images"));
}

TEST_F(ExistenceTest, AFileIsLookedUpAmongFiles) {
    wcpFileMissing(files_, "C:\\www", "page.html");

    EXPECT_EQ(files_.journal(), Lines{"findName C:\\www\\page.html, files"});
}

}  // namespace
}  // namespace kv
