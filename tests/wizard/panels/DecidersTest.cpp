#include "wizard/panels/Deciders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/Wizard.h"

namespace kv {
namespace {

using Option = OptionButton frmWebConfig::*;

class WelcomeTest : public testing::Test {
protected:
    void next() {
        wizard_.load();
        wizard_.form.cmdNext.click();
    }
    void makeEntry() {
        disk_.disk.write(kSampleInstallationFile, settingsBytes({"h", "s", "p", "1", "0", "", ""}));
    }
    const WizardState& state() const { return wizard_.program.state(); }

    SampleDisk disk_;
    Wizard wizard_{disk_};
};

TEST_F(WelcomeTest, WithoutEntriesAndSavedConfigurationANewInstallationBegins) {
    next();

    EXPECT_EQ(wizard_.currentPanel(), 1);
    EXPECT_EQ(state().ActionKind, 0);
    EXPECT_EQ(state().ActionPanelKind, 0);
}

TEST_F(WelcomeTest, WithAnEntryTheActionPanelOffersToModifyBackUpOrDelete) {
    makeEntry();

    next();

    EXPECT_EQ(wizard_.currentPanel(), 13);
    EXPECT_EQ(state().ActionPanelKind, 2);
    EXPECT_TRUE(wizard_.form.cmdModify.visible());
}

TEST_F(WelcomeTest, WithoutTheSavedConfigurationAnyMoreItIsANewInstallationAgain) {
    disk_.disk.write(kSavedMain, "saved");
    disk_.disk.write(kSavedInstallation, settingsBytes({}));
    next();
    wizard_.form.cmdUpgrade.click();
    wizard_.form.cmdBack.click();
    wizard_.form.cmdBack.click();
    ASSERT_EQ(wizard_.currentPanel(), 0);
    ASSERT_EQ(state().ActionKind, 4);
    disk_.disk.remove(kSavedMain);

    wizard_.form.cmdNext.click();

    EXPECT_EQ(wizard_.currentPanel(), 1);
    EXPECT_EQ(state().ActionKind, 0);
}

TEST_F(WelcomeTest, WithASavedConfigurationTheActionPanelOffersNewOrUpgrade) {
    disk_.disk.write(kSavedMain, "saved");

    next();

    EXPECT_EQ(wizard_.currentPanel(), 13);
    EXPECT_EQ(state().ActionPanelKind, 1);
    EXPECT_TRUE(wizard_.form.cmdUpgrade.visible());
}

TEST_F(WelcomeTest, AnEntryCountsBeforeASavedConfiguration) {
    makeEntry();
    disk_.disk.write(kSavedMain, "saved");

    next();

    EXPECT_EQ(state().ActionPanelKind, 2);
}

TEST_F(WelcomeTest, AReadOnlySavedConfigurationCounts) {
    disk_.disk.write(kSavedMain, "saved");
    disk_.disk.makeReadOnly(kSavedMain);

    next();

    EXPECT_EQ(wizard_.currentPanel(), 13);
}

TEST_F(WelcomeTest, ASavedConfigurationOfAnotherLetterCaseIsMissing) {
    disk_.disk.write("C:\\Korvane\\cfg\\original\\Korvane.bak", "saved");

    next();

    EXPECT_EQ(wizard_.currentPanel(), 1);
}

TEST_F(WelcomeTest, AFolderOfTheSavedConfigurationsNameIsNone) {
    disk_.disk.makeFolder(kSavedMain);

    next();

    EXPECT_EQ(wizard_.currentPanel(), 1);
}

TEST_F(WelcomeTest, GoingBackAndNextDecidesAnew) {
    next();
    wizard_.form.cmdBack.click();
    disk_.disk.write(kSavedMain, "saved");

    wizard_.form.cmdNext.click();

    EXPECT_EQ(wizard_.currentPanel(), 13);
    EXPECT_EQ(state().ActionPanelKind, 1);
}

class DecidersTest : public testing::Test {
protected:
    DecidersTest() {
        wizard_.load();
        wizard_.form.cmdNext.click();
    }

    void next() { wizard_.form.cmdNext.click(); }
    void back() { wizard_.form.cmdBack.click(); }

    // From panel 1.
    void goToServerInstall() {
        wizard_.form.optInstalledNothing.click();
        next();
    }
    // From panel 2.
    void chooseInstalling(Option option) {
        (wizard_.form.*option).click();
        next();
    }

    SampleDisk disk_;
    Wizard wizard_{disk_};
    frmWebConfig& form_ = wizard_.form;
};

struct OptionCase {
    const char* name;
    Option option;
    int next;
};

class ServerInstalledTest : public DecidersTest, public testing::WithParamInterface<OptionCase> {};

TEST_P(ServerInstalledTest, LeadsToTheNextPanel) {
    (form_.*GetParam().option).click();

    next();

    EXPECT_EQ(wizard_.currentPanel(), GetParam().next);
    EXPECT_TRUE(wizard_.messages.informations.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Deciders, ServerInstalledTest,
    testing::Values(OptionCase{"optInstalledIIS", &frmWebConfig::optInstalledIIS, 6},
                    OptionCase{"optInstalledApache", &frmWebConfig::optInstalledApache, 6},
                    OptionCase{"optInstalledOther", &frmWebConfig::optInstalledOther, 6},
                    OptionCase{"optInstalledNothing", &frmWebConfig::optInstalledNothing, 2}),
    CaseName());

class ServerToInstallTest : public DecidersTest, public testing::WithParamInterface<OptionCase> {};

TEST_P(ServerToInstallTest, LeadsToTheNextPanel) {
    goToServerInstall();

    chooseInstalling(GetParam().option);

    EXPECT_EQ(wizard_.currentPanel(), GetParam().next);
    EXPECT_TRUE(wizard_.messages.informations.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Deciders, ServerToInstallTest,
    testing::Values(OptionCase{"optInstallingIIS", &frmWebConfig::optInstallingIIS, 4},
                    OptionCase{"optInstallingApache", &frmWebConfig::optInstallingApache, 3},
                    OptionCase{"optInstallingOther", &frmWebConfig::optInstallingOther, 5},
                    OptionCase{"optInstallingAnyone", &frmWebConfig::optInstallingAnyone, 3}),
    CaseName());

TEST_F(DecidersTest, WithoutAChoiceOnPanelOneTheWizardStaysAndSaysWhy) {
    next();

    EXPECT_EQ(wizard_.currentPanel(), 1);
    EXPECT_EQ(wizard_.messages.informations, Lines{"Please select one of four choices."});
}

TEST_F(DecidersTest, WithoutAChoiceOnPanelTwoTheWizardStaysAndSaysWhy) {
    goToServerInstall();

    next();

    EXPECT_EQ(wizard_.currentPanel(), 2);
    EXPECT_EQ(wizard_.messages.informations, Lines{"Please select one of four options."});
}

TEST_F(DecidersTest, WithoutAUrlStyleTheWizardStaysAndSaysWhy) {
    wizard_.chooseServer(Server::Apache);

    next();

    EXPECT_EQ(wizard_.currentPanel(), 6);
    EXPECT_EQ(wizard_.messages.informations, Lines{"Please select one of two options."});
}

TEST_F(DecidersTest, WithoutAUrlStyleNoFolderIsProposed) {
    wizard_.chooseServer(Server::Apache);

    next();

    EXPECT_EQ(form_.txtFolderHomeApache.text(), "");
}

TEST_F(DecidersTest, ChoosingAnOptionClearsTheOthersOfItsPanelOnly) {
    goToServerInstall();
    form_.optInstallingIIS.click();
    form_.optInstallingOther.click();

    EXPECT_FALSE(form_.optInstallingIIS.value());
    EXPECT_TRUE(form_.optInstallingOther.value());
    EXPECT_TRUE(form_.optInstalledNothing.value());
}

struct FolderPanelCase {
    const char* name;
    Option installed;   // chosen on panel 1 in the end
    Option installing;  // chosen before on panel 2, or null
    int panel;
};

class FolderPanelTest : public DecidersTest, public testing::WithParamInterface<FolderPanelCase> {
protected:
    void goToUrlStyle() {
        if (GetParam().installing) {
            goToServerInstall();
            chooseInstalling(GetParam().installing);
            if (GetParam().installed == &frmWebConfig::optInstalledNothing) return next();
            back();
            back();
        }
        (form_.*GetParam().installed).click();
        next();
    }
};

TEST_P(FolderPanelTest, FollowsTheUrlStyleSiteRoot) {
    goToUrlStyle();

    wizard_.chooseUrlStyle(UrlStyle::SiteRoot);

    EXPECT_EQ(wizard_.currentPanel(), GetParam().panel);
}

TEST_P(FolderPanelTest, FollowsTheUrlStyleKv) {
    goToUrlStyle();

    wizard_.chooseUrlStyle(UrlStyle::Kv);

    EXPECT_EQ(wizard_.currentPanel(), GetParam().panel);
}

INSTANTIATE_TEST_SUITE_P(
    Deciders, FolderPanelTest,
    testing::Values(
        FolderPanelCase{"ApacheInstalled", &frmWebConfig::optInstalledApache, nullptr, 7},
        FolderPanelCase{"IISInstalled", &frmWebConfig::optInstalledIIS, nullptr, 8},
        FolderPanelCase{"OtherInstalled", &frmWebConfig::optInstalledOther, nullptr, 9},
        FolderPanelCase{"ApacheToInstall", &frmWebConfig::optInstalledNothing,
                        &frmWebConfig::optInstallingApache, 7},
        FolderPanelCase{"NoPreference", &frmWebConfig::optInstalledNothing,
                        &frmWebConfig::optInstallingAnyone, 7},
        FolderPanelCase{"IISToInstall", &frmWebConfig::optInstalledNothing,
                        &frmWebConfig::optInstallingIIS, 8},
        FolderPanelCase{"OtherToInstall", &frmWebConfig::optInstalledNothing,
                        &frmWebConfig::optInstallingOther, 9},
        FolderPanelCase{"ApacheInstalledAfterIISToInstall", &frmWebConfig::optInstalledApache,
                        &frmWebConfig::optInstallingIIS, 7},
        FolderPanelCase{"IISInstalledAfterApacheToInstall", &frmWebConfig::optInstalledIIS,
                        &frmWebConfig::optInstallingApache, 7},
        FolderPanelCase{"IISInstalledAfterNoPreference", &frmWebConfig::optInstalledIIS,
                        &frmWebConfig::optInstallingAnyone, 7},
        FolderPanelCase{"IISInstalledAfterOtherToInstall", &frmWebConfig::optInstalledIIS,
                        &frmWebConfig::optInstallingOther, 8},
        FolderPanelCase{"OtherInstalledAfterIISToInstall", &frmWebConfig::optInstalledOther,
                        &frmWebConfig::optInstallingIIS, 8},
        FolderPanelCase{"OtherInstalledAfterApacheToInstall", &frmWebConfig::optInstalledOther,
                        &frmWebConfig::optInstallingApache, 7}),
    CaseName());

TEST_F(DecidersTest, WithNoServerKindTheUrlStyleLeadsToTheWelcomePanel) {
    wizard_.chooseServer(Server::Apache);
    form_.optInstalledApache.setValue(false);

    wizard_.chooseUrlStyle(UrlStyle::Kv);

    EXPECT_EQ(wizard_.history(), (Panels{0, 1, 6, 0}));
}

// The folder fields of Apache and IIS, with the defaults and the labels' texts.
struct FieldCase {
    const char* name;
    Server server;
    TextBox frmWebConfig::*box;
    Label frmWebConfig::*label;
    std::string defaultRest;  // the default path without its drive
    const char* filledText;
    const char* emptyText;
};

class FolderFieldTest : public DecidersTest, public testing::WithParamInterface<FieldCase> {
protected:
    FolderFieldTest() {
        disk_.disk.remove("C:\\Program Files");
        disk_.disk.remove("C:\\Inetpub");
        disk_.disk.addDrive('D');
        disk_.disk.addDrive('E');
    }

    void makeDefaultOn(const std::string& drive) {
        disk_.disk.makeFolder(drive + GetParam().defaultRest);
    }
    void goToFolders() {
        wizard_.chooseServer(GetParam().server);
        wizard_.chooseUrlStyle(UrlStyle::SiteRoot);
    }
    const std::string& text() const { return (form_.*GetParam().box).text(); }
    const std::string& label() const { return (form_.*GetParam().label).caption(); }
};

TEST_P(FolderFieldTest, IsFilledFromDriveC) {
    makeDefaultOn("C");
    makeDefaultOn("D");

    goToFolders();

    EXPECT_EQ(text(), "C" + GetParam().defaultRest);
    EXPECT_EQ(label(), GetParam().filledText);
}

TEST_P(FolderFieldTest, IsFilledFromDriveDWhenOnlyThatHasTheDefault) {
    makeDefaultOn("D");

    goToFolders();

    EXPECT_EQ(text(), "D" + GetParam().defaultRest);
    EXPECT_EQ(label(), GetParam().filledText);
}

TEST_P(FolderFieldTest, IsFilledFromDriveELast) {
    makeDefaultOn("E");

    goToFolders();

    EXPECT_EQ(text(), "E" + GetParam().defaultRest);
}

TEST_P(FolderFieldTest, StaysEmptyWhenNoDriveHasTheDefaultAndAsksForThePath) {
    goToFolders();

    EXPECT_EQ(text(), "");
    EXPECT_EQ(label(), GetParam().emptyText);
}

TEST_P(FolderFieldTest, KeepsWhatItHolds) {
    makeDefaultOn("C");
    (form_.*GetParam().box).typed("C:\\mine");

    goToFolders();

    EXPECT_EQ(text(), "C:\\mine");
    EXPECT_EQ(label(), GetParam().filledText);
}

TEST_P(FolderFieldTest, IsPreparedAgainOnReturningToTheUrlStyle) {
    goToFolders();
    back();
    makeDefaultOn("D");

    next();

    EXPECT_EQ(text(), "D" + GetParam().defaultRest);
    EXPECT_EQ(label(), GetParam().filledText);
}

TEST_P(FolderFieldTest, IsNotOverwrittenOnReturningToTheUrlStyle) {
    makeDefaultOn("C");
    goToFolders();
    (form_.*GetParam().box).typed("D:\\other");
    back();

    next();

    EXPECT_EQ(text(), "D:\\other");
}

INSTANTIATE_TEST_SUITE_P(
    Deciders, FolderFieldTest,
    testing::Values(
        FieldCase{"ApacheHome", Server::Apache, &frmWebConfig::txtFolderHomeApache,
                  &frmWebConfig::lblFolderHomeApache,
                  ":\\Program Files\\Apache Group\\Apache2\\htdocs",
                  "If the Document Root is incorrect, please click on [...] to find it",
                  "Enter full path / name for document root, or click on [...] to find it"},
        FieldCase{"ApacheScripts", Server::Apache, &frmWebConfig::txtFolderScriptsApache,
                  &frmWebConfig::lblFolderScriptsApache,
                  ":\\Program Files\\Apache Group\\Apache2\\cgi-bin",
                  "If the cgi-bin folder is incorrect, please click on [...] to find it",
                  "Enter full path / name for cgi-bin folder, or click on [...] to find it"},
        FieldCase{"IISHome", Server::IIS, &frmWebConfig::txtFolderHomeIIS,
                  &frmWebConfig::lblFolderHomeIIS, ":\\Inetpub\\wwwroot",
                  "If the Home directory is incorrect, please click on [...] to find it",
                  "Enter full path / name for Home directory, or click on [...] to find it"},
        FieldCase{"IISScripts", Server::IIS, &frmWebConfig::txtFolderScriptsIIS,
                  &frmWebConfig::lblFolderScriptsIIS, ":\\Inetpub\\scripts",
                  "If the Scripts folder is incorrect, please click on [...] to find it",
                  "Enter full path / name for Scripts directory, or click on [...] to find it"}),
    CaseName());

TEST_F(DecidersTest, TheFieldsOfAnotherServerAreNotPrepared) {
    wizard_.chooseServer(Server::Other);

    wizard_.chooseUrlStyle(UrlStyle::SiteRoot);

    EXPECT_EQ(form_.txtFolderHomeOthers.text(), "");
    EXPECT_EQ(form_.txtFolderScriptsOthers.text(), "");
    EXPECT_EQ(form_.lblFolderHomeOthers.caption(),
              "Enter the full path / name of documnet root, or click on [...] to find it");
    EXPECT_EQ(form_.lblFolderScriptsOthers.caption(),
              "Enter the full path / name of cgi-bin, or click on the button [...] to find it");
}

TEST_F(DecidersTest, OnlyTheChosenKindsFieldsArePrepared) {
    wizard_.chooseServer(Server::Apache);

    wizard_.chooseUrlStyle(UrlStyle::SiteRoot);

    EXPECT_EQ(form_.txtFolderHomeIIS.text(), "");
    EXPECT_EQ(form_.txtFolderHomeOthers.text(), "");
    EXPECT_EQ(form_.lblFolderHomeIIS.caption(),
              "Varify the full path of home directory by clicking on the button [...]");
}

}  // namespace
}  // namespace kv
