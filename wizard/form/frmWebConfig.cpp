#include "wizard/form/frmWebConfig.h"

#include "wizard/form/ServerKind.h"

namespace kv {

frmWebConfig::frmWebConfig() : Form(texts::kTitle) {
    setCancelButton(cmdCancel);
    nameForScreenReaders();
}

std::string frmWebConfig::elementName(std::string_view array, std::size_t index) {
    return std::string(array) + '(' + std::to_string(index) + ')';
}

// The panels by their titles, and what shows a picture, an ellipsis or nothing.
void frmWebConfig::nameForScreenReaders() {
    for (std::size_t i = 0; i < kPanelCount; ++i) picPanel[i].setAccessibleName(kPanels[i].title);
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
