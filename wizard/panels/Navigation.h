// The walk through the panels: what Next, Back, Cancel, Finish and the action panel's buttons do.
#pragma once

#include <cstdint>

#include "wizard/panels/ActionPanel.h"
#include "wizard/panels/Deciders.h"
#include "wizard/panels/InputChecks.h"

namespace kv {

class MessageBoxes;
class frmWebConfig;
class modWebCfgProcess;
struct WizardState;

class Navigation {
public:
    // Connects the window's buttons.
    Navigation(frmWebConfig& form, WizardState& state, Deciders& deciders, InputChecks& checks,
               ActionPanel& actionPanel, modWebCfgProcess& process, MessageBoxes& messageBoxes);
    Navigation(const Navigation&) = delete;
    Navigation& operator=(const Navigation&) = delete;

    void next();
    void back();
    void cancel();
    void finish();

    // Shows the panel on top of the history, alone, with the buttons as its row says.
    void showCurrentPanel();

private:
    std::int16_t currentPanel() const;
    void push(Panel panel);

    void startNew();
    void startModification();
    void confirm(std::int16_t actionKind);
    void startUpgrade();

    frmWebConfig& form_;
    WizardState& state_;
    Deciders& deciders_;
    InputChecks& checks_;
    ActionPanel& actionPanel_;
    modWebCfgProcess& process_;
    MessageBoxes& messageBoxes_;
};

}  // namespace kv
