#include "wizard/panels/ShellButtons.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/Wizard.h"

namespace kv {
namespace {

class ShellButtonsTest : public testing::Test {
protected:
    ShellButtonsTest() { wizard_.load(); }

    void press(CommandButton frmWebConfig::*button) {
        bringIntoReach(form_.*button);
        (form_.*button).click();
    }

    SampleDisk disk_;
    Wizard wizard_{disk_};
    frmWebConfig& form_ = wizard_.form;
};

struct PageCase {
    const char* name;
    CommandButton frmWebConfig::*button;
    const char* path;
};

class PageButtonTest : public ShellButtonsTest, public testing::WithParamInterface<PageCase> {};

TEST_P(PageButtonTest, OpensItsPageOfTheWebSite) {
    press(GetParam().button);

    EXPECT_EQ(wizard_.shell.opened,
              (std::vector<FakeShell::Opened>{
                  {std::string(texts::kWebSite) + GetParam().path, "Open", 10}}));
}

TEST_P(PageButtonTest, IgnoresAFailureOfTheShell) {
    wizard_.shell.result = 2;
    wizard_.observer.changes.clear();

    press(GetParam().button);

    EXPECT_TRUE(wizard_.messages.informations.empty());
}

INSTANTIATE_TEST_SUITE_P(
    ShellButtons, PageButtonTest,
    testing::Values(PageCase{"cmdHelpFolderApche", &frmWebConfig::cmdHelpFolderApche,
                             "/support/kvdocs/kvdapch.html"},
                    PageCase{"cmdHelpFolderIIS", &frmWebConfig::cmdHelpFolderIIS,
                             "/support/kvdocs/kvdiis.html"},
                    PageCase{"cmdHelpUpgrade", &frmWebConfig::cmdHelpUpgrade,
                             "/support/kvdocs/kvupgrade.html"},
                    PageCase{"cmdHelpUrl", &frmWebConfig::cmdHelpUrl, "/support/kvdocs/kvurl.html"},
                    PageCase{"cmdHelpWebsiteIP", &frmWebConfig::cmdHelpWebsiteIP,
                             "/support/kvdocs/kvwebip.html"},
                    PageCase{"cmdDownloadApache", &frmWebConfig::cmdDownloadApache,
                             "/download/kvddapache.html"}),
    CaseName());

struct BrowseCase {
    const char* name;
    CommandButton frmWebConfig::*button;
    TextBox frmWebConfig::*box;
};

const BrowseCase kBrowseButtons[] = {
    {"cmdFolderHomeApache", &frmWebConfig::cmdFolderHomeApache, &frmWebConfig::txtFolderHomeApache},
    {"cmdFolderScriptsApache", &frmWebConfig::cmdFolderScriptsApache,
     &frmWebConfig::txtFolderScriptsApache},
    {"cmdFolderHomeIIS", &frmWebConfig::cmdFolderHomeIIS, &frmWebConfig::txtFolderHomeIIS},
    {"cmdFolderScriptsIIS", &frmWebConfig::cmdFolderScriptsIIS, &frmWebConfig::txtFolderScriptsIIS},
    {"cmdFolderHomeOthers", &frmWebConfig::cmdFolderHomeOthers, &frmWebConfig::txtFolderHomeOthers},
    {"cmdFolderScriptsOthers", &frmWebConfig::cmdFolderScriptsOthers,
     &frmWebConfig::txtFolderScriptsOthers},
};

class BrowseButtonTest : public ShellButtonsTest, public testing::WithParamInterface<BrowseCase> {};

TEST_P(BrowseButtonTest, PutsTheChosenFolderIntoTheBoxBesideItAndNoOther) {
    for (const BrowseCase& row : kBrowseButtons) (form_.*row.box).setText("before");
    wizard_.shell.folders = {"D:\\chosen"};

    press(GetParam().button);

    for (const BrowseCase& row : kBrowseButtons)
        EXPECT_EQ((form_.*row.box).text(), row.box == GetParam().box ? "D:\\chosen" : "before")
            << row.name;
}

TEST_P(BrowseButtonTest, KeepsTheTextWhenTheBrowserIsCancelled) {
    (form_.*GetParam().box).setText("before");

    press(GetParam().button);

    EXPECT_EQ((form_.*GetParam().box).text(), "before");
}

TEST_P(BrowseButtonTest, AsksForAFolderOfTheFileSystem) {
    press(GetParam().button);

    EXPECT_EQ(wizard_.shell.browsed,
              (std::vector<FakeShell::Browsed>{{"Choose a directory from the list.", 1}}));
}

INSTANTIATE_TEST_SUITE_P(ShellButtons, BrowseButtonTest, testing::ValuesIn(kBrowseButtons),
                         CaseName());

}  // namespace
}  // namespace kv
