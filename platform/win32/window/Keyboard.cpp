#include "platform/win32/window/Keyboard.h"

#include <algorithm>

namespace kv {
namespace {

void setButtonType(HWND button, LONG_PTR type) {
    const LONG_PTR style = GetWindowLongPtrW(button, GWL_STYLE);
    if ((style & BS_TYPEMASK) == type) return;
    SendMessageW(button, BM_SETSTYLE, static_cast<WPARAM>((style & 0xFFFF & ~BS_TYPEMASK) | type),
                 FALSE);
    InvalidateRect(button, nullptr, TRUE);
}

// By how many options an arrow key moves; 0 for another key.
int stepOf(WPARAM key) {
    if (key == VK_DOWN || key == VK_RIGHT) return 1;
    return key == VK_UP || key == VK_LEFT ? -1 : 0;
}

}  // namespace

// A key that is held down presses nothing again: its first press may have led to another panel.
bool Keyboard::takes(const MSG& message) {
    const HWND frame = controls_.frame();
    if (message.hwnd != frame && IsChild(frame, message.hwnd) == FALSE) return false;
    const bool repeated = (HIWORD(message.lParam) & KF_REPEAT) != 0;
    switch (message.message) {
        case WM_KEYDOWN:
            if (!repeated) keyTarget_ = message.hwnd;
            return takesKeyDown(message.wParam, repeated);
        case WM_SYSCHAR: return repeated;
        case WM_CHAR:
            // Letters are access keys but in a text box, which takes those that are meant for it.
            return repeated && !(message.hwnd == keyTarget_ &&
                                 controls_.isKind(message.hwnd, ControlKind::TextBox));
        default: return false;
    }
}

bool Keyboard::takesKeyDown(WPARAM key, bool repeated) {
    switch (key) {
        case VK_RETURN:
            if (Control* button = enterButton(); button != nullptr && !repeated) button->click();
            return true;
        case VK_ESCAPE:
            if (Control* button = form_.cancelButton(); button != nullptr && !repeated)
                button->click();
            return true;
        case VK_F1:
            if (form_.onHelp && !repeated) form_.onHelp();
            return true;
        default: return moveInGroup(key);
    }
}

// The arrow keys go round the options of a group and choose the one they reach.
bool Keyboard::moveInGroup(WPARAM key) {
    Control* option = focused();
    const int step = stepOf(key);
    if (step == 0 || option == nullptr || option->kind() != ControlKind::OptionButton) return false;
    const std::vector<Control*> group = option->group();
    const auto count = static_cast<std::ptrdiff_t>(group.size());
    const auto position = std::ranges::find(group, option) - group.begin();
    Control& next = *group[static_cast<std::size_t>((position + step + count) % count)];
    next.click();
    form_.setFocus(next);
    return true;
}

void Keyboard::focus(const Control& control) {
    const HWND window = controls_.windowOf(control);
    if (window == nullptr) return;
    lastFocus_ = window;
    if (GetActiveWindow() == controls_.frame()) SetFocus(window);
    if (control.kind() == ControlKind::TextBox) SendMessageW(window, EM_SETSEL, 0, -1);
    markEnterButton();
}

void Keyboard::onActivate(bool active) {
    if (active && lastFocus_ != nullptr) SetFocus(lastFocus_);
    if (!active && focused() != nullptr) lastFocus_ = GetFocus();
}

Control* Keyboard::enterButton() const {
    Control* control = focused();
    if (control != nullptr && control->kind() == ControlKind::CommandButton) return control;
    const auto standard = std::ranges::find_if(form_.controls(), &Control::isDefault);
    return standard != form_.controls().end() ? *standard : nullptr;
}

void Keyboard::markEnterButton() const {
    const Control* button = enterButton();
    for (const NativeControl& child : controls_.all())
        if (child.control->kind() == ControlKind::CommandButton)
            setButtonType(child.window, child.control == button ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
}

}  // namespace kv
