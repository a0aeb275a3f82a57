#include "tests/robustness/QuickUser.h"

#include <vector>

namespace kv::endtoend {

namespace {

constexpr UINT kLimitMilliseconds = 60000;

void send(HWND window, UINT message, LPARAM parameter) {
    DWORD_PTR ignored = 0;
    if (SendMessageTimeoutA(window, message, 0, parameter, SMTO_NORMAL, kLimitMilliseconds,
                            &ignored) == 0)
        throw DriverFailure("the wizard does not answer");
}

}  // namespace

void press(const WizardDriver& wizard, std::string_view caption) {
    send(wizard.button(caption).handle, BM_CLICK, 0);
}

void pressAndLeave(const WizardDriver& wizard, std::string_view caption) {
    PostMessageA(wizard.button(caption).handle, BM_CLICK, 0, 0);
}

void put(const WizardDriver& wizard, std::size_t index, const std::string& text) {
    send(wizard.textBoxes().at(index).handle, WM_SETTEXT, reinterpret_cast<LPARAM>(text.c_str()));
}

void pressBeside(const WizardDriver& wizard, std::string_view label) {
    const std::vector<ControlView> views = wizard.panelControls();
    for (const ControlView& beside : views) {
        const int middle = beside.box.top + beside.box.height / 2;
        for (const ControlView& view : views) {
            if (beside.text == label && view.kind == ControlKind::CommandButton &&
                view.text.empty() && view.box.top <= middle && middle < view.box.bottom()) {
                send(view.handle, BM_CLICK, 0);
                return;
            }
        }
    }
    throw DriverFailure("no button beside " + std::string(label));
}

}  // namespace kv::endtoend
