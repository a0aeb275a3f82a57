// Files that are links to others, as an administrator makes who keeps them in another place: what
// counts is the file that is led to.
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/endtoend/steps/Operations.h"

namespace kv::endtoend {

namespace {

const std::string kFirstLog = "product\\log\\kvwcfg00.log";
const std::string kSecondLog = "product\\log\\kvwcfg01.log";
constexpr long kFullLog = 500000;

}  // namespace

class Links : public Operations {};

TEST_F(Links, TheRecordIsReadWhole) {
    haveInstallation(old_);
    place().write("elsewhere\\record.cfg", recordOf(old_));
    place().remove(settingsPath());
    if (!place().link(settingsPath(), "elsewhere\\record.cfg"))
        GTEST_SKIP() << "this system lets this user make no links";

    pick(kModifyLabel, 1);

    EXPECT_TRUE(wizard().isChosen(kInstalledApache));
    next(wizard(), 6);
    next(wizard(), 7);
    EXPECT_EQ(wizard().fieldText(0), path(old_.home));
    EXPECT_EQ(wizard().fieldText(1), path(old_.scripts));
}

TEST_F(Links, TheLogIsFullWhenItsTargetIs) {
    place().makeFileOfLength("elsewhere\\wizard.log", kFullLog);
    if (!place().link(kFirstLog, "elsewhere\\wizard.log"))
        GTEST_SKIP() << "this system lets this user make no links";
    place().remove(settingsPath());

    start(12);
    finish();

    EXPECT_EQ(place().read("elsewhere\\wizard.log").size(), 500000U);
    EXPECT_EQ(logEntries(place().read(kSecondLog)),
              Lines{"SERV  53, File not found, iocCfgReadFile"});
}

TEST_F(Links, TheLogIsAppendedToItsTarget) {
    place().write("elsewhere\\wizard.log", "an earlier entry\r\n");
    if (!place().link(kFirstLog, "elsewhere\\wizard.log"))
        GTEST_SKIP() << "this system lets this user make no links";
    place().remove(settingsPath());

    start(12);
    finish();

    EXPECT_TRUE(place().read("elsewhere\\wizard.log").starts_with("an earlier entry\r\n["));
    EXPECT_TRUE(place().read("elsewhere\\wizard.log").ends_with(", iocCfgReadFile\r\n"));
}

}  // namespace kv::endtoend
