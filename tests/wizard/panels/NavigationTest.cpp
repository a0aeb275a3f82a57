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

struct Buttons {
    States next, back, cancel, finish;
};

constexpr bool yes = true;
constexpr bool no = false;

constexpr Buttons kFirst{{yes, yes, yes}, {no, no, yes}, {yes, no, yes}, {no, no, no}};
constexpr Buttons kOnTheWay{{yes, yes, yes}, {yes, no, yes}, {yes, no, yes}, {no, no, no}};
constexpr Buttons kToPick{{no, no, yes}, {yes, no, yes}, {yes, no, yes}, {no, no, no}};
constexpr Buttons kAtTheEnd{{no, no, no}, {no, no, yes}, {no, no, yes}, {yes, yes, yes}};

// A panel, a way to it, and what it is like to be there.
struct Place {
    int panel;
    void (*prepare)(SampleDisk&);
    std::function<void(Wizard&)> walk;  // from the first panel
    Panels history;
    Buttons buttons;
    const char* spokenTitle;
    const char* focused;  // has the keyboard: the first field, the default button, or the first one
};

void PrintTo(const Place& place, std::ostream* out) { *out << place.panel; }

const Place kPlaces[] = {
    {0,
     noInstallation,
     stay,
     {0},
     kFirst,
     "Welcome to the Korvane Configuration Wizard",
     "cmdNext"},
    {1,
     noInstallation,
     next,
     {0, 1},
     kOnTheWay,
     "The web server installation information",
     "optInstalledIIS"},
    {2,
     noInstallation,
     toServerInstall,
     {0, 1, 2},
     kOnTheWay,
     "The web server installing options",
     "optInstallingIIS"},
    {3,
     noInstallation,
     [](Wizard& w) { toInstalling(w, w.form.optInstallingApache); },
     {0, 1, 2, 3},
     kOnTheWay,
     "Installing Apache web server",
     "cmdNext"},
    {4,
     noInstallation,
     [](Wizard& w) { toInstalling(w, w.form.optInstallingIIS); },
     {0, 1, 2, 4},
     kOnTheWay,
     "Installing MS IIS (Internet Information Server)",
     "cmdNext"},
    {5,
     noInstallation,
     [](Wizard& w) { toInstalling(w, w.form.optInstallingOther); },
     {0, 1, 2, 5},
     kOnTheWay,
     "Installing other web server",
     "cmdNext"},
    {6,
     noInstallation,
     [](Wizard& w) {
         next(w);
         w.chooseServer(Server::Apache);
     },
     {0, 1, 6},
     kOnTheWay,
     "The way to access Korvane through the Web",
     "optUrlDefault"},
    {7,
     noInstallation,
     [](Wizard& w) { w.goToFolders(Server::Apache); },
     {0, 1, 6, 7},
     kOnTheWay,
     "The folders for document root and scripts",
     "txtFolderHomeApache"},
    {8,
     noInstallation,
     [](Wizard& w) { w.goToFolders(Server::IIS); },
     {0, 1, 6, 8},
     kOnTheWay,
     "The folders for Home and Scripts",
     "txtFolderHomeIIS"},
    {9,
     noInstallation,
     [](Wizard& w) { w.goToFolders(Server::Other); },
     {0, 1, 6, 9},
     kOnTheWay,
     "The folders for Home and Scripts",
     "txtFolderHomeOthers"},
    {10,
     noInstallation,
     [](Wizard& w) { w.goToConfirmation(Server::Apache, UrlStyle::Kv); },
     {0, 1, 6, 7, 14, 10},
     kOnTheWay,
     "Writing data to disk",
     "cmdNext"},
    {11,
     noInstallation,
     [](Wizard& w) { w.install(Server::Apache, UrlStyle::Kv); },
     {0, 1, 6, 7, 14, 10, 11},
     kAtTheEnd,
     "Configuration completed",
     "cmdFinish"},
    {12, noInstallationFile, stay, {12}, kAtTheEnd, "Error", "cmdFinish"},
    {13, oneEntry, next, {0, 13}, kToPick, "Modification, Backing Up, or Deletion", "cmdModify"},
    {14,
     noInstallation,
     [](Wizard& w) { w.goToWebsite(Server::Apache); },
     {0, 1, 6, 7, 14},
     kOnTheWay,
     "IP Address and Port settings",
     "txtWebsiteIP"},
};

// A wizard that has walked to the panel.
class WizardAt {
public:
    explicit WizardAt(int panel) {
        const Place& place = kPlaces[static_cast<std::size_t>(panel)];
        place.prepare(disk);
        wizard.load();
        place.walk(wizard);
    }

    SampleDisk disk;
    Wizard wizard{disk};
};

class PanelTest : public testing::TestWithParam<Place> {
protected:
    WizardAt at_{GetParam().panel};
    const frmWebConfig& form_ = at_.wizard.form;
};

TEST_P(PanelTest, GivesTheButtonsTheirStates) {
    EXPECT_EQ(statesOf(form_.cmdNext), GetParam().buttons.next);
    EXPECT_EQ(statesOf(form_.cmdBack), GetParam().buttons.back);
    EXPECT_EQ(statesOf(form_.cmdCancel), GetParam().buttons.cancel);
    EXPECT_EQ(statesOf(form_.cmdFinish), GetParam().buttons.finish);
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

TEST_P(PanelTest, IsNamedByItsTitle) {
    const auto panel = static_cast<std::size_t>(GetParam().panel);

    EXPECT_EQ(form_.picPanel[panel].accessibleName(), GetParam().spokenTitle);
}

TEST_P(PanelTest, HoldsThePanelsOfTheWalkInTheHistoryAndNothingBeyond) {
    const std::size_t length = GetParam().history.size();
    const WizardState& state = at_.wizard.program.state();

    EXPECT_EQ(at_.wizard.history(), GetParam().history);
    for (std::size_t i = length; i < 16; ++i) EXPECT_EQ(state.PanelHistory[i], -1) << i;
}

TEST_P(PanelTest, GivesTheKeyboardToOneControl) {
    std::string focused;
    for (const std::string& change : at_.wizard.observer.changes)
        if (change.ends_with(" Focus")) focused = change.substr(0, change.find(' '));

    EXPECT_EQ(focused, GetParam().focused);
}

TEST_P(PanelTest, IsLeftByBackForTheOneBeforeItWhereBackIsWithinReach) {
    Panels expected = GetParam().history;
    if (GetParam().buttons.back.enabled) expected.pop_back();

    at_.wizard.form.cmdBack.click();

    EXPECT_EQ(at_.wizard.history(), expected);
    EXPECT_EQ(at_.wizard.currentPanel(), expected.back());
    EXPECT_EQ(at_.wizard.program.state().PanelHistory[expected.size()], -1);
}

INSTANTIATE_TEST_SUITE_P(Navigation, PanelTest, testing::ValuesIn(kPlaces),
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

class AfterInstallingTest : public testing::TestWithParam<int> {};

TEST_P(AfterInstallingTest, NextLeadsToTheUrlStyle) {
    WizardAt at(GetParam());

    at.wizard.form.cmdNext.click();

    EXPECT_EQ(at.wizard.history(), (Panels{0, 1, 2, GetParam(), 6}));
    EXPECT_EQ(at.wizard.currentPanel(), 6);
}

INSTANTIATE_TEST_SUITE_P(Navigation, AfterInstallingTest, testing::Values(3, 4, 5));

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
