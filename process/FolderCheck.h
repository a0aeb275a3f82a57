// Checks of the folder fields, each with the message that tells what is wrong. A text without a
// "\" is no full path: the checks throw InvalidProcedureCall for it.
#pragma once

#include <cstdint>

#include "common/Text.h"

namespace kv {

class FileSystem;
class MessageBoxes;
class TextBox;

class FolderCheck {
public:
    // The bytes must stay as long as the check.
    FolderCheck(FileSystem& fileSystem, MessageBoxes& messageBoxes, const LeadBytes& leadBytes);
    FolderCheck(const FolderCheck&) = delete;
    FolderCheck& operator=(const FolderCheck&) = delete;

    // Both take one trailing "\" off the box's text and return 0, 1 for an empty box, or 2 when
    // the folder (its parent) does not exist.
    std::int16_t wcpCheckFolderPath(TextBox& box);
    std::int16_t wcpCheckParentFolderPath(TextBox& box);

private:
    enum class Tested { Folder, Parent };
    std::int16_t check(TextBox& box, Tested tested);

    FileSystem& fileSystem_;
    MessageBoxes& messageBoxes_;
    const LeadBytes& leadBytes_;
};

}  // namespace kv
