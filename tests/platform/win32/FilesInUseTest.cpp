// What the file system says of files that other programs have open: which failures may pass, and
// which will not.
#include <functional>
#include <memory>
#include <string>

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/win32/system/Handles.h"
#include "platform/win32/system/Text.h"
#include "platform/win32/system/Win32FileSystem.h"
#include "tests/support/disks/TestDisk.h"

namespace kv {
namespace {

constexpr DWORD kEverything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

struct Failure {
    int number = 0;
    bool mayPass = false;

    friend bool operator==(const Failure&, const Failure&) = default;
};

void PrintTo(const Failure& failure, std::ostream* out) {
    *out << failure.number << (failure.mayPass ? " that may pass" : "");
}

const Failure kInUse{55, true};
const Failure kRefused{75, false};

class FilesInUse : public testing::Test {
protected:
    Failure failure(const std::function<void()>& action) const {
        try {
            action();
            return {};
        } catch (const RunTimeError& error) {
            return {error.number(), error.mayPass()};
        }
    }

    std::string host(const std::string& path) const { return disk_.host(path); }

    FileHandle hold(const std::string& path, DWORD sharing, DWORD access = GENERIC_READ) const {
        return FileHandle(CreateFileW(toWide(host(path)).c_str(), access, sharing, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
    }

    bool isThere(const std::string& path) const {
        return GetFileAttributesW(toWide(host(path)).c_str()) != INVALID_FILE_ATTRIBUTES;
    }

    TestDisk disk_;
    Win32FileSystem files_;
};

TEST_F(FilesInUse, MayPassForWhoCopiesAndDeletes) {
    disk_.write("C:\\a", "text");
    disk_.write("C:\\b", "");
    const FileHandle a = hold("C:\\a", 0);
    const FileHandle b = hold("C:\\b", FILE_SHARE_READ);

    EXPECT_EQ(failure([&] { files_.copyFile(host("C:\\a"), host("C:\\c")); }), kInUse);
    EXPECT_EQ(failure([&] { files_.copyFile(host("C:\\c"), host("C:\\a")); }), (Failure{53}));
    EXPECT_EQ(failure([&] { files_.deleteFiles(host("C:\\b")); }), kInUse);
    EXPECT_EQ(failure([&] { files_.openForWrite(host("C:\\b")); }), kInUse);
    EXPECT_EQ(failure([&] { files_.openForRead(host("C:\\a")); }), kInUse);
}

TEST_F(FilesInUse, ReadOnlyOnesAndFullFoldersDoNotPass) {
    disk_.write("C:\\x\\a", "");
    disk_.makeReadOnly("C:\\x\\a");

    EXPECT_EQ(failure([&] { files_.deleteFiles(host("C:\\x\\a")); }), kRefused);
    EXPECT_EQ(failure([&] { files_.removeDirectory(host("C:\\x")); }), kRefused);
}

TEST_F(FilesInUse, ARunningProgramIsOne) {
    std::wstring self(MAX_PATH, L'\0');
    self.resize(GetModuleFileNameW(nullptr, self.data(), MAX_PATH));
    const std::wstring program = toWide(host("C:\\a.exe"));
    ASSERT_TRUE(CopyFileW(self.c_str(), program.c_str(), TRUE));
    disk_.write("C:\\newer", "a newer program");
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    ASSERT_TRUE(CreateProcessW(program.c_str(), nullptr, nullptr, nullptr, FALSE, CREATE_SUSPENDED,
                               nullptr, nullptr, &startup, &process));

    EXPECT_EQ(failure([&] { files_.deleteFiles(host("C:\\a.exe")); }), kInUse);
    EXPECT_EQ(failure([&] { files_.copyFile(host("C:\\newer"), host("C:\\a.exe")); }), kInUse);

    TerminateProcess(process.hProcess, 0);
    WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    EXPECT_EQ(failure([&] { files_.deleteFiles(host("C:\\a.exe")); }), Failure{});
}

// A new file of the name would go with the old one.
TEST_F(FilesInUse, ADeletedOneKeepsItsNameForNobodyElse) {
    disk_.write("C:\\x\\a", "old");
    disk_.write("C:\\new", "new");
    FileHandle scanner = hold("C:\\x\\a", kEverything);
    files_.deleteFiles(host("C:\\x\\a"));
    if (!isThere("C:\\x\\a")) {
        GTEST_SKIP() << "this disk lets the name go at once";
    }

    EXPECT_EQ(failure([&] { files_.copyFile(host("C:\\new"), host("C:\\x\\a")); }), kInUse);
    EXPECT_EQ(failure([&] { files_.copyFile(host("C:\\new"), host("C:\\x\\A")); }), kInUse);
    EXPECT_EQ(failure([&] { files_.openForWrite(host("C:\\x\\a")); }), kInUse);
    EXPECT_EQ(failure([&] { files_.append(host("C:\\x\\a"), "text"); }), kInUse);
    EXPECT_EQ(failure([&] { files_.removeDirectory(host("C:\\x")); }), (Failure{75, true}));
    disk_.write("C:\\x\\b", "");
    EXPECT_EQ(failure([&] { files_.removeDirectory(host("C:\\x")); }), kRefused);

    scanner = {};
    files_.copyFile(host("C:\\new"), host("C:\\x\\a"));
    EXPECT_EQ(disk_.read("C:\\x\\a"), "new");
    files_.copyFile(host("C:\\new"), host("C:\\x\\a"));
    EXPECT_EQ(failure([&] { files_.deleteFiles(host("C:\\x\\*")); }), Failure{});
    EXPECT_EQ(failure([&] { files_.removeDirectory(host("C:\\x")); }), Failure{});
}

// The byte by which appending programs take turns, the first of the two, is the same in every
// version of the wizard.
TEST_F(FilesInUse, ALockedLogIsOneUntilTheLockHasGone) {
    struct Range {
        ULONGLONG begin;
        ULONGLONG length;
    };
    for (const auto& [begin, length] :
         {Range{0x7FFFFFFFFFFFFFFE, 1}, Range{0, 0x7FFFFFFFFFFFFFFF}}) {
        disk_.write("C:\\a.log", "first");
        const FileHandle other = hold("C:\\a.log", kEverything, GENERIC_READ | GENERIC_WRITE);
        const auto low = [](ULONGLONG number) { return static_cast<DWORD>(number); };
        const auto high = [](ULONGLONG number) { return static_cast<DWORD>(number >> 32); };
        ASSERT_TRUE(LockFile(other.get(), low(begin), high(begin), low(length), high(length)));

        EXPECT_EQ(failure([&] { files_.append(host("C:\\a.log"), "second"); }), kInUse);
        EXPECT_EQ(files_.fileLength(host("C:\\a.log")), 5);

        ASSERT_TRUE(UnlockFile(other.get(), low(begin), high(begin), low(length), high(length)));
        files_.append(host("C:\\a.log"), "second");
        EXPECT_EQ(disk_.read("C:\\a.log"), "firstsecond");
    }
}

TEST_F(FilesInUse, OnesThatAreWrittenCannotBeEmptiedAndStayWhole) {
    disk_.write("C:\\a", "text");
    {
        const FileHandle reader = hold("C:\\a", FILE_SHARE_READ);
        EXPECT_EQ(failure([&] { files_.openForWrite(host("C:\\a"))->truncate(); }), kInUse);
    }
    EXPECT_EQ(disk_.read("C:\\a"), "text");

    const FileHandle reader = hold("C:\\a", FILE_SHARE_READ | FILE_SHARE_WRITE);
    const auto file = files_.openForWrite(host("C:\\a"));
    file->truncate();
    file->write("b");
    file->close();

    EXPECT_EQ(disk_.read("C:\\a"), "b");
}

class MarkedSource : public FilesInUse, public testing::WithParamInterface<DWORD> {};

TEST_P(MarkedSource, IsCopiedToAnOrdinaryFile) {
    disk_.write("C:\\a", "text");
    const std::wstring source = toWide(host("C:\\a"));
    ASSERT_TRUE(SetFileAttributesW(source.c_str(), GetParam()));
    if ((GetFileAttributesW(source.c_str()) & GetParam()) != GetParam())
        GTEST_SKIP() << "the host cannot store the attribute";

    for (int times = 0; times < 2; ++times) {
        files_.copyFile(host("C:\\a"), host("C:\\b"));
        EXPECT_EQ(GetFileAttributesW(toWide(host("C:\\b")).c_str()) &
                      (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM),
                  0u);
    }
    SetFileAttributesW(source.c_str(), FILE_ATTRIBUTE_NORMAL);
}

INSTANTIATE_TEST_SUITE_P(FilesInUse, MarkedSource,
                         testing::Values(FILE_ATTRIBUTE_READONLY, FILE_ATTRIBUTE_HIDDEN,
                                         FILE_ATTRIBUTE_SYSTEM));

}  // namespace
}  // namespace kv
