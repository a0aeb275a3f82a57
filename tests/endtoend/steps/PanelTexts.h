// Every text that the wizard shows, to the letter: the misspellings are the product's and stay.
// Those that the controls begin with stand in the model.
#pragma once

#include <string_view>

#include "tests/model/Form.h"

namespace kv::endtoend {

using design::captionOf;
using design::kPanelNames;
using design::kPanelTitles;

inline constexpr int kPanelCount = static_cast<int>(design::kPanelCount);

inline constexpr std::string_view kWindowClass = "frmWebConfig";
inline constexpr std::string_view kWizardTitle = "Korvane Configuration Wizard";

inline constexpr std::string_view kBack = captionOf("cmdBack");
inline constexpr std::string_view kNext = captionOf("cmdNext");
inline constexpr std::string_view kCancel = captionOf("cmdCancel");
inline constexpr std::string_view kFinish = captionOf("cmdFinish");
inline constexpr std::string_view kBrowse = "...";

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
inline constexpr std::string_view kHomeIisEmpty =
    "Enter full path / name for Home directory, or click on [...] to find it";
inline constexpr std::string_view kScriptsIisEmpty =
    "Enter full path / name for Scripts directory, or click on [...] to find it";

inline constexpr std::string_view kUpgradeLabel = captionOf("lblUpgrade");
inline constexpr std::string_view kModifyLabel = captionOf("lblModify");
inline constexpr std::string_view kBackupLabel = captionOf("lblBackup");
inline constexpr std::string_view kDeleteLabel = captionOf("lblDelete");

// The action panel has two variants.
inline constexpr std::string_view kActionNewTitle = "New or Upgrading";
inline constexpr std::string_view kActionModifyTitle = "Modification, Backing Up, or Deletion";
inline constexpr std::string_view kActionNewInstruction =
    "Click on New, or Upgrading to continue, click on Back to previous, or click on Cancel to "
    "exit";
inline constexpr std::string_view kActionModifyInstruction =
    "Click on Midify, Backup, or Delete to continue, click on Back to previous, or click on "
    "Cancel to exit";

}  // namespace kv::endtoend
