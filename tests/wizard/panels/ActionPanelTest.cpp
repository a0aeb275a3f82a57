#include "wizard/panels/ActionPanel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "process/ExistingInstallation.h"
#include "tests/support/Wizard.h"

namespace kv {
namespace {

constexpr const char* kWritingText =
    "Configuration Wizard is going to write settings to disk and copy files to web server's "
    "folders. Click on Next to continue, or click on Cancel to exit.";
constexpr const char* kBackupText =
    "Configuration Wizard is going to backup settings to disk. Click on Next to continue, or click "
    "on Cancel to exit.";
constexpr const char* kDeletionText =
    "Configuration Wizard is going to delete settings from disk and files to web server's folders. "
    "Click on Next to continue, or click on Cancel to exit.";
constexpr const char* kUpgradeErrorText =
    "The previous settings are not available, click on Help for detailed instructions to get "
    "upgrading done.";

struct ActionControls {
    CommandButton frmWebConfig::*button;
    Label frmWebConfig::*label;
    Box buttonBox;
    Twips labelTop;
    Twips labelWidth;
    int variant;
};

const ActionControls kActions[] = {
    {&frmWebConfig::cmdNew, &frmWebConfig::lblNew, {720, 1800, 735, 735}, 2040, 3495, 1},
    {&frmWebConfig::cmdUpgrade, &frmWebConfig::lblUpgrade, {720, 3120, 735, 735}, 3360, 3495, 1},
    {&frmWebConfig::cmdModify, &frmWebConfig::lblModify, {720, 1680, 735, 735}, 1920, 3495, 2},
    {&frmWebConfig::cmdBackup, &frmWebConfig::lblBackup, {720, 2520, 735, 735}, 2760, 3495, 2},
    {&frmWebConfig::cmdDelete, &frmWebConfig::lblDelete, {720, 3360, 735, 735}, 3600, 3615, 2},
};

// The panel by itself, for what no walk through the window reaches.
class ActionPanelTest : public testing::Test {
protected:
    // The variant whose controls, and only those, are shown; 0 for none.
    int shownVariant() const {
        for (const int variant : {0, 1, 2})
            if (std::ranges::all_of(kActions, [&](const ActionControls& action) {
                    const CommandButton& button = bench_.form.*action.button;
                    const bool shown = action.variant == variant;
                    return button.visible() == shown && button.enabled() == shown &&
                           (bench_.form.*action.label).visible() == shown;
                }))
                return variant;
        return -1;
    }

    Workbench bench_;
    ExistingInstallation installation_{bench_.state, bench_.configuration, bench_.log};
    ActionPanel panel_{bench_.form, bench_.state, installation_};
};

TEST_F(ActionPanelTest, TheLayoutPutsEverythingInItsPlace) {
    for (const ActionControls& action : kActions) {
        (bench_.form.*action.button).setBox({1, 2, 735, 735});
        (bench_.form.*action.label).setBox({1, 2, action.labelWidth, 255});
    }

    panel_.layOut();

    for (const ActionControls& action : kActions) {
        const CommandButton& button = bench_.form.*action.button;
        const Label& label = bench_.form.*action.label;
        EXPECT_EQ(button.box(), action.buttonBox) << button.name();
        EXPECT_EQ(label.box().left, 1680) << label.name();
        EXPECT_EQ(label.box().top, action.labelTop) << label.name();
        EXPECT_EQ(label.box().width, action.labelWidth) << label.name();
    }
}

TEST_F(ActionPanelTest, TheLayoutHidesAllButtonsAndLabels) {
    panel_.layOut();

    EXPECT_EQ(shownVariant(), 0);
}

TEST_F(ActionPanelTest, VariantOneShowsExactlyNewAndUpgrade) {
    bench_.state.ActionPanelKind = 1;

    panel_.setUp();

    EXPECT_EQ(shownVariant(), 1);
    EXPECT_EQ(bench_.form.lblDescription13.caption(), "New or Upgrading");
    EXPECT_EQ(bench_.form.lblInstruction13.caption(),
              "Click on New, or Upgrading to continue, click on Back to previous, or click on "
              "Cancel to exit");
}

TEST_F(ActionPanelTest, VariantTwoShowsExactlyModifyBackupAndDelete) {
    bench_.state.ActionPanelKind = 2;

    panel_.setUp();

    EXPECT_EQ(shownVariant(), 2);
    EXPECT_EQ(bench_.form.lblDescription13.caption(), "Modification, Backing Up, or Deletion");
    EXPECT_EQ(bench_.form.lblInstruction13.caption(),
              "Click on Midify, Backup, or Delete to continue, click on Back to previous, or click "
              "on Cancel to exit");
}

TEST_F(ActionPanelTest, TheVariantsReplaceEachOther) {
    bench_.state.ActionPanelKind = 1;
    panel_.setUp();
    bench_.state.ActionPanelKind = 2;
    panel_.setUp();
    EXPECT_EQ(shownVariant(), 2);

    bench_.state.ActionPanelKind = 1;
    panel_.setUp();

    EXPECT_EQ(shownVariant(), 1);
}

TEST_F(ActionPanelTest, AnyOtherVariantChangesNothing) {
    RecordingObserver observer;
    observer.watch(bench_.form);

    for (const int kind : {0, 3, -1}) {
        bench_.state.ActionPanelKind = static_cast<std::int16_t>(kind);
        panel_.setUp();
    }

    EXPECT_EQ(observer.changes, Lines{});
    bench_.form.observe(nullptr);
}

struct ConfirmationCase {
    std::int16_t actionKind;
    const char* text;
};

void PrintTo(const ConfirmationCase& row, std::ostream* out) { *out << row.actionKind; }

class ConfirmationTest : public ActionPanelTest,
                         public testing::WithParamInterface<ConfirmationCase> {};

TEST_P(ConfirmationTest, HasTheTextOfTheAction) {
    bench_.form.lblInstruction10.setCaption("before");
    bench_.state.ActionKind = GetParam().actionKind;

    panel_.setConfirmationText();

    EXPECT_EQ(bench_.form.lblInstruction10.caption(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(ActionPanel, ConfirmationTest,
                         testing::Values(ConfirmationCase{0, kWritingText},
                                         ConfirmationCase{1, kWritingText},
                                         ConfirmationCase{2, kDeletionText},
                                         ConfirmationCase{3, kBackupText},
                                         ConfirmationCase{4, kWritingText}));

TEST_F(ActionPanelTest, TheErrorOfAnUpgradePointsToTheHelpPage) {
    bench_.form.cmdHelpUpgrade.setEnabled(false);
    bench_.form.cmdHelpUpgrade.setVisible(false);
    bench_.state.ActionKind = 4;

    panel_.setErrorText();

    EXPECT_EQ(bench_.form.lblErrInstruction.caption(), kUpgradeErrorText);
    EXPECT_TRUE(bench_.form.cmdHelpUpgrade.enabled());
    EXPECT_TRUE(bench_.form.cmdHelpUpgrade.visible());
}

class OtherErrorTest : public ActionPanelTest, public testing::WithParamInterface<int> {};

TEST_P(OtherErrorTest, PointsToTheSupportWithoutTheHelpButton) {
    const std::string support = bench_.form.lblErrInstruction.caption();
    bench_.form.lblErrInstruction.setCaption("before");
    bench_.state.ActionKind = static_cast<std::int16_t>(GetParam());

    panel_.setErrorText();

    EXPECT_EQ(bench_.form.lblErrInstruction.caption(), support);
    EXPECT_FALSE(bench_.form.cmdHelpUpgrade.enabled());
    EXPECT_FALSE(bench_.form.cmdHelpUpgrade.visible());
}

INSTANTIATE_TEST_SUITE_P(ActionPanel, OtherErrorTest, testing::Values(0, 1, 2, 3));

TEST_F(ActionPanelTest, FillingThePanelsWithoutAnEntryIsABoundsError) {
    EXPECT_EQ(failureOf([&] { panel_.fillPanels(); }), 9);
}

// The buttons, in the window.
class ActionButtonTest : public testing::Test {
protected:
    void loadWithEntry(const Lines& rows) {
        disk_.disk.write(kSampleInstallationFile, settingsBytes(rows));
        goToActionPanel();
    }
    void loadWithEntry() {
        loadWithEntry({"C:\\www\\", "C:\\cgi\\", "C:\\Korvane\\", "1", "0", "10.0.0.1", "8080"});
    }
    void loadWithSavedConfiguration() {
        disk_.disk.write(kSavedMain, "saved");
        goToActionPanel();
    }
    void saveInstallation(const Lines& rows) {
        disk_.disk.write(kSavedInstallation, settingsBytes(rows));
    }
    void goToActionPanel() {
        wizard_.load();
        form_.cmdNext.click();
    }
    const WizardState& state() const { return wizard_.program.state(); }

    SampleDisk disk_;
    Wizard wizard_{disk_};
    frmWebConfig& form_ = wizard_.form;
};

TEST_F(ActionButtonTest, AtStartNothingOfTheActionPanelIsShown) {
    wizard_.load();

    for (const ActionControls& action : kActions) {
        EXPECT_FALSE((form_.*action.button).visible());
        EXPECT_FALSE((form_.*action.button).enabled());
        EXPECT_FALSE((form_.*action.label).visible());
    }
}

TEST_F(ActionButtonTest, NewLeadsToTheServerQuestions) {
    loadWithSavedConfiguration();

    form_.cmdNew.click();

    EXPECT_EQ(wizard_.history(), (Panels{0, 13, 1}));
    EXPECT_EQ(wizard_.currentPanel(), 1);
    EXPECT_EQ(state().ActionKind, 0);
}

TEST_F(ActionButtonTest, ModifyLeadsToTheServerQuestions) {
    loadWithEntry();

    form_.cmdModify.click();

    EXPECT_EQ(wizard_.history(), (Panels{0, 13, 1}));
    EXPECT_EQ(wizard_.currentPanel(), 1);
    EXPECT_EQ(state().ActionKind, 1);
}

TEST_F(ActionButtonTest, DeleteLeadsToItsConfirmation) {
    loadWithEntry();

    form_.cmdDelete.click();

    EXPECT_EQ(wizard_.history(), (Panels{0, 13, 10}));
    EXPECT_EQ(wizard_.currentPanel(), 10);
    EXPECT_EQ(state().ActionKind, 2);
    EXPECT_EQ(form_.lblInstruction10.caption(), kDeletionText);
}

TEST_F(ActionButtonTest, BackupLeadsToItsConfirmation) {
    loadWithEntry();

    form_.cmdBackup.click();

    EXPECT_EQ(wizard_.history(), (Panels{0, 13, 10}));
    EXPECT_EQ(wizard_.currentPanel(), 10);
    EXPECT_EQ(state().ActionKind, 3);
    EXPECT_EQ(form_.lblInstruction10.caption(), kBackupText);
}

TEST_F(ActionButtonTest, BackFromTheConfirmationOfABackupReturnsToTheActionPanel) {
    loadWithEntry();
    form_.cmdBackup.click();

    form_.cmdBack.click();

    EXPECT_EQ(wizard_.history(), (Panels{0, 13}));
    EXPECT_EQ(wizard_.currentPanel(), 13);
}

TEST_F(ActionButtonTest, AModificationAfterADeletionWasGivenUpHasTheWritingConfirmation) {
    loadWithEntry(
        {"C:\\Other Server\\docs\\", "C:\\Other Server\\cgi\\", "C:\\Korvane\\", "2", "1", "", ""});
    form_.cmdDelete.click();
    form_.cmdBack.click();

    form_.cmdModify.click();
    for (int i = 0; i < 4; ++i) form_.cmdNext.click();

    EXPECT_EQ(wizard_.history(), (Panels{0, 13, 1, 6, 9, 14, 10}));
    EXPECT_EQ(form_.lblInstruction10.caption(), kWritingText);
}

TEST_F(ActionButtonTest, TheConfirmationOfANewInstallationIsTheWritingText) {
    wizard_.load();

    wizard_.goToConfirmation(Server::Apache, UrlStyle::Kv);

    EXPECT_EQ(form_.lblInstruction10.caption(), kWritingText);
}

struct ModifyCase {
    const char* name;
    const char* kindCode;
    const char* styleCode;
    std::set<std::string> chosen;  // the options that are then on
    TextBox frmWebConfig::*home;   // null: none is filled
    TextBox frmWebConfig::*scripts;
};

class ModifyTest : public ActionButtonTest, public testing::WithParamInterface<ModifyCase> {
protected:
    ModifyTest() {
        loadWithEntry({"D:\\www\\site\\", "D:\\www\\cgi\\", "C:\\Korvane\\", GetParam().kindCode,
                       GetParam().styleCode, "10.0.0.1", "8080"});
        form_.cmdModify.click();
    }

    std::set<std::string> chosen() const {
        std::set<std::string> names;
        for (const Control* control : form_.controls())
            if (const auto* option = dynamic_cast<const OptionButton*>(control))
                if (option->value()) names.emplace(option->name());
        return names;
    }
};

TEST_P(ModifyTest, TurnsOnTheOptionsOfTheEntry) { EXPECT_EQ(chosen(), GetParam().chosen); }

TEST_P(ModifyTest, FillsTheFoldersOfTheEntrysKindOnly) {
    for (const auto home : {&frmWebConfig::txtFolderHomeApache, &frmWebConfig::txtFolderHomeIIS,
                            &frmWebConfig::txtFolderHomeOthers})
        EXPECT_EQ((form_.*home).text(), home == GetParam().home ? "D:\\www\\site" : "");
    for (const auto scripts :
         {&frmWebConfig::txtFolderScriptsApache, &frmWebConfig::txtFolderScriptsIIS,
          &frmWebConfig::txtFolderScriptsOthers})
        EXPECT_EQ((form_.*scripts).text(), scripts == GetParam().scripts ? "D:\\www\\cgi" : "");
}

TEST_P(ModifyTest, FillsTheWebsitesAddress) {
    EXPECT_EQ(form_.txtWebsiteIP.text(), "10.0.0.1");
    EXPECT_EQ(form_.txtWebsitePort.text(), "8080");
}

INSTANTIATE_TEST_SUITE_P(
    ActionPanel, ModifyTest,
    testing::Values(ModifyCase{"ApacheAtTheSiteRoot",
                               "1",
                               "0",
                               {"optInstalledApache", "optUrlDefault"},
                               &frmWebConfig::txtFolderHomeApache,
                               &frmWebConfig::txtFolderScriptsApache},
                    ModifyCase{"IISUnderKv",
                               "0",
                               "1",
                               {"optInstalledIIS", "optUrlKv"},
                               &frmWebConfig::txtFolderHomeIIS,
                               &frmWebConfig::txtFolderScriptsIIS},
                    ModifyCase{"OtherUnderKv",
                               "2",
                               "1",
                               {"optInstalledOther", "optUrlKv"},
                               &frmWebConfig::txtFolderHomeOthers,
                               &frmWebConfig::txtFolderScriptsOthers},
                    ModifyCase{"AnUnknownKind", "3", "0", {"optUrlDefault"}, nullptr, nullptr},
                    ModifyCase{"NoKind", "", "0", {"optUrlDefault"}, nullptr, nullptr},
                    ModifyCase{"AnUnknownStyle",
                               "1",
                               "2",
                               {"optInstalledApache"},
                               &frmWebConfig::txtFolderHomeApache,
                               &frmWebConfig::txtFolderScriptsApache},
                    ModifyCase{"NoStyle",
                               "1",
                               "",
                               {"optInstalledApache"},
                               &frmWebConfig::txtFolderHomeApache,
                               &frmWebConfig::txtFolderScriptsApache}),
    CaseName());

TEST_F(ActionButtonTest, ModifyCutsTheFoldersAtTheirLastBackslash) {
    loadWithEntry(
        {"D:\\www\\site\\index.html", "D:\\cgi\\x\\y", "C:\\Korvane\\", "2", "0", "", ""});

    form_.cmdModify.click();

    EXPECT_EQ(form_.txtFolderHomeOthers.text(), "D:\\www\\site");
    EXPECT_EQ(form_.txtFolderScriptsOthers.text(), "D:\\cgi\\x");
}

TEST_F(ActionButtonTest, ModifyUsesTheFirstOfSeveralEntries) {
    loadWithEntry({"C:\\1\\", "C:\\1s\\", "p", "2", "0", "1.1.1.1", "1", "C:\\2\\", "C:\\2s\\", "p",
                   "1", "1", "2.2.2.2", "2"});

    form_.cmdModify.click();

    EXPECT_EQ(form_.txtFolderHomeOthers.text(), "C:\\1");
    EXPECT_EQ(form_.txtWebsiteIP.text(), "1.1.1.1");
    EXPECT_FALSE(form_.optInstalledApache.value());
}

TEST_F(ActionButtonTest, TheFolderDefaultsDoNotOverwriteWhatModifyHasFilledIn) {
    loadWithEntry(
        {"C:\\Korvane\\web-root\\", "C:\\Korvane\\bin\\", "C:\\Korvane\\", "1", "0", "", ""});

    form_.cmdModify.click();
    form_.cmdNext.click();
    form_.cmdNext.click();

    EXPECT_EQ(wizard_.currentPanel(), 7);
    EXPECT_EQ(form_.txtFolderHomeApache.text(), "C:\\Korvane\\web-root");
    EXPECT_EQ(form_.txtFolderScriptsApache.text(), "C:\\Korvane\\bin");
}

TEST_F(ActionButtonTest, WhatModifyHasFilledInStaysWhenAnotherActionIsChosen) {
    loadWithEntry();
    form_.cmdModify.click();
    form_.cmdBack.click();

    form_.cmdBackup.click();

    EXPECT_TRUE(form_.optInstalledApache.value());
    EXPECT_EQ(form_.txtFolderHomeApache.text(), "C:\\www");
    EXPECT_EQ(form_.txtWebsitePort.text(), "8080");
}

TEST_F(ActionButtonTest, UpgradeReadsTheSavedInstallationAndLeadsToTheWritingConfirmation) {
    saveInstallation({"C:\\www\\", "C:\\cgi\\", "C:\\Korvane\\", "1", "0", "", ""});
    loadWithSavedConfiguration();
    ASSERT_EQ(state().InstallEntryCount, 0);
    form_.lblInstruction10.setCaption("of another operation");

    form_.cmdUpgrade.click();

    EXPECT_EQ(wizard_.history(), (Panels{0, 13, 10}));
    EXPECT_EQ(state().ActionKind, 4);
    EXPECT_EQ(form_.lblInstruction10.caption(), kWritingText);
    ASSERT_EQ(state().InstallEntryCount, 1);
    EXPECT_EQ(state().InstallEntries[0].fields[kEntryHomeFolder], "C:\\www\\");
}

TEST_F(ActionButtonTest, UpgradeWithoutAReadableSavedInstallationReplacesTheActionPanelByTheError) {
    loadWithSavedConfiguration();

    form_.cmdUpgrade.click();

    EXPECT_EQ(wizard_.history(), (Panels{0, 12}));
    EXPECT_EQ(wizard_.currentPanel(), 12);
    EXPECT_EQ(state().ActionKind, 4);
    EXPECT_EQ(form_.cmdFinish.box().left, 5640);
    EXPECT_EQ(form_.lblErrInstruction.caption(), kUpgradeErrorText);
    EXPECT_TRUE(form_.cmdHelpUpgrade.visible());
    EXPECT_FALSE(form_.cmdBack.enabled());
}

TEST_F(ActionButtonTest, AFailedUpgradeIsLogged) {
    loadWithSavedConfiguration();

    form_.cmdUpgrade.click();

    EXPECT_EQ(wizard_.closeAndReadLog(), Lines{"SERV  53, File not found, iocCfgReadFile"});
}

TEST_F(ActionButtonTest, AMalformedSavedInstallationFailsTheUpgradeToo) {
    disk_.disk.write(kSavedInstallation, cfgBytes({"20|2|C:\\www\\"}));
    loadWithSavedConfiguration();

    form_.cmdUpgrade.click();

    EXPECT_EQ(wizard_.history(), (Panels{0, 12}));
}

TEST_F(ActionButtonTest, GoingBackToTheWelcomePanelSetsTheActionPanelUpAnew) {
    loadWithSavedConfiguration();
    form_.cmdBack.click();
    form_.cmdNew.setVisible(false);

    form_.cmdNext.click();

    EXPECT_EQ(wizard_.currentPanel(), 13);
    EXPECT_TRUE(form_.cmdNew.visible());
}

}  // namespace
}  // namespace kv
