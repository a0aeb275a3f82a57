// Files that another process has open, with each way in which it may share them: what the wizard
// needs and is not shared is "already open", everything else is done.
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/Scenario.h"

namespace kv::endtoend {

namespace {

const std::string kSource = "product\\bin\\kvjs.exe";
const std::string kTarget = "server\\cgi-bin\\kv\\kv.exe";
const std::string kLog = "product\\log\\kvwcfg00.log";
constexpr std::string_view kEarlier = "an earlier entry\r\n";

std::string nameOf(DWORD sharing) {
    std::string name;
    name += (sharing & FILE_SHARE_READ) != 0 ? "Read" : "";
    name += (sharing & FILE_SHARE_WRITE) != 0 ? "Write" : "";
    name += (sharing & FILE_SHARE_DELETE) != 0 ? "Delete" : "";
    return name.empty() ? "Nothing" : name;
}

}  // namespace

class Sharing : public Scenario, public testing::WithParamInterface<DWORD> {
protected:
    bool shares(DWORD what) const { return (GetParam() & what) != 0; }
    std::unique_ptr<FileLock> hold(const std::string& path) const {
        return place().lock(path, GetParam());
    }
};

TEST_P(Sharing, AnInstallationNeedsSourcesReadAndTargetsWritten) {
    place().write(kTarget, "an older program");
    start();
    goToAddress();
    next(wizard(), 10);
    const auto source = hold(kSource);
    const auto target = hold(kTarget);
    const auto settings = hold(settingsPath());

    wizard().click(kNext);
    wizard().waitForOperationEnd();

    // The line is full when the copy below the scripts folder is written, which nobody holds.
    EXPECT_EQ(wizard().progressWidth(), kProgressDone);
    EXPECT_TRUE(wizard().shows(kCompleted));
    finish();
    Lines expected;
    if (!shares(FILE_SHARE_WRITE)) expected.push_back("SERV  55, File already open, ioCopyFile");
    if (!shares(FILE_SHARE_READ)) expected.push_back("SERV  55, File already open, ioCopyFile");
    if (!shares(FILE_SHARE_WRITE))
        expected.push_back("WARN  55, File already open, iocCfgWriteFile");
    if (expected.empty())
        expectNoLog();
    else
        expectLog(expected);
    EXPECT_EQ(place().exists("server\\cgi-bin\\kv\\kvjs.exe"), shares(FILE_SHARE_READ));
}

TEST_P(Sharing, AStartNeedsTheSettingsRead) {
    recordInstallation();
    const auto settings = hold(settingsPath());

    start(shares(FILE_SHARE_READ) ? 0 : 12);

    if (shares(FILE_SHARE_READ)) {
        EXPECT_TRUE(wizard().shows(kWelcomeConfigured));
    } else {
        finish();
        expectLog({"WARN  55, File already open, iocCfgReadFile"});
    }
}

TEST_P(Sharing, ADeletionNeedsFilesDeleted) {
    recordInstallation();
    for (const std::string_view name : kPrograms)
        place().write("server\\cgi-bin\\kv\\" + std::string(name), "a program");
    auto program = hold(kTarget);
    start();
    next(wizard(), 13);
    wizard().clickPictureButtonBeside(kDeleteLabel);
    wizard().waitForPanel(10);

    wizard().click(kNext);
    wizard().waitForOperationEnd();
    finish();

    const Lines entries = logEntries(place().read(kLog));
    const std::string refused = "SERV  55, File already open, ioDeleteFile";
    EXPECT_EQ(std::count(entries.begin(), entries.end(), refused),
              shares(FILE_SHARE_DELETE) ? 0 : 1);
    program.reset();
    EXPECT_EQ(place().exists(kTarget), !shares(FILE_SHARE_DELETE));
    EXPECT_FALSE(place().exists("server\\cgi-bin\\kv\\kvjs.exe"));
}

TEST_P(Sharing, TheLogNeedsToBeWritten) {
    place().remove(settingsPath());
    place().write(kLog, kEarlier);
    const auto log = hold(kLog);

    start(12);
    finish();

    // Reading is what the test itself needs; it looks at the length instead.
    WIN32_FILE_ATTRIBUTE_DATA data{};
    GetFileAttributesExA(place().path(kLog).c_str(), GetFileExInfoStandard, &data);
    if (shares(FILE_SHARE_WRITE))
        EXPECT_GT(data.nFileSizeLow, kEarlier.size());
    else
        EXPECT_EQ(data.nFileSizeLow, kEarlier.size());
}

INSTANTIATE_TEST_SUITE_P(All, Sharing,
                         testing::Values(0, FILE_SHARE_READ, FILE_SHARE_WRITE, FILE_SHARE_DELETE,
                                         FILE_SHARE_READ | FILE_SHARE_WRITE,
                                         FILE_SHARE_READ | FILE_SHARE_DELETE,
                                         FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                         FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE),
                         [](const testing::TestParamInfo<DWORD>& which) {
                             return nameOf(which.param);
                         });

}  // namespace kv::endtoend
