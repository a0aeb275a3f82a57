// The desktop shell's services for the wizard: pages of the product's web site in the user's
// browser, choosing folders, and proposing default folders.
#pragma once

#include <string>
#include <string_view>

namespace kv {

class FileSystem;
class Shell;
class TextBox;

class ShellServices {
public:
    ShellServices(Shell& shell, FileSystem& fileSystem);
    ShellServices(const ShellServices&) = delete;
    ShellServices& operator=(const ShellServices&) = delete;

    // Return the shell's result unchanged (over 32: success).
    int wcpOpenDocument(const std::string& document);
    int wcpOpenApacheDownloadPage();

    // Opens a page of the product's web site, named by its path there.
    int openHelpPage(std::string_view page);

    // The chosen folder, or an empty text.
    std::string wcpBrowseForFolder();

    // Puts the chosen folder into the box, where the user goes on; without a choice the box keeps
    // its text.
    void wcpBrowseIntoTextBox(TextBox& box);

    // Puts the default folder into an empty box if it exists on drive C, D or E, in this order;
    // else the box stays empty. Throws InvalidProcedureCall for a default path without a "\"
    // behind its drive letter.
    void wcpSuggestFolderOnDrive(TextBox& box, std::string_view defaultPath);

private:
    Shell& shell_;
    FileSystem& fileSystem_;
};

}  // namespace kv
