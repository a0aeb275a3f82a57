// The n-th call to the file system fails, for every n, with every kind of error, once or from then
// on: a start and each operation come to their end as designed, log what failed and nothing else,
// and do every step that no failure has hit.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "tests/model/LogEntries.h"
#include "tests/support/PlainWizard.h"
#include "tests/support/disks/FailingDisk.h"
#include "tests/support/disks/MemoryFileSystem.h"

namespace kv {
namespace {

using enum ErrorNumber;

constexpr std::array kKinds{FileNotFound,     PathNotFound, PathFileAccessError, FileAlreadyOpen,
                            PermissionDenied, DiskFull,     BadFileNameOrNumber, DeviceIoError};

const Site& installed() {
    static const Site site = sampleSite(Server::IIS, UrlStyle::SiteRoot);
    return site;
}

const Site& moved() {
    static const Site site{Server::IIS, UrlStyle::SiteRoot, "C:\\Moved\\docs", "C:\\Moved\\cgi", "",
                           "81"};
    return site;
}

struct Row {
    const char* name;
    void (*prepare)(Tree& image);
    void (*walk)(frmWebConfig& form);     // from the Welcome panel to the confirmation
    std::vector<Settings> (*settings)();  // that it writes anew

    // The final width of the progress line, by whether the installation information file and its
    // copy in the scripts folder could be written.
    int (*progress)(bool recorded, bool copied);
    const char* closingTitle;
    const char* closingInstruction;

    Lines calls;  // of an undisturbed run
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

constexpr const char* kCompleted = "Configuration completed";
constexpr const char* kCompletedInstruction =
    "The configuration completed, click on Finish to exit.";

void prepareInstalled(Tree& image) { putDeployment(image, installed()); }

void prepareMove(Tree& image) {
    prepareInstalled(image);
    image["C:\\Moved\\"] = "";
    image["C:\\Moved\\docs\\"] = "";
}

// The new main file and the old one, and what an upgrade makes of them with and without the old
// one.
const std::string kNewMain = cfgBytes({"#", "00|T|1001", "10|*a|new", "15|*b|new"});
const std::string kOldMain = cfgBytes({"15|*b|old", "10|*a|old"});
const std::string kMigratedMain = cfgBytes({"#", "00|T|1001", "10|*a|old", "15|*b|old", ""});
const std::string kUnmigratedMain = cfgBytes({"#", "00|T|1001", "10|*a|new", "15|*b|new", ""});

void prepareUpgrade(Tree& image) {
    prepareInstalled(image);
    image[kSavedInstallation] = image[kSampleInstallationFile];
    image[kSavedMain] = kOldMain;
    image[kSavedAdministrator] = "old administrator";
    image[kSavedAnonymous] = "old anonymous";
    unpackNewerFiles(image);
    image[kSampleInstallationFile] = settingsBytes({});
    image[kSampleMain] = kNewMain;
}

std::vector<Settings> settingsOf(const Site& site) {
    return {{kSampleInstallationFile, recordOf(site)},
            {site.scripts + "\\kv\\kvi\\kvi.cfg", scriptsRecordOf(site)}};
}

int progress(Operation operation, bool recorded, bool copied) {
    return copied ? kProgressEnd : progressBeforeRecord(operation) + (recorded ? kRecordStep : 0);
}

const std::array<Row, 5> kOperations{{
    {"NewInstallation", [](Tree&) {},
     [](frmWebConfig& form) {
         form.cmdNext.click();
         describeSite(form, installed());
     },
     [] { return settingsOf(installed()); },
     [](bool recorded, bool copied) { return progress(Operation::New, recorded, copied); },
     kCompleted, kCompletedInstruction, installationCalls(installed())},
    {"Modification", prepareMove,
     [](frmWebConfig& form) {
         form.cmdNext.click();
         form.cmdModify.click();
         describeSite(form, moved());
     },
     [] { return settingsOf(moved()); },
     [](bool recorded, bool copied) { return progress(Operation::Modify, recorded, copied); },
     kCompleted, kCompletedInstruction, modificationCalls(installed(), moved())},
    {"Deletion", prepareInstalled,
     [](frmWebConfig& form) {
         form.cmdNext.click();
         form.cmdDelete.click();
     },
     [] {
         return std::vector<Settings>{{kSampleInstallationFile, settingsBytes({})}};
     },
     [](bool recorded, bool) { return progress(Operation::Delete, recorded, recorded); },
     kCompleted, kCompletedInstruction, deletionCalls(installed())},
    {"Backup", prepareInstalled,
     [](frmWebConfig& form) {
         form.cmdNext.click();
         form.cmdBackup.click();
     },
     [] { return std::vector<Settings>{}; }, [](bool, bool) { return 5655; },
     "Configuration backup completed",
     "The configuration backup completed, click on Finish to exit.", backupCalls(installed())},
    {"Upgrade", prepareUpgrade,
     [](frmWebConfig& form) {
         form.cmdNext.click();
         form.cmdUpgrade.click();
     },
     [] { return std::vector<Settings>{}; }, [](bool, bool) { return 5655; }, kCompleted,
     kCompletedInstruction, upgradeCalls(installed(), kNewMain, kOldMain)},
}};

class EveryFailingCall : public testing::TestWithParam<Row> {
protected:
    EveryFailingCall() : content_(contentOf(GetParam())) {
        FailingDisk undisturbed(content_);
        run(undisturbed, {});
        steps_ = undisturbed.account();
    }

    static MemoryFileSystem contentOf(const Row& row) {
        Tree image = imageOf(SampleDisk());
        row.prepare(image);
        return MemoryFileSystem(image);
    }

    // Whether the fault was reached.
    bool run(FailingDisk& failing, std::optional<Fault> fault) {
        const Row& row = GetParam();
        PlainWizard wizard(failing.files);
        row.walk(wizard.form);
        EXPECT_EQ(wizard.panel(), 10);
        failing.forget();
        if (fault) failing.files.add(*fault);

        wizard.form.cmdNext.click();

        const Account account = failing.account();
        expectCompletion(wizard, account);
        failing.files.clearFaults();
        wizard.form.cmdFinish.click();
        EXPECT_EQ(logEntries(failing.disk.read(kSampleLog)), account.logEntries());
        expectDisk(failing.disk, account);
        return failing.files.failedCalls() > 0;
    }

    void expectCompletion(const PlainWizard& wizard, const Account& account) const {
        const Row& row = GetParam();
        const frmWebConfig& form = wizard.form;
        EXPECT_EQ(wizard.panel(), 11);
        EXPECT_EQ(form.lblFinishDescription.caption(), row.closingTitle);
        EXPECT_EQ(form.lblFinishInstruction.caption(), row.closingInstruction);
        EXPECT_TRUE(form.cmdFinish.enabled());
        EXPECT_TRUE(form.cmdFinish.visible());
        EXPECT_TRUE(wizard.messages.informations.empty());
        const std::vector<Settings> settings = row.settings();
        const bool recorded = settings.empty() || account.recorded(settings.front().path);
        const bool copied = settings.empty() || account.recorded(settings.back().path);
        EXPECT_EQ(form.lblProgress.box().width, row.progress(recorded, copied));
    }

    void expectDisk(const MemoryFileSystem& disk, const Account& account) const {
        std::vector<Settings> settings = GetParam().settings();
        settings.push_back(
            {kSampleMain, account.readable(kSavedMain) ? kMigratedMain : kUnmigratedMain});
        Tree after = disk.image();
        after.erase(kSampleLog);
        EXPECT_EQ(differences(account.diskAfter(before_, settings), after), "");
    }

    // Every step is tried whatever happens to the others. A look-up that shows nothing may make
    // the wizard try to make a folder that is there.
    void expectSteps(const Account& account) const {
        for (const auto name : {"copyFile", "deleteFiles", "removeDirectory"})
            EXPECT_EQ(firstDifference(account.callsOf(name), steps_->callsOf(name)), "");
        const Lines made = account.callsOf("makeDirectory");
        for (const std::string& step : steps_->callsOf("makeDirectory"))
            EXPECT_EQ(std::ranges::count(made, step), 1) << step;
    }

    // Makes the n-th call fail whose journal line holds the text, for every n; returns how many
    // there are.
    int failEach(const std::string& text, ErrorNumber kind, bool once) {
        for (int call = 1; !HasFailure(); ++call) {
            SCOPED_TRACE("call " + std::to_string(call) + ' ' + text + ", error " +
                         std::to_string(static_cast<int>(kind)) + (once ? "" : " from then on"));
            FailingDisk failing(content_);
            if (!run(failing, Fault{.call = call, .text = text, .number = kind, .once = once}))
                return call - 1;
            expectSteps(failing.account());
            ++faults_;
        }
        return -1;
    }

    MemoryFileSystem content_;
    Tree before_ = content_.image();
    std::optional<Account> steps_;
    int faults_ = 0;
};

TEST_P(EveryFailingCall, LeavesTheOperationItsEndItsLogAndItsOtherSteps) {
    const auto calls = static_cast<int>(failingCalls(GetParam().calls));
    const int lookUps = static_cast<int>(GetParam().calls.size()) - calls;
    for (const bool once : {true, false}) {
        for (const ErrorNumber kind : kKinds) ASSERT_EQ(failEach("", kind, once), calls);
        ASSERT_EQ(failEach("findName ", DeviceIoError, once), lookUps);
    }
    std::cout << GetParam().name << ": " << faults_ << " faults in " << calls << " calls and "
              << lookUps << " look-ups\n";
}

INSTANTIATE_TEST_SUITE_P(Of, EveryFailingCall, testing::ValuesIn(kOperations),
                         [](const auto& row) { return row.param.name; });

// Reading the installation information, at the start or for an upgrade.
class FailingRead : public testing::Test {
protected:
    FailingRead() { prepareUpgrade(image_); }

    // Calls `attempt` with a failing disk for each fault until one was not reached.
    template <class Attempt>
    void failEach(const char* name, Attempt&& attempt) {
        const MemoryFileSystem disk(image_);
        int faults = 0;
        for (const ErrorNumber kind : kKinds)
            for (const bool once : {true, false}) {
                int call = 0;
                do {
                    ++call;
                    SCOPED_TRACE("call " + std::to_string(call) + ", error " +
                                 std::to_string(static_cast<int>(kind)));
                    FailingDisk failing(disk);
                    attempt(failing, Fault{.call = call, .number = kind, .once = once});
                    if (failing.files.failedCalls() == 0) break;
                    ++faults;
                } while (!HasFailure());
                // Its length, its opening, its reading and its closing.
                ASSERT_EQ(call - 1, 4);
            }
        std::cout << name << ": " << faults << " faults in 4 calls\n";
    }

    // Of a failure in the read there is one entry, and nothing has changed.
    void expectOneEntry(FailingDisk& failing, PlainWizard& wizard, const Fault& fault) {
        const bool failed = failing.files.failedCalls() > 0;
        failing.files.clearFaults();
        wizard.form.close();
        Lines expected;
        if (failed) expected = {logEntry("iocCfgReadFile", static_cast<int>(fault.number))};
        EXPECT_EQ(logEntries(failing.disk.read(kSampleLog)), expected);
        Tree after = failing.disk.image();
        after.erase(kSampleLog);
        EXPECT_EQ(differences(image_, after), "");
    }

    static void expectError(const PlainWizard& wizard, bool failed, int otherwise) {
        EXPECT_EQ(wizard.panel(), failed ? 12 : otherwise);
        EXPECT_TRUE(wizard.messages.informations.empty());
        if (!failed) return;
        EXPECT_TRUE(wizard.form.cmdFinish.enabled());
        EXPECT_TRUE(wizard.form.cmdFinish.visible());
        EXPECT_FALSE(wizard.form.cmdNext.enabled());
    }

    Tree image_ = imageOf(SampleDisk());
};

TEST_F(FailingRead, AtTheStartOpensTheErrorPanel) {
    failEach("Start", [this](FailingDisk& failing, const Fault& fault) {
        failing.files.add(fault);
        PlainWizard wizard(failing.files);
        expectError(wizard, failing.files.failedCalls() > 0, 0);
        expectOneEntry(failing, wizard, fault);
    });
}

TEST_F(FailingRead, OfASavedConfigurationOpensTheErrorPanelToo) {
    failEach("Saved configuration", [this](FailingDisk& failing, const Fault& fault) {
        PlainWizard wizard(failing.files);
        wizard.form.cmdNext.click();
        failing.files.add(fault);
        wizard.form.cmdUpgrade.click();
        expectError(wizard, failing.files.failedCalls() > 0, 10);
        expectOneEntry(failing, wizard, fault);
    });
}

// The log's own calls, while an operation runs in which so much fails that the log is written in
// between, and when the window closes.
TEST(FailingLog, KeepsNeitherTheOperationNorTheWindowFromItsEnd) {
    Tree image = imageOf(SampleDisk());
    prepareMove(image);
    for (const std::string& file : deployedFiles(installed())) image.erase(file);
    for (const std::string& folder : deployedFolders(installed())) image.erase(folder + '\\');
    for (const auto& [from, to] : copies(moved())) image.erase(from);
    const MemoryFileSystem content(image);
    int faults = 0;
    for (const bool once : {true, false})
        for (const ErrorNumber kind : kKinds)
            for (int call = 1;; ++call) {
                SCOPED_TRACE("call " + std::to_string(call));
                FailingDisk failing(content);
                PlainWizard wizard(failing.files);
                wizard.form.cmdNext.click();
                wizard.form.cmdModify.click();
                describeSite(wizard.form, moved());
                failing.forget();
                failing.files.add({.call = call, .text = "\\log\\", .number = kind, .once = once});
                wizard.form.cmdNext.click();
                EXPECT_EQ(wizard.panel(), 11);
                EXPECT_TRUE(wizard.form.cmdFinish.enabled());
                wizard.form.cmdFinish.click();
                if (failing.files.failedCalls() == 0) break;
                ++faults;

                // What could not be written is pending until it can; only the end loses it.
                const Account account = failing.account();
                const Lines written = logEntries(failing.disk.read(kSampleLog));
                if (!account.lastCallFailed()) {
                    EXPECT_EQ(firstDifference(written, account.logEntries()), "");
                }
                EXPECT_LE(written.size(), account.logEntries().size());
            }
    std::cout << "Log: " << faults << " faults\n";
    EXPECT_GE(faults, 2 * 8 * 3);
}

}  // namespace
}  // namespace kv
