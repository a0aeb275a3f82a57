#include "tests/support/disks/PosixFileSystem.h"

#include <cerrno>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/disks/TestDisk.h"

namespace kv {
namespace {

int numberOf(int error) { return translateErrno(error).number(); }

TEST(PosixErrors, EachHasItsNumber) {
    EXPECT_EQ(numberOf(ENOENT), 53);
    EXPECT_EQ(numberOf(ENOTDIR), 76);
    EXPECT_EQ(numberOf(ETXTBSY), 55);
    EXPECT_EQ(numberOf(EACCES), 75);
    EXPECT_EQ(numberOf(EPERM), 75);
    EXPECT_EQ(numberOf(EEXIST), 75);
    EXPECT_EQ(numberOf(EISDIR), 75);
    EXPECT_EQ(numberOf(ENOTEMPTY), 75);
    EXPECT_EQ(numberOf(EBUSY), 75);
    EXPECT_EQ(numberOf(EROFS), 70);
    EXPECT_EQ(numberOf(ENOSPC), 61);
    EXPECT_EQ(numberOf(EDQUOT), 61);
    EXPECT_EQ(numberOf(EFBIG), 61);
    EXPECT_EQ(numberOf(EBADF), 52);
    EXPECT_EQ(numberOf(EINVAL), 52);
    EXPECT_EQ(numberOf(EILSEQ), 52);
    EXPECT_EQ(numberOf(ELOOP), 52);
    EXPECT_EQ(numberOf(ENAMETOOLONG), 52);
    EXPECT_EQ(numberOf(ENOMEDIUM), 71);
    EXPECT_EQ(numberOf(EMFILE), 67);
    EXPECT_EQ(numberOf(ENFILE), 67);
    EXPECT_EQ(numberOf(ENOMEM), 7);
    EXPECT_EQ(numberOf(ENODEV), 68);
    EXPECT_EQ(numberOf(ENXIO), 68);
}

TEST(PosixErrors, AnyOtherIsADeviceError) {
    EXPECT_EQ(numberOf(EIO), 57);
    EXPECT_EQ(numberOf(ENOSYS), 57);
    EXPECT_EQ(numberOf(0), 57);
}

TEST(PosixFileSystem, AColonInANameIs52) {
    TestDisk disk;

    EXPECT_EQ(failureOf([&] { disk.fileSystem().makeDirectory("C:\\a:b"); }), 52);
    EXPECT_EQ(failureOf([&] { disk.fileSystem().makeDirectory("/:\\a"); }), 52);
}

TEST(PosixFileSystem, ANetworkPathIs52) {
    TestDisk disk;

    EXPECT_EQ(failureOf([&] { disk.fileSystem().makeDirectory("\\\\server\\share\\a"); }), 52);
}

TEST(PosixFileSystem, ADriveIsAFolderThatStays) {
    TestDisk disk;

    EXPECT_EQ(failureOf([&] { disk.fileSystem().makeDirectory("C:\\"); }), 75);
    EXPECT_EQ(failureOf([&] { disk.fileSystem().removeDirectory("C:\\"); }), 75);
    EXPECT_TRUE(disk.exists("C:\\"));
}

TEST(PosixFileSystem, APathNeverLeavesItsDrive) {
    TestDisk disk;
    disk.addDrive('D');

    disk.fileSystem().makeDirectory("C:\\..\\..\\..\\D");

    EXPECT_TRUE(disk.exists("C:\\D"));
}

TEST(PosixFileSystem, NamesAreListedInTheOrderOfUpperCase) {
    TestDisk disk;
    disk.write("C:\\b", "");
    disk.write("C:\\C", "");
    disk.write("C:\\_", "");

    EXPECT_EQ(disk.fileSystem().findName("C:\\*", Lookup::Files), "b");
}

TEST(PosixFileSystem, AQuestionMarkStandsForNothingAtTheEndOfANameAndBeforeItsDot) {
    TestDisk disk;
    disk.write("C:\\ab.cfg", "");

    EXPECT_EQ(disk.fileSystem().findName("C:\\ab.cfg??", Lookup::Files), "ab.cfg");
    EXPECT_EQ(disk.fileSystem().findName("C:\\ab?.cfg", Lookup::Files), "ab.cfg");
    EXPECT_EQ(disk.fileSystem().findName("C:\\?ab.cfg", Lookup::Files), std::nullopt);
}

TEST(PosixFileSystem, AFileOpenForReadIsNotOverwritten) {
    TestDisk disk;
    disk.write("C:\\a", "new");
    disk.write("C:\\b", "old");
    const auto open = disk.fileSystem().openForRead("C:\\b");

    EXPECT_EQ(failureOf([&] { disk.fileSystem().copyFile("C:\\a", "C:\\b"); }), 55);
}

TEST(PosixFileSystem, AFileMayOutliveItsFileSystem) {
    TestDisk disk;
    auto files = std::make_unique<PosixFileSystem>(disk.host("C:\\") + "/..");
    const auto file = files->openForWrite("C:\\a");

    files.reset();
    file->write("text");
    file->close();

    EXPECT_EQ(disk.read("C:\\a"), "text");
}

TEST(PosixFileSystem, ALinkToAFolderIsRemovedAndTheFolderStays) {
    TestDisk disk;
    disk.write("C:\\folder\\file", "bytes");
    std::filesystem::create_symlink(disk.host("C:\\folder"), disk.host("C:\\link"));
    std::filesystem::create_symlink(disk.host("C:\\nowhere"), disk.host("C:\\dangling"));
    std::filesystem::create_symlink(disk.host("C:\\folder\\file"), disk.host("C:\\file"));

    disk.fileSystem().removeDirectory("C:\\link");
    disk.fileSystem().removeDirectory("C:\\Dangling");
    EXPECT_EQ(failureOf([&] { disk.fileSystem().removeDirectory("C:\\file"); }), 76);

    EXPECT_EQ(disk.tree("C:"), (Lines{"file", "folder\\", "folder\\file"}));
    EXPECT_EQ(disk.read("C:\\folder\\file"), "bytes");
}

TEST(PosixFileSystem, TheHostPathHasTheStoredSpelling) {
    TestDisk disk;
    disk.makeFolder("C:\\Www");

    EXPECT_TRUE(disk.host("c:\\WWW\\New\\File").ends_with("/C/Www/New/File"));
}

}  // namespace
}  // namespace kv
