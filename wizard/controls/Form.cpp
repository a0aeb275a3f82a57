#include "wizard/controls/Form.h"

namespace kv {

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
