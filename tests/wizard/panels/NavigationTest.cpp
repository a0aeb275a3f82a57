#include "wizard/panels/Navigation.h"

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "common/RunTimeError.h"
#include "tests/support/Wizard.h"

namespace kv {
namespace {

const Lines kOneEntry{
    "C:\\Inetpub\\wwwroot\\", "C:\\Inetpub\\scripts\\", "C:\\Korvane\\", "0", "0", "", ""};

void noInstallation(SampleDisk&) {}
void oneEntry(SampleDisk& disk) {
    disk.disk.write(kSampleInstallationFile, settingsBytes(kOneEntry));
}
void noInstallationFile(SampleDisk& disk) { disk.disk.remove(kSampleInstallationFile); }

void stay(Wizard&) {}
void next(Wizard& wizard) { wizard.form.cmdNext.click(); }
void toServerInstall(Wizard& wizard) {
    next(wizard);
    wizard.form.optInstalledNothing.click();
    next(wizard);
}
void toInstalling(Wizard& wizard, OptionButton& option) {
    toServerInstall(wizard);
    option.click();
    next(wizard);
}

// A panel and a way to it.
struct Road {
    int panel;
    void (*prepare)(SampleDisk&);
    std::function<void(Wizard&)> walk;  // from the first panel
};

const Road kRoads[] = {
    {0, noInstallation, stay},
    {1, noInstallation, next},
    {2, noInstallation, toServerInstall},
    {3, noInstallation, [](Wizard& w) { toInstalling(w, w.form.optInstallingApache); }},
    {4, noInstallation, [](Wizard& w) { toInstalling(w, w.form.optInstallingIIS); }},
    {5, noInstallation, [](Wizard& w) { toInstalling(w, w.form.optInstallingOther); }},
    {6, noInstallation,
     [](Wizard& w) {
         next(w);
         w.chooseServer(Server::Apache);
     }},
    {7, noInstallation, [](Wizard& w) { w.goToFolders(Server::Apache); }},
    {8, noInstallation, [](Wizard& w) { w.goToFolders(Server::IIS); }},
    {9, noInstallation, [](Wizard& w) { w.goToFolders(Server::Other); }},
    {10, noInstallation, [](Wizard& w) { w.goToConfirmation(Server::Apache, UrlStyle::Kv); }},
    {11, noInstallation, [](Wizard& w) { w.install(Server::Apache, UrlStyle::Kv); }},
    {12, noInstallationFile, stay},
    {13, oneEntry, next},
    {14, noInstallation, [](Wizard& w) { w.goToWebsite(Server::Apache); }},
};

const Road& roadTo(int panel) { return kRoads[static_cast<std::size_t>(panel)]; }

// A wizard that has walked to the panel.
class WizardAt {
public:
    explicit WizardAt(int panel) {
        roadTo(panel).prepare(disk);
        wizard.load();
        roadTo(panel).walk(wizard);
    }

    SampleDisk disk;
    Wizard wizard{disk};
};

struct States {
    bool enabled, isDefault, visible;

    bool operator==(const States&) const = default;
};

void PrintTo(const States& states, std::ostream* out) {
    *out << states.enabled << states.isDefault << states.visible;
}

States statesOf(const CommandButton& button) {
    return {button.enabled(), button.isDefault(), button.visible()};
}

struct PanelStates {
    int panel;
    States next, back, cancel, finish;
};

void PrintTo(const PanelStates& row, std::ostream* out) { *out << row.panel; }

constexpr bool yes = true;
constexpr bool no = false;

const PanelStates kPanelStates[] = {
    {0, {yes, yes, yes}, {no, no, yes}, {yes, no, yes}, {no, no, no}},
    {1, {yes, yes, yes}, {yes, no, yes}, {yes, no, yes}, {no, no, no}},
    {2, {yes, yes, yes}, {yes, no, yes}, {yes, no, yes}, {no, no, no}},
    {3, {yes, yes, yes}, {yes, no, yes}, {yes, no, yes}, {no, no, no}},
    {4, {yes, yes, yes}, {yes, no, yes}, {yes, no, yes}, {no, no, no}},
    {5, {yes, yes, yes}, {yes, no, yes}, {yes, no, yes}, {no, no, no}},
    {6, {yes, yes, yes}, {yes, no, yes}, {yes, no, yes}, {no, no, no}},
    {7, {yes, yes, yes}, {yes, no, yes}, {yes, no, yes}, {no, no, no}},
    {8, {yes, yes, yes}, {yes, no, yes}, {yes, no, yes}, {no, no, no}},
    {9, {yes, yes, yes}, {yes, no, yes}, {yes, no, yes}, {no, no, no}},
    {10, {yes, yes, yes}, {yes, no, yes}, {yes, no, yes}, {no, no, no}},
    {11, {no, no, no}, {no, no, yes}, {no, no, yes}, {yes, yes, yes}},
    {12, {no, no, no}, {no, no, yes}, {no, no, yes}, {yes, yes, yes}},
    {13, {no, no, yes}, {yes, no, yes}, {yes, no, yes}, {no, no, no}},
    {14, {yes, yes, yes}, {yes, no, yes}, {yes, no, yes}, {no, no, no}},
};

class PanelTest : public testing::TestWithParam<PanelStates> {
protected:
    WizardAt at_{GetParam().panel};
    const frmWebConfig& form_ = at_.wizard.form;
};

TEST_P(PanelTest, GivesTheButtonsTheirStates) {
    EXPECT_EQ(statesOf(form_.cmdNext), GetParam().next);
    EXPECT_EQ(statesOf(form_.cmdBack), GetParam().back);
    EXPECT_EQ(statesOf(form_.cmdCancel), GetParam().cancel);
    EXPECT_EQ(statesOf(form_.cmdFinish), GetParam().finish);
}

TEST_P(PanelTest, IsTheOnlyVisibleAndEnabledOne) {
    Panels enabled;
    for (std::size_t n = 0; n < form_.picPanel.size(); ++n)
        if (form_.picPanel[n].enabled()) enabled.push_back(static_cast<int>(n));

    EXPECT_EQ(at_.wizard.visiblePanels(), Panels{GetParam().panel});
    EXPECT_EQ(enabled, Panels{GetParam().panel});
}

TEST_P(PanelTest, StandsInThePlaceOfPanels) {
    const auto panel = static_cast<std::size_t>(GetParam().panel);

    EXPECT_EQ(form_.picPanel[panel].box(), (Box{1560, 0, 6495, 4750}));
}

TEST_P(PanelTest, KeepsThePanelNamesHidden) {
    for (const Label& label : form_.lblPanelID) EXPECT_FALSE(label.visible()) << label.name();
}

TEST_P(PanelTest, HasFinishInThePlaceOfNextOnlyAtTheEnd) {
    const int panel = GetParam().panel;

    EXPECT_EQ(form_.cmdFinish.box().left, panel == 11 || panel == 12 ? 5640 : 8160);
}

// What a screen reader says when it comes to the panel.
const char* const kSpokenTitles[] = {
    "Welcome to the Korvane Configuration Wizard",
    "The web server installation information",
    "The web server installing options",
    "Installing Apache web server",
    "Installing MS IIS (Internet Information Server)",
    "Installing other web server",
    "The way to access Korvane through the Web",
    "The folders for document root and scripts",
    "The folders for Home and Scripts",
    "The folders for Home and Scripts",
    "Writing data to disk",
    "Configuration completed",
    "Error",
    "Modification, Backing Up, or Deletion",
    "IP Address and Port settings",
};

TEST_P(PanelTest, IsNamedByItsTitle) {
    const auto panel = static_cast<std::size_t>(GetParam().panel);

    EXPECT_EQ(form_.picPanel[panel].accessibleName(), kSpokenTitles[panel]);
}

INSTANTIATE_TEST_SUITE_P(Navigation, PanelTest, testing::ValuesIn(kPanelStates),
                         [](const auto& row) { return std::to_string(row.param.panel); });

TEST(Navigation, APanelThatWasMovedIsPlacedAgainWhenItIsShown) {
    WizardAt at(0);
    at.wizard.form.picPanel[1].setBox({1, 2, 3, 4});

    at.wizard.form.cmdNext.click();

    EXPECT_EQ(at.wizard.form.picPanel[1].box(), (Box{1560, 0, 6495, 4750}));
}

TEST(Navigation, TheActionPanelIsNamedByTheTitleOfItsOtherVariantToo) {
    SampleDisk disk;
    disk.disk.write(kSavedMain, "saved");
    Wizard wizard(disk);
    wizard.load();

    wizard.form.cmdNext.click();

    EXPECT_EQ(wizard.form.picPanel[13].accessibleName(), "New or Upgrading");
}

struct WalkCase {
    int panel;
    Panels history;
};

void PrintTo(const WalkCase& walk, std::ostream* out) { *out << walk.panel; }

class HistoryTest : public testing::TestWithParam<WalkCase> {};

TEST_P(HistoryTest, HoldsThePanelsOfTheWalk) {
    const WizardAt at(GetParam().panel);

    EXPECT_EQ(at.wizard.history(), GetParam().history);
}

TEST_P(HistoryTest, IsEmptyBeyondTheCurrentPanel) {
    const WizardAt at(GetParam().panel);

    const WizardState& state = at.wizard.program.state();
    for (std::size_t i = GetParam().history.size(); i < 16; ++i)
        EXPECT_EQ(state.PanelHistory[i], -1) << i;
}

INSTANTIATE_TEST_SUITE_P(
    Navigation, HistoryTest,
    testing::Values(WalkCase{0, {0}}, WalkCase{1, {0, 1}}, WalkCase{2, {0, 1, 2}},
                    WalkCase{3, {0, 1, 2, 3}}, WalkCase{4, {0, 1, 2, 4}}, WalkCase{5, {0, 1, 2, 5}},
                    WalkCase{6, {0, 1, 6}}, WalkCase{7, {0, 1, 6, 7}}, WalkCase{8, {0, 1, 6, 8}},
                    WalkCase{9, {0, 1, 6, 9}}, WalkCase{14, {0, 1, 6, 7, 14}},
                    WalkCase{10, {0, 1, 6, 7, 14, 10}}, WalkCase{11, {0, 1, 6, 7, 14, 10, 11}},
                    WalkCase{12, {12}}, WalkCase{13, {0, 13}}),
    [](const auto& row) { return std::to_string(row.param.panel); });

class AfterInstallingTest : public testing::TestWithParam<int> {};

TEST_P(AfterInstallingTest, NextLeadsToTheUrlStyle) {
    WizardAt at(GetParam());

    at.wizard.form.cmdNext.click();

    EXPECT_EQ(at.wizard.history(), (Panels{0, 1, 2, GetParam(), 6}));
    EXPECT_EQ(at.wizard.currentPanel(), 6);
}

INSTANTIATE_TEST_SUITE_P(Navigation, AfterInstallingTest, testing::Values(3, 4, 5));

// The control that has the keyboard when the user comes to a panel: the first field, the default
// button, or the first of several.
struct Arrival {
    int panel;
    const char* focused;
};
void PrintTo(const Arrival& arrival, std::ostream* out) { *out << arrival.panel; }

class ArrivalTest : public testing::TestWithParam<Arrival> {};

TEST_P(ArrivalTest, GivesTheKeyboardToOneControl) {
    WizardAt at(GetParam().panel);

    std::string focused;
    for (const std::string& change : at.wizard.observer.changes)
        if (change.ends_with(" Focus")) focused = change.substr(0, change.find(' '));
    EXPECT_EQ(focused, GetParam().focused);
}

INSTANTIATE_TEST_SUITE_P(Navigation, ArrivalTest,
                         testing::Values(Arrival{0, "cmdNext"}, Arrival{1, "optInstalledIIS"},
                                         Arrival{2, "optInstallingIIS"}, Arrival{3, "cmdNext"},
                                         Arrival{4, "cmdNext"}, Arrival{5, "cmdNext"},
                                         Arrival{6, "optUrlDefault"},
                                         Arrival{7, "txtFolderHomeApache"},
                                         Arrival{8, "txtFolderHomeIIS"},
                                         Arrival{9, "txtFolderHomeOthers"}, Arrival{10, "cmdNext"},
                                         Arrival{11, "cmdFinish"}, Arrival{12, "cmdFinish"},
                                         Arrival{13, "cmdModify"}, Arrival{14, "txtWebsiteIP"}),
                         [](const auto& row) { return "Panel" + std::to_string(row.param.panel); });

TEST(Navigation, TheLongestWalkUsesTenEntries) {
    SampleDisk disk;
    disk.disk.write(kSavedMain, "saved");
    Wizard wizard(disk);
    wizard.load();

    wizard.form.cmdNext.click();
    wizard.form.cmdNew.click();
    wizard.form.optInstalledNothing.click();
    wizard.form.cmdNext.click();
    wizard.form.optInstallingAnyone.click();
    wizard.form.cmdNext.click();
    wizard.form.cmdNext.click();
    wizard.chooseUrlStyle(UrlStyle::SiteRoot);
    wizard.typeFolders(Server::Apache);
    wizard.form.cmdNext.click();
    wizard.form.cmdNext.click();

    EXPECT_EQ(wizard.history(), (Panels{0, 13, 1, 2, 3, 6, 7, 14, 10, 11}));
    EXPECT_EQ(wizard.form.lblFinishDescription.caption(), "Configuration completed");
}

// Panels that Back leaves, each for the one before it.
class BackTest : public testing::TestWithParam<int> {};

TEST_P(BackTest, TakesThePanelOffTheHistoryAndShowsTheOneBefore) {
    WizardAt at(GetParam());
    Panels expected = at.wizard.history();
    expected.pop_back();

    at.wizard.form.cmdBack.click();

    EXPECT_EQ(at.wizard.history(), expected);
    EXPECT_EQ(at.wizard.currentPanel(), expected.back());
    EXPECT_EQ(at.wizard.program.state().PanelHistory[expected.size()], -1);
}

INSTANTIATE_TEST_SUITE_P(Navigation, BackTest,
                         testing::Values(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 13, 14));

class NoBackTest : public testing::TestWithParam<int> {};

TEST_P(NoBackTest, BackDoesNothing) {
    WizardAt at(GetParam());
    const Panels history = at.wizard.history();

    at.wizard.form.cmdBack.click();

    EXPECT_EQ(at.wizard.history(), history);
    EXPECT_EQ(at.wizard.currentPanel(), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Navigation, NoBackTest, testing::Values(0, 11, 12));

TEST(Navigation, BackFromTheWebsitePanelGoesToTheFolderPanelThatWasShownNotTheOneNowChosen) {
    SampleDisk disk;
    Wizard wizard(disk);
    wizard.load();
    wizard.goToWebsite(Server::IIS);
    wizard.form.optInstalledApache.setValue(true);

    wizard.form.cmdBack.click();

    EXPECT_EQ(wizard.currentPanel(), 8);
}

TEST(Navigation, ChoicesAndTextsSurviveBackAndNext) {
    SampleDisk disk;
    Wizard wizard(disk);
    wizard.load();
    wizard.goToWebsite(Server::Other, UrlStyle::Kv);
    wizard.form.txtWebsiteIP.typed("10.0.0.1");
    wizard.form.txtWebsitePort.typed("8080");

    for (int i = 0; i < 4; ++i) wizard.form.cmdBack.click();
    ASSERT_EQ(wizard.currentPanel(), 0);
    for (int i = 0; i < 4; ++i) wizard.form.cmdNext.click();

    EXPECT_EQ(wizard.history(), (Panels{0, 1, 6, 9, 14}));
    EXPECT_TRUE(wizard.form.optInstalledOther.value());
    EXPECT_TRUE(wizard.form.optUrlKv.value());
    EXPECT_EQ(wizard.form.txtFolderHomeOthers.text(), "C:\\Other Server\\docs");
    EXPECT_EQ(wizard.form.txtFolderScriptsOthers.text(), "C:\\Other Server\\cgi");
    EXPECT_EQ(wizard.form.txtWebsiteIP.text(), "10.0.0.1");
    EXPECT_EQ(wizard.form.txtWebsitePort.text(), "8080");
}

TEST(Navigation, ARejectedPanelLeavesTheHistoryAlone) {
    WizardAt at(1);

    at.wizard.form.cmdNext.click();

    EXPECT_EQ(at.wizard.history(), (Panels{0, 1}));
    EXPECT_EQ(at.wizard.program.state().PanelHistory[2], -1);
}

// Next is out of reach on these panels; put within reach by force, it leads to the Welcome panel.
class DeadNextTest : public testing::TestWithParam<int> {};

TEST_P(DeadNextTest, ForcedNextLeadsToTheWelcomePanel) {
    WizardAt at(GetParam());
    Panels expected = at.wizard.history();
    expected.push_back(0);
    bringIntoReach(at.wizard.form.cmdNext);

    at.wizard.form.cmdNext.click();

    EXPECT_EQ(at.wizard.history(), expected);
    EXPECT_EQ(at.wizard.currentPanel(), 0);
}

TEST_P(DeadNextTest, NextDoesNothing) {
    WizardAt at(GetParam());
    const Panels history = at.wizard.history();

    at.wizard.form.cmdNext.click();

    EXPECT_EQ(at.wizard.history(), history);
}

INSTANTIATE_TEST_SUITE_P(Navigation, DeadNextTest, testing::Values(11, 12, 13));

class FullHistoryTest : public testing::Test {
protected:
    // 0, 13, 0, 13, … : sixteen panels.
    FullHistoryTest() {
        for (int pushes = 1; pushes < 15; ++pushes) push();
    }

    void push() {
        bringIntoReach(at_.wizard.form.cmdNext);
        at_.wizard.form.cmdNext.click();
    }

    WizardAt at_{13};
};

TEST_F(FullHistoryTest, HoldsSixteenPanels) {
    EXPECT_EQ(at_.wizard.history(),
              (Panels{0, 13, 0, 13, 0, 13, 0, 13, 0, 13, 0, 13, 0, 13, 0, 13}));
    EXPECT_EQ(at_.wizard.program.state().PanelHistoryIndex, 15);
}

TEST_F(FullHistoryTest, TheNextPushIsAFatalOutOfRangeError) {
    EXPECT_EQ(failureOf([&] { push(); }), 9);
}

TEST_F(FullHistoryTest, APushByAnActionButtonIsAFatalOutOfRangeErrorToo) {
    EXPECT_EQ(failureOf([&] { at_.wizard.form.cmdDelete.click(); }), 9);
}

class CancelTest : public testing::Test {
protected:
    SampleDisk disk_;
    Wizard wizard_{disk_};
};

TEST_F(CancelTest, AsksWhetherToCancel) {
    wizard_.load();

    wizard_.form.cmdCancel.click();

    EXPECT_EQ(wizard_.messages.questions,
              Lines{"Are you sure you want to cancel Korvane configuration?"});
    EXPECT_TRUE(wizard_.messages.informations.empty());
}

TEST_F(CancelTest, NoChangesNothingNotEvenTheFocus) {
    wizard_.load();
    wizard_.goToWebsite(Server::Apache);
    const Panels history = wizard_.history();
    wizard_.observer.changes.clear();
    wizard_.messages.answers = {false};

    wizard_.form.cmdCancel.click();

    EXPECT_EQ(wizard_.observer.changes, Lines{});
    EXPECT_EQ(wizard_.history(), history);
    EXPECT_EQ(wizard_.observer.closings, 0);
}

TEST_F(CancelTest, AfterNoTheWizardGoesOn) {
    wizard_.load();
    wizard_.form.cmdCancel.click();

    wizard_.form.cmdNext.click();

    EXPECT_EQ(wizard_.currentPanel(), 1);
}

TEST_F(CancelTest, YesClosesTheWindow) {
    wizard_.load();
    wizard_.messages.answers = {true};

    wizard_.form.cmdCancel.click();

    EXPECT_EQ(wizard_.observer.closings, 1);
}

TEST_F(CancelTest, YesBringsTheLogToDisk) {
    disk_.disk.write(kSampleInstallationFile, cfgBytes({"# nothing but a comment"}));
    wizard_.load();
    wizard_.messages.answers = {true};

    wizard_.form.cmdCancel.click();

    EXPECT_EQ(disk_.log().size(), 1u);
}

TEST(Navigation, FinishClosesTheWindowWithoutAsking) {
    WizardAt at(11);

    at.wizard.form.cmdFinish.click();

    EXPECT_EQ(at.wizard.observer.closings, 1);
    EXPECT_TRUE(at.wizard.messages.questions.empty());
}

TEST(Navigation, FinishAfterAFailedStepBringsTheLogToDisk) {
    SampleDisk disk;
    disk.disk.remove("C:\\Korvane\\hlp\\eng\\kvhentryeng.html");
    Wizard wizard(disk);
    wizard.load();
    wizard.install(Server::Apache, UrlStyle::Kv);

    wizard.form.cmdFinish.click();

    EXPECT_EQ(disk.log(), Lines{"SERV  53, File not found, ioCopyFile"});
}

// What shows of a transition.
Lines changesOf(Wizard& wizard, CommandButton& button) {
    wizard.observer.changes.clear();
    button.click();
    return wizard.observer.onScreen();
}

TEST(NavigationOrder, TheButtonsComeFirstThenTheOldPanelGoesThenTheNewOneIsShown) {
    WizardAt at(0);

    EXPECT_EQ(changesOf(at.wizard, at.wizard.form.cmdNext),
              (Lines{"cmdBack Enabled yes", "picPanel(0) Enabled no", "picPanel(0) Visible no",
                     "picPanel(1) Enabled yes", "picPanel(1) Visible yes"}));
}

TEST(NavigationOrder, BackWorksTheSameWay) {
    WizardAt at(1);

    EXPECT_EQ(changesOf(at.wizard, at.wizard.form.cmdBack),
              (Lines{"cmdBack Enabled no", "picPanel(1) Enabled no", "picPanel(1) Visible no",
                     "picPanel(0) Enabled yes", "picPanel(0) Visible yes"}));
}

TEST(NavigationOrder, TheFinishPanelIsShownBeforeTheOperationTouchesAnything) {
    WizardAt at(10);

    Lines changes = changesOf(at.wizard, at.wizard.form.cmdNext);

    ASSERT_GE(changes.size(), 17u);
    changes.resize(17);
    EXPECT_EQ(changes,
              (Lines{"cmdFinish Box 5640,4920,1095,375", "cmdNext Enabled no", "cmdNext Default no",
                     "cmdNext Visible no", "cmdBack Enabled no", "cmdCancel Enabled no",
                     "cmdFinish Enabled yes", "cmdFinish Default yes", "cmdFinish Visible yes",
                     "picPanel(10) Enabled no", "picPanel(10) Visible no",
                     "picPanel(11) Enabled yes", "picPanel(11) Visible yes", "cmdFinish Enabled no",
                     "lblFinishDescription Caption Saving configuration settings",
                     "lblFinishInstruction Caption Ceating folders...",
                     "lblProgress Box 360,1560,355,255"}));
}

TEST(NavigationOrder, NothingIsTouchedOnTheDiskBeforeTheConfirmationIsLeft) {
    SampleDisk disk;
    Wizard wizard(disk);
    wizard.load();
    const Lines before = disk.disk.tree("C:\\");

    wizard.goToConfirmation(Server::Apache, UrlStyle::SiteRoot);

    EXPECT_EQ(disk.disk.tree("C:\\"), before);
}

}  // namespace
}  // namespace kv
