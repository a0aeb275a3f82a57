// Text of any characters in the wizard's boxes: the outside world is not bound to the code page.
#pragma once

#include <cstddef>
#include <string>

#include <windows.h>

#include "tests/endtoend/driver/WizardDriver.h"

namespace kv::endtoend {

// In place of what the box holds; they return when the box holds the text.
void typeWide(const WizardDriver& wizard, std::size_t index, const std::wstring& text);
void pasteWide(const WizardDriver& wizard, std::size_t index, const std::wstring& text);

std::wstring wideText(HWND window);

// A program started with nothing but its path, until it ends. It may show no window but a message.
class PlainStart {
public:
    explicit PlainStart(const std::wstring& program);
    ~PlainStart();
    PlainStart(const PlainStart&) = delete;
    PlainStart& operator=(const PlainStart&) = delete;

    HWND waitForMessage() const;
    DWORD waitForExit() const;

private:
    PROCESS_INFORMATION process_{};
};

}  // namespace kv::endtoend
