// The record of the installation, which another program holds open while it is to be rewritten. It
// is the one file that knows what is installed where, so it is whole afterwards, or nothing of it
// was touched and the log says so.
#include <cstdio>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/endtoend/steps/Operations.h"

namespace kv::endtoend {

namespace {

constexpr int kDeletionStoppedShort = progressBeforeRecord(Operation::Delete) / kTwipsOfAPixel;

using Hold = std::shared_ptr<const void>;

struct Holder {
    std::string_view name;
    std::function<Hold(const std::string& path)> hold;
    bool letsBeWritten;
};

void PrintTo(const Holder& which, std::ostream* out) { *out << which.name; }

auto opening(DWORD sharing, DWORD access = GENERIC_READ) {
    return
        [=](const std::string& path) { return std::make_shared<FileLock>(path, sharing, access); };
}

// As most programs do, whether or not they ever heard of sharing.
auto openingByLibrary(const char* mode) {
    return [=](const std::string& path) {
        return std::shared_ptr<std::FILE>(std::fopen(path.c_str(), mode), std::fclose);
    };
}

constexpr DWORD kRead = FILE_SHARE_READ;
constexpr DWORD kWrite = FILE_SHARE_WRITE;
constexpr DWORD kDelete = FILE_SHARE_DELETE;

const Holder kHolders[] = {
    {"ReaderSharingNothing", opening(0), false},
    {"ReaderSharingReading", opening(kRead), false},
    {"ReaderSharingWriting", opening(kWrite), true},
    {"ReaderSharingDeletion", opening(kDelete), false},
    {"ReaderSharingReadingAndWriting", opening(kRead | kWrite), true},
    {"ReaderSharingReadingAndDeletion", opening(kRead | kDelete), false},
    {"ReaderSharingWritingAndDeletion", opening(kWrite | kDelete), true},
    {"ReaderSharingEverything", opening(kRead | kWrite | kDelete), true},
    {"ReaderOfTheLibrary", openingByLibrary("rb"), true},
    // The wizard lets nobody else write meanwhile, so it cannot begin either.
    {"WriterSharingEverything", opening(kRead | kWrite | kDelete, GENERIC_READ | GENERIC_WRITE),
     false},
    {"WriterOfTheLibrary", openingByLibrary("r+b"), false},
};

}  // namespace

class HeldRecord : public Operations, public testing::WithParamInterface<Holder> {
protected:
    bool written() const { return GetParam().letsBeWritten; }

    void confirmWhileHeld(int progress = kProgressDone) {
        const Hold hold = GetParam().hold(path(settingsPath()));
        ASSERT_TRUE(hold);
        confirm(kCompletedTitle, kCompleted, progress);
    }

    // The record is there as it was before when it could not be written.
    void expectOutcome(Tree expected, const Tree& before) const {
        if (written()) {
            expectTree(expected);
            expectNoLog();
        } else {
            expected[settingsPath()] = before.at(settingsPath());
            expectTreeBesideLog(expected);
            expectLog({std::string(kRecordLocked)});
        }
    }

    // A modification that begins now starts from the server's folders.
    void expectRecorded(const Site& site) {
        pick(kModifyLabel, 1);
        next(wizard(), 6);
        next(wizard(), 7);
        EXPECT_EQ(wizard().fieldText(0), path(site.home));
        EXPECT_EQ(wizard().fieldText(1), path(site.scripts));
    }
};

TEST_P(HeldRecord, IsWholeOrUntouchedAfterAModification) {
    haveInstallation(old_);
    const Tree before = place().tree();
    goToModification(new_);

    confirmWhileHeld();

    expectOutcome(afterModification(before, old_, new_), before);
    expectRecorded(written() ? new_ : old_);
}

TEST_P(HeldRecord, IsWholeOrUntouchedAfterADeletion) {
    haveInstallation(old_);
    const Tree before = place().tree();
    pick(kDeleteLabel, 10);

    confirmWhileHeld(written() ? kProgressDone : kDeletionStoppedShort);

    expectOutcome(afterDeletion(before, old_), before);
    if (written()) {
        start();
        EXPECT_TRUE(wizard().shows(kWelcomeFirst));
    } else {
        expectRecorded(old_);
    }
}

TEST_P(HeldRecord, IsWholeOrUntouchedAfterANewInstallation) {
    const Tree before = place().tree();
    goToInstallation(old_);

    confirmWhileHeld();

    expectOutcome(afterInstallation(before, old_), before);
    if (written()) {
        expectRecorded(old_);
    } else {
        start();
        EXPECT_TRUE(wizard().shows(kWelcomeFirst));
    }
}

INSTANTIATE_TEST_SUITE_P(All, HeldRecord, testing::ValuesIn(kHolders),
                         [](const testing::TestParamInfo<Holder>& which) {
                             return std::string(which.param.name);
                         });

}  // namespace kv::endtoend
