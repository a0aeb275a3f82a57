#include "wizard/panels/Deciders.h"

#include "process/Existence.h"
#include "process/ShellServices.h"
#include "wizard/controls/MessageBoxes.h"
#include "wizard/form/ServerKind.h"
#include "wizard/form/frmWebConfig.h"
#include "wizard/form/modWebCfgVariables.h"
#include "wizard/panels/ActionPanel.h"

namespace kv {
namespace {

bool serverIsInstalled(const frmWebConfig& form) {
    for (const ServerKind& kind : serverKinds())
        if ((form.*kind.installed).value()) return true;
    return false;
}

}  // namespace

Deciders::Deciders(frmWebConfig& form, WizardState& state, ActionPanel& actionPanel,
                   ShellServices& shellServices, FileSystem& fileSystem, MessageBoxes& messageBoxes)
    : form_(form),
      state_(state),
      actionPanel_(actionPanel),
      shellServices_(shellServices),
      fileSystem_(fileSystem),
      messageBoxes_(messageBoxes) {}

std::int16_t Deciders::decideWelcome() {
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

std::int16_t Deciders::decideServerInstalled() {
    if (serverIsInstalled(form_)) return kPanelAccessKorvane;
    if (form_.optInstalledNothing.value()) return kPanelServerInstall;
    return stayWith("Please select one of four choices.");
}

std::int16_t Deciders::decideServerToInstall() {
    const ServerKind* kind = serverKindToInstall(form_);
    return kind != nullptr ? kind->installPanel : stayWith("Please select one of four options.");
}

std::int16_t Deciders::decideUrlStyle() {
    if (!form_.optUrlDefault.value() && !form_.optUrlKv.value())
        return stayWith("Please select one of two options.");

    const ServerKind* kind = chosenServerKind(form_);
    if (kind == nullptr) return kPanelWelcome;
    prepare(kind->home);
    prepare(kind->scripts);
    return kind->folderPanel;
}

std::int16_t Deciders::stayWith(const char* message) {
    messageBoxes_.information(message);
    return kStay;
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
