#pragma once

#include <windows.h>

#include "common/Shell.h"

namespace kv {

// The desktop shell. Its libraries are large and few users press a button that needs them, so they
// are loaded by the first such button.
class Win32Shell : public Shell {
public:
    explicit Win32Shell(HWND owner) : owner_(owner) {}

    int openDocument(const std::string& document, const std::string& operation,
                     int showMode) override;
    std::string browseForFolder(const std::string& title, unsigned flags) override;

private:
    HWND owner_;
};

}  // namespace kv
