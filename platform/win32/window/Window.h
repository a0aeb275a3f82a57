// Shows a form as a native window: one child window for each control, which holds the control's
// caption as its text. The form is the truth; the window mirrors every change at once and passes
// the user's actions on. The windows of a panel are made when it is first shown, or as soon as
// there is nothing else to do: making all of them first would take half of the start-up time.
#pragma once

#include <exception>
#include <vector>

#include <windows.h>

#include "platform/win32/window/Accessibility.h"
#include "platform/win32/window/Graphics.h"
#include "platform/win32/window/Progress.h"
#include "wizard/controls/Form.h"

namespace kv {

// The window cannot be resized by its user: its outer width and its inner height are fixed.
struct WindowSize {
    Twips outerWidth;
    Twips innerHeight;
};

class Window : public ControlObserver {
public:
    // Makes the window, hidden, with the controls that lie on no panel. The form and the apartment
    // must outlive it. Throws RunTimeError when the system refuses.
    Window(Form& form, ComApartment& com, const wchar_t* className, WindowSize size);
    ~Window() override;

    HWND handle() const noexcept { return window_; }

    // The control's native window; null as long as its panel has not been made.
    HWND handleOf(const Control& control) const;

    // Makes the next panel that has not been made. False when there is none.
    bool makeNextPanel();

    // Shows the window and handles its messages until the form is closed. Rethrows what a handler
    // of the form let through, which also ends the window.
    void run();

    void onChanged(Control& control, Property property) override;
    void onClosed() override;

private:
    // A control's window and what is drawn in it.
    struct Child {
        Control* control;
        HWND window;
        GdiObject bitmap = {};
        Icon icon = {};
    };

    struct Place {
        int left, top, width, height;  // pixels
    };

    static LRESULT CALLBACK windowProcedure(HWND, UINT, WPARAM, LPARAM);
    LRESULT handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    static void registerClasses(const wchar_t* className);
    void makePanel(Control& panel);
    void layUnderEarlier(const Control& panel);
    void createControl(Control& control);
    bool nextMessage(MSG& message);
    void apply(Control& control, Property property);
    void applyPlace(const Control& control, UINT flags) const;
    void applyValue(const Control& option) const;
    void applyDefaultButton();
    void applyFocus(Control& control);
    void loadFonts();
    void dress(Child& child);
    void loadPicture(Child& child);

    void onCommand(HWND child, unsigned notification);
    void onActivate(bool active);
    void onDpiChanged(int dpi, const RECT& suggested);
    void onColoursChanged() const;
    HBRUSH onControlColour(HDC context, HWND child) const;
    bool onKey(const MSG& message);
    bool onKeyDown(WPARAM key, bool repeated);
    bool moveInGroup(Control& option, int step);

    void annotateAll();
    void applySize();
    void centre();
    Place placeOf(const Control& control) const noexcept;
    int pixels(Twips twips) const noexcept { return MulDiv(twips, dpi_, 1440); }
    Control* controlOf(HWND child) const;
    bool isKind(HWND child, ControlKind kind) const;
    Control* focused() const;
    Control* enterButton() const;

    Form& form_;
    WindowSize size_;
    HWND window_ = nullptr;
    int dpi_ = 96;
    std::vector<Child> children_;   // in the order of the form's controls
    std::vector<GdiObject> fonts_;  // by Font
    Accessibility accessibility_;
    Progress progress_;
    HWND keyTarget_ = nullptr;  // where the last key was pressed
    HWND lastFocus_ = nullptr;  // to return to when the window becomes active
    std::exception_ptr failure_;
};

}  // namespace kv
