// Every text that the wizard shows, to the letter: the misspellings are the product's and stay.
#pragma once

#include <array>
#include <span>
#include <string_view>

namespace kv::endtoend {

using TextList = std::span<const std::string_view>;

inline constexpr std::string_view kWindowClass = "frmWebConfig";
inline constexpr std::string_view kWizardTitle = "Korvane Configuration Wizard";

inline constexpr std::string_view kBack = "< &Back";
inline constexpr std::string_view kNext = "&Next >";
inline constexpr std::string_view kCancel = "Cancel";
inline constexpr std::string_view kFinish = "Finish";
inline constexpr std::string_view kBrowse = "...";

inline constexpr int kPanelCount = 15;
inline constexpr std::array<std::string_view, kPanelCount> kPanelNames{
    "0 - Panel Welcome",         "1 - Panel ServerExist",
    "2 - Panel ServerInstall",   "3 - Panel ServerInstallApache",
    "4 - Panel InstallIIS",      "5 - Panel InstallOtherServer",
    "6 - Panel AccessKorvane",   "7 - Panel ApacheFolders",
    "8 - Panel IISFolders",      "9 - Panel OthersFolders",
    "10 - Panel WritingConfirm", "11 - Panel Finish",
    "12 - Panel Error",          "13 - Panel Action",
    "14 - IP address and Port",
};

// Options.
inline constexpr std::string_view kInstalledIis =
    "MS Internet Information Server (IIS) is installed on this computer";
inline constexpr std::string_view kInstalledApache =
    "Apache web server is installed on this computer";
inline constexpr std::string_view kInstalledOther =
    "Other brand of web server is installed on this computer";
inline constexpr std::string_view kInstalledNothing = "No web server is installed on this computer";
inline constexpr std::string_view kInstallingIis =
    "Installing MS IIS and I have the installation package";
inline constexpr std::string_view kInstallingApache = "Installing Apache web server";
inline constexpr std::string_view kInstallingOther =
    "Installing a web server I preferred and I have the installation packge";
inline constexpr std::string_view kInstallingAnyone = "No preference";
inline constexpr std::string_view kUrlDefault = R"(through "http://site_name" or "http://site_ip")";
inline constexpr std::string_view kUrlKv =
    R"(through "http://site_name/kv" or "http://site_ip/kv")";

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
inline constexpr std::string_view kWelcomeFirst =
    "The Configuration Wizard will help you for the initail configuration to make the Korvane "
    "work properly. Click on Next to contihue or Cancel to exit the Configuration Wizard.";
inline constexpr std::string_view kWelcomeConfigured =
    "The Configuration Wizard will help you for the modifying, backing up, or deleting current "
    "configuration. Click on Next to contihue or Cancel to exit the Configuration Wizard.";
inline constexpr std::string_view kConfirmWriting =
    "Configuration Wizard is going to write settings to disk and copy files to web server's "
    "folders. Click on Next to continue, or click on Cancel to exit.";
inline constexpr std::string_view kConfirmBackup =
    "Configuration Wizard is going to backup settings to disk. Click on Next to continue, or "
    "click on Cancel to exit.";
inline constexpr std::string_view kConfirmDeletion =
    "Configuration Wizard is going to delete settings from disk and files to web server's "
    "folders. Click on Next to continue, or click on Cancel to exit.";
inline constexpr std::string_view kCompletedTitle = "Configuration completed";
inline constexpr std::string_view kCompleted =
    "The configuration completed, click on Finish to exit.";
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
inline constexpr std::string_view kEnterFolders =
    "Enter the full path for following folders, and click on Next to continue.";
inline constexpr std::string_view kMoreAboutFolders =
    "For more information about these folders, click on --> ";

inline constexpr std::string_view kNewLabel = "Configuration for new installation";
inline constexpr std::string_view kUpgradeLabel = "Cconfiguration for upgrading";
inline constexpr std::string_view kModifyLabel = "Modify the current configuration";
inline constexpr std::string_view kBackupLabel = "Backup the current configuration";
inline constexpr std::string_view kDeleteLabel = "Delete the current configuration";

// Titles, by panel number. The action panel's depends on its variant.
inline constexpr std::array<std::string_view, kPanelCount> kPanelTitles{
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
    kCompletedTitle,
    "Error",
    "",
    "IP Address and Port settings",
};
inline constexpr std::string_view kActionNewTitle = "New or Upgrading";
inline constexpr std::string_view kActionModifyTitle = "Modification, Backing Up, or Deletion";

// What is to be read on a panel beside its title, buttons included. Texts that the design leaves
// partly open (the support address, the example domain names) are not listed and are checked by
// their fixed parts. The folder panels are listed as they look with empty boxes.
namespace texts {

inline constexpr std::array<std::string_view, 2> kWelcome{
    kWelcomeFirst, "Congratulation! The Korvane was installed successfully."};
inline constexpr std::array<std::string_view, 2> kWelcomeAgain{
    kWelcomeConfigured, "Congratulation! The Korvane was installed successfully."};
inline constexpr std::array<std::string_view, 5> kServerExist{
    "Select one of the following choices which best indicates whether or not a web server is "
    "installed on this computer, then click on Next to continue.",
    kInstalledIis, kInstalledApache, kInstalledOther, kInstalledNothing};
inline constexpr std::array<std::string_view, 5> kServerInstall{
    "Select one of the following options which may match your preference, then click on Next to "
    "continue.",
    kInstallingIis, kInstallingApache, kInstallingOther, kInstallingAnyone};
inline constexpr std::array<std::string_view, 4> kServerInstallApache{
    "Apache is the most widely used web server in the world due to its reliability. It's free "
    "and can be running on all MS Windows.",
    "You may download Apache from us by click on --> ", "&Download Apache",
    "During the Apache's installation, you will be asked to enter the domain name and server "
    "name."};
inline constexpr std::array<std::string_view, 4> kInstallIis{
    "Follow the instruction provided by Microsoft to install the MS IIS. After MS IIS "
    "installation completed click on Next to continue.",
    "You can quit from Korvane Configuration Wizard by clicking on Cancel button if the MS IIS "
    "installation requires to quit from all running applications. There will be no data lost at "
    "this point.",
    "The MS IIS installation can be tested with a browser using \"http://localhost/\" as a url, "
    "the default page should be displayed if the MS IIS has been installed properly.",
    "Note: The MS IIS personal version is not recommented because it only supports 5 concurrent "
    "accesses, which is far bellow the capacity of the Korvane."};
inline constexpr std::array<std::string_view, 3> kInstallOther{
    "Follow the instruction provided by the manufacture to install the web server. After the web "
    "server installation completed click on Next to continue.",
    "You can quit from Korvane Configuration Wizard by clicking on Cancel button if the web "
    "server installation requires to quit from all running applications. There will be no data "
    "lost at this point.",
    "The most of web server installation can be tested with a browser using "
    "\"http://localhost/\" as a url, the default page should be displayed if the web server has "
    "been installed properly."};
inline constexpr std::array<std::string_view, 6> kAccess{
    "Korvane can be configured to be accessed by typing either \"http://site_name\" or "
    "\"http://site_name/kv\" in a browser's address field.",
    "Choose one of the following options, and click on Next to continue.",
    kUrlDefault,
    kUrlKv,
    "For more information about these options, click on --> ",
    "&Help"};
inline constexpr std::array<std::string_view, 7> kApacheFolders{
    kEnterFolders, kHomeApacheEmpty, kScriptsApacheEmpty, kMoreAboutFolders, "&Help",
    kBrowse,       kBrowse};
inline constexpr std::array<std::string_view, 7> kIisFolders{
    kEnterFolders, kHomeIisEmpty, kScriptsIisEmpty, kMoreAboutFolders, "&Help", kBrowse, kBrowse};
inline constexpr std::array<std::string_view, 6> kOtherFolders{
    kEnterFolders,
    "Enter the full path / name of documnet root, or click on [...] to find it",
    "Enter the full path / name of cgi-bin, or click on the button [...] to find it",
    "Read web server's documnetation to get more information about these folders ",
    kBrowse,
    kBrowse};
inline constexpr std::array<std::string_view, 1> kWritingConfirm{kConfirmWriting};
inline constexpr std::array<std::string_view, 1> kFinished{kCompleted};
inline constexpr std::array<std::string_view, 1> kStartFailed{"Help"};
inline constexpr std::array<std::string_view, 2> kUpgradeFailed{kUpgradeUnavailable, "Help"};
inline constexpr std::array<std::string_view, 3> kActionNew{
    "Click on New, or Upgrading to continue, click on Back to previous, or click on Cancel to "
    "exit",
    kNewLabel, kUpgradeLabel};
inline constexpr std::array<std::string_view, 4> kActionModify{
    "Click on Midify, Backup, or Delete to continue, click on Back to previous, or click on "
    "Cancel to exit",
    kModifyLabel, kBackupLabel, kDeleteLabel};
inline constexpr std::array<std::string_view, 5> kAddress{
    "Enter the IP address and Port settings of your web site, these are optional settings.",
    "Enter the IP address if the web server listen to specified IP address:",
    "Enter the Port if the web server listen to a Port other than 80:",
    "For more information about these settings, click on --> ", "Help"};

}  // namespace texts

}  // namespace kv::endtoend
