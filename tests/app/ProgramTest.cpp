#include "app/Program.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/Wizard.h"

namespace kv {
namespace {

using Fields = std::array<std::string, 7>;

const Lines kOneEntry{"C:\\www\\", "C:\\cgi\\", "C:\\Korvane\\", "1", "0", "10.0.0.1", "8080"};

constexpr const char* kInitialText =
    "The Configuration Wizard will help you for the initail configuration to make the Korvane work "
    "properly. Click on Next to contihue or Cancel to exit the Configuration Wizard.";
constexpr const char* kExistingText =
    "The Configuration Wizard will help you for the modifying, backing up, or deleting current "
    "configuration. Click on Next to contihue or Cancel to exit the Configuration Wizard.";

class ProgramTest : public testing::Test {
protected:
    void install(const std::string& bytes) { disk_.disk.write(kSampleInstallationFile, bytes); }
    void installRows(const Lines& rows) { install(settingsBytes(rows)); }

    const WizardState& state() const { return wizard_.program.state(); }

    SampleDisk disk_;
    Wizard wizard_{disk_};
};

TEST_F(ProgramTest, WithoutEntriesTheWelcomePanelOpensWithTheTextForTheFirstConfiguration) {
    wizard_.load();

    EXPECT_EQ(wizard_.currentPanel(), 0);
    EXPECT_EQ(wizard_.form.lblInstruction0.caption(), kInitialText);
    EXPECT_EQ(state().InstallEntryCount, 0);
}

TEST_F(ProgramTest, WithAnEntryTheWelcomePanelOpensWithTheTextForAnExistingConfiguration) {
    installRows(kOneEntry);

    wizard_.load();

    EXPECT_EQ(wizard_.currentPanel(), 0);
    EXPECT_EQ(wizard_.form.lblInstruction0.caption(), kExistingText);
    EXPECT_EQ(state().InstallEntryCount, 1);
}

TEST_F(ProgramTest, TheHistoryStartsWithTheWelcomePanelAndFifteenEmptyEntries) {
    wizard_.load();

    std::array<std::int16_t, 16> expected;
    expected.fill(-1);
    expected[0] = 0;
    EXPECT_EQ(state().PanelHistory, expected);
    EXPECT_EQ(state().PanelHistoryIndex, 0);
}

TEST_F(ProgramTest, TheStateStartsWithANewInstallationAndNoActionPanel) {
    wizard_.load();

    EXPECT_EQ(state().ActionKind, 0);
    EXPECT_EQ(state().ActionPanelKind, 0);
}

TEST_F(ProgramTest, AtStartNoOptionIsChosenAndEveryTextBoxIsEmpty) {
    wizard_.load();

    for (const Control* control : wizard_.form.controls()) {
        if (const auto* option = dynamic_cast<const OptionButton*>(control)) {
            EXPECT_FALSE(option->value()) << control->name();
        }
        if (const auto* box = dynamic_cast<const TextBox*>(control)) {
            EXPECT_EQ(box->text(), "") << control->name();
        }
    }
}

TEST_F(ProgramTest, StartUpShowsNoMessage) {
    disk_.disk.remove(kSampleInstallationFile);

    wizard_.load();

    EXPECT_TRUE(wizard_.messages.informations.empty());
    EXPECT_TRUE(wizard_.messages.questions.empty());
}

struct UnreadableFile {
    const char* name;
    std::string bytes;
};

class UnreadableInstallationTest : public ProgramTest,
                                   public testing::WithParamInterface<UnreadableFile> {};

TEST_P(UnreadableInstallationTest, OpensTheErrorPanelWithFinishInThePlaceOfNext) {
    install(GetParam().bytes);

    wizard_.load();

    EXPECT_EQ(wizard_.currentPanel(), 12);
    EXPECT_EQ(wizard_.history(), Panels{12});
    EXPECT_EQ(wizard_.form.cmdFinish.box(), (Box{5640, 4920, 1095, 375}));
    EXPECT_TRUE(wizard_.form.cmdFinish.enabled());
}

INSTANTIATE_TEST_SUITE_P(
    Files, UnreadableInstallationTest,
    testing::Values(UnreadableFile{"Empty", ""}, UnreadableFile{"OnlyBlanks", "    "},
                    UnreadableFile{"ADataRowFirst", cfgBytes({"20|2|C:\\www\\"})},
                    UnreadableFile{"APropertyBeforeTheHeaderEnds",
                                   cfgBytes({"00|T|1008", "10|*kvi|"})}),
    CaseName());

TEST_F(ProgramTest, WithoutTheInstallationFileTheErrorPanelOpensWithFinishInThePlaceOfNext) {
    disk_.disk.remove(kSampleInstallationFile);

    wizard_.load();

    EXPECT_EQ(wizard_.currentPanel(), 12);
    EXPECT_EQ(wizard_.history(), Panels{12});
    EXPECT_EQ(wizard_.form.cmdFinish.box(), (Box{5640, 4920, 1095, 375}));
    EXPECT_EQ(state().InstallEntryCount, 0);
}

TEST_F(ProgramTest, TheErrorPanelOfAFailedStartShowsItsDesignContent) {
    disk_.disk.remove(kSampleInstallationFile);

    wizard_.load();

    const frmWebConfig& form = wizard_.form;
    EXPECT_EQ(form.lblErrDescription.caption(), "Error");
    EXPECT_TRUE(form.lblErrInstruction.caption().starts_with(
        "The installation is not correct, please try the installation again, or send email to "));
    EXPECT_TRUE(form.lblErrInstruction.caption().ends_with(". Click on Finish to exit."));
    EXPECT_TRUE(form.cmdHelpUpgrade.enabled());
    EXPECT_TRUE(form.cmdHelpUpgrade.visible());
}

TEST_F(ProgramTest, AMissingInstallationFileIsLoggedAsSerious) {
    disk_.disk.remove(kSampleInstallationFile);

    wizard_.load();

    EXPECT_EQ(wizard_.closeAndReadLog(), Lines{"SERV  53, File not found, iocCfgReadFile"});
}

TEST_F(ProgramTest, ALockedInstallationFileIsLoggedAsAWarningAndOpensTheErrorPanel) {
    const auto lock = disk_.disk.lock(kSampleInstallationFile);

    wizard_.load();

    EXPECT_EQ(wizard_.currentPanel(), 12);
    EXPECT_EQ(wizard_.closeAndReadLog(), Lines{"WARN  55, File already open, iocCfgReadFile"});
}

TEST_F(ProgramTest, AFileOfCommentsAloneIsLoggedAndOpensTheWelcomePanel) {
    install(cfgBytes({"#", "# *Header Section", "#"}));

    wizard_.load();

    EXPECT_EQ(wizard_.currentPanel(), 0);
    EXPECT_EQ(wizard_.form.lblInstruction0.caption(), kInitialText);
    const Lines log = wizard_.closeAndReadLog();
    ASSERT_EQ(log.size(), 1u);
    EXPECT_TRUE(log[0].starts_with("WARN ")) << log[0];
    EXPECT_TRUE(log[0].ends_with(" wcpConfigInstallRead")) << log[0];
}

TEST_F(ProgramTest, FourteenRowsAreTwoEntriesWithTheirFirstTwoValuesSwapped) {
    installRows({"h0", "s0", "p0", "1", "0", "i0", "o0", "h1", "s1", "p1", "0", "1", "i1", "o1"});

    wizard_.load();

    ASSERT_EQ(state().InstallEntryCount, 2);
    ASSERT_EQ(state().InstallEntries.size(), 3u);
    EXPECT_EQ(state().InstallEntries[0].fields, (Fields{"s0", "h0", "p0", "1", "0", "i0", "o0"}));
    EXPECT_EQ(state().InstallEntries[1].fields, (Fields{"s1", "h1", "p1", "0", "1", "i1", "o1"}));
    EXPECT_EQ(state().InstallEntries[2].fields, Fields{});
}

TEST_F(ProgramTest, AnEmptyProductFolderPropertyBecomesTheProductFolder) {
    install(settingsBytes(kOneEntry, ""));

    wizard_.load();

    EXPECT_EQ(state().CfgPropertyValues[0], "C:\\Korvane\\");
}

TEST_F(ProgramTest, AProductFolderPropertyIsKept) {
    install(settingsBytes(kOneEntry, "D:\\Elsewhere\\"));

    wizard_.load();

    EXPECT_EQ(state().CfgPropertyValues[0], "D:\\Elsewhere\\");
}

struct PlaceCase {
    const char* name;
    const char* folder;
    const char* appPath;
    const char* productFolder;
};

class ProgramPlaceTest : public testing::TestWithParam<PlaceCase> {};

TEST_P(ProgramPlaceTest, GivesTheProgramsFolderAndItsParent) {
    SampleDisk disk;
    Wizard wizard(disk, {GetParam().folder, "kvwcfg"});

    wizard.load();

    EXPECT_EQ(wizard.program.state().AppPath, GetParam().appPath);
    EXPECT_EQ(wizard.program.state().ProductFolder, GetParam().productFolder);
}

INSTANTIATE_TEST_SUITE_P(
    Places, ProgramPlaceTest,
    testing::Values(PlaceCase{"Plain", "C:\\Korvane\\bin", "C:\\Korvane\\bin", "C:\\Korvane"},
                    PlaceCase{"Prefix", "\\\\?\\C:\\Korvane\\bin", "C:\\Korvane\\bin",
                              "C:\\Korvane"},
                    PlaceCase{"Deeper", "D:\\a\\b c\\wizard", "D:\\a\\b c\\wizard", "D:\\a\\b c"},
                    PlaceCase{"BelowTheDrive", "C:\\bin", "C:\\bin", "C:"}),
    CaseName());

TEST(ProgramPlace, APlaceWithoutADriveIsAFailure) {
    for (const char* place : {"\\\\server\\share\\Korvane\\bin", "", ":\\Korvane\\bin"}) {
        SampleDisk disk;
        Wizard wizard(disk, {place, "kvwcfg"});

        EXPECT_EQ(failureOf([&] { wizard.load(); }), 5) << place;
    }
}

TEST(ProgramPlace, APrefixedPlaceReadsTheInstallationFileFromTheDriveOnward) {
    SampleDisk disk;
    Wizard wizard(disk, {"\\\\?\\C:\\Korvane\\bin", "kvwcfg"});

    wizard.load();

    EXPECT_EQ(wizard.currentPanel(), 0);
}

class ProgramLogTest : public ProgramTest {
protected:
    ProgramLogTest() { disk_.disk.remove(kSampleInstallationFile); }

    // What a missing installation file leaves in the log.
    const std::string entry_ = std::string("[2007/01/16 09:05:03]  SERV  53, ") +
                               describe(ErrorNumber::FileNotFound) + ", iocCfgReadFile\r\n";
};

TEST_F(ProgramLogTest, EntriesStayPendingUntilTheWindowCloses) {
    wizard_.load();
    EXPECT_FALSE(disk_.disk.exists(kSampleLog));

    wizard_.form.close();

    EXPECT_EQ(disk_.disk.read(kSampleLog), entry_);
}

TEST_F(ProgramLogTest, FinishBringsTheLogToDisk) {
    wizard_.load();

    wizard_.form.cmdFinish.click();

    EXPECT_EQ(disk_.disk.read(kSampleLog), entry_);
}

TEST_F(ProgramLogTest, TheLogFilesBeginWithTheNameOfTheProgramsFile) {
    Wizard wizard(disk_, {kSamplePlace, "renamed"});
    wizard.load();

    wizard.form.close();

    EXPECT_EQ(disk_.disk.read("C:\\Korvane\\log\\renamed00.log"), entry_);
}

TEST_F(ProgramLogTest, WithoutALogFolderTheWindowClosesAllTheSame) {
    disk_.disk.remove("C:\\Korvane\\log");
    wizard_.load();

    wizard_.form.close();

    EXPECT_EQ(wizard_.observer.closings, 1);
    EXPECT_FALSE(disk_.disk.exists("C:\\Korvane\\log"));
}

TEST_F(ProgramTest, ClosingWithNothingToReportWritesNoLog) {
    wizard_.load();

    wizard_.form.close();

    EXPECT_FALSE(disk_.disk.exists(kSampleLog));
}

}  // namespace
}  // namespace kv
