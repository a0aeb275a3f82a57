// The window as it is designed: every control with its place and its text before the wizard starts.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace kv::design {

enum class Kind { Label, TextBox, Option, Button, Picture, Line };

inline constexpr int kOpen = -1;      // a measure that the design leaves open
inline constexpr int kOnWindow = -1;  // in the place of a panel
inline constexpr const char* kOpenText = "(names of the product's own choice, or set at run time)";

// Twips, 1/1440 inch.
struct Box {
    int left;
    int top;
    int width;
    int height;

    bool operator==(const Box&) const = default;
};

struct Control {
    const char* name;
    Kind kind;
    int panel;
    Box box;
    const char* caption;
};

inline constexpr Box kPanelBox{1560, 0, 6495, 4750};
inline constexpr Box kPanelNameBox{120, 0, kOpen, kOpen};
inline constexpr Box kTitleBox{120, 240, 6135, 495};
inline constexpr Box kInstructionBox{120, 840, 6135, kOpen};
inline constexpr Box kAnywhere{kOpen, kOpen, kOpen, kOpen};

inline constexpr int kWindowWidth = 8300;         // with its frame
inline constexpr int kWindowClientHeight = 5430;  // without

using enum Kind;

// On each panel in the order of reading.
inline constexpr auto kControls = std::to_array<Control>({
    {"PicConfig", Picture, kOnWindow, {120, 120, 1335, 5175}, ""},
    {"picPanel(0)", Picture, kOnWindow, kPanelBox, ""},
    {"picPanel(1)", Picture, kOnWindow, kPanelBox, ""},
    {"picPanel(2)", Picture, kOnWindow, kPanelBox, ""},
    {"picPanel(3)", Picture, kOnWindow, kPanelBox, ""},
    {"picPanel(4)", Picture, kOnWindow, kPanelBox, ""},
    {"picPanel(5)", Picture, kOnWindow, kPanelBox, ""},
    {"picPanel(6)", Picture, kOnWindow, kPanelBox, ""},
    {"picPanel(7)", Picture, kOnWindow, kPanelBox, ""},
    {"picPanel(8)", Picture, kOnWindow, kPanelBox, ""},
    {"picPanel(9)", Picture, kOnWindow, kPanelBox, ""},
    {"picPanel(10)", Picture, kOnWindow, kPanelBox, ""},
    {"picPanel(11)", Picture, kOnWindow, kPanelBox, ""},
    {"picPanel(12)", Picture, kOnWindow, kPanelBox, ""},
    {"picPanel(13)", Picture, kOnWindow, kPanelBox, ""},
    {"picPanel(14)", Picture, kOnWindow, kPanelBox, ""},

    {"lblPanelID(0)", Label, 0, kPanelNameBox, "0 - Panel Welcome"},
    {"lblPanelID(1)", Label, 1, kPanelNameBox, "1 - Panel ServerExist"},
    {"lblPanelID(2)", Label, 2, kPanelNameBox, "2 - Panel ServerInstall"},
    {"lblPanelID(3)", Label, 3, kPanelNameBox, "3 - Panel ServerInstallApache"},
    {"lblPanelID(4)", Label, 4, kPanelNameBox, "4 - Panel InstallIIS"},
    {"lblPanelID(5)", Label, 5, kPanelNameBox, "5 - Panel InstallOtherServer"},
    {"lblPanelID(6)", Label, 6, kPanelNameBox, "6 - Panel AccessKorvane"},
    {"lblPanelID(7)", Label, 7, kPanelNameBox, "7 - Panel ApacheFolders"},
    {"lblPanelID(8)", Label, 8, kPanelNameBox, "8 - Panel IISFolders"},
    {"lblPanelID(9)", Label, 9, kPanelNameBox, "9 - Panel OthersFolders"},
    {"lblPanelID(10)", Label, 10, kPanelNameBox, "10 - Panel WritingConfirm"},
    {"lblPanelID(11)", Label, 11, kPanelNameBox, "11 - Panel Finish"},
    {"lblPanelID(12)", Label, 12, kPanelNameBox, "12 - Panel Error"},
    {"lblPanelID(13)", Label, 13, kPanelNameBox, "13 - Panel Action"},
    {"lblPanelID(14)", Label, 14, kPanelNameBox, "14 - IP address and Port"},

    {"lblWelcome", Label, 0, kTitleBox, "Welcome to the Korvane Configuration Wizard"},
    {"lblInstruction0", Label, 0, kInstructionBox,
     "The Configuration Wizard will help you for the initail configuration to make the Korvane "
     "work properly. Click on Next to contihue or Cancel to exit the Configuration Wizard."},
    {"lblCongratulation", Label, 0, kAnywhere,
     "Congratulation! The Korvane was installed successfully."},

    {"lblDescription1", Label, 1, kTitleBox, "The web server installation information"},
    {"lblInstruction1", Label, 1, kInstructionBox,
     "Select one of the following choices which best indicates whether or not a web server is "
     "installed on this computer, then click on Next to continue."},
    {"optInstalledIIS",
     Option,
     1,
     {360, 1680, 6015, 255},
     "MS Internet Information Server (IIS) is installed on this computer"},
    {"optInstalledApache",
     Option,
     1,
     {360, 2160, 6015, 255},
     "Apache web server is installed on this computer"},
    {"optInstalledOther",
     Option,
     1,
     {360, 2640, 6015, 255},
     "Other brand of web server is installed on this computer"},
    {"optInstalledNothing",
     Option,
     1,
     {360, 3120, 6015, 255},
     "No web server is installed on this computer"},

    {"lblDescription2", Label, 2, kTitleBox, "The web server installing options"},
    {"lblInstruction2", Label, 2, kInstructionBox,
     "Select one of the following options which may match your preference, then click on Next to "
     "continue."},
    {"optInstallingIIS",
     Option,
     2,
     {360, 1680, 6015, 255},
     "Installing MS IIS and I have the installation package"},
    {"optInstallingApache", Option, 2, {360, 2160, 6015, 255}, "Installing Apache web server"},
    {"optInstallingOther",
     Option,
     2,
     {360, 2640, 6015, 255},
     "Installing a web server I preferred and I have the installation packge"},
    {"optInstallingAnyone", Option, 2, {360, 3120, 6015, 255}, "No preference"},

    {"lblDescription3", Label, 3, kTitleBox, "Installing Apache web server"},
    {"lblInstruction3", Label, 3, kInstructionBox,
     "Apache is the most widely used web server in the world due to its reliability. It's free and "
     "can be running on all MS Windows."},
    {"lblDownloadApache", Label, 3, kAnywhere, "You may download Apache from us by click on --> "},
    {"cmdDownloadApache", Button, 3, {4680, 1440, 1695, 375}, "&Download Apache"},
    {"lblInstruction3_1", Label, 3, kAnywhere,
     "During the Apache's installation, you will be asked to enter the domain name and server "
     "name."},
    {"lblInstruction3_3", Label, 3, kAnywhere, kOpenText},

    {"lblDescription4", Label, 4, kTitleBox, "Installing MS IIS (Internet Information Server)"},
    {"lblInstruction4", Label, 4, kInstructionBox,
     "Follow the instruction provided by Microsoft to install the MS IIS. After MS IIS "
     "installation completed click on Next to continue."},
    {"lblInstruction4_1", Label, 4, kAnywhere,
     "You can quit from Korvane Configuration Wizard by clicking on Cancel button if the MS IIS "
     "installation requires to quit from all running applications. There will be no data lost at "
     "this point."},
    {"lblInstruction4_2", Label, 4, kAnywhere,
     "The MS IIS installation can be tested with a browser using \"http://localhost/\" as a url, "
     "the default page should be displayed if the MS IIS has been installed properly."},
    {"lblInstruction4_3", Label, 4, kAnywhere,
     "Note: The MS IIS personal version is not recommented because it only supports 5 concurrent "
     "accesses, which is far bellow the capacity of the Korvane."},

    {"lblDescription5", Label, 5, kTitleBox, "Installing other web server"},
    {"lblInstruction5", Label, 5, kInstructionBox,
     "Follow the instruction provided by the manufacture to install the web server. After the web "
     "server installation completed click on Next to continue."},
    {"lblInstruction5_1", Label, 5, kAnywhere,
     "You can quit from Korvane Configuration Wizard by clicking on Cancel button if the web "
     "server installation requires to quit from all running applications. There will be no data "
     "lost at this point."},
    {"lblInstruction5_2", Label, 5, kAnywhere,
     "The most of web server installation can be tested with a browser using \"http://localhost/\" "
     "as a url, the default page should be displayed if the web server has been installed "
     "properly."},

    {"lblDescription6", Label, 6, kTitleBox, "The way to access Korvane through the Web"},
    {"lblInstruction6", Label, 6, kInstructionBox,
     "Korvane can be configured to be accessed by typing either \"http://site_name\" or "
     "\"http://site_name/kv\" in a browser's address field."},
    {"lblInstruction6_1", Label, 6, kAnywhere,
     "Choose one of the following options, and click on Next to continue."},
    {"optUrlDefault",
     Option,
     6,
     {360, 2040, 5895, 255},
     "through \"http://site_name\" or \"http://site_ip\""},
    {"optUrlKv",
     Option,
     6,
     {360, 2520, 5895, 255},
     "through \"http://site_name/kv\" or \"http://site_ip/kv\""},
    {"lblInfo", Label, 6, kAnywhere, "For more information about these options, click on --> "},
    {"cmdHelpUrl", Button, 6, kAnywhere, "&Help"},

    {"lblDescription7", Label, 7, kTitleBox, "The folders for document root and scripts"},
    {"lblInstruction7", Label, 7, kInstructionBox,
     "Enter the full path for following folders, and click on Next to continue."},
    {"lblFolderHomeApache",
     Label,
     7,
     {360, 1440, kOpen, kOpen},
     "Varify the full path of documnet root by clicking on the button [...]"},
    {"txtFolderHomeApache", TextBox, 7, {600, 1800, 5295, 315}, ""},
    {"cmdFolderHomeApache", Button, 7, {6000, 1800, 375, 375}, "..."},
    {"lblFolderScriptsApache",
     Label,
     7,
     {360, 2520, kOpen, kOpen},
     "Varify the full path of cgi-bin by clicking on the button [...]"},
    {"txtFolderScriptsApache", TextBox, 7, {600, 2880, 5295, 315}, ""},
    {"cmdFolderScriptsApache", Button, 7, {6000, 2880, 375, 375}, "..."},
    {"lblInfoFolderApache", Label, 7, kAnywhere,
     "For more information about these folders, click on --> "},
    {"cmdHelpFolderApche", Button, 7, {4680, 3720, 1695, 375}, "&Help"},

    {"lblDescription8", Label, 8, kTitleBox, "The folders for Home and Scripts"},
    {"lblInstruction8", Label, 8, kInstructionBox,
     "Enter the full path for following folders, and click on Next to continue."},
    {"lblFolderHomeIIS",
     Label,
     8,
     {360, 1440, kOpen, kOpen},
     "Varify the full path of home directory by clicking on the button [...]"},
    {"txtFolderHomeIIS", TextBox, 8, {600, 1800, 5295, 315}, ""},
    {"cmdFolderHomeIIS", Button, 8, {6000, 1800, 375, 375}, "..."},
    {"lblFolderScriptsIIS",
     Label,
     8,
     {360, 2520, kOpen, kOpen},
     "Varify the full path of Scripts directory by clicking on the button [...]"},
    {"txtFolderScriptsIIS", TextBox, 8, {600, 2880, 5295, 315}, ""},
    {"cmdFolderScriptsIIS", Button, 8, {6000, 2880, 375, 375}, "..."},
    {"lblInfoFolderIIS", Label, 8, kAnywhere,
     "For more information about these folders, click on --> "},
    {"cmdHelpFolderIIS", Button, 8, {4680, 3720, 1695, 375}, "&Help"},

    {"lblDescription9", Label, 9, kTitleBox, "The folders for Home and Scripts"},
    {"lblInstruction9", Label, 9, kInstructionBox,
     "Enter the full path for following folders, and click on Next to continue."},
    {"lblFolderHomeOthers",
     Label,
     9,
     {360, 1440, kOpen, kOpen},
     "Enter the full path / name of documnet root, or click on [...] to find it"},
    {"txtFolderHomeOthers", TextBox, 9, {600, 1800, 5295, 315}, ""},
    {"cmdFolderHomeOthers", Button, 9, {6000, 1800, 375, 375}, "..."},
    {"lblFolderScriptsOthers",
     Label,
     9,
     {360, 2520, kOpen, kOpen},
     "Enter the full path / name of cgi-bin, or click on the button [...] to find it"},
    {"txtFolderScriptsOthers", TextBox, 9, {600, 2880, 5295, 315}, ""},
    {"cmdFolderScriptsOthers", Button, 9, {6000, 2880, 375, 375}, "..."},
    {"lblInfoFolderOthers", Label, 9, kAnywhere,
     "Read web server's documnetation to get more information about these folders "},

    {"lblDescription10", Label, 10, kTitleBox, "Writing data to disk"},
    {"lblInstruction10", Label, 10, kInstructionBox,
     "Configuration Wizard is going to write settings to disk and copy files to web server's "
     "folders. Click on Next to continue, or click on Cancel to exit."},

    {"lblFinishDescription", Label, 11, kTitleBox, "Configuration completed"},
    {"lblFinishInstruction", Label, 11, kInstructionBox,
     "The configuration completed, click on Finish to exit."},
    {"lineProgressH1", Line, 11, {360, 1560, 5640, 0}, ""},
    {"lineProgressH2", Line, 11, {360, 1800, 5640, 0}, ""},
    {"Line3lineProgressV1", Line, 11, {360, 1560, 0, 240}, ""},
    {"lineProgressV2", Line, 11, {6000, 1560, 0, 250}, ""},
    {"lblProgress", Label, 11, {360, 1560, 255, 255}, ""},

    {"lblErrDescription", Label, 12, kTitleBox, "Error"},
    {"lblErrInstruction", Label, 12, kAnywhere, kOpenText},
    {"cmdHelpUpgrade", Button, 12, {5160, 1800, 1095, 375}, "Help"},

    {"lblDescription13", Label, 13, kTitleBox, "Modification, Bachup, or Deletion"},
    {"lblInstruction13", Label, 13, kInstructionBox, kOpenText},
    {"cmdNew", Button, 13, {kOpen, kOpen, 735, 735}, ""},
    {"lblNew", Label, 13, {kOpen, kOpen, 3495, kOpen}, "Configuration for new installation"},
    {"cmdUpgrade", Button, 13, {kOpen, kOpen, 735, 735}, ""},
    {"lblUpgrade", Label, 13, {kOpen, kOpen, 3495, kOpen}, "Cconfiguration for upgrading"},
    {"cmdModify", Button, 13, {kOpen, kOpen, 735, 735}, ""},
    {"lblModify", Label, 13, {kOpen, kOpen, 3495, kOpen}, "Modify the current configuration"},
    {"cmdBackup", Button, 13, {kOpen, kOpen, 735, 735}, ""},
    {"lblBackup", Label, 13, {kOpen, kOpen, 3495, kOpen}, "Backup the current configuration"},
    {"cmdDelete", Button, 13, {kOpen, kOpen, 735, 735}, ""},
    {"lblDelete", Label, 13, {kOpen, kOpen, 3615, kOpen}, "Delete the current configuration"},

    {"lblDescription14", Label, 14, kTitleBox, "IP Address and Port settings"},
    {"lblInstruction14", Label, 14, kInstructionBox,
     "Enter the IP address and Port settings of your web site, these are optional settings."},
    {"lblWebsiteIP", Label, 14, kAnywhere,
     "Enter the IP address if the web server listen to specified IP address:"},
    {"txtWebsiteIP", TextBox, 14, {1080, 1800, 4815, 315}, ""},
    {"lblWebsitePort", Label, 14, kAnywhere,
     "Enter the Port if the web server listen to a Port other than 80:"},
    {"txtWebsitePort", TextBox, 14, {1080, 2760, 4815, 315}, ""},
    {"lblHelpWebsiteIP", Label, 14, kAnywhere,
     "For more information about these settings, click on --> "},
    {"cmdHelpWebsiteIP", Button, 14, {4440, 3600, kOpen, kOpen}, "Help"},

    {"cmdBack", Button, kOnWindow, {4560, 4920, 1095, 375}, "< &Back"},
    {"cmdNext", Button, kOnWindow, {5640, 4920, 1095, 375}, "&Next >"},
    {"cmdCancel", Button, kOnWindow, {6960, 4920, 1095, 375}, "Cancel"},
    {"cmdFinish", Button, kOnWindow, {8160, 4920, 1095, 375}, "Finish"},
});

inline constexpr std::size_t kPanelCount =
    static_cast<std::size_t>(std::ranges::count(kControls, kPanelNameBox, &Control::box));

// Of the control of that name. To name none does not compile where it is a constant.
constexpr const Control& controlOf(std::string_view name) {
    for (const Control& control : kControls)
        if (control.name == name) return control;
    throw name;
}

constexpr std::string_view captionOf(std::string_view name) { return controlOf(name).caption; }

// By panel number, the text of the label that stands there.
constexpr auto captionsAt(const Box& place) {
    std::array<std::string_view, kPanelCount> captions;
    for (const Control& control : kControls)
        if (control.box == place)
            captions.at(static_cast<std::size_t>(control.panel)) = control.caption;
    return captions;
}
inline constexpr auto kPanelNames = captionsAt(kPanelNameBox);
inline constexpr auto kPanelTitles = captionsAt(kTitleBox);

}  // namespace kv::design
