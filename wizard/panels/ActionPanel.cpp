#include "wizard/panels/ActionPanel.h"

#include "common/RunTimeError.h"
#include "common/Text.h"
#include "process/Existence.h"
#include "process/ExistingInstallation.h"
#include "wizard/form/ServerKind.h"
#include "wizard/form/frmWebConfig.h"
#include "wizard/form/modWebCfgVariables.h"

namespace kv {
namespace {

using Form = frmWebConfig;

struct ActionRow {
    CommandButton Form::*button;
    Label Form::*label;
    Twips buttonTop;
    Twips labelTop;
    ActionPanelKind shownIn;
};

constexpr Twips kButtonLeft = 720;
constexpr Twips kLabelLeft = 1680;

constexpr ActionRow kActions[] = {
    {&Form::cmdNew, &Form::lblNew, 1800, 2040, kActionPanelNewOrUpgrade},
    {&Form::cmdUpgrade, &Form::lblUpgrade, 3120, 3360, kActionPanelNewOrUpgrade},
    {&Form::cmdModify, &Form::lblModify, 1680, 1920, kActionPanelModifyBackupOrDelete},
    {&Form::cmdBackup, &Form::lblBackup, 2520, 2760, kActionPanelModifyBackupOrDelete},
    {&Form::cmdDelete, &Form::lblDelete, 3360, 3600, kActionPanelModifyBackupOrDelete},
};

struct Variant {
    ActionPanelKind kind;
    std::string_view title;
    std::string_view instruction;
};

constexpr Variant kVariants[] = {
    {kActionPanelNewOrUpgrade, "New or Upgrading",
     "Click on New, or Upgrading to continue, click on Back to previous, or click on Cancel to "
     "exit"},
    {kActionPanelModifyBackupOrDelete, "Modification, Backing Up, or Deletion",
     "Click on Midify, Backup, or Delete to continue, click on Back to previous, or click on "
     "Cancel to exit"},
};

void show(Form& form, const ActionRow& row, bool shown) {
    (form.*row.button).setEnabled(shown);
    (form.*row.button).setVisible(shown);
    (form.*row.label).setVisible(shown);
}

void moveTo(Control& control, Twips left, Twips top) {
    control.setBox({left, top, control.box().width, control.box().height});
}

}  // namespace

ActionPanel::ActionPanel(frmWebConfig& form, WizardState& state, ExistingInstallation& installation)
    : form_(form), state_(state), installation_(installation) {}

void ActionPanel::layOut() {
    for (const ActionRow& row : kActions) {
        moveTo(form_.*row.button, kButtonLeft, row.buttonTop);
        moveTo(form_.*row.label, kLabelLeft, row.labelTop);
        show(form_, row, false);
    }
}

void ActionPanel::setUp() {
    for (const Variant& variant : kVariants) {
        if (variant.kind != state_.ActionPanelKind) continue;
        for (const ActionRow& row : kActions) show(form_, row, row.shownIn == variant.kind);
        form_.lblDescription13.setCaption(variant.title);
        form_.picPanel[kPanelAction].setAccessibleName(variant.title);
        form_.lblInstruction13.setCaption(variant.instruction);
    }
}

void ActionPanel::setConfirmationText() {
    switch (state_.ActionKind) {
        case kActionNew:
        case kActionModify:
        case kActionUpgrade: form_.lblInstruction10.setCaption(texts::kConfirmWriting); break;
        case kActionBackup: form_.lblInstruction10.setCaption(texts::kConfirmBackup); break;
        case kActionDelete: form_.lblInstruction10.setCaption(texts::kConfirmDeletion); break;
        default: break;
    }
}

void ActionPanel::setErrorText() {
    const bool upgrade = state_.ActionKind == kActionUpgrade;
    form_.lblErrInstruction.setCaption(upgrade ? texts::kErrorUpgrade : texts::kErrorSupport);
    form_.cmdHelpUpgrade.setEnabled(upgrade);
    form_.cmdHelpUpgrade.setVisible(upgrade);
}

void ActionPanel::fillPanels() {
    const auto& entry = elementAt(state_.InstallEntries, 0).fields;
    for (const ServerKind& kind : serverKinds()) {
        if (kind.code != entry[kEntryServerKind]) continue;
        (form_.*kind.installed).setValue(true);
        (form_.*kind.home.box).setText(splitPath(entry[kEntryHomeFolder], state_.leadBytes).parent);
        (form_.*kind.scripts.box)
            .setText(splitPath(entry[kEntryScriptsFolder], state_.leadBytes).parent);
    }
    if (entry[kEntryUrlStyle] == "0") form_.optUrlDefault.setValue(true);
    if (entry[kEntryUrlStyle] == "1") form_.optUrlKv.setValue(true);
    form_.txtWebsiteIP.setText(entry[kEntryWebsiteIP]);
    form_.txtWebsitePort.setText(entry[kEntryWebsitePort]);
}

bool ActionPanel::readEarlierConfiguration() {
    return installation_.wcpConfigInstallRead(joinPath(state_.ProductFolder, "cfg\\original"),
                                              "bak") == 0;
}

}  // namespace kv
