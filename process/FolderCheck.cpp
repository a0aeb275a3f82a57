#include "process/FolderCheck.h"

#include <string>

#include "process/Existence.h"
#include "wizard/controls/Control.h"
#include "wizard/controls/MessageBoxes.h"

namespace kv {
namespace {

constexpr std::int16_t kExists = 0;
constexpr std::int16_t kEmpty = 1;
constexpr std::int16_t kMissing = 2;

}  // namespace

FolderCheck::FolderCheck(FileSystem& fileSystem, MessageBoxes& messageBoxes,
                         const LeadBytes& leadBytes)
    : fileSystem_(fileSystem), messageBoxes_(messageBoxes), leadBytes_(leadBytes) {}

std::int16_t FolderCheck::wcpCheckFolderPath(TextBox& box) { return check(box, Tested::Folder); }

std::int16_t FolderCheck::wcpCheckParentFolderPath(TextBox& box) {
    return check(box, Tested::Parent);
}

std::int16_t FolderCheck::check(TextBox& box, Tested tested) {
    if (trim(box.text()).empty()) {
        messageBoxes_.information("Please enter folder's full path name.");
        return kEmpty;
    }
    if (endsWithBackslash(box.text(), leadBytes_))
        box.setText(box.text().substr(0, box.text().size() - 1));

    std::string folder = box.text();
    if (tested == Tested::Parent) folder = std::string(splitPath(folder, leadBytes_).parent);
    const PathHalves path = splitPath(folder, leadBytes_);
    if (!wcpFolderMissing(fileSystem_, path.parent, path.name)) return kExists;

    messageBoxes_.information("\"" + folder + "\" does not exist.");
    return kMissing;
}

}  // namespace kv
