// Records installations: the installation information file below the program's folder, and a copy
// with the home folder alone below the web server's scripts folder.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/modKvIO.h"
#include "config/ConfigurationFormat.h"
#include "config/InstallationRecord.h"

namespace kv {

class FileSystem;
class frmWebConfig;
class modKvIOCfg;
struct WizardState;

// The version in the header of every configuration file that the wizard writes.
inline constexpr const char* InstallFileVersion = "1.3.0";

// Sets T, V, P and D1 of a header; D2 to D8 become 0.
void wcpConfigHeaderSet(CfgHeader& header, std::int32_t type, std::int16_t propertyCount,
                        std::int16_t rowCount);

// The writers return the result of iocCfgWriteFile, 0 on success. Folders are given without a
// trailing backslash.
class InstallationSettings {
public:
    InstallationSettings(const frmWebConfig& form, WizardState& state, modKvIOCfg& configuration,
                         FileSystem& fileSystem);
    InstallationSettings(const InstallationSettings&) = delete;
    InstallationSettings& operator=(const InstallationSettings&) = delete;

    // Counts one entry more and writes it after those that were read. Throws Overflow when the
    // entries exceed what the file's 16-bit counts hold.
    int wcpConfigInstallWriteNew(const std::string& productFolder, const std::string& homeFolder,
                                 const std::string& scriptsFolder);

    // Replaces the file by one with this single entry.
    int wcpConfigInstallWriteModify(const std::string& productFolder, const std::string& homeFolder,
                                    const std::string& scriptsFolder);

    // Replaces the file by one without entries.
    int wcpConfigInstallWriteDelete();

    // Replaces the copy in the scripts folder, whose kv\kvi must exist.
    int wcpConfigInstallWriteScripts(const std::string& homeFolder,
                                     const std::string& scriptsFolder);

private:
    InstallEntry newEntry(const std::string& productFolder, const std::string& homeFolder,
                          const std::string& scriptsFolder) const;
    std::string installationFolder() const;
    int write(const std::string& folder, const std::vector<std::string>& data,
              std::int16_t rowCount, OldBytes oldBytes);

    const frmWebConfig& form_;
    WizardState& state_;
    modKvIOCfg& configuration_;
    FileSystem& fileSystem_;
};

}  // namespace kv
