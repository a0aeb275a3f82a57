#pragma once

#include <windows.h>

#include "common/Shell.h"
#include "platform/win32/system/ComApartment.h"
#include "platform/win32/system/SystemLibrary.h"

namespace kv {

// The desktop shell. Its libraries are large and few users press a button that needs them, so they
// are loaded by the first such button. It may call extensions that live in an apartment.
class Win32Shell : public Shell {
public:
    // The window owns the folder browser. The apartment must outlive the shell.
    Win32Shell(HWND owner, ComApartment& com) : owner_(owner), com_(com) {}

    int openDocument(const std::string& document, const std::string& operation,
                     int showMode) override;
    std::string browseForFolder(const std::string& title, unsigned flags) override;

private:
    HWND owner_;
    ComApartment& com_;
    SystemLibrary shell32_{L"shell32.dll"};
};

}  // namespace kv
