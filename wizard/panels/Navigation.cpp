#include "wizard/panels/Navigation.h"

#include "common/Numbers.h"
#include "common/RunTimeError.h"
#include "process/modWebCfgProcess.h"
#include "wizard/controls/MessageBoxes.h"
#include "wizard/form/frmWebConfig.h"
#include "wizard/form/modWebCfgVariables.h"

namespace kv {
namespace {

void setButtonState(CommandButton& button, const ButtonState& state) {
    button.setEnabled(state.enabled);
    button.setDefault(state.isDefault);
    button.setVisible(state.visible);
}

void hideControl(Control& control) {
    control.setEnabled(false);
    control.setVisible(false);
}

void hideAllPanels(frmWebConfig& form) {
    for (std::size_t i = 0; i < kPanelCount; ++i) {
        hideControl(form.picPanel[i]);
        hideControl(form.lblPanelID[i]);
    }
}

// A screen reader names a panel by its title.
void namePanel(const frmWebConfig& form, PictureBox& panel) {
    for (const Control* control : form.controls()) {
        if (control->parent() != &panel || control->kind() != ControlKind::Label) continue;
        const Font font = static_cast<const Label*>(control)->font();
        if (font == Font::Title || font == Font::Welcome)
            panel.setAccessibleName(control->caption());
    }
}

void placePanel(PictureBox& panel) {
    panel.setBox(kPanelBox);
    panel.setEnabled(true);
    panel.setVisible(true);
}

bool takesInput(const Control& control) {
    return control.kind() == ControlKind::TextBox || control.kind() == ControlKind::OptionButton;
}

// Where the keyboard goes on a panel: to the chosen option or else the first field, on a panel
// without fields to the default button, and to the first button where there is no default.
Control& firstFocus(frmWebConfig& form, const PictureBox& panel) {
    Control* field = nullptr;
    Control* defaultButton = nullptr;
    Control* button = nullptr;
    for (Control* control : form.controls()) {
        if (!control->reachable()) continue;
        if (control->parent() == &panel && takesInput(*control)) {
            const bool chosen = control->kind() == ControlKind::OptionButton &&
                                static_cast<OptionButton*>(control)->value();
            if (chosen) return *control;
            if (field == nullptr) field = control;
        }
        if (control->kind() != ControlKind::CommandButton) continue;
        if (static_cast<CommandButton*>(control)->isDefault()) defaultButton = control;
        if (button == nullptr) button = control;
    }
    if (field != nullptr) return *field;
    if (defaultButton != nullptr) return *defaultButton;
    return button != nullptr ? *button : form.cmdCancel;
}

}  // namespace

Navigation::Navigation(frmWebConfig& form, WizardState& state, Deciders& deciders,
                       InputChecks& checks, ActionPanel& actionPanel, modWebCfgProcess& process,
                       MessageBoxes& messageBoxes)
    : form_(form),
      state_(state),
      deciders_(deciders),
      checks_(checks),
      actionPanel_(actionPanel),
      process_(process),
      messageBoxes_(messageBoxes) {
    form_.cmdNext.onClick = [this] { next(); };
    form_.cmdBack.onClick = [this] { back(); };
    form_.cmdCancel.onClick = [this] { cancel(); };
    form_.cmdFinish.onClick = [this] { finish(); };
    form_.cmdNew.onClick = [this] { startNew(); };
    form_.cmdModify.onClick = [this] { startModification(); };
    form_.cmdDelete.onClick = [this] { confirm(kActionDelete); };
    form_.cmdBackup.onClick = [this] { confirm(kActionBackup); };
    form_.cmdUpgrade.onClick = [this] { startUpgrade(); };
}

void Navigation::next() {
    const std::int16_t panel = nextPanel(currentPanel());
    if (panel == kStay) return;
    if (panel == kPanelFinish) form_.cmdFinish.setLeft(kFinishInPlaceOfNext);
    push(panel);
    if (panel != kPanelFinish) return;
    process_.wcpRunAction();
    form_.setFocus(form_.cmdFinish);
}

void Navigation::back() {
    elementAt(state_.PanelHistory, state_.PanelHistoryIndex) = kEmptyPanel;
    state_.PanelHistoryIndex = checkedInt16(state_.PanelHistoryIndex - 1);
    showCurrentPanel();
}

void Navigation::cancel() {
    if (messageBoxes_.yesNoDefaultNo(std::string(texts::kCancelQuestion))) form_.close();
}

void Navigation::finish() { form_.close(); }

void Navigation::showCurrentPanel() {
    const std::int16_t panel = currentPanel();
    const PanelRow& row = elementAt(kPanels, panel);
    setButtonState(form_.cmdNext, row.next);
    setButtonState(form_.cmdBack, row.back);
    setButtonState(form_.cmdCancel, row.cancel);
    setButtonState(form_.cmdFinish, row.finish);

    hideAllPanels(form_);
    PictureBox& current = elementAt(form_.picPanel, panel);
    namePanel(form_, current);
    placePanel(current);
    // The last panel's button gets it when the operation has been done.
    if (panel != kPanelFinish) form_.setFocus(firstFocus(form_, current));
}

std::int16_t Navigation::currentPanel() const {
    return elementAt(state_.PanelHistory, state_.PanelHistoryIndex);
}

std::int16_t Navigation::nextPanel(std::int16_t panel) {
    switch (panel) {
        case kPanelWelcome: return deciders_.decideWelcome();
        case kPanelServerExist: return deciders_.decideServerInstalled();
        case kPanelServerInstall: return deciders_.decideServerToInstall();
        case kPanelServerInstallApache:
        case kPanelInstallIIS:
        case kPanelInstallOtherServer: return kPanelAccessKorvane;
        case kPanelAccessKorvane: return deciders_.decideUrlStyle();
        case kPanelApacheFolders:
        case kPanelIISFolders:
        case kPanelOthersFolders:
            if (!checks_.foldersPass()) return kStay;
            return kPanelWebsite;
        case kPanelWebsite:
            if (!checks_.websitePasses()) return kStay;
            actionPanel_.setConfirmationText();
            return kPanelWritingConfirm;
        case kPanelWritingConfirm: return kPanelFinish;
        default: return kPanelWelcome;
    }
}

// Throws SubscriptOutOfRange when the history is full.
void Navigation::push(std::int16_t panel) {
    state_.PanelHistoryIndex = checkedInt16(state_.PanelHistoryIndex + 1);
    elementAt(state_.PanelHistory, state_.PanelHistoryIndex) = panel;
    showCurrentPanel();
}

void Navigation::startNew() {
    state_.ActionKind = kActionNew;
    push(kPanelServerExist);
}

void Navigation::startModification() {
    state_.ActionKind = kActionModify;
    actionPanel_.fillPanels();
    push(kPanelServerExist);
}

void Navigation::confirm(std::int16_t actionKind) {
    state_.ActionKind = actionKind;
    actionPanel_.setConfirmationText();
    push(kPanelWritingConfirm);
}

void Navigation::startUpgrade() {
    state_.ActionKind = kActionUpgrade;
    if (actionPanel_.readEarlierConfiguration()) {
        confirm(kActionUpgrade);
        return;
    }
    // There is no way back from the error: it takes the action panel's place.
    elementAt(state_.PanelHistory, state_.PanelHistoryIndex) = kPanelError;
    actionPanel_.setErrorText();
    form_.cmdFinish.setLeft(kFinishInPlaceOfNext);
    showCurrentPanel();
}

}  // namespace kv
