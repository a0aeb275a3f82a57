#include "wizard/panels/StartUp.h"

#include "common/RunTimeError.h"
#include "common/Text.h"
#include "common/modCmnLog.h"
#include "process/Existence.h"
#include "process/ExistingInstallation.h"
#include "wizard/form/frmWebConfig.h"
#include "wizard/form/modWebCfgVariables.h"
#include "wizard/panels/ActionPanel.h"
#include "wizard/panels/Navigation.h"

namespace kv {
namespace {

// The path from its drive letter on, without a prefix such as "\\?\".
std::string fromDriveLetter(const std::string& path) {
    const auto colon = path.find(":\\");
    if (colon == std::string::npos || colon == 0)
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    return path.substr(colon - 1);
}

}  // namespace

StartUp::StartUp(frmWebConfig& form, WizardState& state, ActionPanel& actionPanel,
                 ExistingInstallation& installation, Navigation& navigation, modCmnLog& log)
    : form_(form),
      state_(state),
      actionPanel_(actionPanel),
      installation_(installation),
      navigation_(navigation),
      log_(log) {}

void StartUp::load(const ProgramPlace& place) {
    state_.leadBytes = place.leadBytes;
    state_.AppPath = fromDriveLetter(place.folder);
    state_.ProductFolder = splitPath(state_.AppPath, state_.leadBytes).parent;
    log_.cmnLogSetFolder(joinPath(state_.ProductFolder, "log"));
    state_.PanelHistory.fill(kEmptyPanel);
    actionPanel_.layOut();
    state_.PanelHistoryIndex = 0;

    if (installation_.wcpConfigInstallRead(joinPath(state_.AppPath, "kvi"), "cfg") == 0) {
        state_.PanelHistory[0] = kPanelWelcome;
        form_.lblInstruction0.setCaption(state_.InstallEntryCount != 0 ? texts::kWelcomeExisting
                                                                       : texts::kWelcomeInitial);
    } else {
        state_.PanelHistory[0] = kPanelError;
    }
    navigation_.showCurrentPanel();
}

}  // namespace kv
