#include "wizard/controls/Form.h"

namespace kv {

OptionButton* Form::chosenOption(const Control& parent) const noexcept {
    for (Control* control : controls_) {
        if (control->parent() != &parent || control->kind() != ControlKind::OptionButton) continue;
        auto* option = static_cast<OptionButton*>(control);
        if (option->value()) return option;
    }
    return nullptr;
}

void Form::close() {
    if (closed_) return;
    closed_ = true;
    if (onUnload) onUnload();
    if (observer_ != nullptr) observer_->onClosed();
}

void Form::changed(Control& control, Property property) {
    if (observer_ != nullptr) observer_->onChanged(control, property);
}

}  // namespace kv
