// Files that a web server or a scanner has open for a moment, in the very moment in which the
// wizard is to copy, to delete or to remove them; and those that stay so.
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/endtoend/driver/Waiting.h"
#include "tests/endtoend/steps/Operations.h"
#include "tests/support/Win32Thread.h"

namespace kv::endtoend {

namespace {

constexpr DWORD kNothing = 0;
constexpr DWORD kEverything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD kVisitMilliseconds = 200;
constexpr DWORD kVisitLimitMilliseconds = 10000;
constexpr ULONGLONG kBudgetMilliseconds = 1000;
constexpr ULONGLONG kToleranceMilliseconds = 600;  // of a machine with other work
constexpr int kRecordNotCopied = progressWithoutCopy(Operation::Modify);

// Another program's file, held from now on until a while after the wizard has come as far as it.
class Visit {
public:
    Visit(const Workplace& place, const std::string& path, DWORD sharing,
          std::function<bool()> wizardIsThere)
        : lock_(place.lock(path, sharing)), visitor_([this, there = std::move(wizardIsThere)] {
              comesTrue(there, kVisitLimitMilliseconds);
              Sleep(kVisitMilliseconds);
              lock_.reset();
          }) {}
    Visit(const Visit&) = delete;
    Visit& operator=(const Visit&) = delete;

private:
    std::unique_ptr<FileLock> lock_;
    Win32Thread visitor_;
};

}  // namespace

class BusyFiles : public Operations {
protected:
    std::function<bool()> isThere(const std::string& relative) const {
        return [this, relative] { return exists(relative); };
    }
    std::function<bool()> isGone(const std::string& relative) const {
        return [this, relative] { return !exists(relative); };
    }

    // Of a product that is installed and to be installed in the same place once more.
    void goToRenewal() {
        haveInstallation(old_);
        goToModification(old_);
    }

    void goToDeletion() {
        haveInstallation(old_);
        pick(kDeleteLabel, 10);
    }

    // What a deletion leaves of what is there now.
    Tree deleted() const { return afterDeletion(place().tree(), old_); }

    // Whether a deleted file that somebody still has open keeps its name.
    bool deletedNamesStay() const {
        place().write("probe", "");
        const auto lock = place().lock("probe", kEverything);
        DeleteFileA(path("probe").c_str());
        return exists("probe");
    }

    // How long the work takes from the click that confirms it.
    ULONGLONG millisecondsOf(const std::function<void()>& work) const {
        const ULONGLONG begin = GetTickCount64();
        work();
        return GetTickCount64() - begin;
    }

private:
    bool exists(const std::string& relative) const {
        return GetFileAttributesA(path(relative).c_str()) != INVALID_FILE_ATTRIBUTES;
    }
};

TEST_F(BusyFiles, ASourceThatIsHeldForAMomentIsCopied) {
    const Tree expected = afterInstallation(place().tree(), old_);
    goToInstallation(old_);

    {
        const Visit visit(place(), "product\\bin\\kvjs.exe", kNothing,
                          isThere("server\\cgi-bin\\kv\\kvimg.exe"));
        confirm();
    }

    expectTree(expected);
    expectNoLog();
}

TEST_F(BusyFiles, ADestinationThatIsHeldForAMomentIsReplaced) {
    place().write("server\\cgi-bin\\kv\\kv.exe", "an older program");
    const Tree expected = afterInstallation(place().tree(), old_);
    goToInstallation(old_);

    {
        const Visit visit(place(), "server\\cgi-bin\\kv\\kv.exe", kNothing,
                          isThere("server\\cgi-bin\\kv\\kvi"));
        confirm();
    }

    expectTree(expected);
    expectNoLog();
}

TEST_F(BusyFiles, APageThatIsServedForAMomentIsDeleted) {
    goToDeletion();
    const Tree expected = deleted();

    {
        const Visit visit(place(), "server\\htdocs\\kv\\index.html", kNothing,
                          isGone("server\\htdocs\\kv\\favicon.ico"));
        confirm();
    }

    expectTree(expected);
    expectNoLog();
}

// The file has been deleted, but its name stays until the scanner closes it.
TEST_F(BusyFiles, AFolderWhoseFileIsScannedForAMomentIsRemoved) {
    goToDeletion();
    const Tree expected = deleted();

    {
        const Visit visit(place(), "server\\cgi-bin\\kv\\kvi\\kvi.cfg", kEverything,
                          isGone("server\\htdocs\\images\\kv\\kvimg\\red_v1x2.gif"));
        confirm();
    }

    expectTree(expected);
    expectNoLog();
}

class ScannedFile : public BusyFiles, public testing::WithParamInterface<const char*> {
protected:
    std::string scanned() const { return "server\\" + std::string(GetParam()); }
};

TEST_P(ScannedFile, IsThereAfterItsRenewal) {
    goToRenewal();
    const Tree expected = place().tree();

    {
        const Visit visit(place(), scanned(), kEverything,
                          isGone("server\\htdocs\\images\\kv\\kvimg\\red_dot1x1.gif"));
        confirm();
    }

    expectTree(expected);
    expectNoLog();
}

INSTANTIATE_TEST_SUITE_P(All, ScannedFile,
                         testing::Values("cgi-bin\\kv\\kvi\\kvi.cfg", "cgi-bin\\kv\\kv.exe",
                                         "htdocs\\kv\\index.html",
                                         "htdocs\\images\\kv\\kvimg\\red_v1x2.gif"),
                         [](const testing::TestParamInfo<const char*>& which) {
                             std::string name;
                             for (const char* c = which.param; *c != '\0'; ++c)
                                 name += isalnum(static_cast<unsigned char>(*c)) ? *c : '_';
                             return name;
                         });

// Where the name goes at once, nothing is in the way of the new file.
TEST_F(BusyFiles, AProgramThatStaysScannedIsMissingAndTheLogSaysSo) {
    const bool namesStay = deletedNamesStay();
    goToRenewal();
    Tree expected = place().tree();
    auto lock = place().lock("server\\cgi-bin\\kv\\kv.exe", kEverything);

    confirm();

    lock.reset();
    if (namesStay) {
        expected.erase("server\\cgi-bin\\kv\\kv.exe");
        expectTreeBesideLog(expected);
        expectLog({std::string(kFolderNotEmpty), std::string(kLockedCopy)});
    } else {
        expectTree(expected);
        expectNoLog();
    }
}

TEST_F(BusyFiles, AServersRecordThatStaysScannedIsMissingAndTheLogSaysSo) {
    const bool namesStay = deletedNamesStay();
    goToRenewal();
    Tree expected = place().tree();
    auto lock = place().lock("server\\cgi-bin\\kv\\kvi\\kvi.cfg", kEverything);

    confirm(kCompletedTitle, kCompleted, namesStay ? kRecordNotCopied : kProgressDone);

    lock.reset();
    if (namesStay) {
        expected.erase("server\\cgi-bin\\kv\\kvi\\kvi.cfg");
        expectTreeBesideLog(expected);
        expectLog({std::string(kFolderNotEmpty), std::string(kFolderNotEmpty),
                   std::string(kRecordLocked)});
    } else {
        expectTree(expected);
        expectNoLog();
    }
}

// The second is for all of an operation, however many files are in use.
TEST_F(BusyFiles, ThatStayBusyCostASecondInAllAndAreLoggedOnceEach) {
    goToRenewal();
    const ULONGLONG undisturbed = millisecondsOf([this] {
        wizard().click(kNext);
        wizard().waitForOperationEnd();
    });
    finish();
    expectNoLog();
    goToModification(old_);
    const Tree expected = place().tree();
    std::vector<std::unique_ptr<FileLock>> locks;
    for (const std::string_view name : kPrograms)
        locks.push_back(place().lock("server\\cgi-bin\\kv\\" + std::string(name)));

    const ULONGLONG disturbed = millisecondsOf([this] {
        wizard().click(kNext);
        wizard().waitForOperationEnd();
    });

    EXPECT_LT(disturbed, undisturbed + kBudgetMilliseconds + kToleranceMilliseconds);
    EXPECT_EQ(wizard().progressWidth(), kProgressDone);
    finish();
    locks.clear();
    expectTreeBesideLog(expected);
    expectLog(times(kPrograms.size(), kLockedDeletion) + times(1, kFolderNotEmpty) +
              times(kPrograms.size(), kLockedCopy));
}

// A folder that holds files of other people will not get empty by waiting.
TEST_F(BusyFiles, FoldersOfOtherPeopleCostASecondInAll) {
    goToDeletion();
    for (const std::string& folder : deployedFolders(old_))
        place().write(folder + "\\own.txt", "the administrator's own");

    const ULONGLONG milliseconds = millisecondsOf([this] {
        wizard().click(kNext);
        wizard().waitForOperationEnd();
    });

    EXPECT_LT(milliseconds, 2 * kBudgetMilliseconds + kToleranceMilliseconds);
    finish();
    expectLog(times(kRemovedFolderCount, kFolderNotEmpty));
}

}  // namespace kv::endtoend
