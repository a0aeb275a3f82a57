// The window's start: where the program lies, what is installed, which panel comes first.
#pragma once

#include <string>

#include "common/Text.h"

namespace kv {

class ActionPanel;
class ExistingInstallation;
class Navigation;
class frmWebConfig;
class modCmnLog;
struct WizardState;

// The running program's own folder and its file's base name, as the system reports them.
struct ProgramPlace {
    std::string folder;
    std::string baseName;
    LeadBytes leadBytes = {};  // of the code page of both
};

class StartUp {
public:
    StartUp(frmWebConfig& form, WizardState& state, ActionPanel& actionPanel,
            ExistingInstallation& installation, Navigation& navigation, modCmnLog& log);
    StartUp(const StartUp&) = delete;
    StartUp& operator=(const StartUp&) = delete;

    // Opens the Welcome panel, or the error panel when the installation information cannot be
    // read. Throws InvalidProcedureCall for a place without a drive.
    void load(const ProgramPlace& place);

private:
    frmWebConfig& form_;
    WizardState& state_;
    ActionPanel& actionPanel_;
    ExistingInstallation& installation_;
    Navigation& navigation_;
    modCmnLog& log_;
};

}  // namespace kv
