#include "tests/support/disks/FaultyFileSystem.h"

#include <gtest/gtest.h>

#include "tests/support/disks/TestDisk.h"

namespace kv {
namespace {

class FaultyFileSystemTest : public testing::Test {
protected:
    // Five calls that can throw, and one that cannot.
    void work() {
        files_.makeDirectory("C:\\a");
        files_.findName("C:\\a", Lookup::FilesAndFolders);
        const auto file = files_.openForWrite("C:\\a\\b");
        file->write("text");
        file->close();
        files_.copyFile("C:\\a\\b", "C:\\c");
    }

    TestDisk disk_;
    FaultyFileSystem files_{disk_.fileSystem()};
};

TEST_F(FaultyFileSystemTest, TheJournalHoldsEveryCall) {
    work();

    EXPECT_EQ(files_.journal(), (Lines{"makeDirectory C:\\a", "findName C:\\a, files and folders",
                                       "openForWrite C:\\a\\b", "write C:\\a\\b, 4 bytes",
                                       "close C:\\a\\b", "copyFile C:\\a\\b -> C:\\c"}));
    EXPECT_EQ(files_.throwingCalls(), 5);
    EXPECT_EQ(files_.failedCalls(), 0);
    EXPECT_EQ(disk_.read("C:\\c"), "text");
}

TEST_F(FaultyFileSystemTest, TheNthCallFails) {
    files_.add({.call = 3, .number = ErrorNumber::DiskFull});

    EXPECT_EQ(failureOf([&] { work(); }), 61);

    EXPECT_EQ(files_.journal().back(), "write C:\\a\\b, 4 bytes");
    EXPECT_EQ(disk_.read("C:\\a\\b"), "");
}

TEST_F(FaultyFileSystemTest, AFaultOfATextStrikesOnceOrForEver) {
    files_.add({.text = "copyFile"});
    files_.add({.text = "deleteFiles", .number = ErrorNumber::FileNotFound, .once = false});

    EXPECT_EQ(failureOf([&] { work(); }), 57);
    EXPECT_EQ(failureOf([&] { files_.copyFile("C:\\a\\b", "C:\\c"); }), 0);
    EXPECT_EQ(failureOf([&] { files_.deleteFiles("C:\\c"); }), 53);
    EXPECT_EQ(failureOf([&] { files_.deleteFiles("C:\\c"); }), 53);
    EXPECT_EQ(files_.failedCalls(), 3);
}

TEST_F(FaultyFileSystemTest, AFindThatFailsAnswersNothing) {
    disk_.makeFolder("C:\\a");
    files_.add({.call = 2, .text = "findName C:\\a"});

    EXPECT_EQ(files_.findName("C:\\a", Lookup::FilesAndFolders), "a");
    EXPECT_EQ(files_.findName("C:\\a", Lookup::FilesAndFolders), std::nullopt);
    EXPECT_EQ(files_.findName("C:\\a", Lookup::FilesAndFolders), "a");
}

TEST_F(FaultyFileSystemTest, AFaultWithoutATextSparesFinding) {
    disk_.makeFolder("C:\\a");
    files_.add({.once = false});

    EXPECT_EQ(files_.findName("C:\\a", Lookup::FilesAndFolders), "a");
    EXPECT_EQ(failureOf([&] { files_.fileLength("C:\\a"); }), 57);
}

}  // namespace
}  // namespace kv
