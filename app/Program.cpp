#include "app/Program.h"

#include "wizard/form/frmWebConfig.h"
#include "wizard/panels/ShellButtons.h"

namespace kv {

Program::Program(frmWebConfig& form, const ProgramPlace& place, FileSystem& fileSystem,
                 const Clock& clock, Shell& shell, MessageBoxes& messageBoxes)
    : place_(place),
      patience_(clock),
      log_(fileSystem, clock, patience_, place.baseName),
      io_(fileSystem, log_, patience_),
      configuration_(io_, fileSystem, log_),
      installation_(state_, configuration_, log_),
      folderCheck_(fileSystem, messageBoxes, state_.leadBytes),
      shellServices_(shell, fileSystem),
      process_(form, state_, io_, configuration_, fileSystem, log_, patience_),
      actionPanel_(form, state_, installation_),
      deciders_(form, state_, actionPanel_, shellServices_, fileSystem, messageBoxes),
      inputChecks_(form, folderCheck_, messageBoxes),
      navigation_(form, state_, deciders_, inputChecks_, actionPanel_, process_, messageBoxes),
      startUp_(form, state_, actionPanel_, installation_, navigation_, log_) {
    connectShellButtons(form, shellServices_);
    form.onUnload = [this] {
        patience_.renew();
        log_.cmnLogFlush();
    };
}

void Program::load() { startUp_.load(place_); }

}  // namespace kv
