// Shows a form as a native window: one child window for each control, which holds the control's
// caption as its text. The form is the truth; the window mirrors every change at once and passes
// the user's actions on.
#pragma once

#include <exception>

#include <windows.h>

#include "platform/win32/window/Accessibility.h"
#include "platform/win32/window/Keyboard.h"
#include "platform/win32/window/NativeControls.h"
#include "platform/win32/window/Progress.h"
#include "wizard/controls/Form.h"

namespace kv {

// The window cannot be resized by its user: its outer width and its inner height are fixed.
struct WindowSize {
    Twips outerWidth;
    Twips innerHeight;
};

// The frame and its messages; each of its members has a job of its own.
class Window : public ControlObserver {
public:
    // Makes the window, hidden, with the controls that lie on no panel. The form and the apartment
    // must outlive it. Throws RunTimeError when the system refuses.
    Window(Form& form, ComApartment& com, const wchar_t* className, WindowSize size);
    ~Window() override;

    HWND handle() const noexcept { return window_; }

    // The control's native window; null as long as its panel has not been made.
    HWND handleOf(const Control& control) const { return controls_.windowOf(control); }

    // Makes the next panel that has not been made. False when there is none.
    bool makeNextPanel() { return controls_.makeNextPanel(); }

    // Shows the window and handles its messages until the form is closed. Rethrows what a handler
    // of the form let through, which also ends the window.
    void run();

    void onChanged(Control& control, Property property) override;
    void onClosed() override;

private:
    static void registerClasses(const wchar_t* className);
    static LRESULT CALLBACK windowProcedure(HWND, UINT, WPARAM, LPARAM);
    LRESULT handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handleOfFrame(UINT message, WPARAM wParam, LPARAM lParam);
    bool nextMessage(MSG& message);
    void dispatch(MSG& message);

    void onCommand(HWND child, unsigned notification);
    HBRUSH onControlColour(HDC context, HWND child) const;
    void onLookedAt();
    void onDpiChanged(int dpi, const RECT& suggested);
    void onColoursChanged() const;
    void onDestroy();
    LRESULT enterButtonIdentifier() const;

    void applySize();
    void centre();

    Form& form_;
    WindowSize size_;
    HWND window_ = nullptr;
    Accessibility accessibility_;
    NativeControls controls_;
    Keyboard keyboard_;
    Progress progress_;
    std::exception_ptr failure_;
};

}  // namespace kv
