#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/Scenario.h"

namespace kv::endtoend {

namespace {

enum class Opening { FirstTime, Configured, Error, Any };

struct SettingsCase {
    std::string_view name;
    std::string bytes;
    Opening opening;
    Lines log = {};
};

void PrintTo(const SettingsCase& which, std::ostream* out) { *out << which.name; }

std::string oneEntry() { return recordOf({.home = "Q:\\web", .scripts = "Q:\\cgi"}); }

std::string everyByte() {
    std::string text;
    for (int byte = 0; byte < 256; ++byte) text += static_cast<char>(byte);
    return text;
}

// One file for each way in which a start can go; what makes a file so is tested where it is read.
const SettingsCase kSettingsCases[] = {
    {"AsUnpacked", freshSettings(), Opening::FirstTime},
    {"OneEntry", oneEntry(), Opening::Configured},
    {"Empty", "", Opening::Error, {"WARN  9, Subscript out of range, wcpConfigInstallRead"}},
    {"HeaderLineMissing", "#\r\n" + oneEntry().substr(oneEntry().find("01\017")), Opening::Error},
    {"EveryByte", everyByte(), Opening::Any, {"*"}},
};

}  // namespace

class StartUp : public Scenario {
protected:
    // The Error panel as it is when the start fails, and the way out of it.
    void expectErrorPanelAndFinish() {
        EXPECT_TRUE(wizard().shows("Error"));
        EXPECT_EQ(wizard().frameButton(kFinish).box, wizard().frameButton(kNext).box);
        finish();
    }

    // "*" stands for any line or none.
    void expectEntries(const Lines& expected) const {
        if (expected.empty())
            expectNoLog();
        else if (expected.front() != "*")
            expectLog(expected);
    }
};

class EverySettingsFile : public StartUp, public testing::WithParamInterface<SettingsCase> {};

TEST_P(EverySettingsFile, OpensAPanelAndEndsNormally) {
    const SettingsCase& which = GetParam();
    const std::string& bytes = which.bytes;
    place().write(settingsPath(), bytes);

    startOnAnyPanel();
    const int panel = wizard().currentPanel();
    const bool firstTime = wizard().shows(kWelcomeFirst);
    const bool configured = wizard().shows(kWelcomeConfigured);
    if (panel == 12) {
        expectErrorPanelAndFinish();
    } else {
        wizard().closeWindow();
        EXPECT_EQ(wizard().waitForExit(), 0U);
    }

    switch (which.opening) {
        case Opening::FirstTime:
            EXPECT_EQ(panel, 0);
            EXPECT_TRUE(firstTime);
            break;
        case Opening::Configured:
            EXPECT_EQ(panel, 0);
            EXPECT_TRUE(configured);
            break;
        case Opening::Error: EXPECT_EQ(panel, 12); break;
        case Opening::Any: EXPECT_TRUE(panel == 0 || panel == 12) << panel; break;
    }
    expectEntries(which.log);
    EXPECT_EQ(place().read(settingsPath()), bytes);
}

INSTANTIATE_TEST_SUITE_P(All, EverySettingsFile, testing::ValuesIn(kSettingsCases),
                         [](const testing::TestParamInfo<SettingsCase>& which) {
                             return std::string(which.param.name);
                         });

TEST_F(StartUp, MissingSettingsFileOpensTheErrorPanel) {
    place().remove(settingsPath());
    const Tree expected = place().tree();

    start(12);
    expectErrorPanelAndFinish();

    expectLog({"SERV  53, File not found, iocCfgReadFile"});
    expectTreeBesideLog(expected);
}

TEST_F(StartUp, MissingSettingsFolderOpensTheErrorPanel) {
    place().remove("product\\bin\\kvi");

    start(12);
    expectErrorPanelAndFinish();

    expectLog({"WARN  76, Path not found, iocCfgReadFile"});
}

TEST_F(StartUp, LockedSettingsFileOpensTheErrorPanel) {
    const auto lock = place().lock(settingsPath());

    start(12);
    expectErrorPanelAndFinish();

    expectLog({"WARN  55, File already open, iocCfgReadFile"});
}

TEST_F(StartUp, FolderInTheSettingsFilesPlaceOpensTheErrorPanel) {
    place().remove(settingsPath());
    place().makeFolder(settingsPath());

    start(12);
    expectErrorPanelAndFinish();

    const Lines entries = logEntries(place().read("product\\log\\kvwcfg00.log"));
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_TRUE(entries[0].ends_with(", iocCfgReadFile")) << entries[0];
}

TEST_F(StartUp, ReadOnlySettingsFileIsRead) {
    recordInstallation();
    place().makeReadOnly(settingsPath());

    start();

    EXPECT_TRUE(wizard().shows(kWelcomeConfigured));
}

TEST_F(StartUp, MissingLogFolderIsNotMadeAndStopsNothing) {
    place().remove(settingsPath());
    place().remove("product\\log");

    start(12);
    expectErrorPanelAndFinish();

    EXPECT_FALSE(place().exists("product\\log"));
}

TEST_F(StartUp, CleanRunTouchesNothing) {
    const Tree before = place().tree();

    start();
    next(wizard(), 1);
    wizard().closeWindow();
    EXPECT_EQ(wizard().waitForExit(), 0U);

    expectTree(before);
}

TEST_F(StartUp, WorkingFolderDoesNotMatter) {
    recordInstallation();
    place().makeFolder("elsewhere\\kvi");

    startFrom(place().program(), place().path("elsewhere"));

    EXPECT_TRUE(wizard().shows(kWelcomeConfigured));
}

}  // namespace kv::endtoend
