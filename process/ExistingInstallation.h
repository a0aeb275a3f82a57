// Reads an installation information file into the wizard's state.
#pragma once

#include <string>
#include <vector>

namespace kv {

class modCmnLog;
class modKvIOCfg;
struct WizardState;

class ExistingInstallation {
public:
    ExistingInstallation(WizardState& state, modKvIOCfg& configuration, modCmnLog& log);
    ExistingInstallation(const ExistingInstallation&) = delete;
    ExistingInstallation& operator=(const ExistingInstallation&) = delete;

    // Reads folder\kvi.extension: its header and properties, and its data rows as installation
    // entries, seven rows each, as far as the file could be parsed. Returns 0 or the reader's
    // result; a file without a row count is a failure of this routine, logged under its name, and
    // leaves the entries as they were.
    int wcpConfigInstallRead(const std::string& folder, const std::string& extension) noexcept;

private:
    void takeEntries(const std::vector<std::string>& data);

    WizardState& state_;
    modKvIOCfg& configuration_;
    modCmnLog& log_;
};

}  // namespace kv
