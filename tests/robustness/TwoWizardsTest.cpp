// Two wizards at work on one product at the same time, and a third in the middle of a line.
//
// KV_ROUNDS says how often (5 unless told).
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/robustness/Ground.h"
#include "tests/robustness/LogLines.h"
#include "tests/robustness/QuickUser.h"

namespace kv::endtoend {

namespace {

// Long enough for both wizards to write, and less than they wait.
constexpr DWORD kHoldMilliseconds = 200;

// Begins a line of the log as the wizard writes it, and ends it when it is destroyed.
class LineUnderWay {
public:
    explicit LineUnderWay(const std::string& log)
        : file_(CreateFileA(log.c_str(), FILE_APPEND_DATA | FILE_READ_DATA,
                            FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS, 0, nullptr)) {
        place_.Offset = 0xFFFFFFFE;
        place_.OffsetHigh = 0x7FFFFFFF;
        EXPECT_TRUE(LockFileEx(file_, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &place_));
        write("[2007/01/16 09:05:03]  WARN  75, Path/File ");
    }
    ~LineUnderWay() {
        write("access error, ioCopyFile\r\n");
        UnlockFileEx(file_, 0, 1, 0, &place_);
        CloseHandle(file_);
    }
    LineUnderWay(const LineUnderWay&) = delete;
    LineUnderWay& operator=(const LineUnderWay&) = delete;

private:
    void write(std::string_view text) {
        DWORD written = 0;
        EXPECT_TRUE(
            WriteFile(file_, text.data(), static_cast<DWORD>(text.size()), &written, nullptr));
    }

    HANDLE file_;
    OVERLAPPED place_{};
};

}  // namespace

TEST(TwoWizards, NeverTearALineOfTheLog) {
    const int rounds = countFromEnvironment("KV_ROUNDS", 5);
    const Ground ground("TwoWizards");
    // Nothing is there to be deleted and few files to be copied: each has some sixty failures, more
    // than it keeps in memory.
    Tree before = ground.before(Operation::Modify);
    for (const char* folder : {"server\\htdocs\\", "server\\cgi-bin\\", "product\\web-root\\"}) {
        std::erase_if(before, [&](const auto& item) {
            return item.first.starts_with(folder) && item.first != folder;
        });
    }
    int lines = 0;

    for (int round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
        ground.restore(before);
        std::vector<std::unique_ptr<WizardDriver>> wizards;
        for (const Site& site : {ground.first(), ground.second()}) {
            wizards.push_back(ground.start());
            ground.goToConfirmation(*wizards.back(), Operation::Modify, site);
        }
        for (const auto& wizard : wizards) pressAndLeave(*wizard, kNext);
        for (const auto& wizard : wizards) wizard->waitForOperationEnd();
        {
            const LineUnderWay line(ground.place().path(kLogFile));
            for (const auto& wizard : wizards) pressAndLeave(*wizard, kFinish);
            Sleep(kHoldMilliseconds);
        }
        for (const auto& wizard : wizards) EXPECT_EQ(wizard->waitForExit(), 0U);

        const LogLines log = readLog(ground.log());
        EXPECT_EQ(log.torn, Lines{});
        EXPECT_GE(log.whole, 121);
        lines += log.whole;
    }
    std::printf("two wizards: %d rounds, %d whole lines\n", rounds, lines);
}

}  // namespace kv::endtoend
