// The whole wizard, wired once, in the order of its dependencies. Windows and the tests give it
// the window's controls and the outside world.
#pragma once

#include "common/Patience.h"
#include "common/modCmnLog.h"
#include "common/modKvIO.h"
#include "config/modKvIOCfg.h"
#include "process/ExistingInstallation.h"
#include "process/FolderCheck.h"
#include "process/ShellServices.h"
#include "process/modWebCfgProcess.h"
#include "wizard/form/modWebCfgVariables.h"
#include "wizard/panels/ActionPanel.h"
#include "wizard/panels/Deciders.h"
#include "wizard/panels/InputChecks.h"
#include "wizard/panels/Navigation.h"
#include "wizard/panels/StartUp.h"

namespace kv {

class Clock;
class FileSystem;
class MessageBoxes;
class Shell;
class frmWebConfig;

class Program {
public:
    // Everything handed in must outlive the program.
    Program(frmWebConfig& form, const ProgramPlace& place, FileSystem& fileSystem,
            const Clock& clock, Shell& shell, MessageBoxes& messageBoxes);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // Start-up; afterwards the window shows its first panel.
    void load();

    const WizardState& state() const noexcept { return state_; }

private:
    ProgramPlace place_;
    WizardState state_;
    Patience patience_;
    modCmnLog log_;
    modKvIO io_;
    modKvIOCfg configuration_;
    ExistingInstallation installation_;
    FolderCheck folderCheck_;
    ShellServices shellServices_;
    modWebCfgProcess process_;
    ActionPanel actionPanel_;
    Deciders deciders_;
    InputChecks inputChecks_;
    Navigation navigation_;
    StartUp startUp_;
};

}  // namespace kv
