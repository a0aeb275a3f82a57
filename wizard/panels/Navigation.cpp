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

// On the last panels Finish takes the place of Next.
void setButtonStates(frmWebConfig& form, const PanelButtons& buttons) {
    if (buttons.finish.visible) form.cmdFinish.setLeft(kFinishInPlaceOfNext);
    setButtonState(form.cmdNext, buttons.next);
    setButtonState(form.cmdBack, buttons.back);
    setButtonState(form.cmdCancel, buttons.cancel);
    setButtonState(form.cmdFinish, buttons.finish);
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
    OptionButton* chosen = form.chosenOption(panel);
    if (chosen != nullptr && chosen->reachable()) return *chosen;

    Control* defaultButton = nullptr;
    Control* button = nullptr;
    for (Control* control : form.controls()) {
        if (!control->reachable()) continue;
        if (control->parent() == &panel && takesInput(*control)) return *control;
        if (control->kind() != ControlKind::CommandButton) continue;
        if (static_cast<CommandButton*>(control)->isDefault()) defaultButton = control;
        if (button == nullptr) button = control;
    }
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
    const PanelRow& row = elementAt(kPanels, currentPanel());
    if (!deciders_.choiceMade(currentPanel()) || !checks_.pass(row.check)) return;
    const Panel panel = deciders_.panelAfter(row);
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
    setButtonStates(form_, elementAt(kPanels, panel).buttons);
    hideAllPanels(form_);
    PictureBox& current = elementAt(form_.picPanel, panel);
    placePanel(current);
    // The last panel's button gets it when the operation has been done.
    if (panel != kPanelFinish) form_.setFocus(firstFocus(form_, current));
}

std::int16_t Navigation::currentPanel() const {
    return elementAt(state_.PanelHistory, state_.PanelHistoryIndex);
}

// Throws SubscriptOutOfRange when the history is full.
void Navigation::push(Panel panel) {
    if (panel == kPanelWritingConfirm) actionPanel_.setConfirmationText();
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
    showCurrentPanel();
}

}  // namespace kv
