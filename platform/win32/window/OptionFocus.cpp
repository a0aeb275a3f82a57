#include "platform/win32/window/OptionFocus.h"

namespace kv {
namespace {

constexpr const wchar_t* kTakingFocus = L"kvTakingFocus";

LRESULT CALLBACK optionProcedure(HWND option, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto systems = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(option, GWLP_USERDATA));
    if (message == WM_SETFOCUS) SetPropW(option, kTakingFocus, option);
    const LRESULT result = CallWindowProcW(systems, option, message, wParam, lParam);
    if (message == WM_SETFOCUS) RemovePropW(option, kTakingFocus);
    return result;
}

}  // namespace

void watchFocus(HWND option) noexcept {
    SetWindowLongPtrW(option, GWLP_USERDATA, GetWindowLongPtrW(option, GWLP_WNDPROC));
    SetWindowLongPtrW(option, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(optionProcedure));
}

bool isTakingFocus(HWND option) noexcept { return GetPropW(option, kTakingFocus) != nullptr; }

}  // namespace kv
