// Every text that the wizard shows, to the letter: the misspellings are the product's and stay.
// Those that the controls begin with stand in the model.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "tests/model/Form.h"

namespace kv::endtoend {

using TextList = std::span<const std::string_view>;

using design::captionOf;

inline constexpr std::string_view kWindowClass = "frmWebConfig";
inline constexpr std::string_view kWizardTitle = "Korvane Configuration Wizard";

inline constexpr std::string_view kBack = captionOf("cmdBack");
inline constexpr std::string_view kNext = captionOf("cmdNext");
inline constexpr std::string_view kCancel = captionOf("cmdCancel");
inline constexpr std::string_view kFinish = captionOf("cmdFinish");
inline constexpr std::string_view kBrowse = "...";

inline constexpr int kPanelCount = 15;
inline constexpr std::array<std::string_view, kPanelCount> kPanelNames{
    captionOf("lblPanelID(0)"),  captionOf("lblPanelID(1)"),  captionOf("lblPanelID(2)"),
    captionOf("lblPanelID(3)"),  captionOf("lblPanelID(4)"),  captionOf("lblPanelID(5)"),
    captionOf("lblPanelID(6)"),  captionOf("lblPanelID(7)"),  captionOf("lblPanelID(8)"),
    captionOf("lblPanelID(9)"),  captionOf("lblPanelID(10)"), captionOf("lblPanelID(11)"),
    captionOf("lblPanelID(12)"), captionOf("lblPanelID(13)"), captionOf("lblPanelID(14)")};

// Options.
inline constexpr std::string_view kInstalledIis = captionOf("optInstalledIIS");
inline constexpr std::string_view kInstalledApache = captionOf("optInstalledApache");
inline constexpr std::string_view kInstalledOther = captionOf("optInstalledOther");
inline constexpr std::string_view kInstalledNothing = captionOf("optInstalledNothing");
inline constexpr std::string_view kInstallingIis = captionOf("optInstallingIIS");
inline constexpr std::string_view kInstallingApache = captionOf("optInstallingApache");
inline constexpr std::string_view kInstallingOther = captionOf("optInstallingOther");
inline constexpr std::string_view kInstallingAnyone = captionOf("optInstallingAnyone");
inline constexpr std::string_view kUrlDefault = captionOf("optUrlDefault");
inline constexpr std::string_view kUrlKv = captionOf("optUrlKv");

// Message boxes.
inline constexpr std::string_view kChooseOfChoices = "Please select one of four choices.";
inline constexpr std::string_view kChooseOfOptions = "Please select one of four options.";
inline constexpr std::string_view kChooseUrl = "Please select one of two options.";
inline constexpr std::string_view kEnterFolder = "Please enter folder's full path name.";
inline constexpr std::string_view kDoesNotExist = " does not exist.";  // after the quoted path
inline constexpr std::string_view kWrongAddress = "The Web site IP address is incorrect.";
inline constexpr std::string_view kWrongPort = "The Web site Port is incorrect.";
inline constexpr std::string_view kReallyCancel =
    "Are you sure you want to cancel Korvane configuration?";
inline constexpr std::string_view kBrowserTitle = "Choose a directory from the list.";

// Texts that stand in more than one place or change while the wizard runs.
inline constexpr std::string_view kWelcomeFirst = captionOf("lblInstruction0");
inline constexpr std::string_view kWelcomeConfigured =
    "The Configuration Wizard will help you for the modifying, backing up, or deleting current "
    "configuration. Click on Next to contihue or Cancel to exit the Configuration Wizard.";
inline constexpr std::string_view kConfirmWriting = captionOf("lblInstruction10");
inline constexpr std::string_view kConfirmBackup =
    "Configuration Wizard is going to backup settings to disk. Click on Next to continue, or "
    "click on Cancel to exit.";
inline constexpr std::string_view kConfirmDeletion =
    "Configuration Wizard is going to delete settings from disk and files to web server's "
    "folders. Click on Next to continue, or click on Cancel to exit.";
inline constexpr std::string_view kCompletedTitle = captionOf("lblFinishDescription");
inline constexpr std::string_view kCompleted = captionOf("lblFinishInstruction");
inline constexpr std::string_view kUpgradeUnavailable =
    "The previous settings are not available, click on Help for detailed instructions to get "
    "upgrading done.";
// The support text names an e-mail address between these two parts.
inline constexpr std::string_view kSupportBeginning =
    "The installation is not correct, please try the installation again, or send email to ";
inline constexpr std::string_view kSupportEnd = ". Click on Finish to exit.";
// The advice on names gives two quoted examples between these two parts.
inline constexpr std::string_view kFakeDomainBeginning =
    "If you don't have a registed domain name and static IP address, a fake domain name, such as "
    "indicated by installation wizard ";
inline constexpr std::string_view kFakeDomainEnd = ", can be used.";

inline constexpr std::string_view kHomeApacheFilled =
    "If the Document Root is incorrect, please click on [...] to find it";
inline constexpr std::string_view kHomeApacheEmpty =
    "Enter full path / name for document root, or click on [...] to find it";
inline constexpr std::string_view kScriptsApacheFilled =
    "If the cgi-bin folder is incorrect, please click on [...] to find it";
inline constexpr std::string_view kScriptsApacheEmpty =
    "Enter full path / name for cgi-bin folder, or click on [...] to find it";
inline constexpr std::string_view kHomeIisFilled =
    "If the Home directory is incorrect, please click on [...] to find it";
inline constexpr std::string_view kHomeIisEmpty =
    "Enter full path / name for Home directory, or click on [...] to find it";
inline constexpr std::string_view kScriptsIisFilled =
    "If the Scripts folder is incorrect, please click on [...] to find it";
inline constexpr std::string_view kScriptsIisEmpty =
    "Enter full path / name for Scripts directory, or click on [...] to find it";
inline constexpr std::string_view kEnterFolders = captionOf("lblInstruction7");
inline constexpr std::string_view kMoreAboutFolders = captionOf("lblInfoFolderApache");

inline constexpr std::string_view kNewLabel = captionOf("lblNew");
inline constexpr std::string_view kUpgradeLabel = captionOf("lblUpgrade");
inline constexpr std::string_view kModifyLabel = captionOf("lblModify");
inline constexpr std::string_view kBackupLabel = captionOf("lblBackup");
inline constexpr std::string_view kDeleteLabel = captionOf("lblDelete");

// Titles, by panel number. The action panel's depends on its variant.
inline constexpr std::array<std::string_view, kPanelCount> kPanelTitles{
    captionOf("lblWelcome"),        captionOf("lblDescription1"),
    captionOf("lblDescription2"),   captionOf("lblDescription3"),
    captionOf("lblDescription4"),   captionOf("lblDescription5"),
    captionOf("lblDescription6"),   captionOf("lblDescription7"),
    captionOf("lblDescription8"),   captionOf("lblDescription9"),
    captionOf("lblDescription10"),  kCompletedTitle,
    captionOf("lblErrDescription"), "",
    captionOf("lblDescription14")};
inline constexpr std::string_view kActionNewTitle = "New or Upgrading";
inline constexpr std::string_view kActionModifyTitle = "Modification, Backing Up, or Deletion";

// What is to be read on a panel beside its title, buttons included. Texts that the design leaves
// partly open (the support address, the example domain names) are not listed and are checked by
// their fixed parts. The folder panels are listed as they look with empty boxes.
namespace texts {

inline constexpr std::array<std::string_view, 2> kWelcome{kWelcomeFirst,
                                                          captionOf("lblCongratulation")};
inline constexpr std::array<std::string_view, 2> kWelcomeAgain{kWelcomeConfigured,
                                                               captionOf("lblCongratulation")};
inline constexpr std::array<std::string_view, 5> kServerExist{captionOf("lblInstruction1"),
                                                              kInstalledIis, kInstalledApache,
                                                              kInstalledOther, kInstalledNothing};
inline constexpr std::array<std::string_view, 5> kServerInstall{
    captionOf("lblInstruction2"), kInstallingIis, kInstallingApache, kInstallingOther,
    kInstallingAnyone};
inline constexpr std::array<std::string_view, 4> kServerInstallApache{
    captionOf("lblInstruction3"), captionOf("lblDownloadApache"), captionOf("cmdDownloadApache"),
    captionOf("lblInstruction3_1")};
inline constexpr std::array<std::string_view, 4> kInstallIis{
    captionOf("lblInstruction4"), captionOf("lblInstruction4_1"), captionOf("lblInstruction4_2"),
    captionOf("lblInstruction4_3")};
inline constexpr std::array<std::string_view, 3> kInstallOther{
    captionOf("lblInstruction5"), captionOf("lblInstruction5_1"), captionOf("lblInstruction5_2")};
inline constexpr std::array<std::string_view, 6> kAccess{
    captionOf("lblInstruction6"), captionOf("lblInstruction6_1"), kUrlDefault, kUrlKv,
    captionOf("lblInfo"),         captionOf("cmdHelpUrl")};
inline constexpr std::array<std::string_view, 7> kApacheFolders{kEnterFolders,
                                                                kHomeApacheEmpty,
                                                                kScriptsApacheEmpty,
                                                                kMoreAboutFolders,
                                                                captionOf("cmdHelpFolderApche"),
                                                                kBrowse,
                                                                kBrowse};
inline constexpr std::array<std::string_view, 7> kIisFolders{kEnterFolders,
                                                             kHomeIisEmpty,
                                                             kScriptsIisEmpty,
                                                             kMoreAboutFolders,
                                                             captionOf("cmdHelpFolderIIS"),
                                                             kBrowse,
                                                             kBrowse};
inline constexpr std::array<std::string_view, 6> kOtherFolders{kEnterFolders,
                                                               captionOf("lblFolderHomeOthers"),
                                                               captionOf("lblFolderScriptsOthers"),
                                                               captionOf("lblInfoFolderOthers"),
                                                               kBrowse,
                                                               kBrowse};
inline constexpr std::array<std::string_view, 1> kWritingConfirm{kConfirmWriting};
inline constexpr std::array<std::string_view, 1> kFinished{kCompleted};
inline constexpr std::array<std::string_view, 1> kStartFailed{captionOf("cmdHelpUpgrade")};
inline constexpr std::array<std::string_view, 2> kUpgradeFailed{kUpgradeUnavailable,
                                                                captionOf("cmdHelpUpgrade")};
inline constexpr std::array<std::string_view, 3> kActionNew{
    "Click on New, or Upgrading to continue, click on Back to previous, or click on Cancel to "
    "exit",
    kNewLabel, kUpgradeLabel};
inline constexpr std::array<std::string_view, 4> kActionModify{
    "Click on Midify, Backup, or Delete to continue, click on Back to previous, or click on "
    "Cancel to exit",
    kModifyLabel, kBackupLabel, kDeleteLabel};
inline constexpr std::array<std::string_view, 5> kAddress{
    captionOf("lblInstruction14"), captionOf("lblWebsiteIP"), captionOf("lblWebsitePort"),
    captionOf("lblHelpWebsiteIP"), captionOf("cmdHelpWebsiteIP")};

}  // namespace texts

}  // namespace kv::endtoend
