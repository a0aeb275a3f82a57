#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/Scenario.h"

namespace kv::endtoend {

namespace {

constexpr long kFullLog = 500000;

std::string logName(int number) {
    const std::string digits = std::to_string(number);
    return "product\\log\\kvwcfg" + std::string(digits.size() == 1 ? "0" : "") + digits + ".log";
}

}  // namespace

class LogFile : public Scenario {
protected:
    // The least that leaves an entry: a start without settings.
    void runWithOneFailure() {
        place().remove(settingsPath());
        start(12);
        finish();
    }

    long lengthOf(int number) const {
        return static_cast<long>(std::filesystem::file_size(place().path(logName(number))));
    }
};

TEST_F(LogFile, EntriesOfEarlierRunsStay) {
    place().write(logName(0), "an earlier entry\r\n");

    runWithOneFailure();

    const std::string log = place().read(logName(0));
    ASSERT_TRUE(log.starts_with("an earlier entry\r\n"));
    EXPECT_EQ(logEntries(log.substr(18)), Lines{"SERV  53, File not found, iocCfgReadFile"});
}

TEST_F(LogFile, FileBelowItsLimitIsAppendedTo) {
    place().makeFileOfLength(logName(0), kFullLog - 1);

    runWithOneFailure();

    EXPECT_GT(lengthOf(0), kFullLog);
    EXPECT_FALSE(place().exists(logName(1)));
}

TEST_F(LogFile, FileAtItsLimitIsFollowedByTheNext) {
    place().makeFileOfLength(logName(0), kFullLog);
    place().makeFileOfLength(logName(1), kFullLog + 1);

    runWithOneFailure();

    EXPECT_EQ(lengthOf(0), kFullLog);
    EXPECT_EQ(lengthOf(1), kFullLog + 1);
    EXPECT_EQ(logEntries(place().read(logName(2))).size(), 1U);
}

TEST_F(LogFile, LastFileTakesEverythingWhenAllAreFull) {
    for (int number = 0; number <= 50; ++number)
        place().makeFileOfLength(logName(number), kFullLog);

    runWithOneFailure();

    for (int number = 0; number < 50; ++number) EXPECT_EQ(lengthOf(number), kFullLog) << number;
    EXPECT_GT(lengthOf(50), kFullLog);
    EXPECT_FALSE(place().exists(logName(51)));
}

TEST_F(LogFile, IsNamedAfterTheProgram) {
    place().write("product\\bin\\setup.exe", place().read("product\\bin\\kvwcfg.exe"));
    place().remove(settingsPath());

    startFrom(place().path("product\\bin\\setup.exe"), place().root());
    wizard().waitForPanel(12);
    finish();

    EXPECT_TRUE(place().exists("product\\log\\setup00.log"));
    expectNoLog();
}

TEST_F(LogFile, LockedLogFileStopsNothing) {
    place().write(logName(0), "an earlier entry\r\n");
    const auto lock = place().lock(logName(0), FILE_SHARE_READ);

    runWithOneFailure();

    EXPECT_EQ(place().read(logName(0)), "an earlier entry\r\n");
}

}  // namespace kv::endtoend
