#include "platform/win32/window/Win32MessageBoxes.h"

#include <utility>

#include "platform/win32/system/Text.h"

namespace kv {
namespace {

int show(HWND owner, const std::string& title, const std::string& text, UINT type) {
    return MessageBoxW(owner, toWide(text).c_str(), toWide(title).c_str(), type);
}

}  // namespace

Win32MessageBoxes::Win32MessageBoxes(HWND owner, std::string title)
    : owner_(owner), title_(std::move(title)) {}

void Win32MessageBoxes::information(const std::string& text) {
    show(owner_, title_, text, MB_OK | MB_ICONINFORMATION);
}

bool Win32MessageBoxes::yesNoDefaultNo(const std::string& text) {
    return show(owner_, title_, text, MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
}

void showFailure(const std::string& title, const std::string& text) {
    // The window that has gone has asked the thread to end, which would close the message at once.
    MSG message;
    while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
    }
    show(nullptr, title, text, MB_OK | MB_ICONERROR | MB_SETFOREGROUND);
}

}  // namespace kv
