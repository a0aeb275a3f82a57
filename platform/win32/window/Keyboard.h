// The keyboard on a form: the keys that act on the form as a whole, the button that Enter presses,
// and the control that has the focus.
#pragma once

#include <windows.h>

#include "platform/win32/window/NativeControls.h"
#include "wizard/controls/Form.h"

namespace kv {

class Keyboard {
public:
    // Both must outlive it.
    Keyboard(Form& form, const NativeControls& controls) : form_(form), controls_(controls) {}
    Keyboard(const Keyboard&) = delete;
    Keyboard& operator=(const Keyboard&) = delete;

    // Whether the message is a key that acts on the form, and has done so; all else goes the way of
    // a dialogue box. Lets through what a handler of the form throws.
    bool takes(const MSG& message);

    // Gives the focus to the control, at once or when the window becomes active.
    void focus(const Control& control);

    // Keeps the focus while the window is not active.
    void onActivate(bool active);

    // The focused button, or else the form's default; null for none.
    Control* enterButton() const;

    // Puts the frame of the button that Enter presses where it belongs.
    void markEnterButton() const;

private:
    bool takesKeyDown(WPARAM key, bool repeated);
    bool moveInGroup(WPARAM key);
    Control* focused() const { return controls_.controlOf(GetFocus()); }

    Form& form_;
    const NativeControls& controls_;
    HWND keyTarget_ = nullptr;  // where the last key was pressed
    HWND lastFocus_ = nullptr;  // to return to when the window becomes active
};

}  // namespace kv
