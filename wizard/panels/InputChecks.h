// The checks of what the user has typed: the folders, the IP address and the port.
#pragma once

#include <cstdint>

namespace kv {

class FolderCheck;
class MessageBoxes;
class TextBox;
class frmWebConfig;
enum class Check;

class InputChecks {
public:
    InputChecks(frmWebConfig& form, FolderCheck& folderCheck, MessageBoxes& messageBoxes);
    InputChecks(const InputChecks&) = delete;
    InputChecks& operator=(const InputChecks&) = delete;

    // Whether what the user has typed passes, as below.
    bool pass(Check check);

    // Whether the folders of the chosen server kind pass; the user has been told what does not, and
    // is back on the first field that does not.
    bool foldersPass();

    // Whether the IP address and the port pass. Both are optional and both are always checked; an
    // accepted text loses its blanks, a rejected one stays as typed.
    bool websitePasses();

private:
    using FolderTest = std::int16_t (FolderCheck::*)(TextBox&);
    bool folderPasses(TextBox& box, FolderTest test);
    bool refuse(TextBox& box);
    bool ipPasses(TextBox& box);
    bool portPasses(TextBox& box);

    frmWebConfig& form_;
    FolderCheck& folderCheck_;
    MessageBoxes& messageBoxes_;
};

}  // namespace kv
