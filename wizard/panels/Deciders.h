// The decisions that the panels' options take: which panel comes next.
#pragma once

#include "wizard/form/PanelTable.h"

namespace kv {

class ActionPanel;
class FileSystem;
class MessageBoxes;
class ShellServices;
class frmWebConfig;
struct FolderField;
struct WizardState;

class Deciders {
public:
    Deciders(frmWebConfig& form, WizardState& state, ActionPanel& actionPanel,
             ShellServices& shellServices, FileSystem& fileSystem, MessageBoxes& messageBoxes);
    Deciders(const Deciders&) = delete;
    Deciders& operator=(const Deciders&) = delete;

    // Whether an option is on where the panel asks for one; if not, the user has been told.
    bool choiceMade(std::int16_t panel);

    // The panel that the row leads to.
    Panel panelAfter(const PanelRow& row);

private:
    Panel decideAction();
    Panel decideServerInstalled() const;
    Panel decideServerToInstall() const;
    Panel decideServerFolders();
    void prepare(const FolderField& field);

    frmWebConfig& form_;
    WizardState& state_;
    ActionPanel& actionPanel_;
    ShellServices& shellServices_;
    FileSystem& fileSystem_;
    MessageBoxes& messageBoxes_;
};

}  // namespace kv
