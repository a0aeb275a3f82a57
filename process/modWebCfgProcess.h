// The operations that the wizard runs on its finish panel. An operation goes through all of its
// steps whatever fails, and always ends by reporting completion; a progress line that stops short
// tells of a failed settings file, and the log of everything else.
#pragma once

#include <string_view>

#include "process/ConfigUpgrade.h"
#include "process/DeployedFiles.h"
#include "process/InstallationSettings.h"
#include "process/ProgressLine.h"

namespace kv {

class FileSystem;
class Patience;
class frmWebConfig;
class modCmnLog;
class modKvIO;
class modKvIOCfg;
struct WizardState;

class modWebCfgProcess {
public:
    modWebCfgProcess(frmWebConfig& form, WizardState& state, modKvIO& io, modKvIOCfg& configuration,
                     FileSystem& fileSystem, modCmnLog& log, Patience& patience);
    modWebCfgProcess(const modWebCfgProcess&) = delete;
    modWebCfgProcess& operator=(const modWebCfgProcess&) = delete;

    // Runs the operation that ActionKind names; any other value does nothing.
    void wcpRunAction();

    // Deploys the product into the folders chosen in the window and records the installation.
    void wcpNewInstallation();

    // Removes what was deployed into the folders of the first installation entry, deploys into
    // those chosen in the window and records the new ones. Throws SubscriptOutOfRange, with no
    // file touched, when there is no entry; so do the deletion and the upgrade.
    void wcpModifyInstallation();

    // Removes what was deployed into the recorded folders, and the record.
    void wcpDeleteInstallation();

    // Copies the configuration files to cfg\original.
    void wcpBackupConfiguration();

    // Deploys newer programs into the recorded folders and brings the saved configuration back.
    void wcpConfigUpgrade();

private:
    void begin(std::string_view title);
    void stage(std::string_view text);
    void end(std::string_view title, std::string_view instruction);

    frmWebConfig& form_;
    WizardState& state_;
    modKvIO& io_;
    Patience& patience_;
    ProgressLine progress_;
    DeployedFiles deployed_;
    InstallationSettings settings_;
    ConfigUpgrade upgrade_;
};

}  // namespace kv
