// The folders and files that an installation places under a web server's document root
// (HomeFolder) and scripts folder (ScriptsFolder). Each item is handled on its own: a failure is
// logged, the progress line widens all the same, and the next item follows.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace kv {

class FileSystem;
class ProgressLine;
class frmWebConfig;
class modKvIO;
struct WizardState;

class DeployedFiles {
public:
    DeployedFiles(const frmWebConfig& form, const WizardState& state, modKvIO& io,
                  FileSystem& fileSystem, ProgressLine& progress);
    DeployedFiles(const DeployedFiles&) = delete;
    DeployedFiles& operator=(const DeployedFiles&) = delete;

    // The folder fields of the chosen server kind, without blanks at their ends. With no kind
    // chosen the texts stay as they are.
    void wcpGetServerFolders(std::string& homeFolder, std::string& scriptsFolder) const;

    // The folders of the installation entry of that index; throws SubscriptOutOfRange when there
    // is none.
    void wcpGetInstalledFolders(std::string& homeFolder, std::string& scriptsFolder,
                                std::int16_t index) const;

    // `progressStep` is in twips and is taken once per item.
    void wcpMakeFolders(const std::string& homeFolder, const std::string& scriptsFolder,
                        std::int16_t progressStep);
    void wcpDeleteFolders(const std::string& homeFolder, const std::string& scriptsFolder,
                          std::int16_t progressStep);
    void wcpCopyWebFiles(const std::string& productFolder, const std::string& homeFolder,
                         const std::string& scriptsFolder, std::int16_t progressStep);
    void wcpCopyScriptFiles(const std::string& productFolder, const std::string& scriptsFolder,
                            std::int16_t progressStep);
    void wcpCopyLibraries(const std::string& productFolder, const std::string& scriptsFolder,
                          std::int16_t progressStep);
    void wcpDeleteFiles(const std::string& productFolder, const std::string& homeFolder,
                        const std::string& scriptsFolder, std::int16_t progressStep);

    // Makes parent\name unless it exists; returns the status of ioMakeDirectory, or 0.
    int wcpMakeFolderIfMissing(std::string_view parent, std::string_view name);

private:
    using Names = std::span<const std::string_view>;
    void copyEach(Names names, const std::string& from, const std::string& to,
                  std::int16_t progressStep);
    void deleteEach(Names names, const std::string& folder, std::int16_t progressStep);

    const frmWebConfig& form_;
    const WizardState& state_;
    modKvIO& io_;
    FileSystem& fileSystem_;
    ProgressLine& progress_;
};

}  // namespace kv
