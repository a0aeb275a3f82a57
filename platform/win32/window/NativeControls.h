// The native windows of a form's controls: makes them, finds them, and takes every change of the
// form over. The windows of a panel are made when it is first shown, or as soon as there is nothing
// else to do: making all of them first would take half of the start-up time.
#pragma once

#include <span>
#include <vector>

#include <windows.h>

#include "platform/win32/window/Accessibility.h"
#include "platform/win32/window/Graphics.h"
#include "wizard/controls/Form.h"

namespace kv {

// The window class of panels, which the frame registers, for it handles their messages.
inline constexpr const wchar_t* kPanelClass = L"kvPanel";

// A control's window and what is drawn in it.
struct NativeControl {
    Control* control;
    HWND window;
    GdiObject bitmap = {};
    Icon icon = {};
};

class NativeControls {
public:
    // Both must outlive it.
    NativeControls(Form& form, Accessibility& accessibility)
        : form_(form), accessibility_(accessibility) {}
    NativeControls(const NativeControls&) = delete;
    NativeControls& operator=(const NativeControls&) = delete;

    // Makes the controls that lie on no panel. The resolution is in dots per inch.
    void make(HWND frame, int dpi);

    // Makes the next panel that has not been made. False when there is none.
    bool makeNextPanel();
    void makeVisiblePanels();

    HWND frame() const noexcept { return frame_; }
    std::span<const NativeControl> all() const noexcept { return children_; }

    // Null as long as the control's panel has not been made.
    HWND windowOf(const Control& control) const;

    // Null for a window that is no control's.
    Control* controlOf(HWND window) const;
    bool isKind(HWND window, ControlKind kind) const;

    // The one way of a change from the form to its windows; what has to do with the keyboard goes
    // another. What lies on a panel that has not been made comes with it, as the form then has it.
    void apply(Control& control, Property property);

    void setResolution(int dpi);
    int pixels(Twips twips) const noexcept { return MulDiv(twips, dpi_, 1440); }

private:
    struct Place {
        int left, top, width, height;  // pixels
    };

    void makePanel(Control& panel);
    void layUnderEarlier(const Control& panel) const;
    void makeControl(Control& control);
    HWND makeWindow(const Control& control) const;
    INT_PTR identifierOf(const Control& control) const;
    Place placeOf(const Control& control) const noexcept;
    void applyPlace(const Control& control, UINT flags) const;
    void applyValue(const Control& option) const;
    void loadFonts();
    void dress(NativeControl& child) const;

    Form& form_;
    Accessibility& accessibility_;
    HWND frame_ = nullptr;
    int dpi_ = 96;
    std::vector<NativeControl> children_;  // in the order in which they were made
    std::vector<GdiObject> fonts_;         // by Font
};

}  // namespace kv
