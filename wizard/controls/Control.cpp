#include "wizard/controls/Control.h"

#include "wizard/controls/Form.h"

namespace kv {

Control::Control(Form& form, Control* parent, ControlKind kind, std::string_view name,
                 const Box& box, std::string_view caption)
    : form_(form), parent_(parent), kind_(kind), name_(name), box_(box), caption_(caption) {
    form.add(*this);
}

void Control::setBox(const Box& box) {
    if (box == box_) return;
    box_ = box;
    changed(Property::Box);
}

void Control::setLeft(Twips left) { setBox({left, box_.top, box_.width, box_.height}); }

void Control::setWidth(Twips width) { setBox({box_.left, box_.top, width, box_.height}); }

void Control::setCaption(std::string_view caption) {
    if (caption == caption_) return;
    caption_ = caption;
    changed(Property::Caption);
}

void Control::setAccessibleName(std::string_view name) {
    if (name == accessibleName_) return;
    accessibleName_ = name;
    changed(Property::AccessibleName);
}

void Control::setAccessibleValue(std::string_view value) {
    if (value == accessibleValue_) return;
    accessibleValue_ = value;
    changed(Property::AccessibleValue);
}

void Control::setEnabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    changed(Property::Enabled);
}

void Control::setVisible(bool visible) {
    if (visible == visible_) return;
    visible_ = visible;
    changed(Property::Visible);
}

bool Control::reachable() const noexcept {
    for (const Control* control = this; control != nullptr; control = control->parent_)
        if (!control->enabled_ || !control->visible_) return false;
    return true;
}

std::vector<Control*> Control::group() const {
    std::vector<Control*> group;
    for (Control* control : form_.controls())
        if (control->kind_ == kind_ && control->parent_ == parent_) group.push_back(control);
    return group;
}

void Control::changed(Property property) { form_.changed(*this, property); }

PictureBox::PictureBox(Form& form, const Design& design)
    : Control(form, nullptr, ControlKind::PictureBox, design.name, design.box, {}),
      picture_(design.picture) {}

bool isPanel(const Control& control) noexcept {
    return control.kind() == ControlKind::PictureBox && control.picture().empty();
}

Label::Label(Control& parent, const Design& design)
    : Control(parent.form(), &parent, ControlKind::Label, design.name, design.box, design.caption),
      font_(design.font),
      background_(design.background) {}

Line::Line(Control& parent, const Design& design)
    : Control(parent.form(), &parent, ControlKind::Line, design.name, design.box, {}),
      colour_(design.colour) {}

TextBox::TextBox(Control& parent, const Design& design)
    : Control(parent.form(), &parent, ControlKind::TextBox, design.name, design.box, {}) {}

void TextBox::setText(std::string_view text) {
    if (text == text_) return;
    text_ = text;
    changed(Property::Text);
}

OptionButton::OptionButton(Control& parent, const Design& design)
    : Control(parent.form(), &parent, ControlKind::OptionButton, design.name, design.box,
              design.caption) {}

void OptionButton::setValue(bool on) {
    if (on == value_) return;
    if (on) {
        if (OptionButton* other = form().chosenOption(*parent())) other->setValue(false);
    }
    value_ = on;
    changed(Property::Value);
}

void OptionButton::click() {
    if (reachable()) setValue(true);
}

CommandButton::CommandButton(Form& form, const Design& design)
    : Control(form, nullptr, ControlKind::CommandButton, design.name, design.box, design.caption),
      picture_(design.picture) {}

CommandButton::CommandButton(Control& parent, const Design& design)
    : Control(parent.form(), &parent, ControlKind::CommandButton, design.name, design.box,
              design.caption),
      picture_(design.picture) {}

void CommandButton::setDefault(bool isDefault) {
    if (isDefault == default_) return;
    default_ = isDefault;
    changed(Property::Default);
}

void CommandButton::click() {
    if (reachable() && onClick) onClick();
}

}  // namespace kv
