#include "wizard/form/frmWebConfig.h"

#include "wizard/form/ServerKind.h"

namespace kv {

frmWebConfig::frmWebConfig() : Form(texts::kTitle) {
    setCancelButton(cmdCancel);
    nameForScreenReaders();
}

// Where the caption is a picture or an ellipsis.
void frmWebConfig::nameForScreenReaders() {
    for (const ServerKind& kind : serverKinds())
        for (const FolderField& field : {kind.home, kind.scripts})
            (this->*field.browse).setAccessibleName(field.browseName);
    cmdNew.setAccessibleName("New installation");
    cmdUpgrade.setAccessibleName("Upgrade");
    cmdModify.setAccessibleName("Modify");
    cmdBackup.setAccessibleName("Backup");
    cmdDelete.setAccessibleName("Delete");
    lblProgress.setAccessibleName("Progress");
    lblProgress.setAccessibleValue("0%");
}

}  // namespace kv
