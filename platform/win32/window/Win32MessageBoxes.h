#pragma once

#include <string>

#include <windows.h>

#include "wizard/controls/MessageBoxes.h"

namespace kv {

// The system's message boxes, owned by a window.
class Win32MessageBoxes : public MessageBoxes {
public:
    Win32MessageBoxes(HWND owner, std::string title);

    void information(const std::string& text) override;
    bool yesNoDefaultNo(const std::string& text) override;

private:
    HWND owner_;
    std::string title_;
};

// The one message with which a failure ends the program; it needs no window.
void showFailure(const std::string& title, const std::string& text);

}  // namespace kv
