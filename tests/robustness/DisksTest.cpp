// Disks that are full, fill up on the way, or can only be read. The script on-disks mounts them;
// without it these tests are skipped.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/ProgressWidths.h"
#include "tests/model/LogEntries.h"
#include "tests/robustness/Ground.h"
#include "tests/robustness/QuickUser.h"

namespace kv::endtoend {

namespace {

constexpr int kStoppedShort = progressWithoutCopy(Operation::New);
constexpr std::string_view kCopyFull = "WARN  61, Disk full, ioCopyFile";

}  // namespace

class Disks : public testing::Test {
protected:
    void SetUp() override {
        if (std::getenv("KV_DISKS") == nullptr)
            GTEST_SKIP() << "no disks are mounted for this test";
        ground_.emplace("Disks");
    }

    // A new installation into a web server on that disk, which is a drive of its own.
    void installOn(const std::string& disk, int progress) {
        const BorrowedDrive drive('M', pathFromEnvironment("KV_DISKS") + "\\" + disk);
        ASSERT_TRUE(drive.works());
        install(ground_->place().program(), "M:\\htdocs", "M:\\cgi-bin", progress);
    }

    void install(const std::string& program, const std::string& home, const std::string& scripts,
                 int progress) {
        const WizardDriver wizard(program, ground_->place().root());
        wizard.waitForPanel(0);
        for (const std::string_view button : {kNext, kInstalledApache, kNext, kUrlDefault, kNext})
            press(wizard, button);
        put(wizard, 0, home);
        put(wizard, 1, scripts);
        for (int panel = 0; panel < 3; ++panel) press(wizard, kNext);
        wizard.waitForOperationEnd();
        EXPECT_EQ(wizard.progressWidth(), progress);
        EXPECT_TRUE(wizard.shows(kCompletedTitle));
        EXPECT_TRUE(wizard.shows(kCompleted));
        pressAndLeave(wizard, kFinish);
        EXPECT_EQ(wizard.waitForExit(), 0U);
    }

    std::optional<Ground> ground_;
};

// Folders take no room on such a disk. The settings below the scripts folder are written section by
// section, each with its own failure, and none of them stops the line.
TEST_F(Disks, FullFromTheBeginning) {
    installOn("full", kProgressDone);

    Lines expected = times(copiedFileCount(UrlStyle::SiteRoot), kCopyFull);
    for (const char* section :
         {"iocCfgWriteFileHeader", "iocCfgWriteFileProperty", "iocCfgWriteFileData"})
        expected.push_back("WARN  61, Disk full, " + std::string(section));
    EXPECT_EQ(logEntries(ground_->log()), expected);
    Site onDisk = ground_->first();
    onDisk.root = "";
    onDisk.home = "M:\\htdocs";
    onDisk.scripts = "M:\\cgi-bin";
    onDisk.product = ground_->place().product();
    EXPECT_EQ(ground_->place().read(kSettings), recordOf(onDisk));
}

// What there is room for is whole; what is not is logged.
TEST_F(Disks, FullOnTheWay) {
    const std::filesystem::path disk = pathFromEnvironment("KV_DISKS") + "\\small";

    installOn("small", kProgressDone);

    std::size_t whole = 0;
    for (const auto& entry : std::filesystem::directory_iterator(disk / "cgi-bin" / "kv")) {
        const std::filesystem::path source =
            std::filesystem::path(ground_->place().product()) / "bin" / entry.path().filename();
        if (entry.is_regular_file() &&
            std::filesystem::file_size(entry.path()) == std::filesystem::file_size(source))
            ++whole;
    }
    const Lines entries = logEntries(ground_->log());
    const auto failed = static_cast<std::size_t>(
        std::count(entries.begin(), entries.end(), std::string(kCopyFull)));
    EXPECT_GE(whole, 1U);
    EXPECT_EQ(whole + failed, copiedFileCount(UrlStyle::SiteRoot));
    EXPECT_EQ(entries.size(), failed + 3);
}

TEST_F(Disks, ThatCanOnlyBeRead) {
    installOn("readonly", kStoppedShort);

    // Windows says of such a disk that it is write-protected, which has a number of its own; Wine
    // says that access is denied.
    const Lines expected = times(2, kMakeDenied) + times(3, kMakeNoPath) + times(1, kMakeDenied) +
                           times(1, kMakeNoPath) +
                           times(kProgramFileCount + kWebFiles.size(), kMissingPath) +
                           times(kWebFiles.size(), kRefusedCopy) +
                           times(kImages.size(), kMissingPath) + times(1, kRecordNoPath);
    EXPECT_EQ(logEntries(ground_->log()), expected);
}

// From a disc, say: what is to be written beside the program fails, and nobody can be told of it.
TEST_F(Disks, WithTheProductThatCanOnlyBeRead) {
    const std::string product = pathFromEnvironment("KV_DISKS") + "\\readonly\\product";
    const std::string settings = ground_->place().read(kSettings);

    install(product + "\\bin\\kvwcfg.exe", ground_->home(ground_->first()),
            ground_->scripts(ground_->first()), kProgressDone);

    EXPECT_FALSE(std::filesystem::exists(product + "\\log\\kvwcfg00.log"));
    EXPECT_EQ(ground_->place().read("server\\cgi-bin\\kv\\kvi\\kvi.cfg"),
              settingsBytes({ground_->home(ground_->first()) + "\\"}, product + "\\"));
    EXPECT_EQ(ground_->place().read(kSettings), settings);
    EXPECT_TRUE(ground_->place().exists("server\\htdocs\\images\\kv\\kvimg\\red_v1x2.gif"));
}

}  // namespace kv::endtoend
