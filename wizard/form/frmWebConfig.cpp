#include "wizard/form/frmWebConfig.h"

namespace kv {
namespace {

// Names for screen readers where the caption is a picture or an ellipsis.
struct NameRow {
    CommandButton frmWebConfig::*button;
    std::string_view name;
};

constexpr NameRow kNames[] = {
    {&frmWebConfig::cmdFolderHomeApache, "Browse for the document root"},
    {&frmWebConfig::cmdFolderScriptsApache, "Browse for the cgi-bin folder"},
    {&frmWebConfig::cmdFolderHomeIIS, "Browse for the home directory"},
    {&frmWebConfig::cmdFolderScriptsIIS, "Browse for the Scripts directory"},
    {&frmWebConfig::cmdFolderHomeOthers, "Browse for the document root"},
    {&frmWebConfig::cmdFolderScriptsOthers, "Browse for the cgi-bin folder"},
    {&frmWebConfig::cmdNew, "New installation"},
    {&frmWebConfig::cmdUpgrade, "Upgrade"},
    {&frmWebConfig::cmdModify, "Modify"},
    {&frmWebConfig::cmdBackup, "Backup"},
    {&frmWebConfig::cmdDelete, "Delete"},
};

}  // namespace

frmWebConfig::frmWebConfig() : Form(texts::kTitle) {
    setCancelButton(cmdCancel);
    for (const NameRow& row : kNames) (this->*row.button).setAccessibleName(row.name);
    lblProgress.setAccessibleName("Progress");
    lblProgress.setAccessibleValue("0%");
}

}  // namespace kv
