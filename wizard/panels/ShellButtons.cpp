#include "wizard/panels/ShellButtons.h"

#include <iterator>
#include <vector>

#include "process/ShellServices.h"
#include "wizard/form/ServerKind.h"
#include "wizard/form/frmWebConfig.h"

namespace kv {
namespace {

constexpr HelpButton kHelpButtons[] = {
    {&frmWebConfig::cmdHelpUpgrade, "/support/kvdocs/kvupgrade.html"},
    {&frmWebConfig::cmdHelpUrl, "/support/kvdocs/kvurl.html"},
    {&frmWebConfig::cmdHelpWebsiteIP, "/support/kvdocs/kvwebip.html"},
};

// With those of the server kinds.
std::vector<HelpButton> everyHelpButton() {
    std::vector<HelpButton> all(std::begin(kHelpButtons), std::end(kHelpButtons));
    for (const ServerKind& kind : serverKinds())
        if (kind.help.button != nullptr) all.push_back(kind.help);
    return all;
}

}  // namespace

void connectShellButtons(frmWebConfig& form, ShellServices& services) {
    const std::vector<HelpButton> helpButtons = everyHelpButton();
    for (const HelpButton& help : helpButtons)
        (form.*help.button).onClick = [&services, page = help.page] {
            services.openHelpPage(page);
        };
    // Of the help buttons at most one is in reach, and the others ignore the click.
    form.onHelp = [&form, helpButtons] {
        for (const HelpButton& help : helpButtons) (form.*help.button).click();
    };
    for (const ServerKind& kind : serverKinds())
        for (const FolderField& field : {kind.home, kind.scripts})
            (form.*field.browse).onClick = [&services, &box = form.*field.box] {
                services.wcpBrowseIntoTextBox(box);
            };
    form.cmdDownloadApache.onClick = [&services] { services.wcpOpenApacheDownloadPage(); };
}

}  // namespace kv
