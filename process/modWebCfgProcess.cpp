#include "process/modWebCfgProcess.h"

#include <string>

#include "common/modKvIO.h"
#include "process/Existence.h"
#include "wizard/form/frmWebConfig.h"
#include "wizard/form/modWebCfgVariables.h"

namespace kv {
namespace {

// Twips by which the progress line widens.
constexpr std::int16_t kProgressStep = 100;
constexpr Twips kSettingsStep = 100;

namespace stages {
constexpr std::string_view kMakingFolders = "Ceating folders...";
constexpr std::string_view kCopyingFiles = "Copying files...";
constexpr std::string_view kWritingSettings = "Writing settings to configuration file...";
}  // namespace stages

}  // namespace

modWebCfgProcess::modWebCfgProcess(frmWebConfig& form, WizardState& state, modKvIO& io,
                                   modKvIOCfg& configuration, FileSystem& fileSystem)
    : form_(form),
      state_(state),
      io_(io),
      progress_(form),
      deployed_(form, state, io, fileSystem, progress_),
      settings_(form, state, configuration, fileSystem) {}

void modWebCfgProcess::wcpRunAction() {
    switch (state_.ActionKind) {
        case kActionNew: wcpNewInstallation(); break;
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

void modWebCfgProcess::begin(std::string_view title) {
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
