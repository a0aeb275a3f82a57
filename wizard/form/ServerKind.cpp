#include "wizard/form/ServerKind.h"

#include "wizard/form/frmWebConfig.h"

namespace kv {
namespace {

using Form = frmWebConfig;

constexpr ServerKind kServerKinds[] = {
    {
        .code = "1",
        .installed = &Form::optInstalledApache,
        // No preference means Apache.
        .installing = {&Form::optInstallingApache, &Form::optInstallingAnyone},
        .installPanel = kPanelServerInstallApache,
        .folderPanel = kPanelApacheFolders,
        .home = {&Form::txtFolderHomeApache, &Form::lblFolderHomeApache, &Form::cmdFolderHomeApache,
                 "Browse for the document root", R"(C:\Program Files\Apache Group\Apache2\htdocs)",
                 "If the Document Root is incorrect, please click on [...] to find it",
                 "Enter full path / name for document root, or click on [...] to find it"},
        .scripts = {&Form::txtFolderScriptsApache, &Form::lblFolderScriptsApache,
                    &Form::cmdFolderScriptsApache, "Browse for the cgi-bin folder",
                    R"(C:\Program Files\Apache Group\Apache2\cgi-bin)",
                    "If the cgi-bin folder is incorrect, please click on [...] to find it",
                    "Enter full path / name for cgi-bin folder, or click on [...] to find it"},
        .help = {&Form::cmdHelpFolderApche, "/support/kvdocs/kvdapch.html"},
    },
    {
        .code = "0",
        .installed = &Form::optInstalledIIS,
        .installing = {&Form::optInstallingIIS},
        .installPanel = kPanelInstallIIS,
        .folderPanel = kPanelIISFolders,
        .home = {&Form::txtFolderHomeIIS, &Form::lblFolderHomeIIS, &Form::cmdFolderHomeIIS,
                 "Browse for the home directory", R"(C:\Inetpub\wwwroot)",
                 "If the Home directory is incorrect, please click on [...] to find it",
                 "Enter full path / name for Home directory, or click on [...] to find it"},
        .scripts = {&Form::txtFolderScriptsIIS, &Form::lblFolderScriptsIIS,
                    &Form::cmdFolderScriptsIIS, "Browse for the Scripts directory",
                    R"(C:\Inetpub\scripts)",
                    "If the Scripts folder is incorrect, please click on [...] to find it",
                    "Enter full path / name for Scripts directory, or click on [...] to find it"},
        .help = {&Form::cmdHelpFolderIIS, "/support/kvdocs/kvdiis.html"},
        .makesScriptsFolder = true,
    },
    {
        .code = "2",
        .installed = &Form::optInstalledOther,
        .installing = {&Form::optInstallingOther},
        .installPanel = kPanelInstallOtherServer,
        .folderPanel = kPanelOthersFolders,
        .home = {&Form::txtFolderHomeOthers, &Form::lblFolderHomeOthers, &Form::cmdFolderHomeOthers,
                 "Browse for the document root"},
        .scripts = {&Form::txtFolderScriptsOthers, &Form::lblFolderScriptsOthers,
                    &Form::cmdFolderScriptsOthers, "Browse for the cgi-bin folder"},
    },
};

// Whether one of the options that install the kind is on.
bool toBeInstalled(const ServerKind& kind, const Form& form) noexcept {
    for (const auto option : kind.installing)
        if (option != nullptr && (form.*option).value()) return true;
    return false;
}

}  // namespace

std::span<const ServerKind> serverKinds() noexcept { return kServerKinds; }

const ServerKind* chosenServerKind(const frmWebConfig& form) noexcept {
    for (const ServerKind& kind : kServerKinds)
        if ((form.*kind.installed).value() || toBeInstalled(kind, form)) return &kind;
    return nullptr;
}

const ServerKind* serverKindToInstall(const frmWebConfig& form) noexcept {
    for (const ServerKind& kind : kServerKinds)
        if (toBeInstalled(kind, form)) return &kind;
    return nullptr;
}

}  // namespace kv
