#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "PanelTexts.h"
#include "Scenario.h"
#include "SettingsText.h"

namespace kv::endtoend {

namespace {

enum class Opening { kFirstTime, kConfigured, kError, kAny };

struct SettingsCase {
    std::string_view name;
    std::function<std::string()> bytes;
    Opening opening;
    std::vector<std::string> log = {};
};

void PrintTo(const SettingsCase& which, std::ostream* out) { *out << which.name; }

constexpr std::size_t kVersionLine = 6;
constexpr std::size_t kD1Line = 8;
constexpr std::size_t kD2Line = 9;
constexpr std::size_t kD8Line = 15;

Settings oneEntry() {
    return {"7", "", rowsOf({"Q:\\web", "Q:\\cgi", "Q:\\kv", "1", "0", "", ""})};
}

std::vector<std::string> numberedRows(int count) {
    std::vector<std::string> rows;
    for (int row = 0; row < count; ++row) {
        rows.push_back("row " + std::to_string(row));
    }
    return rows;
}

// The file with one entry, one line of it replaced.
std::string withLine(std::size_t index, const std::string& line) {
    Lines lines = settingsLines(oneEntry());
    lines.at(index) = line;
    return joined(lines);
}

std::string withLineAfter(std::size_t index, const std::string& line) {
    Lines lines = settingsLines(oneEntry());
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(index) + 1, line);
    return joined(lines);
}

std::string withRowCount(const std::string& count) {
    return withLine(kD1Line, headerLine(3, "D1", count));
}

std::string withNulsInValue() {
    Settings settings = oneEntry();
    settings.rows[1] = std::string("Q:\\c\0gi\0\\", 9);
    return settingsText(settings);
}

std::string withLineFeedsOnly() {
    std::string text = settingsText(oneEntry());
    std::erase(text, '\r');
    return text;
}

std::string propertyBeforeHeader() { return "10\017*kvi\020\r\n" + settingsText(oneEntry()); }

// Eleven header lines, of which none gives the number of rows.
std::string rowsThatNobodyCounted() { return withLine(kD1Line, headerLine(4, "D2", "7")); }

std::string propertyAfterData() { return settingsText(oneEntry()) + "10\017*kvi\020\r\n"; }

std::string withoutProperties() { return withLine(7, headerLine(2, "P", "0")); }

// A line that cannot be read counts as the line before it once more, so one in the place of a
// header item keeps the sections in step, and one that is added puts them out of step.
const SettingsCase kSettingsCases[] = {
    {"AsUnpacked", freshSettings, Opening::kFirstTime},
    {"OneEntry", [] { return settingsText(oneEntry()); }, Opening::kConfigured},
    {"TwoEntries",
     [] {
         return settingsText({"14", "", numberedRows(14)});
     },
     Opening::kConfigured},
    {"EntryAndThreeRows",
     [] {
         return settingsText({"10", "", numberedRows(10)});
     },
     Opening::kConfigured},
    {"SixRows",
     [] {
         return settingsText({"6", "", numberedRows(6)});
     },
     Opening::kFirstTime},
    {"NoLineEndAtTheEnd",
     [] {
         const std::string text = settingsText(oneEntry());
         return text.substr(0, text.size() - 2);
     },
     Opening::kConfigured},
    {"EmptyLinesBetween", [] { return withLineAfter(kVersionLine, "\r\n\r\n"); },
     Opening::kConfigured},

    {"Empty",
     [] { return std::string(); },
     Opening::kError,
     {"WARN  9, Subscript out of range, wcpConfigInstallRead"}},
    {"Blanks",
     [] { return std::string(64, ' '); },
     Opening::kError,
     {"WARN  9, Subscript out of range, wcpConfigInstallRead"}},
    {"CommentsOnly",
     [] { return std::string("#\r\n# *Header Section\r\n#\r\n"); },
     Opening::kFirstTime,
     {"WARN*, wcpConfigInstallRead"}},
    {"LineFeedsOnly", withLineFeedsOnly, Opening::kFirstTime, {"WARN*, wcpConfigInstallRead"}},

    {"LineWithoutFirstSeparator", [] { return withLine(kD2Line, "04D2\0200"); },
     Opening::kConfigured},
    {"LineWithTwoFirstSeparators", [] { return withLine(kD2Line, "04\017D2\017\0200"); },
     Opening::kConfigured},
    {"LineWithoutSecondSeparator", [] { return withLine(kD2Line, "04\017D20"); },
     Opening::kConfigured},
    {"LineWithTwoSecondSeparators", [] { return withLine(kD2Line, "04\017D2\0200\020"); },
     Opening::kConfigured},
    {"KeyThatIsNoNumber", [] { return withLine(kD2Line, "xx\017T\0201"); }, Opening::kConfigured},
    {"MalformedLineTooMany", [] { return withLineAfter(kD2Line, "no separators"); },
     Opening::kError},
    {"FirstLineMalformed",
     [] { return withLine(0, "no separators"); },
     Opening::kAny,
     {"WARN*, iocCfgReadFileParseData", "WARN  9, Subscript out of range, wcpConfigInstallRead"}},

    {"HeaderLineMissing", [] { return withLine(kD8Line, "#"); }, Opening::kError},
    {"HeaderLineTooMany", [] { return withLineAfter(kD2Line, headerLine(4, "D2", "0")); },
     Opening::kError},
    {"PropertyBeforeHeader",
     propertyBeforeHeader,
     Opening::kError,
     {"WARN  9, Subscript out of range, wcpConfigInstallRead"}},
    {"PropertyAfterData", propertyAfterData, Opening::kError},
    {"NoProperties", withoutProperties, Opening::kError},
    {"RowsNotCounted",
     rowsThatNobodyCounted,
     Opening::kError,
     {"WARN  9, Subscript out of range, wcpConfigInstallRead"}},
    {"HeaderItemOutOfRange",
     [] { return withLine(kD8Line, headerLine(11, "D9", "0")); },
     Opening::kAny,
     {"WARN*, iocCfgReadFileParseData"}},
    {"RowOutOfRange",
     [] {
         return settingsText({"7", "", numberedRows(9)});
     },
     Opening::kAny,
     {"WARN*, iocCfgReadFileParseData"}},

    {"RowCountOfTwoThousandMillion",
     [] { return withRowCount("2147483647"); },
     Opening::kAny,
     {"*"}},
    {"RowCountBelowZero", [] { return withRowCount("-5"); }, Opening::kAny, {"*"}},
    {"RowCountOfText", [] { return withRowCount("seven"); }, Opening::kAny, {"*"}},
    {"RowCountBeyondAnyNumber",
     [] { return withRowCount("99999999999999999999"); },
     Opening::kAny,
     {"*"}},

    {"NulsInValue", withNulsInValue, Opening::kConfigured},
    {"NulsOnly", [] { return std::string(100, '\0'); }, Opening::kAny, {"*"}},
    {"EveryByte",
     [] {
         std::string text;
         for (int byte = 0; byte < 256; ++byte) {
             text += static_cast<char>(byte);
         }
         return text;
     },
     Opening::kAny,
     {"*"}},
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

    // "WARN*, source" stands for any number and description, "*" for any line or none.
    void expectEntries(const std::vector<std::string>& expected) const {
        if (expected.empty()) {
            expectNoLog();
            return;
        }
        if (expected.front() == "*") {
            return;
        }
        ASSERT_TRUE(place().exists("product\\log\\kvwcfg00.log"));
        const std::vector<std::string> entries =
            logEntries(place().read("product\\log\\kvwcfg00.log"));
        ASSERT_EQ(entries.size(), expected.size());
        for (std::size_t index = 0; index < entries.size(); ++index) {
            const std::size_t star = expected[index].find('*');
            EXPECT_TRUE(star == std::string::npos
                            ? entries[index] == expected[index]
                            : entries[index].starts_with(expected[index].substr(0, star)) &&
                                  entries[index].ends_with(expected[index].substr(star + 1)))
                << entries[index];
        }
    }
};

class EverySettingsFile : public StartUp, public testing::WithParamInterface<SettingsCase> {};

TEST_P(EverySettingsFile, OpensAPanelAndEndsNormally) {
    const SettingsCase& which = GetParam();
    const std::string bytes = which.bytes();
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
        case Opening::kFirstTime:
            EXPECT_EQ(panel, 0);
            EXPECT_TRUE(firstTime);
            break;
        case Opening::kConfigured:
            EXPECT_EQ(panel, 0);
            EXPECT_TRUE(configured);
            break;
        case Opening::kError: EXPECT_EQ(panel, 12); break;
        case Opening::kAny: EXPECT_TRUE(panel == 0 || panel == 12) << panel; break;
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
    Tree expected = place().tree();

    start(12);
    expectErrorPanelAndFinish();

    expectLog({"SERV  53, File not found, iocCfgReadFile"});
    expected["product\\log\\kvwcfg00.log"] = place().read("product\\log\\kvwcfg00.log");
    EXPECT_EQ(differences(expected, place().tree()), "");
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

    const std::vector<std::string> entries = logEntries(place().read("product\\log\\kvwcfg00.log"));
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

    EXPECT_EQ(differences(before, place().tree()), "");
}

TEST_F(StartUp, WorkingFolderDoesNotMatter) {
    recordInstallation();
    place().makeFolder("elsewhere\\kvi");

    startFrom(place().program(), place().path("elsewhere"));

    EXPECT_TRUE(wizard().shows(kWelcomeConfigured));
}

}  // namespace kv::endtoend
