// Some systems notify a click of an option button as soon as the keyboard comes to it: when its
// panel is shown, when the Tab key reaches it, when the user returns to the window. That is
// nobody's choice.
#pragma once

#include <windows.h>

namespace kv {

// From now on the option, a window of the system's button class, tells when it takes the focus. Its
// GWLP_USERDATA is in use then.
void watchFocus(HWND option) noexcept;

// Whether what the option notifies comes from its taking the focus.
bool isTakingFocus(HWND option) noexcept;

}  // namespace kv
