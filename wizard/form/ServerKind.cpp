#include "wizard/form/ServerKind.h"

#include "wizard/form/frmWebConfig.h"

namespace kv {
namespace {

using Form = frmWebConfig;

constexpr ServerKind kServerKinds[] = {
    {
        .code = "1",
        .chosenBy = {&Form::optInstalledApache, &Form::optInstallingApache,
                     &Form::optInstallingAnyone},
        .restoredAs = &Form::optInstalledApache,
        .home = {&Form::txtFolderHomeApache, &Form::lblFolderHomeApache,
                 R"(C:\Program Files\Apache Group\Apache2\htdocs)",
                 "If the Document Root is incorrect, please click on [...] to find it",
                 "Enter full path / name for document root, or click on [...] to find it"},
        .scripts = {&Form::txtFolderScriptsApache, &Form::lblFolderScriptsApache,
                    R"(C:\Program Files\Apache Group\Apache2\cgi-bin)",
                    "If the cgi-bin folder is incorrect, please click on [...] to find it",
                    "Enter full path / name for cgi-bin folder, or click on [...] to find it"},
        .panel = kPanelApacheFolders,
        .makesScriptsFolder = false,
    },
    {
        .code = "0",
        .chosenBy = {&Form::optInstalledIIS, &Form::optInstallingIIS, nullptr},
        .restoredAs = &Form::optInstalledIIS,
        .home = {&Form::txtFolderHomeIIS, &Form::lblFolderHomeIIS, R"(C:\Inetpub\wwwroot)",
                 "If the Home directory is incorrect, please click on [...] to find it",
                 "Enter full path / name for Home directory, or click on [...] to find it"},
        .scripts = {&Form::txtFolderScriptsIIS, &Form::lblFolderScriptsIIS, R"(C:\Inetpub\scripts)",
                    "If the Scripts folder is incorrect, please click on [...] to find it",
                    "Enter full path / name for Scripts directory, or click on [...] to find it"},
        .panel = kPanelIISFolders,
        .makesScriptsFolder = true,
    },
    {
        .code = "2",
        .chosenBy = {&Form::optInstalledOther, &Form::optInstallingOther, nullptr},
        .restoredAs = &Form::optInstalledOther,
        .home = {&Form::txtFolderHomeOthers, &Form::lblFolderHomeOthers, "", "", ""},
        .scripts = {&Form::txtFolderScriptsOthers, &Form::lblFolderScriptsOthers, "", "", ""},
        .panel = kPanelOthersFolders,
        .makesScriptsFolder = false,
    },
};

}  // namespace

std::span<const ServerKind> serverKinds() noexcept { return kServerKinds; }

const ServerKind* chosenServerKind(const frmWebConfig& form) noexcept {
    for (const ServerKind& kind : kServerKinds) {
        for (const auto option : kind.chosenBy)
            if (option != nullptr && (form.*option).value()) return &kind;
    }
    return nullptr;
}

}  // namespace kv
