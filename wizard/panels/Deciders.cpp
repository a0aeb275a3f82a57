#include "wizard/panels/Deciders.h"

#include "common/RunTimeError.h"
#include "common/Text.h"
#include "process/Existence.h"
#include "process/ShellServices.h"
#include "wizard/controls/MessageBoxes.h"
#include "wizard/form/ServerKind.h"
#include "wizard/form/frmWebConfig.h"
#include "wizard/form/modWebCfgVariables.h"
#include "wizard/panels/ActionPanel.h"

namespace kv {

Deciders::Deciders(frmWebConfig& form, WizardState& state, ActionPanel& actionPanel,
                   ShellServices& shellServices, FileSystem& fileSystem, MessageBoxes& messageBoxes)
    : form_(form),
      state_(state),
      actionPanel_(actionPanel),
      shellServices_(shellServices),
      fileSystem_(fileSystem),
      messageBoxes_(messageBoxes) {}

bool Deciders::choiceMade(std::int16_t panel) {
    const std::string_view message = elementAt(kPanels, panel).choiceMissing;
    if (message.empty() || form_.chosenOption(elementAt(form_.picPanel, panel)) != nullptr)
        return true;
    messageBoxes_.information(std::string(message));
    return false;
}

Panel Deciders::panelAfter(const PanelRow& row) {
    if (const Panel* panel = std::get_if<Panel>(&row.next)) return *panel;
    switch (std::get<Decision>(row.next)) {
        case Decision::Action: return decideAction();
        case Decision::ServerInstalled: return decideServerInstalled();
        case Decision::ServerToInstall: return decideServerToInstall();
        case Decision::ServerFolders: break;
    }
    return decideServerFolders();
}

Panel Deciders::decideAction() {
    if (state_.InstallEntryCount != 0) {
        state_.ActionPanelKind = kActionPanelModifyBackupOrDelete;
    } else if (wcpFileMissing(fileSystem_, joinPath(state_.ProductFolder, "cfg", "original"),
                              "korvane.bak")) {
        state_.ActionKind = kActionNew;
        return kPanelServerExist;
    } else {
        state_.ActionPanelKind = kActionPanelNewOrUpgrade;
    }
    actionPanel_.setUp();
    return kPanelAction;
}

Panel Deciders::decideServerInstalled() const {
    return form_.optInstalledNothing.value() ? kPanelServerInstall : kPanelAccessKorvane;
}

Panel Deciders::decideServerToInstall() const {
    const ServerKind* kind = serverKindToInstall(form_);
    return kind != nullptr ? kind->installPanel : kPanelWelcome;
}

Panel Deciders::decideServerFolders() {
    const ServerKind* kind = chosenServerKind(form_);
    if (kind == nullptr) return kPanelWelcome;
    prepare(kind->home);
    prepare(kind->scripts);
    return kind->folderPanel;
}

// Proposes the field's default folder, if it has one, and tells by its label what to do next.
void Deciders::prepare(const FolderField& field) {
    if (field.defaultPath.empty()) return;
    TextBox& box = form_.*field.box;
    shellServices_.wcpSuggestFolderOnDrive(box, field.defaultPath);
    (form_.*field.label)
        .setCaption(box.text().empty() ? field.textWhenEmpty : field.textWhenFilled);
}

}  // namespace kv
