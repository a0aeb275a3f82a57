// The wizard's window: every control with its name, its place and its text, each declared once. It
// is passive; what its buttons do is set from outside.
#pragma once

#include <array>
#include <string>
#include <utility>

#include "wizard/controls/Control.h"
#include "wizard/controls/Form.h"
#include "wizard/form/PanelTable.h"
#include "wizard/form/Texts.h"

namespace kv {

// The client area's height and the window's outer width; the frame's height comes on top.
inline constexpr Twips kWindowOuterWidth = 8300;
inline constexpr Twips kWindowInnerHeight = 5430;

// Where Finish stands before and after it takes the place of Next.
inline constexpr Twips kFinishOutside = 8160;
inline constexpr Twips kFinishInPlaceOfNext = 5640;

inline constexpr Box kPanelBox{1560, 0, 6495, 4750};

inline constexpr Twips kProgressStartWidth = 255;

// Where things stand on a panel.
struct PanelLayout {
    static constexpr Box title() { return {120, 240, 6135, 495}; }
    static constexpr Box instruction(Twips top, int lines) {
        return {120, top, 6135, lines * kLineHeight};
    }
    static constexpr Box option(Twips top, Twips width) { return {360, top, width, 255}; }
    static constexpr Box folderText(Twips top) { return {600, top, 5295, 315}; }
    static constexpr Box folderLabel(Twips top) { return {360, top, 6015, kLineHeight}; }
    static constexpr Box folderBrowse(Twips top) { return {6000, top, 375, 375}; }
    // Text on the left of a help button, at the height of its caption.
    static constexpr Box beforeHelp(Twips helpTop) {
        return {120, helpTop + 90, 4530, kLineHeight};
    }
    static constexpr Box actionButton(Twips top) { return {720, top, 735, 735}; }
    static constexpr Box frameButton(Twips left) { return {left, 4920, 1095, 375}; }

    static constexpr Twips kLineHeight = 210;  // one line of the normal font at every resolution
};

class frmWebConfig : public Form, private PanelLayout {
public:
    frmWebConfig();

private:
    void nameForScreenReaders();

    // "picPanel(7)": the name of an element of an array of controls.
    static std::string elementName(std::string_view array, std::size_t index);

    template <std::size_t... N>
    std::array<PictureBox, kPanelCount> panels(std::index_sequence<N...>) {
        return {PictureBox(*this, {elementName("picPanel", N), kPanelBox})...};
    }

    template <std::size_t... N>
    std::array<Label, kPanelCount> panelIds(std::index_sequence<N...>) {
        return {
            Label(picPanel[N],
                  {elementName("lblPanelID", N), {120, 0, 6135, kLineHeight}, kPanels[N].name})...};
    }

    static constexpr auto kEveryPanel = std::make_index_sequence<kPanelCount>{};

public:
    // The order below is the order in which the keyboard and a screen reader visit the controls.
    // clang-format off
#define CONTROL(type, name, parent, ...)                                   \
    type name {                                                            \
        parent, []() -> const type::Design& {                              \
            static constexpr type::Design kDesign{#name, __VA_ARGS__};     \
            return kDesign;                                                \
        }()                                                                \
    }
    // clang-format on

    CONTROL(PictureBox, PicConfig, *this, {120, 120, 1335, 5175}, "SIDE");

    std::array<PictureBox, kPanelCount> picPanel = panels(kEveryPanel);
    std::array<Label, kPanelCount> lblPanelID = panelIds(kEveryPanel);

    // 0: Welcome
    CONTROL(Label, lblWelcome, picPanel[0], title(), kPanels[0].title, Font::Welcome);
    CONTROL(Label, lblInstruction0, picPanel[0], instruction(840, 3), texts::kWelcomeInitial);
    CONTROL(Label, lblCongratulation, picPanel[0], {120, 1680, 6135, 240},
            "Congratulation! The Korvane was installed successfully.", Font::Congratulation);

    // 1: which web server is installed
    CONTROL(Label, lblDescription1, picPanel[1], title(), kPanels[1].title, Font::Title);
    CONTROL(Label, lblInstruction1, picPanel[1], instruction(840, 2),
            "Select one of the following choices which best indicates whether or not a web server "
            "is installed on this computer, then click on Next to continue.");
    CONTROL(OptionButton, optInstalledIIS, picPanel[1], option(1680, 6015),
            "MS Internet Information Server (IIS) is installed on this computer");
    CONTROL(OptionButton, optInstalledApache, picPanel[1], option(2160, 6015),
            "Apache web server is installed on this computer");
    CONTROL(OptionButton, optInstalledOther, picPanel[1], option(2640, 6015),
            "Other brand of web server is installed on this computer");
    CONTROL(OptionButton, optInstalledNothing, picPanel[1], option(3120, 6015),
            "No web server is installed on this computer");

    // 2: which web server to install
    CONTROL(Label, lblDescription2, picPanel[2], title(), kPanels[2].title, Font::Title);
    CONTROL(Label, lblInstruction2, picPanel[2], instruction(840, 2),
            "Select one of the following options which may match your preference, then click on "
            "Next to continue.");
    CONTROL(OptionButton, optInstallingIIS, picPanel[2], option(1680, 6015),
            "Installing MS IIS and I have the installation package");
    CONTROL(OptionButton, optInstallingApache, picPanel[2], option(2160, 6015),
            "Installing Apache web server");
    CONTROL(OptionButton, optInstallingOther, picPanel[2], option(2640, 6015),
            "Installing a web server I preferred and I have the installation packge");
    CONTROL(OptionButton, optInstallingAnyone, picPanel[2], option(3120, 6015), "No preference");

    // 3: installing Apache
    CONTROL(Label, lblDescription3, picPanel[3], title(), kPanels[3].title, Font::Title);
    CONTROL(Label, lblInstruction3, picPanel[3], instruction(840, 2),
            "Apache is the most widely used web server in the world due to its reliability. It's "
            "free and can be running on all MS Windows.");
    CONTROL(Label, lblDownloadApache, picPanel[3], {120, 1530, 4530, kLineHeight},
            "You may download Apache from us by click on --> ");
    CONTROL(CommandButton, cmdDownloadApache, picPanel[3], {4680, 1440, 1695, 375},
            "&Download Apache");
    CONTROL(Line, lineSeparator3Dark, picPanel[3], {120, 1920, 6300, 0}, Colour::Shadow);
    CONTROL(Line, lineSeparator3Light, picPanel[3], {120, 1928, 6300, 0}, Colour::Light);
    CONTROL(Label, lblInstruction3_1, picPanel[3], instruction(2100, 2),
            "During the Apache's installation, you will be asked to enter the domain name and "
            "server name.");
    CONTROL(Label, lblInstruction3_3, picPanel[3], instruction(2700, 3),
            "If you don't have a registed domain name and static IP address, a fake domain name, "
            "such as indicated by installation wizard \"" KV_EXAMPLE_DOMAIN
            "\" and \"www." KV_EXAMPLE_DOMAIN "\", can be used.");

    // 4: installing IIS
    CONTROL(Label, lblDescription4, picPanel[4], title(), kPanels[4].title, Font::Title);
    CONTROL(Label, lblInstruction4, picPanel[4], instruction(840, 2),
            "Follow the instruction provided by Microsoft to install the MS IIS. After MS IIS "
            "installation completed click on Next to continue.");
    CONTROL(Label, lblInstruction4_1, picPanel[4], instruction(1500, 3),
            "You can quit from Korvane Configuration Wizard by clicking on Cancel button if the MS "
            "IIS installation requires to quit from all running applications. There will be no "
            "data lost at this point.");
    CONTROL(Label, lblInstruction4_2, picPanel[4], instruction(2370, 3),
            "The MS IIS installation can be tested with a browser using \"http://localhost/\" as a "
            "url, the default page should be displayed if the MS IIS has been installed properly.");
    CONTROL(Label, lblInstruction4_3, picPanel[4], instruction(3240, 3),
            "Note: The MS IIS personal version is not recommented because it only supports 5 "
            "concurrent accesses, which is far bellow the capacity of the Korvane.");

    // 5: installing another web server
    CONTROL(Label, lblDescription5, picPanel[5], title(), kPanels[5].title, Font::Title);
    CONTROL(Label, lblInstruction5, picPanel[5], instruction(840, 3),
            "Follow the instruction provided by the manufacture to install the web server. After "
            "the web server installation completed click on Next to continue.");
    CONTROL(
        Label, lblInstruction5_1, picPanel[5], instruction(1500, 3),
        "You can quit from Korvane Configuration Wizard by clicking on Cancel button if the web "
        "server installation requires to quit from all running applications. There will be no "
        "data lost at this point.");
    CONTROL(Label, lblInstruction5_2, picPanel[5], instruction(2370, 3),
            "The most of web server installation can be tested with a browser using "
            "\"http://localhost/\" as a url, the default page should be displayed if the web "
            "server has been installed properly.");

    // 6: the URL style
    CONTROL(Label, lblDescription6, picPanel[6], title(), kPanels[6].title, Font::Title);
    CONTROL(Label, lblInstruction6, picPanel[6], instruction(840, 2),
            "Korvane can be configured to be accessed by typing either \"http://site_name\" or "
            "\"http://site_name/kv\" in a browser's address field.");
    CONTROL(Label, lblInstruction6_1, picPanel[6], instruction(1500, 1),
            "Choose one of the following options, and click on Next to continue.");
    CONTROL(OptionButton, optUrlDefault, picPanel[6], option(2040, 5895),
            "through \"http://site_name\" or \"http://site_ip\"");
    CONTROL(OptionButton, optUrlKv, picPanel[6], option(2520, 5895),
            "through \"http://site_name/kv\" or \"http://site_ip/kv\"");
    CONTROL(Label, lblInfo, picPanel[6], beforeHelp(3720),
            "For more information about these options, click on --> ");
    CONTROL(CommandButton, cmdHelpUrl, picPanel[6], {4680, 3720, 1695, 375}, "&Help");

    // 7: Apache's folders
    CONTROL(Label, lblDescription7, picPanel[7], title(), kPanels[7].title, Font::Title);
    CONTROL(Label, lblInstruction7, picPanel[7], instruction(840, 2),
            "Enter the full path for following folders, and click on Next to continue.");
    CONTROL(Label, lblFolderHomeApache, picPanel[7], folderLabel(1440),
            "Varify the full path of documnet root by clicking on the button [...]");
    CONTROL(TextBox, txtFolderHomeApache, picPanel[7], folderText(1800));
    CONTROL(CommandButton, cmdFolderHomeApache, picPanel[7], folderBrowse(1800), "...");
    CONTROL(Label, lblFolderScriptsApache, picPanel[7], folderLabel(2520),
            "Varify the full path of cgi-bin by clicking on the button [...]");
    CONTROL(TextBox, txtFolderScriptsApache, picPanel[7], folderText(2880));
    CONTROL(CommandButton, cmdFolderScriptsApache, picPanel[7], folderBrowse(2880), "...");
    CONTROL(Label, lblInfoFolderApache, picPanel[7], beforeHelp(3720),
            "For more information about these folders, click on --> ");
    CONTROL(CommandButton, cmdHelpFolderApche, picPanel[7], {4680, 3720, 1695, 375}, "&Help");

    // 8: IIS's folders
    CONTROL(Label, lblDescription8, picPanel[8], title(), kPanels[8].title, Font::Title);
    CONTROL(Label, lblInstruction8, picPanel[8], instruction(840, 2),
            "Enter the full path for following folders, and click on Next to continue.");
    CONTROL(Label, lblFolderHomeIIS, picPanel[8], folderLabel(1440),
            "Varify the full path of home directory by clicking on the button [...]");
    CONTROL(TextBox, txtFolderHomeIIS, picPanel[8], folderText(1800));
    CONTROL(CommandButton, cmdFolderHomeIIS, picPanel[8], folderBrowse(1800), "...");
    CONTROL(Label, lblFolderScriptsIIS, picPanel[8], folderLabel(2520),
            "Varify the full path of Scripts directory by clicking on the button [...]");
    CONTROL(TextBox, txtFolderScriptsIIS, picPanel[8], folderText(2880));
    CONTROL(CommandButton, cmdFolderScriptsIIS, picPanel[8], folderBrowse(2880), "...");
    CONTROL(Label, lblInfoFolderIIS, picPanel[8], beforeHelp(3720),
            "For more information about these folders, click on --> ");
    CONTROL(CommandButton, cmdHelpFolderIIS, picPanel[8], {4680, 3720, 1695, 375}, "&Help");

    // 9: another web server's folders
    CONTROL(Label, lblDescription9, picPanel[9], title(), kPanels[9].title, Font::Title);
    CONTROL(Label, lblInstruction9, picPanel[9], instruction(840, 2),
            "Enter the full path for following folders, and click on Next to continue.");
    CONTROL(Label, lblFolderHomeOthers, picPanel[9], folderLabel(1440),
            "Enter the full path / name of documnet root, or click on [...] to find it");
    CONTROL(TextBox, txtFolderHomeOthers, picPanel[9], folderText(1800));
    CONTROL(CommandButton, cmdFolderHomeOthers, picPanel[9], folderBrowse(1800), "...");
    CONTROL(Label, lblFolderScriptsOthers, picPanel[9], folderLabel(2520),
            "Enter the full path / name of cgi-bin, or click on the button [...] to find it");
    CONTROL(TextBox, txtFolderScriptsOthers, picPanel[9], folderText(2880));
    CONTROL(CommandButton, cmdFolderScriptsOthers, picPanel[9], folderBrowse(2880), "...");
    CONTROL(Label, lblInfoFolderOthers, picPanel[9], instruction(3810, 2),
            "Read web server's documnetation to get more information about these folders ");

    // 10: confirmation
    CONTROL(Label, lblDescription10, picPanel[10], title(), kPanels[10].title, Font::Title);
    CONTROL(Label, lblInstruction10, picPanel[10], instruction(840, 3), texts::kConfirmWriting);

    // 11: finish and progress
    CONTROL(Label, lblFinishDescription, picPanel[11], title(), kPanels[11].title, Font::Title);
    CONTROL(Label, lblFinishInstruction, picPanel[11], instruction(840, 3),
            texts::kCompletedInstruction);
    // The frame lies over what fills it.
    CONTROL(Line, lineProgressH1, picPanel[11], {360, 1560, 5640, 0});
    CONTROL(Line, lineProgressH2, picPanel[11], {360, 1800, 5640, 0});
    CONTROL(Line, Line3lineProgressV1, picPanel[11], {360, 1560, 0, 240});
    CONTROL(Line, lineProgressV2, picPanel[11], {6000, 1560, 0, 250});
    CONTROL(Label, lblProgress, picPanel[11], {360, 1560, kProgressStartWidth, 255}, "",
            Font::Normal, Colour::Highlight);

    // 12: error
    CONTROL(Label, lblErrDescription, picPanel[12], title(), kPanels[12].title, Font::Title);
    CONTROL(Label, lblErrInstruction, picPanel[12], instruction(840, 3), texts::kErrorSupport);
    CONTROL(CommandButton, cmdHelpUpgrade, picPanel[12], {5160, 1800, 1095, 375}, "Help");

    // 13: the action panel; start-up moves the buttons and labels to their places
    CONTROL(Label, lblDescription13, picPanel[13], title(), kPanels[13].title, Font::Title);
    CONTROL(Label, lblInstruction13, picPanel[13], instruction(840, 2), "");
    CONTROL(CommandButton, cmdNew, picPanel[13], actionButton(1800), "", "NEW");
    CONTROL(Label, lblNew, picPanel[13], {1680, 2040, 3495, 255},
            "Configuration for new installation");
    CONTROL(CommandButton, cmdUpgrade, picPanel[13], actionButton(3120), "", "UPGRADE");
    CONTROL(Label, lblUpgrade, picPanel[13], {1680, 3360, 3495, 255},
            "Cconfiguration for upgrading");
    CONTROL(CommandButton, cmdModify, picPanel[13], actionButton(1680), "", "MODIFY");
    CONTROL(Label, lblModify, picPanel[13], {1680, 1920, 3495, 255},
            "Modify the current configuration");
    CONTROL(CommandButton, cmdBackup, picPanel[13], actionButton(2520), "", "BACKUP");
    CONTROL(Label, lblBackup, picPanel[13], {1680, 2760, 3495, 255},
            "Backup the current configuration");
    CONTROL(CommandButton, cmdDelete, picPanel[13], actionButton(3360), "", "DELETE");
    CONTROL(Label, lblDelete, picPanel[13], {1680, 3600, 3615, 255},
            "Delete the current configuration");

    // 14: the web site's address
    CONTROL(Label, lblDescription14, picPanel[14], title(), kPanels[14].title, Font::Title);
    CONTROL(Label, lblInstruction14, picPanel[14], instruction(840, 2),
            "Enter the IP address and Port settings of your web site, these are optional "
            "settings.");
    CONTROL(Label, lblWebsiteIP, picPanel[14], {360, 1440, 5535, kLineHeight},
            "Enter the IP address if the web server listen to specified IP address:");
    CONTROL(TextBox, txtWebsiteIP, picPanel[14], {1080, 1800, 4815, 315});
    CONTROL(Label, lblWebsitePort, picPanel[14], {360, 2400, 5535, kLineHeight},
            "Enter the Port if the web server listen to a Port other than 80:");
    CONTROL(TextBox, txtWebsitePort, picPanel[14], {1080, 2760, 4815, 315});
    CONTROL(Label, lblHelpWebsiteIP, picPanel[14], {1080, 3600, 3240, 2 * kLineHeight},
            "For more information about these settings, click on --> ");
    CONTROL(CommandButton, cmdHelpWebsiteIP, picPanel[14], {4440, 3600, 1695, 375}, "Help");

    // Below the panels
    CONTROL(CommandButton, cmdBack, *this, frameButton(4560), "< &Back");
    CONTROL(CommandButton, cmdNext, *this, frameButton(5640), "&Next >");
    CONTROL(CommandButton, cmdCancel, *this, frameButton(6960), "Cancel");
    CONTROL(CommandButton, cmdFinish, *this, frameButton(kFinishOutside), "Finish");

#undef CONTROL
};

}  // namespace kv
