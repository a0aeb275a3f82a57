#include "wizard/form/frmWebConfig.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "tests/support/Wizard.h"

namespace kv {
namespace {

constexpr auto kLabel = ControlKind::Label;
constexpr auto kTextBox = ControlKind::TextBox;
constexpr auto kOption = ControlKind::OptionButton;
constexpr auto kButton = ControlKind::CommandButton;
constexpr auto kPicture = ControlKind::PictureBox;
constexpr auto kLine = ControlKind::Line;

constexpr Twips kAny = -1;  // the design leaves the measure open
constexpr int kWindow = -1;

struct ControlRow {
    const char* name;
    ControlKind kind;
    int panel;  // the picPanel that holds it, or kWindow
    Box box;
    const char* caption;
};

const ControlRow kControls[] = {
    {"PicConfig", kPicture, kWindow, {120, 120, 1335, 5175}, ""},
    {"picPanel(0)", kPicture, kWindow, {1560, 0, 6495, 4750}, ""},
    {"picPanel(1)", kPicture, kWindow, {1560, 0, 6495, 4750}, ""},
    {"picPanel(2)", kPicture, kWindow, {1560, 0, 6495, 4750}, ""},
    {"picPanel(3)", kPicture, kWindow, {1560, 0, 6495, 4750}, ""},
    {"picPanel(4)", kPicture, kWindow, {1560, 0, 6495, 4750}, ""},
    {"picPanel(5)", kPicture, kWindow, {1560, 0, 6495, 4750}, ""},
    {"picPanel(6)", kPicture, kWindow, {1560, 0, 6495, 4750}, ""},
    {"picPanel(7)", kPicture, kWindow, {1560, 0, 6495, 4750}, ""},
    {"picPanel(8)", kPicture, kWindow, {1560, 0, 6495, 4750}, ""},
    {"picPanel(9)", kPicture, kWindow, {1560, 0, 6495, 4750}, ""},
    {"picPanel(10)", kPicture, kWindow, {1560, 0, 6495, 4750}, ""},
    {"picPanel(11)", kPicture, kWindow, {1560, 0, 6495, 4750}, ""},
    {"picPanel(12)", kPicture, kWindow, {1560, 0, 6495, 4750}, ""},
    {"picPanel(13)", kPicture, kWindow, {1560, 0, 6495, 4750}, ""},
    {"picPanel(14)", kPicture, kWindow, {1560, 0, 6495, 4750}, ""},

    {"lblPanelID(0)", kLabel, 0, {120, 0, kAny, kAny}, "0 - Panel Welcome"},
    {"lblPanelID(1)", kLabel, 1, {120, 0, kAny, kAny}, "1 - Panel ServerExist"},
    {"lblPanelID(2)", kLabel, 2, {120, 0, kAny, kAny}, "2 - Panel ServerInstall"},
    {"lblPanelID(3)", kLabel, 3, {120, 0, kAny, kAny}, "3 - Panel ServerInstallApache"},
    {"lblPanelID(4)", kLabel, 4, {120, 0, kAny, kAny}, "4 - Panel InstallIIS"},
    {"lblPanelID(5)", kLabel, 5, {120, 0, kAny, kAny}, "5 - Panel InstallOtherServer"},
    {"lblPanelID(6)", kLabel, 6, {120, 0, kAny, kAny}, "6 - Panel AccessKorvane"},
    {"lblPanelID(7)", kLabel, 7, {120, 0, kAny, kAny}, "7 - Panel ApacheFolders"},
    {"lblPanelID(8)", kLabel, 8, {120, 0, kAny, kAny}, "8 - Panel IISFolders"},
    {"lblPanelID(9)", kLabel, 9, {120, 0, kAny, kAny}, "9 - Panel OthersFolders"},
    {"lblPanelID(10)", kLabel, 10, {120, 0, kAny, kAny}, "10 - Panel WritingConfirm"},
    {"lblPanelID(11)", kLabel, 11, {120, 0, kAny, kAny}, "11 - Panel Finish"},
    {"lblPanelID(12)", kLabel, 12, {120, 0, kAny, kAny}, "12 - Panel Error"},
    {"lblPanelID(13)", kLabel, 13, {120, 0, kAny, kAny}, "13 - Panel Action"},
    {"lblPanelID(14)", kLabel, 14, {120, 0, kAny, kAny}, "14 - IP address and Port"},

    {"lblWelcome", kLabel, 0, {120, 240, 6135, 495}, "Welcome to the Korvane Configuration Wizard"},
    {"lblInstruction0",
     kLabel,
     0,
     {120, 840, 6135, kAny},
     "The Configuration Wizard will help you for the initail configuration to make the Korvane "
     "work "
     "properly. Click on Next to contihue or Cancel to exit the Configuration Wizard."},
    {"lblCongratulation",
     kLabel,
     0,
     {kAny, kAny, kAny, kAny},
     "Congratulation! The Korvane was installed successfully."},

    {"lblDescription1",
     kLabel,
     1,
     {120, 240, 6135, 495},
     "The web server installation information"},
    {"lblInstruction1",
     kLabel,
     1,
     {120, 840, 6135, kAny},
     "Select one of the following choices which best indicates whether or not a web server is "
     "installed on this computer, then click on Next to continue."},
    {"optInstalledIIS",
     kOption,
     1,
     {360, 1680, 6015, 255},
     "MS Internet Information Server (IIS) is installed on this computer"},
    {"optInstalledApache",
     kOption,
     1,
     {360, 2160, 6015, 255},
     "Apache web server is installed on this computer"},
    {"optInstalledOther",
     kOption,
     1,
     {360, 2640, 6015, 255},
     "Other brand of web server is installed on this computer"},
    {"optInstalledNothing",
     kOption,
     1,
     {360, 3120, 6015, 255},
     "No web server is installed on this computer"},

    {"lblDescription2", kLabel, 2, {120, 240, 6135, 495}, "The web server installing options"},
    {"lblInstruction2",
     kLabel,
     2,
     {120, 840, 6135, kAny},
     "Select one of the following options which may match your preference, then click on Next to "
     "continue."},
    {"optInstallingIIS",
     kOption,
     2,
     {360, 1680, 6015, 255},
     "Installing MS IIS and I have the installation package"},
    {"optInstallingApache", kOption, 2, {360, 2160, 6015, 255}, "Installing Apache web server"},
    {"optInstallingOther",
     kOption,
     2,
     {360, 2640, 6015, 255},
     "Installing a web server I preferred and I have the installation packge"},
    {"optInstallingAnyone", kOption, 2, {360, 3120, 6015, 255}, "No preference"},

    {"lblDescription3", kLabel, 3, {120, 240, 6135, 495}, "Installing Apache web server"},
    {"lblInstruction3",
     kLabel,
     3,
     {120, 840, 6135, kAny},
     "Apache is the most widely used web server in the world due to its reliability. It's free and "
     "can be running on all MS Windows."},
    {"lblDownloadApache",
     kLabel,
     3,
     {kAny, kAny, kAny, kAny},
     "You may download Apache from us by click on --> "},
    {"cmdDownloadApache", kButton, 3, {4680, 1440, 1695, 375}, "&Download Apache"},
    {"lblInstruction3_1",
     kLabel,
     3,
     {kAny, kAny, kAny, kAny},
     "During the Apache's installation, you will be asked to enter the domain name and server "
     "name."},

    {"lblDescription4",
     kLabel,
     4,
     {120, 240, 6135, 495},
     "Installing MS IIS (Internet Information Server)"},
    {"lblInstruction4",
     kLabel,
     4,
     {120, 840, 6135, kAny},
     "Follow the instruction provided by Microsoft to install the MS IIS. After MS IIS "
     "installation "
     "completed click on Next to continue."},
    {"lblInstruction4_1",
     kLabel,
     4,
     {kAny, kAny, kAny, kAny},
     "You can quit from Korvane Configuration Wizard by clicking on Cancel button if the MS IIS "
     "installation requires to quit from all running applications. There will be no data lost at "
     "this point."},
    {"lblInstruction4_2",
     kLabel,
     4,
     {kAny, kAny, kAny, kAny},
     "The MS IIS installation can be tested with a browser using \"http://localhost/\" as a url, "
     "the default page should be displayed if the MS IIS has been installed properly."},
    {"lblInstruction4_3",
     kLabel,
     4,
     {kAny, kAny, kAny, kAny},
     "Note: The MS IIS personal version is not recommented because it only supports 5 concurrent "
     "accesses, which is far bellow the capacity of the Korvane."},

    {"lblDescription5", kLabel, 5, {120, 240, 6135, 495}, "Installing other web server"},
    {"lblInstruction5",
     kLabel,
     5,
     {120, 840, 6135, kAny},
     "Follow the instruction provided by the manufacture to install the web server. After the web "
     "server installation completed click on Next to continue."},
    {"lblInstruction5_1",
     kLabel,
     5,
     {kAny, kAny, kAny, kAny},
     "You can quit from Korvane Configuration Wizard by clicking on Cancel button if the web "
     "server "
     "installation requires to quit from all running applications. There will be no data lost at "
     "this point."},
    {"lblInstruction5_2",
     kLabel,
     5,
     {kAny, kAny, kAny, kAny},
     "The most of web server installation can be tested with a browser using \"http://localhost/\" "
     "as a url, the default page should be displayed if the web server has been installed "
     "properly."},

    {"lblDescription6",
     kLabel,
     6,
     {120, 240, 6135, 495},
     "The way to access Korvane through the Web"},
    {"lblInstruction6",
     kLabel,
     6,
     {120, 840, 6135, kAny},
     "Korvane can be configured to be accessed by typing either \"http://site_name\" or "
     "\"http://site_name/kv\" in a browser's address field."},
    {"lblInstruction6_1",
     kLabel,
     6,
     {kAny, kAny, kAny, kAny},
     "Choose one of the following options, and click on Next to continue."},
    {"optUrlDefault",
     kOption,
     6,
     {360, 2040, 5895, 255},
     "through \"http://site_name\" or \"http://site_ip\""},
    {"optUrlKv",
     kOption,
     6,
     {360, 2520, 5895, 255},
     "through \"http://site_name/kv\" or \"http://site_ip/kv\""},
    {"lblInfo",
     kLabel,
     6,
     {kAny, kAny, kAny, kAny},
     "For more information about these options, click on --> "},
    {"cmdHelpUrl", kButton, 6, {kAny, kAny, kAny, kAny}, "&Help"},

    {"lblDescription7",
     kLabel,
     7,
     {120, 240, 6135, 495},
     "The folders for document root and scripts"},
    {"lblInstruction7",
     kLabel,
     7,
     {120, 840, 6135, kAny},
     "Enter the full path for following folders, and click on Next to continue."},
    {"lblFolderHomeApache",
     kLabel,
     7,
     {360, 1440, kAny, kAny},
     "Varify the full path of documnet root by clicking on the button [...]"},
    {"txtFolderHomeApache", kTextBox, 7, {600, 1800, 5295, 315}, ""},
    {"cmdFolderHomeApache", kButton, 7, {6000, 1800, 375, 375}, "..."},
    {"lblFolderScriptsApache",
     kLabel,
     7,
     {360, 2520, kAny, kAny},
     "Varify the full path of cgi-bin by clicking on the button [...]"},
    {"txtFolderScriptsApache", kTextBox, 7, {600, 2880, 5295, 315}, ""},
    {"cmdFolderScriptsApache", kButton, 7, {6000, 2880, 375, 375}, "..."},
    {"lblInfoFolderApache",
     kLabel,
     7,
     {kAny, kAny, kAny, kAny},
     "For more information about these folders, click on --> "},
    {"cmdHelpFolderApche", kButton, 7, {4680, 3720, 1695, 375}, "&Help"},

    {"lblDescription8", kLabel, 8, {120, 240, 6135, 495}, "The folders for Home and Scripts"},
    {"lblInstruction8",
     kLabel,
     8,
     {120, 840, 6135, kAny},
     "Enter the full path for following folders, and click on Next to continue."},
    {"lblFolderHomeIIS",
     kLabel,
     8,
     {360, 1440, kAny, kAny},
     "Varify the full path of home directory by clicking on the button [...]"},
    {"txtFolderHomeIIS", kTextBox, 8, {600, 1800, 5295, 315}, ""},
    {"cmdFolderHomeIIS", kButton, 8, {6000, 1800, 375, 375}, "..."},
    {"lblFolderScriptsIIS",
     kLabel,
     8,
     {360, 2520, kAny, kAny},
     "Varify the full path of Scripts directory by clicking on the button [...]"},
    {"txtFolderScriptsIIS", kTextBox, 8, {600, 2880, 5295, 315}, ""},
    {"cmdFolderScriptsIIS", kButton, 8, {6000, 2880, 375, 375}, "..."},
    {"lblInfoFolderIIS",
     kLabel,
     8,
     {kAny, kAny, kAny, kAny},
     "For more information about these folders, click on --> "},
    {"cmdHelpFolderIIS", kButton, 8, {4680, 3720, 1695, 375}, "&Help"},

    {"lblDescription9", kLabel, 9, {120, 240, 6135, 495}, "The folders for Home and Scripts"},
    {"lblInstruction9",
     kLabel,
     9,
     {120, 840, 6135, kAny},
     "Enter the full path for following folders, and click on Next to continue."},
    {"lblFolderHomeOthers",
     kLabel,
     9,
     {360, 1440, kAny, kAny},
     "Enter the full path / name of documnet root, or click on [...] to find it"},
    {"txtFolderHomeOthers", kTextBox, 9, {600, 1800, 5295, 315}, ""},
    {"cmdFolderHomeOthers", kButton, 9, {6000, 1800, 375, 375}, "..."},
    {"lblFolderScriptsOthers",
     kLabel,
     9,
     {360, 2520, kAny, kAny},
     "Enter the full path / name of cgi-bin, or click on the button [...] to find it"},
    {"txtFolderScriptsOthers", kTextBox, 9, {600, 2880, 5295, 315}, ""},
    {"cmdFolderScriptsOthers", kButton, 9, {6000, 2880, 375, 375}, "..."},
    {"lblInfoFolderOthers",
     kLabel,
     9,
     {kAny, kAny, kAny, kAny},
     "Read web server's documnetation to get more information about these folders "},

    {"lblDescription10", kLabel, 10, {120, 240, 6135, 495}, "Writing data to disk"},
    {"lblInstruction10",
     kLabel,
     10,
     {120, 840, 6135, kAny},
     "Configuration Wizard is going to write settings to disk and copy files to web server's "
     "folders. Click on Next to continue, or click on Cancel to exit."},

    {"lblFinishDescription", kLabel, 11, {120, 240, 6135, 495}, "Configuration completed"},
    {"lblFinishInstruction",
     kLabel,
     11,
     {120, 840, 6135, kAny},
     "The configuration completed, click on Finish to exit."},
    {"lineProgressH1", kLine, 11, {360, 1560, 5640, 0}, ""},
    {"lineProgressH2", kLine, 11, {360, 1800, 5640, 0}, ""},
    {"Line3lineProgressV1", kLine, 11, {360, 1560, 0, 240}, ""},
    {"lineProgressV2", kLine, 11, {6000, 1560, 0, 250}, ""},
    {"lblProgress", kLabel, 11, {360, 1560, 255, 255}, ""},

    {"lblErrDescription", kLabel, 12, {120, 240, 6135, 495}, "Error"},
    {"cmdHelpUpgrade", kButton, 12, {5160, 1800, 1095, 375}, "Help"},

    {"lblDescription13", kLabel, 13, {120, 240, 6135, 495}, "Modification, Bachup, or Deletion"},
    {"cmdNew", kButton, 13, {kAny, kAny, 735, 735}, ""},
    {"cmdUpgrade", kButton, 13, {kAny, kAny, 735, 735}, ""},
    {"cmdModify", kButton, 13, {kAny, kAny, 735, 735}, ""},
    {"cmdBackup", kButton, 13, {kAny, kAny, 735, 735}, ""},
    {"cmdDelete", kButton, 13, {kAny, kAny, 735, 735}, ""},
    {"lblNew", kLabel, 13, {kAny, kAny, 3495, kAny}, "Configuration for new installation"},
    {"lblUpgrade", kLabel, 13, {kAny, kAny, 3495, kAny}, "Cconfiguration for upgrading"},
    {"lblModify", kLabel, 13, {kAny, kAny, 3495, kAny}, "Modify the current configuration"},
    {"lblBackup", kLabel, 13, {kAny, kAny, 3495, kAny}, "Backup the current configuration"},
    {"lblDelete", kLabel, 13, {kAny, kAny, 3615, kAny}, "Delete the current configuration"},

    {"lblDescription14", kLabel, 14, {120, 240, 6135, 495}, "IP Address and Port settings"},
    {"lblInstruction14",
     kLabel,
     14,
     {120, 840, 6135, kAny},
     "Enter the IP address and Port settings of your web site, these are optional settings."},
    {"lblWebsiteIP",
     kLabel,
     14,
     {kAny, kAny, kAny, kAny},
     "Enter the IP address if the web server listen to specified IP address:"},
    {"txtWebsiteIP", kTextBox, 14, {1080, 1800, 4815, 315}, ""},
    {"lblWebsitePort",
     kLabel,
     14,
     {kAny, kAny, kAny, kAny},
     "Enter the Port if the web server listen to a Port other than 80:"},
    {"txtWebsitePort", kTextBox, 14, {1080, 2760, 4815, 315}, ""},
    {"lblHelpWebsiteIP",
     kLabel,
     14,
     {kAny, kAny, kAny, kAny},
     "For more information about these settings, click on --> "},
    {"cmdHelpWebsiteIP", kButton, 14, {4440, 3600, kAny, kAny}, "Help"},

    {"cmdBack", kButton, kWindow, {4560, 4920, 1095, 375}, "< &Back"},
    {"cmdNext", kButton, kWindow, {5640, 4920, 1095, 375}, "&Next >"},
    {"cmdCancel", kButton, kWindow, {6960, 4920, 1095, 375}, "Cancel"},
    {"cmdFinish", kButton, kWindow, {8160, 4920, 1095, 375}, "Finish"},
};

// Controls whose captions hold names of the product's own choice, or are set at run time only.
const char* const kFurtherControls[] = {"lblErrInstruction", "lblInstruction3_3",
                                        "lblInstruction13"};

const Control* find(const frmWebConfig& form, const std::string& name) {
    const auto controls = form.controls();
    const auto found = std::ranges::find(controls, name, &Control::name);
    return found == controls.end() ? nullptr : *found;
}

// The box with the measures that the design leaves open taken out.
Box withOpenMeasures(Box box, const Box& designed) {
    if (designed.left == kAny) box.left = kAny;
    if (designed.top == kAny) box.top = kAny;
    if (designed.width == kAny) box.width = kAny;
    if (designed.height == kAny) box.height = kAny;
    return box;
}

std::string testName(const testing::TestParamInfo<ControlRow>& info) {
    std::string name = info.param.name;
    std::erase(name, ')');
    std::ranges::replace(name, '(', '_');
    return name;
}

class ControlTest : public testing::TestWithParam<ControlRow> {
protected:
    frmWebConfig form_;
    const Control* const control_ = find(form_, GetParam().name);
};

TEST_P(ControlTest, IsThereInItsKindAndOnItsPanel) {
    ASSERT_NE(control_, nullptr);
    EXPECT_EQ(control_->kind(), GetParam().kind);
    const int panel = GetParam().panel;
    EXPECT_EQ(control_->parent(),
              panel == kWindow ? nullptr : &form_.picPanel[static_cast<std::size_t>(panel)]);
}

TEST_P(ControlTest, StandsInItsPlace) {
    ASSERT_NE(control_, nullptr);
    const Box box = withOpenMeasures(control_->box(), GetParam().box);
    EXPECT_EQ(box.left, GetParam().box.left);
    EXPECT_EQ(box.top, GetParam().box.top);
    EXPECT_EQ(box.width, GetParam().box.width);
    EXPECT_EQ(box.height, GetParam().box.height);
}

TEST_P(ControlTest, HasItsCaption) {
    ASSERT_NE(control_, nullptr);
    EXPECT_EQ(control_->caption(), GetParam().caption);
}

INSTANTIATE_TEST_SUITE_P(Form, ControlTest, testing::ValuesIn(kControls), testName);

class frmWebConfigTest : public testing::Test {
protected:
    std::vector<std::string> namesOfAll(auto&& wanted) const {
        std::vector<std::string> names;
        for (const Control* control : form_.controls())
            if (wanted(*control)) names.emplace_back(control->name());
        std::ranges::sort(names);
        return names;
    }

    frmWebConfig form_;
};

TEST_F(frmWebConfigTest, IsTitledWithTheWizardsName) {
    EXPECT_EQ(form_.caption(), "Korvane Configuration Wizard");
}

TEST_F(frmWebConfigTest, IsEightThousandThreeHundredWideAndItsClientArea5430High) {
    EXPECT_EQ(kWindowOuterWidth, 8300);
    EXPECT_EQ(kWindowInnerHeight, 5430);
}

TEST_F(frmWebConfigTest, HoldsTheDesignedControlsOnceEachAndTwoSeparatorLines) {
    std::multiset<std::string> designed(std::begin(kFurtherControls), std::end(kFurtherControls));
    for (const ControlRow& row : kControls) designed.insert(row.name);
    std::multiset<std::string> present;
    for (const Control* control : form_.controls())
        if (!control->name().starts_with("lineSeparator")) present.emplace(control->name());

    EXPECT_EQ(present, designed);
    EXPECT_EQ(form_.controls().size(), designed.size() + 2);
}

TEST_F(frmWebConfigTest, PanelThreeHasAnEtchedSeparatorOfTwoLines) {
    std::vector<Box> lines;
    for (const Control* control : form_.controls())
        if (control->kind() == kLine && control->parent() == &form_.picPanel[3])
            lines.push_back(control->box());

    EXPECT_EQ(lines, (std::vector<Box>{{120, 1920, 6300, 0}, {120, 1928, 6300, 0}}));
}

TEST_F(frmWebConfigTest, TheExampleDomainsStandInTheAdviceOnApache) {
    const std::string caption = form_.lblInstruction3_3.caption();

    EXPECT_TRUE(caption.starts_with(
        "If you don't have a registed domain name and static IP address, a fake domain name, such "
        "as indicated by installation wizard \""));
    EXPECT_TRUE(caption.ends_with("\", can be used."));
    EXPECT_EQ(std::ranges::count(caption, '"'), 4);
    EXPECT_NE(caption.find("\"www."), std::string::npos);
    EXPECT_EQ(form_.lblInstruction3_3.parent(), &form_.picPanel[3]);
}

TEST_F(frmWebConfigTest, TheErrorPanelsTextNamesTheSupportsAddress) {
    const std::string caption = form_.lblErrInstruction.caption();

    EXPECT_TRUE(
        caption.starts_with("The installation is not correct, please try the installation again, "
                            "or send email to "));
    EXPECT_TRUE(caption.ends_with(". Click on Finish to exit."));
    EXPECT_NE(caption.find('@'), std::string::npos);
    EXPECT_EQ(form_.lblErrInstruction.parent(), &form_.picPanel[12]);
}

TEST_F(frmWebConfigTest, TheTitlesOfThePanelsHaveTheTitleFont) {
    const auto inTitleFont = [](const Control& control) {
        const auto* label = dynamic_cast<const Label*>(&control);
        return label && label->font() == Font::Title;
    };

    std::vector<std::string> titles{"lblFinishDescription", "lblErrDescription"};
    for (const int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 13, 14})
        titles.push_back("lblDescription" + std::to_string(n));
    std::ranges::sort(titles);
    EXPECT_EQ(namesOfAll(inTitleFont), titles);
}

TEST_F(frmWebConfigTest, TheWelcomePanelHasFontsOfItsOwn) {
    EXPECT_EQ(form_.lblWelcome.font(), Font::Welcome);
    EXPECT_EQ(form_.lblCongratulation.font(), Font::Congratulation);
    EXPECT_EQ(form_.lblInstruction0.font(), Font::Normal);
}

TEST_F(frmWebConfigTest, TheProgressLineHasTheHighlightColour) {
    EXPECT_EQ(form_.lblProgress.background(), Colour::Highlight);
}

TEST_F(frmWebConfigTest, TheSidePictureAndTheActionButtonsShowPicturesOfTheirOwn) {
    const std::set<std::string_view> pictures{
        form_.PicConfig.picture(), form_.cmdNew.picture(),    form_.cmdUpgrade.picture(),
        form_.cmdModify.picture(), form_.cmdBackup.picture(), form_.cmdDelete.picture()};

    EXPECT_EQ(pictures.size(), 6u);
    EXPECT_FALSE(pictures.contains(""));
}

TEST_F(frmWebConfigTest, NoOptionIsChosenAndNoBoxHoldsText) {
    for (const Control* control : form_.controls()) {
        if (const auto* option = dynamic_cast<const OptionButton*>(control)) {
            EXPECT_FALSE(option->value()) << control->name();
        }
        if (const auto* box = dynamic_cast<const TextBox*>(control)) {
            EXPECT_EQ(box->text(), "") << control->name();
        }
    }
}

struct SpokenName {
    const char* control;
    const char* name;
};

// What a screen reader says of the controls that show a picture, an ellipsis or nothing.
const SpokenName kSpokenNames[] = {
    {"cmdFolderHomeApache", "Browse for the document root"},
    {"cmdFolderScriptsApache", "Browse for the cgi-bin folder"},
    {"cmdFolderHomeIIS", "Browse for the home directory"},
    {"cmdFolderScriptsIIS", "Browse for the Scripts directory"},
    {"cmdFolderHomeOthers", "Browse for the document root"},
    {"cmdFolderScriptsOthers", "Browse for the cgi-bin folder"},
    {"cmdNew", "New installation"},
    {"cmdUpgrade", "Upgrade"},
    {"cmdModify", "Modify"},
    {"cmdBackup", "Backup"},
    {"cmdDelete", "Delete"},
    {"lblProgress", "Progress"},
};

class SpokenNameTest : public testing::TestWithParam<SpokenName> {};

TEST_P(SpokenNameTest, IsWhatAScreenReaderSays) {
    const frmWebConfig form;
    const Control* control = find(form, GetParam().control);

    ASSERT_NE(control, nullptr);
    EXPECT_EQ(control->accessibleName(), GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(Form, SpokenNameTest, testing::ValuesIn(kSpokenNames),
                         [](const auto& row) { return std::string(row.param.control); });

TEST_F(frmWebConfigTest, NoOtherControlOnAPanelHasANameOfItsOwnForAScreenReader) {
    std::vector<std::string> named;
    for (const SpokenName& row : kSpokenNames) named.emplace_back(row.control);
    std::ranges::sort(named);

    EXPECT_EQ(
        namesOfAll([](const Control& c) { return !isPanel(c) && !c.accessibleName().empty(); }),
        named);
}

class StartedFormTest : public testing::Test {
protected:
    StartedFormTest() { wizard_.load(); }

    SampleDisk disk_;
    Wizard wizard_{disk_};
};

TEST_F(StartedFormTest, HidesAllPanelsButTheWelcomeAllPanelNamesFinishAndTheActionControls) {
    std::set<std::string> hidden;
    for (const Control* control : wizard_.form.controls())
        if (!control->visible()) hidden.emplace(control->name());

    std::set<std::string> expected{"cmdFinish", "cmdNew",    "cmdUpgrade", "cmdModify",
                                   "cmdBackup", "cmdDelete", "lblNew",     "lblUpgrade",
                                   "lblModify", "lblBackup", "lblDelete"};
    for (int n = 0; n <= 14; ++n) {
        expected.insert("lblPanelID(" + std::to_string(n) + ")");
        if (n != 0) expected.insert("picPanel(" + std::to_string(n) + ")");
    }
    EXPECT_EQ(hidden, expected);
}

TEST_F(StartedFormTest, DisablesTheHiddenPanelsBackFinishAndTheActionButtons) {
    std::set<std::string> disabled;
    for (const Control* control : wizard_.form.controls())
        if (!control->enabled() && !control->name().starts_with("lblPanelID"))
            disabled.emplace(control->name());

    std::set<std::string> expected{"cmdBack",   "cmdFinish", "cmdNew",   "cmdUpgrade",
                                   "cmdModify", "cmdBackup", "cmdDelete"};
    for (int n = 1; n <= 14; ++n) expected.insert("picPanel(" + std::to_string(n) + ")");
    EXPECT_EQ(disabled, expected);
}

}  // namespace
}  // namespace kv
