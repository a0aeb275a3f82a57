// The wizard is killed in the middle of its work, at moments spread over the whole of it. What lies
// on the disk then is never beyond what the wizard itself, or a copy that the administrator has,
// brings in order again.
//
// KV_KILLS says how often (10 unless told); the figures are printed at the end.
#include <algorithm>
#include <cstdio>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/robustness/Ground.h"
#include "tests/robustness/LogLines.h"
#include "tests/robustness/QuickUser.h"

namespace kv::endtoend {

namespace {

constexpr Operation kOperations[] = {Operation::New, Operation::Modify, Operation::Delete,
                                     Operation::Backup, Operation::Upgrade};

// What a kill leaves of the file of settings.
enum class Left { Old, New, Missing, Empty, Part };

constexpr double kClosingSeconds = 0.02;

constexpr std::string_view kLeftNames[] = {"as before", "as after", "missing", "empty", "in part"};

double now() {
    LARGE_INTEGER counter;
    LARGE_INTEGER frequency;
    QueryPerformanceCounter(&counter);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(counter.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// Sleeping is too coarse for moments within an operation.
void waitSeconds(double seconds) {
    const double end = now() + seconds;
    while (now() < end) YieldProcessor();
}

}  // namespace

class Kill : public testing::Test {
protected:
    Kill() { start_ = ground_.place().tree(); }

    // One run that nobody disturbs: what it leaves, and how long its work takes.
    void learn(Operation operation) {
        ground_.restore(start_);
        before_ = ground_.before(operation);
        runUndisturbed(operation);
        ASSERT_EQ(ground_.log(), "");
    }

    void runUndisturbed(Operation operation) {
        ground_.restore(before_);
        const auto wizard = ground_.start();
        ground_.goToConfirmation(*wizard, operation);
        const double begin = now();
        press(*wizard, kNext);
        seconds_ = now() - begin;
        wizard->waitForOperationEnd();
        pressAndLeave(*wizard, kFinish);
        wizard->waitForExit();
        after_ = ground_.place().tree();
    }

    void killAfter(Operation operation, double seconds) {
        ground_.restore(before_);
        auto wizard = ground_.start();
        ground_.goToConfirmation(*wizard, operation);
        pressAndLeave(*wizard, kNext);
        waitSeconds(seconds);
        wizard.reset();  // kills it
    }

    // Kills as soon as the file of settings has gone from its place.
    void killWithoutSettings(Operation operation) {
        ground_.restore(before_);
        const std::wstring path = wide(ground_.place().path(kSettings));
        auto wizard = ground_.start();
        ground_.goToConfirmation(*wizard, operation);
        pressAndLeave(*wizard, kNext);
        const double end = now() + 10;
        WIN32_FILE_ATTRIBUTE_DATA old{};
        WIN32_FILE_ATTRIBUTE_DATA present{};
        GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &old);
        do {
            if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &present)) break;
        } while (CompareFileTime(&present.ftLastWriteTime, &old.ftLastWriteTime) == 0 &&
                 now() < end);
        wizard.reset();
    }

    Left settingsLeft() const {
        if (!ground_.place().exists(kSettings)) return Left::Missing;
        const std::string bytes = ground_.place().read(kSettings);
        if (bytes == before_.at(kSettings)) return Left::Old;
        if (bytes == after_.at(kSettings)) return Left::New;
        return bytes.empty() ? Left::Empty : Left::Part;
    }

    // The wizard starts and shows what the rules say for such a file; nobody does anything in it.
    void expectStart(Left left, Operation operation) const {
        const auto wizard = ground_.start();
        if (left == Left::Missing || left == Left::Empty) {
            EXPECT_EQ(wizard->currentPanel(), 12);
        } else if (left != Left::Part) {
            EXPECT_EQ(wizard->currentPanel(), 0);
            EXPECT_TRUE(
                wizard->shows(isConfigured(left, operation) ? kWelcomeConfigured : kWelcomeFirst));
        }
    }

    static bool isConfigured(Left left, Operation operation) {
        switch (operation) {
            case Operation::New:
            case Operation::Upgrade: return left == Left::New;
            case Operation::Delete: return left == Left::Old;
            case Operation::Modify:
            case Operation::Backup: return true;
        }
        return false;
    }

    // Whether the wizard offers the operation once more.
    static bool isOffered(Left left, Operation operation) {
        const bool readable = left == Left::Old || left == Left::New;
        const bool wantsConfigured = operation != Operation::New && operation != Operation::Upgrade;
        return readable && isConfigured(left, operation) == wantsConfigured;
    }

    // Once more, or after what the guide says; the disk is then as after an undisturbed run.
    void expectRecovery(Left left, Operation operation) {
        const bool offered = isOffered(left, operation);
        Tree expected = after_;
        if (offered || left != Left::New) {
            if (!offered) ground_.place().write(kSettings, before_.at(kSettings));
            ground_.run(operation);
        } else if (operation == Operation::New) {
            // Only the help page, which comes last, has no other way to its place.
            const std::string page = "product\\hlp\\eng\\kvhexiteng.html";
            ground_.run(Operation::Modify, ground_.first());
            expected[page] = ground_.place().read(page);
        } else if (operation == Operation::Upgrade) {
            ground_.place().write(kSettings, before_.at(kSettings));
            const std::string main = "product\\cfg\\general\\korvane.cfg";
            const bool migrated = ground_.place().read(main) == after_.at(main);
            expected[main] += migrated ? "\r\n" : "";  // one more with each upgrade
            ground_.run(operation);
        }
        expected.erase(kLogFile);
        EXPECT_EQ(differences(expected, ground_.treeBesideLog()), "");
    }

    void expectWholeLog() const { EXPECT_EQ(readLog(ground_.log()).torn, Lines{}); }

    // After a kill: everything that is promised.
    void expectPromises(Operation operation) {
        const Left left = settingsLeft();
        ++found_[left];
        const Tree present = ground_.treeBesideLog();
        inBetween_ += present != before_ && present != after_ ? 1 : 0;
        offered_ += isOffered(left, operation) ? 1 : 0;
        ++kills_;
        expectStart(left, operation);
        expectRecovery(left, operation);
        expectWholeLog();
    }

    void report(std::string_view what) const {
        std::printf("%.*s: %d kills; settings", static_cast<int>(what.size()), what.data(), kills_);
        for (const auto& [left, count] : found_) {
            const std::string_view name = kLeftNames[static_cast<std::size_t>(left)];
            std::printf(" %.*s %d,", static_cast<int>(name.size()), name.data(), count);
        }
        std::printf(" work half done %d, operation offered again %d\n", inBetween_, offered_);
    }

    static std::wstring wide(const std::string& text) { return {text.begin(), text.end()}; }

    Ground ground_{"Kill"};
    Tree start_;
    Tree before_;
    Tree after_;
    double seconds_ = 0;
    std::map<Left, int> found_;
    int kills_ = 0;
    int offered_ = 0;
    int inBetween_ = 0;
};

class KillAnywhere : public Kill, public testing::WithParamInterface<Operation> {};

TEST_P(KillAnywhere, LosesNothingThatCannotBeBroughtBack) {
    const int kills = std::max(1, countFromEnvironment("KV_KILLS", 10) / 5);
    const Operation operation = GetParam();
    learn(operation);
    std::mt19937 random(12345);
    std::uniform_real_distribution<double> within(0, 1);

    for (int i = 0; i < kills && !HasFailure(); ++i) {
        // One in each of as many equal parts, somewhere in it.
        const double moment = seconds_ * 1.05 * (i + within(random)) / kills;
        SCOPED_TRACE(std::string(nameOf(operation)) + " killed after " + std::to_string(moment) +
                     " of " + std::to_string(seconds_) + " seconds");
        killAfter(operation, moment);
        expectPromises(operation);
    }
    report(nameOf(operation));
}

INSTANTIATE_TEST_SUITE_P(All, KillAnywhere, testing::ValuesIn(kOperations),
                         [](const testing::TestParamInfo<Operation>& which) {
                             std::string name(nameOf(which.param));
                             std::replace(name.begin(), name.end(), ' ', '_');
                             return name;
                         });

// Aimed at the one moment in which the design leaves no settings: between the old file's deletion
// and the end of the new one's writing.
TEST_F(Kill, WhileTheSettingsAreWrittenLeavesNothingThatCannotBeBroughtBack) {
    const int kills = std::max(1, countFromEnvironment("KV_KILLS", 10) / 5);
    for (const Operation operation : {Operation::Modify, Operation::Delete}) {
        learn(operation);
        for (int i = 0; i < kills && !HasFailure(); ++i) {
            killWithoutSettings(operation);
            expectPromises(operation);
        }
    }
    report("aimed at the settings");
}

// With so many failures that the log is written in the middle of the work and once more at the end.
TEST_F(Kill, WhileTheLogIsWrittenTearsNoLine) {
    const int kills = std::max(1, countFromEnvironment("KV_KILLS", 10) / 5);
    before_ = ground_.before(Operation::Modify);
    for (const char* folder : {"server\\htdocs\\", "server\\cgi-bin\\", "product\\web-root\\"}) {
        std::erase_if(before_, [&](const auto& item) {
            return item.first.starts_with(folder) && item.first != folder;
        });
    }
    runUndisturbed(Operation::Modify);
    const LogLines undisturbed = readLog(ground_.log());
    ASSERT_GE(undisturbed.whole, 60);
    std::mt19937 random(54321);
    std::uniform_real_distribution<double> within(0, 1);

    std::map<int, int> found;
    for (int i = 0; i < kills && !HasFailure(); ++i) {
        ground_.restore(before_);
        auto wizard = ground_.start();
        ground_.goToConfirmation(*wizard, Operation::Modify);
        const bool atTheEnd = i % 2 == 0;
        if (atTheEnd) {
            press(*wizard, kNext);
            wizard->waitForOperationEnd();
        }
        pressAndLeave(*wizard, atTheEnd ? kFinish : kNext);
        waitSeconds(within(random) * (atTheEnd ? kClosingSeconds : seconds_));
        wizard.reset();

        const LogLines left = readLog(ground_.log());
        EXPECT_EQ(left.torn, Lines{});
        ++found[left.whole];
    }
    std::printf("at the writing of the log: %d kills; lines left", kills);
    for (const auto& [lines, count] : found) std::printf(" %d: %d times,", lines, count);
    std::printf(" none torn\n");
}

}  // namespace kv::endtoend
