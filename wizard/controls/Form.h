// A window's controls and life, without any window system.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "wizard/controls/Control.h"

namespace kv {

// Shows a form on a screen, or records what would be shown.
class ControlObserver {
public:
    ControlObserver() = default;
    ControlObserver(const ControlObserver&) = delete;
    ControlObserver& operator=(const ControlObserver&) = delete;
    virtual ~ControlObserver() = default;

    // The property has its new value. Focus: the user's next key goes to the control.
    virtual void onChanged(Control& control, Property property) = 0;

    // The form has been closed; its window goes.
    virtual void onClosed() = 0;
};

class Form {
public:
    explicit Form(std::string_view caption) : caption_(caption) {}
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form() = default;

    const std::string& caption() const noexcept { return caption_; }

    // In the order of their declaration, which is the order in which a user visits them.
    std::span<Control* const> controls() const noexcept { return controls_; }

    // The option on the parent that is on; null when none is.
    OptionButton* chosenOption(const Control& parent) const noexcept;

    // Null for none. The observer must stay until it is taken off or the form goes.
    void observe(ControlObserver* observer) noexcept { observer_ = observer; }

    // Gives the keyboard to the control, a text box with its text selected.
    void setFocus(Control& control) { changed(control, Property::Focus); }

    // The button that Esc presses; null for none.
    CommandButton* cancelButton() const noexcept { return cancelButton_; }
    void setCancelButton(CommandButton& button) noexcept { cancelButton_ = &button; }

    // Unloads the form; a second call does nothing.
    void close();

    std::function<void()> onUnload;
    std::function<void()> onHelp;  // the user asks for help (F1)

private:
    friend class Control;
    void add(Control& control) { controls_.push_back(&control); }
    void changed(Control& control, Property property);

    std::string caption_;
    std::vector<Control*> controls_;
    ControlObserver* observer_ = nullptr;
    CommandButton* cancelButton_ = nullptr;
    bool closed_ = false;
};

}  // namespace kv
