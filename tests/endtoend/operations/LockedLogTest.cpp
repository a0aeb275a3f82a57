// A log that another program holds locked: the wizard waits for it a moment, as for another
// wizard's entries, and then keeps its own until it can write them.
#include <cstdint>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/endtoend/steps/Operations.h"

namespace kv::endtoend {

namespace {

const std::string kLog = "product\\log\\kvwcfg00.log";
constexpr std::string_view kEarlier =
    "[2026/11/22 10:00:00]  WARN  75, an earlier entry, ioCopyFile\r\n";
constexpr std::string_view kEarlierEntry = "WARN  75, an earlier entry, ioCopyFile";
constexpr ULONGLONG kLimitMilliseconds = 2500;

struct Range {
    std::string_view name;
    std::uint64_t begin;
    std::uint64_t length;
};

void PrintTo(const Range& which, std::ostream* out) { *out << which.name; }

DWORD low(std::uint64_t number) { return static_cast<DWORD>(number); }
DWORD high(std::uint64_t number) { return static_cast<DWORD>(number >> 32); }

// Locks the range of the file, all others let in, as long as the object lives.
class RangeLock {
public:
    RangeLock(const std::string& path, const Range& range)
        : file_(CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE,
                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                            OPEN_EXISTING, 0, nullptr)) {
        OVERLAPPED place{};
        place.Offset = low(range.begin);
        place.OffsetHigh = high(range.begin);
        if (!LockFileEx(file_, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0,
                        low(range.length), high(range.length), &place)) {
            CloseHandle(file_);
            throw std::runtime_error("cannot lock " + path);
        }
    }
    ~RangeLock() { CloseHandle(file_); }
    RangeLock(const RangeLock&) = delete;
    RangeLock& operator=(const RangeLock&) = delete;

private:
    HANDLE file_;
};

}  // namespace

class LockedLog : public Operations, public testing::WithParamInterface<Range> {
protected:
    LockedLog() { place().write(kLog, kEarlier); }

    void lock() { lock_.emplace(path(kLog), GetParam()); }
    void unlock() { lock_.reset(); }

    // An operation with so many failures that the log is written in the middle of it, and again for
    // each one after that as long as it cannot be: nothing is there to be deleted or copied.
    Lines goToManyFailures() {
        haveInstallation(old_);
        for (const char* folder : {"server\\htdocs", "server\\cgi-bin", "product\\web-root"}) {
            place().remove(folder);
            place().makeFolder(folder);
        }
        for (const Copy& copy : programCopies(old_)) place().remove(copy.from);
        goToModification(old_);
        constexpr std::string_view kNoFolder = "WARN  76, Path not found, ioDeleteDirectory";
        constexpr std::string_view kNoEntry = "SERV  53, File not found, ioDeleteDirectory";
        return times(1, kEarlierEntry) +
               times(kDeletedFileCount, "WARN  76, Path not found, ioDeleteFile") +
               times(1, kNoFolder) + times(1, kNoEntry) + times(3, kNoFolder) + times(1, kNoEntry) +
               times(kProgramFileCount, kMissingSource) + times(3, kMissingPath) +
               times(3, kMissingSource) + times(kImages.size(), kMissingPath);
    }

private:
    std::optional<RangeLock> lock_;
};

TEST_P(LockedLog, KeepsNobodyFromLeaving) {
    place().remove(settingsPath());
    start(12);
    lock();
    const ULONGLONG begin = GetTickCount64();

    finish();

    EXPECT_LT(GetTickCount64() - begin, kLimitMilliseconds);
    unlock();
    EXPECT_EQ(place().read(kLog), kEarlier);
}

TEST_P(LockedLog, StopsNoOperationAndGetsItsEntriesWhenTheLockHasGone) {
    const Lines entries = goToManyFailures();
    lock();
    const ULONGLONG begin = GetTickCount64();

    wizard().click(kNext);
    wizard().waitForOperationEnd();

    EXPECT_LT(GetTickCount64() - begin, kLimitMilliseconds);
    EXPECT_EQ(wizard().progressWidth(), kProgressDone);
    EXPECT_TRUE(wizard().shows(kCompleted));
    unlock();
    finish();
    expectLog(entries);
}

TEST_P(LockedLog, ThatStaysLockedIsLeftAsItIs) {
    goToManyFailures();
    lock();
    const ULONGLONG begin = GetTickCount64();

    confirm();

    EXPECT_LT(GetTickCount64() - begin, 2 * kLimitMilliseconds);
    unlock();
    EXPECT_EQ(place().read(kLog), kEarlier);
}

INSTANTIATE_TEST_SUITE_P(All, LockedLog,
                         // By the first, wizards take turns.
                         testing::Values(Range{"ByteFarBehindTheEnd", 0x7FFFFFFFFFFFFFFE, 1},
                                         Range{"WholeFile", 0, 0x7FFFFFFFFFFFFFFF}),
                         [](const testing::TestParamInfo<Range>& which) {
                             return std::string(which.param.name);
                         });

}  // namespace kv::endtoend
