#include "platform/win32/system/Win32FileSystem.h"

#include <algorithm>
#include <list>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/win32/system/Handles.h"
#include "platform/win32/system/Text.h"
#include "tests/support/Win32Thread.h"
#include "tests/support/disks/TestDisk.h"

namespace kv {
namespace {

// Uses the paths of the host: what is tested here is how they are handed to Windows.
class Win32FileSystemTest : public testing::Test {
protected:
    TestDisk disk_;
    Win32FileSystem files_;
    const std::string folder_ = disk_.host("C:");
};

// Folders below the test's own, nested until a path is far beyond 260 characters. They are made
// and removed by the file system under test, since other code could not reach them.
class LongPathTest : public Win32FileSystemTest {
protected:
    static constexpr int kLevels = 4;

    LongPathTest() {
        for (int level = 0; level < kLevels; ++level) {
            folders_.push_back((folders_.empty() ? folder_ : folders_.back()) + "\\" +
                               std::string(100, static_cast<char>('a' + level)));
            files_.makeDirectory(folders_.back());
        }
    }

    ~LongPathTest() override {
        while (!folders_.empty()) {
            failureOf([&] { files_.deleteFiles(folders_.back() + "\\*"); });
            EXPECT_EQ(failureOf([&] { files_.removeDirectory(folders_.back()); }), 0);
            folders_.pop_back();
        }
    }

    std::string deep(const std::string& name) const { return folders_.back() + "\\" + name; }

    Lines folders_;
};

TEST_F(LongPathTest, EveryOperationWorks) {
    ASSERT_GT(deep("").size(), 400u);

    files_.openForWrite(deep("a.txt"))->write("text");
    files_.append(deep("a.txt"), " more");
    files_.copyFile(deep("a.txt"), deep("b.txt"));

    EXPECT_EQ(files_.fileLength(deep("b.txt")), 9);
    std::string buffer(9, '.');
    EXPECT_EQ(files_.openForRead(deep("b.txt"))->read(buffer), 9u);
    EXPECT_EQ(buffer, "text more");
    EXPECT_EQ(files_.findName(deep("B.TXT"), Lookup::Files), "b.txt");
    EXPECT_EQ(files_.findName(deep("b.*"), Lookup::Files), "b.txt");
    files_.deleteFiles(deep("*.txt"));
    EXPECT_EQ(files_.findName(deep(""), Lookup::FilesAndFolders), std::nullopt);
}

TEST_F(LongPathTest, FailuresHaveTheSameNumbers) {
    EXPECT_EQ(failureOf([&] { files_.openForRead(deep("a")); }), 53);
    EXPECT_EQ(failureOf([&] { files_.openForWrite(deep("missing\\a")); }), 76);
    EXPECT_EQ(failureOf([&] { files_.makeDirectory(folders_.back()); }), 75);
    EXPECT_EQ(failureOf([&] { files_.deleteFiles(deep("*.txt")); }), 53);
    EXPECT_EQ(failureOf([&] { files_.makeDirectory(deep("a|b")); }), 52);
}

TEST_F(LongPathTest, OddSpellingsOfAPathWork) {
    files_.append(deep("a"), "text");
    const std::string name = folders_.back().substr(folder_.size());

    EXPECT_EQ(files_.fileLength(folder_ + "\\\\" + name + "/a"), 4);
    EXPECT_EQ(files_.fileLength(folder_ + "\\." + name + "\\.\\a"), 4);
    EXPECT_EQ(files_.fileLength(deep("missing\\..\\a")), 4);
    EXPECT_EQ(files_.fileLength(deep("a. ")), 4);
}

TEST_F(LongPathTest, APathInTheUnlimitedFormIsLeftAlone) {
    files_.append(deep("a"), "text");

    EXPECT_EQ(files_.fileLength("\\\\?\\" + deep("a")), 4);
}

// As two wizards do whose logs are one file.
TEST_F(Win32FileSystemTest, WhatIsAppendedAtTheSameTimeIsAllThere) {
    constexpr int kLines = 1000;
    const std::string path = folder_ + "\\a.log";
    const Lines lines{"one\n", "another\n", "a third\n"};
    std::list<Win32Thread> writers;
    for (const std::string& line : lines) {
        writers.emplace_back([&path, &line] {
            Win32FileSystem files;
            for (int i = 0; i < kLines;)
                if (failureOf([&] { files.append(path, line); }) == 0) ++i;
        });
    }
    for (const Win32Thread& writer : writers) writer.join();

    const std::string log = disk_.read("C:\\a.log");
    for (const std::string& line : lines) {
        int count = 0;
        for (std::size_t at = log.find(line); at != std::string::npos; at = log.find(line, at + 1))
            ++count;
        EXPECT_EQ(count, kLines) << line;
    }
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 3 * kLines);
}

// From 244 to 262 characters, over each of Windows' limits. Wine has no such limits: there this
// shows only that the unlimited form is right.
TEST_F(Win32FileSystemTest, PathsOfEveryLengthAroundTheLimitWork) {
    const std::string folder = folder_ + "\\" + std::string(200 - folder_.size(), 'f');
    files_.makeDirectory(folder);
    for (std::size_t length = 244; length <= 262; ++length) {
        const std::string path = folder + "\\" + std::string(length - folder.size() - 1, 'x');
        ASSERT_EQ(path.size(), length);

        files_.makeDirectory(path);
        EXPECT_EQ(failureOf([&] { files_.makeDirectory(path); }), 75) << length;
        files_.removeDirectory(path);
        files_.append(path, "text");
        EXPECT_EQ(files_.fileLength(path), 4) << length;
        EXPECT_EQ(files_.findName(path, Lookup::Files), path.substr(folder.size() + 1)) << length;
        files_.deleteFiles(folder + "\\x*");
        EXPECT_EQ(files_.findName(path, Lookup::Files), std::nullopt) << length;
    }
    files_.removeDirectory(folder);
}

TEST_F(Win32FileSystemTest, NamesOfTheCodePageAreKept) {
    if (GetACP() != 1252) GTEST_SKIP() << "the name is one of the code page 1252";
    const std::string path = folder_ + "\\M\xFCller";
    const std::wstring widePath = toWide(folder_) + L"\\M\u00FCller";
    CreateDirectoryW(widePath.c_str(), nullptr);
    if (!RemoveDirectoryW(widePath.c_str())) GTEST_SKIP() << "the host cannot store the name";

    files_.makeDirectory(path);

    EXPECT_NE(GetFileAttributesW(widePath.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(files_.findName(path, Lookup::FilesAndFolders), "M\xFCller");
    files_.removeDirectory(path);
}

// Such a file is found by no name, but is a file like any other to a pattern.
TEST_F(Win32FileSystemTest, AFileWhoseNameTheCodePageDoesNotHoldIsDeletedByWildcard) {
    const std::wstring path = toWide(folder_) + L"\\\u2603.txt";
    const FileHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_DELETE, nullptr,
                                      CREATE_NEW, FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    if (!file) GTEST_SKIP() << "the host cannot store the name";

    EXPECT_EQ(files_.findName(folder_ + "\\*.txt", Lookup::Files), fromWide(L"\u2603.txt"));
    EXPECT_EQ(failureOf([&] { files_.deleteFiles(folder_ + "\\*.txt"); }), 0);
}

class HiddenEntryTest : public Win32FileSystemTest, public testing::WithParamInterface<DWORD> {};

TEST_P(HiddenEntryTest, IsListedAmongAllEntriesAndNotAmongFiles) {
    disk_.write("C:\\x\\a.txt", "text");
    const std::string path = disk_.host("C:\\x\\a.txt");
    const std::wstring widePath = toWide(path);
    ASSERT_TRUE(SetFileAttributesW(widePath.c_str(), GetParam()));
    if ((GetFileAttributesW(widePath.c_str()) & GetParam()) == 0)
        GTEST_SKIP() << "the host cannot store the attribute";

    EXPECT_EQ(files_.findName(path, Lookup::Files), std::nullopt);
    EXPECT_EQ(files_.findName(path, Lookup::FilesAndFolders), "a.txt");
    EXPECT_EQ(failureOf([&] { files_.deleteFiles(disk_.host("C:\\x") + "\\*.txt"); }), 53);
    EXPECT_EQ(files_.fileLength(path), 4);
    files_.deleteFiles(path);
    EXPECT_FALSE(disk_.exists("C:\\x\\a.txt"));
}

TEST_P(HiddenEntryTest, IsAFolderLikeAnyOther) {
    const std::string path = disk_.host("C:\\x");
    disk_.makeFolder("C:\\x");
    const std::wstring widePath = toWide(path);
    ASSERT_TRUE(SetFileAttributesW(widePath.c_str(), GetParam()));
    if ((GetFileAttributesW(widePath.c_str()) & GetParam()) == 0)
        GTEST_SKIP() << "the host cannot store the attribute";

    EXPECT_EQ(files_.findName(path, Lookup::FilesAndFolders), "x");
    EXPECT_EQ(files_.findName(path, Lookup::Files), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Win32FileSystem, HiddenEntryTest,
                         testing::Values(FILE_ATTRIBUTE_HIDDEN, FILE_ATTRIBUTE_SYSTEM));

}  // namespace
}  // namespace kv
