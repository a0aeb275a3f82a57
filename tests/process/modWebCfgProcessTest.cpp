#include "process/modWebCfgProcess.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "tests/process/OperationTest.h"

namespace kv {
namespace {

const std::string kHome = "C:\\Program Files\\Apache Group\\Apache2\\htdocs";
const std::string kScripts = "C:\\Program Files\\Apache Group\\Apache2\\cgi-bin";
constexpr const char* kEntryPage = "C:\\Korvane\\hlp\\eng\\kvhentryeng.html";
constexpr const char* kExitPage = "C:\\Korvane\\hlp\\eng\\kvhexiteng.html";

class NewInstallationTest : public testing::Test {
protected:
    NewInstallationTest() { wizard_.load(); }

    // The changes of the finish panel while the operation runs.
    Lines run(Server server, UrlStyle style) {
        wizard_.goToConfirmation(server, style);
        disk_.files.clearJournal();
        wizard_.observer.changes.clear();
        form_.cmdNext.click();
        return finishPanelChanges(wizard_.observer);
    }

    int progressWidth() const { return form_.lblProgress.box().width; }

    void expectCompleted() {
        EXPECT_EQ(wizard_.currentPanel(), 11);
        EXPECT_EQ(form_.lblFinishDescription.caption(), "Configuration completed");
        EXPECT_EQ(form_.lblFinishInstruction.caption(),
                  "The configuration completed, click on Finish to exit.");
        EXPECT_TRUE(form_.cmdFinish.enabled());
        EXPECT_TRUE(form_.cmdFinish.visible());
        EXPECT_TRUE(wizard_.messages.informations.empty());
    }

    SampleDisk disk_;
    Wizard wizard_{disk_};
    frmWebConfig& form_ = wizard_.form;
};

class InstallationOfEachServer : public NewInstallationTest,
                                 public testing::WithParamInterface<std::tuple<Server, UrlStyle>> {
protected:
    InstallationOfEachServer() { site_.ip = site_.port = ""; }

    Site site_ = sampleSite(std::get<0>(GetParam()), std::get<1>(GetParam()));
};

TEST_P(InstallationOfEachServer, DeploysRecordsAndTouchesNothingElse) {
    const Tree expected = afterInstallation(imageOf(disk_), site_);

    run(site_.server, site_.style);

    EXPECT_EQ(differences(expected, imageOf(disk_)), "");
    EXPECT_EQ(wizard_.closeAndReadLog(), Lines{});
    expectCompleted();
}

TEST_P(InstallationOfEachServer, TheStagesFollowEachOtherAndTheLineGrowsByStepsOfAHundred) {
    const Lines changes = run(site_.server, site_.style);

    Growth line;
    EXPECT_EQ(changes, joined({opening("Saving configuration settings", "Ceating folders..."),
                               line.by(100, kMadeFolderCount),
                               stage("Copying files..."),
                               line.by(100, copiedFileCount(site_.style)),
                               stage("Writing settings to configuration file..."),
                               line.by(kRecordStep),
                               {width(5655)},
                               closing()}));
}

TEST_P(InstallationOfEachServer, MakesCopiesAndWritesInThisOrder) {
    for (const std::string& folder : {site_.home + "\\kv", site_.home + "\\images"})
        ASSERT_FALSE(disk_.disk.exists(folder));

    run(site_.server, site_.style);

    EXPECT_EQ(firstDifference(disk_.files.journal(), installationCalls(site_)), "");
}

TEST_P(InstallationOfEachServer, IsFoundByTheNextStart) {
    run(site_.server, site_.style);
    wizard_.form.close();
    Wizard later(disk_);

    later.load();

    const WizardState& state = later.program.state();
    ASSERT_EQ(state.InstallEntryCount, 1);
    EXPECT_EQ(state.InstallEntries[0].fields,
              (std::array<std::string, 7>{site_.scripts + "\\", site_.home + "\\", "C:\\Korvane\\",
                                          codeOf(site_.server),
                                          site_.style == UrlStyle::SiteRoot ? "0" : "1", "", ""}));
}

INSTANTIATE_TEST_SUITE_P(Servers, InstallationOfEachServer,
                         testing::Combine(testing::Values(Server::Apache, Server::IIS,
                                                          Server::Other),
                                          testing::Values(UrlStyle::SiteRoot, UrlStyle::Kv)),
                         [](const auto& row) {
                             return std::string(nameOf(std::get<0>(row.param))) +
                                    (std::get<1>(row.param) == UrlStyle::SiteRoot ? "SiteRoot"
                                                                                  : "Kv");
                         });

TEST_F(NewInstallationTest, TheHelpPageIsInPlaceBeforeTheClosingTexts) {
    Lines shown;
    disk_.files.setListener([&](const std::string& line) {
        if (line == std::string("copyFile ") + kEntryPage + " -> " + kExitPage)
            shown = {form_.lblFinishDescription.caption(), form_.lblFinishInstruction.caption()};
    });

    run(Server::Apache, UrlStyle::Kv);

    EXPECT_EQ(shown, (Lines{"Saving configuration settings",
                            "Writing settings to configuration file..."}));
}

TEST_F(NewInstallationTest, AMissingHelpEntryPageIsLoggedAndTheOperationCompletes) {
    disk_.disk.remove(kEntryPage);

    run(Server::Apache, UrlStyle::Kv);

    expectCompleted();
    EXPECT_EQ(progressWidth(), 5655);
    EXPECT_EQ(wizard_.closeAndReadLog(), Lines{"SERV  53, File not found, ioCopyFile"});
}

TEST_F(NewInstallationTest, BlanksAroundTheFoldersAreNotPartOfThem) {
    wizard_.goToWebsite(Server::Apache, UrlStyle::Kv);
    form_.txtFolderHomeApache.setText("  " + kHome + " ");
    form_.cmdNext.click();

    form_.cmdNext.click();

    EXPECT_TRUE(disk_.disk.exists(kHome + "\\kv\\index.html"));
}

TEST_F(NewInstallationTest, AFailedRecordKeepsItsStepFromTheLineWhichIsCompletedAllTheSame) {
    disk_.files.add({.text = std::string("openForWrite ") + kSampleInstallationFile,
                     .number = ErrorNumber::DiskFull});

    const Lines changes = run(Server::Apache, UrlStyle::Kv);

    const auto writing = std::ranges::find(
        changes, "lblFinishInstruction Caption Writing settings to configuration file...");
    ASSERT_NE(writing, changes.end());
    EXPECT_EQ(Lines(writing + 1, changes.end()),
              joined({{"lblProgress Box 360,1560,5655,255"}, closing()}));
    EXPECT_EQ(wizard_.closeAndReadLog(), Lines{"WARN  61, Disk full, iocCfgWriteFile"});
}

TEST_F(NewInstallationTest, AFailedScriptsCopyLeavesTheLineShortAndTheHelpPageIsStillCopied) {
    disk_.files.add({.text = "openForWrite " + kScripts, .number = ErrorNumber::DiskFull});

    run(Server::Apache, UrlStyle::Kv);

    EXPECT_EQ(progressWidth(), progressBeforeRecord(Operation::New, UrlStyle::Kv) + kRecordStep);
    expectCompleted();
    EXPECT_EQ(disk_.disk.read(kExitPage), sampleContent("hlp\\eng\\kvhentryeng.html"));
}

TEST_F(NewInstallationTest, FailedSettingsAtTheSiteRootLeaveTheLineAtTheCopies) {
    disk_.files.add({.text = "openForWrite ", .number = ErrorNumber::DiskFull, .once = false});

    run(Server::Apache, UrlStyle::SiteRoot);

    EXPECT_EQ(progressWidth(), progressBeforeRecord(Operation::New));
    expectCompleted();
}

TEST_F(NewInstallationTest, WhenAllCopiesFailTheLineGrowsAllTheSameAndIsCompleted) {
    disk_.files.add({.text = "copyFile ", .number = ErrorNumber::DiskFull, .once = false});

    const Lines changes = run(Server::Apache, UrlStyle::Kv);

    EXPECT_EQ(std::ranges::count(
                  changes, width(progressBeforeRecord(Operation::New, UrlStyle::Kv) + kRecordStep)),
              1);
    EXPECT_EQ(progressWidth(), 5655);
    expectCompleted();
    EXPECT_EQ(wizard_.closeAndReadLog(),
              Lines(copiedFileCount(UrlStyle::Kv) + 1, "WARN  61, Disk full, ioCopyFile"));
}

TEST_F(NewInstallationTest, ASecondOneOverwritesEveryFileAndSkipsTheFoldersSilently) {
    run(Server::Apache, UrlStyle::Kv);
    form_.close();
    disk_.disk.write(kHome + "\\kv\\index.html", "an older and longer page than the product's own");
    // What a deletion leaves behind: no record.
    disk_.disk.write(kSampleInstallationFile, freshSettings());
    Wizard second(disk_);
    second.load();
    disk_.files.clearJournal();

    second.install(Server::Apache, UrlStyle::Kv);

    EXPECT_EQ(disk_.disk.read(kHome + "\\kv\\index.html"),
              sampleContent("web-root\\kv\\index.html"));
    EXPECT_TRUE(std::ranges::none_of(disk_.files.journal(), [](const std::string& line) {
        return line.starts_with("makeDirectory");
    }));
    EXPECT_EQ(second.closeAndReadLog(), Lines{});
}

TEST_F(NewInstallationTest, WithoutItsScriptsFolderApacheGetsNoPrograms) {
    wizard_.goToConfirmation(Server::Apache, UrlStyle::Kv);
    disk_.disk.remove(kScripts);

    form_.cmdNext.click();

    expectCompleted();
    // Two folders and their files, then the scripts copy of the settings.
    EXPECT_EQ(wizard_.closeAndReadLog().size(), 2 + kProgramFileCount + 1);
    EXPECT_FALSE(disk_.disk.exists(kScripts));
    EXPECT_EQ(progressWidth(), progressBeforeRecord(Operation::New, UrlStyle::Kv) + kRecordStep);
}

class RunActionTest : public testing::Test {
protected:
    Workbench bench_;
    modWebCfgProcess process_{bench_.form,  bench_.state, bench_.io,      bench_.configuration,
                              bench_.files, bench_.log,   bench_.patience};
};

class UnknownActionTest : public RunActionTest, public testing::WithParamInterface<int> {};

TEST_P(UnknownActionTest, ChangesNothing) {
    RecordingObserver observer;
    observer.watch(bench_.form);
    bench_.state.ActionKind = static_cast<std::int16_t>(GetParam());

    process_.wcpRunAction();

    EXPECT_EQ(observer.changes, Lines{});
    EXPECT_EQ(bench_.files.journal(), Lines{});
    bench_.form.observe(nullptr);
}

INSTANTIATE_TEST_SUITE_P(modWebCfgProcess, UnknownActionTest,
                         testing::Values(-1, 5, 32767, -32768));

// A modification and a deletion, with no installation read.
class ActionWithoutAnEntryTest : public RunActionTest,
                                 public testing::WithParamInterface<ActionKind> {};

TEST_P(ActionWithoutAnEntryTest, FailsBeforeAnythingIsTouched) {
    bench_.form.optInstalledApache.setValue(true);
    bench_.state.ActionKind = GetParam();
    const std::string title = bench_.form.lblFinishDescription.caption();
    ASSERT_TRUE(bench_.form.cmdFinish.enabled());

    EXPECT_EQ(failureOf([&] { process_.wcpRunAction(); }), 9);

    EXPECT_EQ(bench_.files.journal(), Lines{});
    EXPECT_EQ(bench_.form.lblProgress.box().width, 255);
    EXPECT_EQ(bench_.form.lblFinishDescription.caption(), title);
    EXPECT_TRUE(bench_.form.cmdFinish.enabled());
}

INSTANTIATE_TEST_SUITE_P(modWebCfgProcess, ActionWithoutAnEntryTest,
                         testing::Values(kActionModify, kActionDelete));

TEST_F(RunActionTest, AnEmptyProductFolderFailsEveryCopyAndCompletesTheOperation) {
    bench_.disk.makeFolder("C:\\Korvane\\bin\\kvi");
    bench_.disk.makeFolder("C:\\www");
    bench_.disk.makeFolder("C:\\cgi");
    bench_.state.ProductFolder = "";
    bench_.form.optInstalledOther.setValue(true);
    bench_.form.optUrlKv.setValue(true);
    bench_.form.txtFolderHomeOthers.setText("C:\\www");
    bench_.form.txtFolderScriptsOthers.setText("C:\\cgi");

    process_.wcpRunAction();

    EXPECT_EQ(bench_.form.lblFinishDescription.caption(), "Configuration completed");
    EXPECT_EQ(bench_.form.lblProgress.box().width, 5655);
    EXPECT_EQ(bench_.logEntries().size(), copiedFileCount(UrlStyle::Kv) + 1);
    EXPECT_TRUE(bench_.disk.exists("C:\\cgi\\kv\\kvi\\kvi.cfg"));
}

}  // namespace
}  // namespace kv
