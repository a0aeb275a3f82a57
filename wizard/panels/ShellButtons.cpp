#include "wizard/panels/ShellButtons.h"

#include "process/ShellServices.h"
#include "wizard/form/frmWebConfig.h"

namespace kv {
namespace {

using Form = frmWebConfig;

struct HelpRow {
    CommandButton Form::*button;
    std::string_view page;
};

constexpr HelpRow kHelpButtons[] = {
    {&Form::cmdHelpFolderApche, kPageApacheFolders}, {&Form::cmdHelpFolderIIS, kPageIISFolders},
    {&Form::cmdHelpUpgrade, kPageUpgrade},           {&Form::cmdHelpUrl, kPageUrl},
    {&Form::cmdHelpWebsiteIP, kPageWebsiteIP},
};

struct BrowseRow {
    CommandButton Form::*button;
    TextBox Form::*box;
};

constexpr BrowseRow kBrowseButtons[] = {
    {&Form::cmdFolderHomeApache, &Form::txtFolderHomeApache},
    {&Form::cmdFolderScriptsApache, &Form::txtFolderScriptsApache},
    {&Form::cmdFolderHomeIIS, &Form::txtFolderHomeIIS},
    {&Form::cmdFolderScriptsIIS, &Form::txtFolderScriptsIIS},
    {&Form::cmdFolderHomeOthers, &Form::txtFolderHomeOthers},
    {&Form::cmdFolderScriptsOthers, &Form::txtFolderScriptsOthers},
};

}  // namespace

void connectShellButtons(frmWebConfig& form, ShellServices& services) {
    for (const HelpRow& row : kHelpButtons)
        (form.*row.button).onClick = [&services, page = row.page] { services.openHelpPage(page); };
    for (const BrowseRow& row : kBrowseButtons)
        (form.*row.button).onClick = [&services, &box = form.*row.box] {
            services.wcpBrowseIntoTextBox(box);
        };
    // Of the help buttons at most one is in reach, and the others ignore the click.
    form.onHelp = [&form] {
        for (const HelpRow& row : kHelpButtons) (form.*row.button).click();
    };
    form.cmdDownloadApache.onClick = [&services] { services.wcpOpenApacheDownloadPage(); };
}

}  // namespace kv
