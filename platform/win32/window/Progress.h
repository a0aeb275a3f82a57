// Brings what an operation shows to the screen. It runs within one click, while no messages are
// handled, so that otherwise nothing would be painted before it ends.
#pragma once

#include <windows.h>

#include "wizard/controls/Control.h"

namespace kv {

class Progress {
public:
    // A text that has changed is painted at once, with all that has changed before it. A bar grows
    // more often than anybody sees, and is painted some twenty times a second at most; the last of
    // it comes with the next text, or when messages are handled again.
    void paint(HWND window, Property changed);

private:
    ULONGLONG painted_ = 0;  // when, in milliseconds since the system's start
};

}  // namespace kv
