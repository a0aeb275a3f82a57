// The desktop shell: opening documents and choosing folders.
#pragma once

#include <string>

namespace kv {

class Shell {
public:
    Shell() = default;
    Shell(const Shell&) = delete;
    Shell& operator=(const Shell&) = delete;
    virtual ~Shell() = default;

    // Opens a document or web address with the named operation and show mode, without an owner
    // window, parameters or working folder, as ShellExecute does; returns the shell's own result
    // (over 32: success).
    virtual int openDocument(const std::string& document, const std::string& operation,
                             int showMode) = 0;

    // Lets the user choose a folder in the system's folder browser, owned by the wizard's window;
    // the flags are those of BROWSEINFO. Empty when the user cancelled or chose something that
    // has no path in the file system.
    virtual std::string browseForFolder(const std::string& title, unsigned flags) = 0;
};

}  // namespace kv
