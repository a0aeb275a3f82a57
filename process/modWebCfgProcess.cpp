#include "process/modWebCfgProcess.h"

#include <string>

#include "common/Patience.h"
#include "common/modKvIO.h"
#include "process/Existence.h"
#include "wizard/form/frmWebConfig.h"
#include "wizard/form/modWebCfgVariables.h"

namespace kv {
namespace {

// Twips by which the progress line widens.
constexpr std::int16_t kProgressStep = 100;
constexpr std::int16_t kModificationStep = 50;  // it handles every item twice
constexpr std::int16_t kUpgradeStep = 300;
constexpr Twips kBackupStep = 1000;
constexpr Twips kSettingsStep = 100;
constexpr int kRestoreShare = 300;

namespace stages {
constexpr std::string_view kDeletingFiles = "Deleting files...";
constexpr std::string_view kDeletingFolders = "Deleting folders...";
constexpr std::string_view kMakingFolders = "Ceating folders...";
constexpr std::string_view kCopyingFiles = "Copying files...";
constexpr std::string_view kWritingSettings = "Writing settings to configuration file...";
constexpr std::string_view kBackingUp = "backing up files...";
constexpr std::string_view kRestoring = "Restoring data...";
}  // namespace stages

}  // namespace

modWebCfgProcess::modWebCfgProcess(frmWebConfig& form, WizardState& state, modKvIO& io,
                                   modKvIOCfg& configuration, FileSystem& fileSystem,
                                   modCmnLog& log, Patience& patience)
    : form_(form),
      state_(state),
      io_(io),
      patience_(patience),
      progress_(form),
      deployed_(form, state, io, fileSystem, progress_),
      settings_(form, state, configuration, fileSystem),
      upgrade_(io, configuration, log, progress_) {}

void modWebCfgProcess::wcpRunAction() {
    switch (state_.ActionKind) {
        case kActionNew: wcpNewInstallation(); break;
        case kActionModify: wcpModifyInstallation(); break;
        case kActionDelete: wcpDeleteInstallation(); break;
        case kActionBackup: wcpBackupConfiguration(); break;
        case kActionUpgrade: wcpConfigUpgrade(); break;
        default: break;
    }
}

void modWebCfgProcess::wcpNewInstallation() {
    std::string home, scripts;
    deployed_.wcpGetServerFolders(home, scripts);
    begin("Saving configuration settings");

    stage(stages::kMakingFolders);
    deployed_.wcpMakeFolders(home, scripts, kProgressStep);

    stage(stages::kCopyingFiles);
    deployed_.wcpCopyWebFiles(state_.ProductFolder, home, scripts, kProgressStep);

    stage(stages::kWritingSettings);
    if (settings_.wcpConfigInstallWriteNew(state_.ProductFolder, home, scripts) == 0)
        progress_.widen(kSettingsStep);
    if (settings_.wcpConfigInstallWriteScripts(home, scripts) == 0) progress_.complete();

    // From now on the product's help opens with its entry page.
    const std::string help = joinPath(state_.ProductFolder, "hlp", "eng");
    io_.ioCopyFile(joinPath(help, "kvhentryeng.html"), joinPath(help, "kvhexiteng.html"), false);
    end(texts::kCompleted, texts::kCompletedInstruction);
}

void modWebCfgProcess::wcpModifyInstallation() {
    std::string oldHome, oldScripts;
    deployed_.wcpGetInstalledFolders(oldHome, oldScripts, 0);
    std::string home, scripts;
    deployed_.wcpGetServerFolders(home, scripts);
    begin("Modifying configuration settings");

    stage(stages::kDeletingFiles);
    deployed_.wcpDeleteFiles(state_.ProductFolder, oldHome, oldScripts, kModificationStep);

    stage(stages::kDeletingFolders);
    deployed_.wcpDeleteFolders(oldHome, oldScripts, kModificationStep);

    stage(stages::kMakingFolders);
    deployed_.wcpMakeFolders(home, scripts, kModificationStep);

    stage(stages::kCopyingFiles);
    deployed_.wcpCopyWebFiles(state_.ProductFolder, home, scripts, kModificationStep);

    stage(stages::kWritingSettings);
    if (settings_.wcpConfigInstallWriteModify(state_.ProductFolder, home, scripts) == 0)
        progress_.widen(kSettingsStep);
    if (settings_.wcpConfigInstallWriteScripts(home, scripts) == 0) progress_.complete();
    end(texts::kCompleted, texts::kCompletedInstruction);
}

void modWebCfgProcess::wcpDeleteInstallation() {
    std::string home, scripts;
    deployed_.wcpGetInstalledFolders(home, scripts, 0);
    begin("Deleting configuration settings");

    stage(stages::kDeletingFiles);
    deployed_.wcpDeleteFiles(state_.ProductFolder, home, scripts, kProgressStep);

    stage(stages::kDeletingFolders);
    deployed_.wcpDeleteFolders(home, scripts, kProgressStep);

    stage(stages::kWritingSettings);
    if (settings_.wcpConfigInstallWriteDelete() == 0) progress_.complete();
    end(texts::kCompleted, texts::kCompletedInstruction);
}

void modWebCfgProcess::wcpBackupConfiguration() {
    // The title is that of the deletion: it has always been, and guides show it so.
    begin("Deleting configuration settings");

    stage(stages::kBackingUp);
    const std::string& product = state_.ProductFolder;
    const std::string original = joinPath(product, "cfg\\original");
    const auto save = [&](const std::string& source, std::string_view name) {
        io_.ioCopyFile(source, joinPath(original, name), false);
        progress_.widen(kBackupStep);
    };
    save(joinPath(state_.AppPath, "kvi", "kvi.cfg"), "kvi.bak");
    save(joinPath(product, "cfg\\general", "korvane.cfg"), "korvane.bak");
    save(joinPath(product, "cfg\\user\\dadmin", "kvadm.cfg"), "kvadm.bak");
    save(joinPath(product, "cfg\\user\\anony", "kvan.cfg"), "kvan.bak");
    progress_.complete();
    end("Configuration backup completed",
        "The configuration backup completed, click on Finish to exit.");
}

void modWebCfgProcess::wcpConfigUpgrade() {
    begin("Updating configuration settings");

    stage(stages::kCopyingFiles);
    std::string home, scripts;
    deployed_.wcpGetInstalledFolders(home, scripts, 0);
    deployed_.wcpCopyScriptFiles(state_.ProductFolder, scripts, kUpgradeStep);
    deployed_.wcpCopyLibraries(state_.ProductFolder, scripts, kUpgradeStep);

    stage(stages::kRestoring);
    upgrade_.wcpConfigRestore(state_.ProductFolder, kRestoreShare);
    progress_.complete();
    end(texts::kCompleted, texts::kCompletedInstruction);
}

void modWebCfgProcess::begin(std::string_view title) {
    patience_.renew();
    form_.cmdFinish.setEnabled(false);
    form_.lblFinishDescription.setCaption(title);
}

void modWebCfgProcess::stage(std::string_view text) { form_.lblFinishInstruction.setCaption(text); }

void modWebCfgProcess::end(std::string_view title, std::string_view instruction) {
    form_.lblFinishDescription.setCaption(title);
    form_.lblFinishInstruction.setCaption(instruction);
    form_.cmdFinish.setEnabled(true);
}

}  // namespace kv
