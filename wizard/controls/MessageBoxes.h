// The message boxes through which the wizard talks to its user. Their title is the wizard's.
#pragma once

#include <string>

namespace kv {

class MessageBoxes {
public:
    MessageBoxes() = default;
    MessageBoxes(const MessageBoxes&) = delete;
    MessageBoxes& operator=(const MessageBoxes&) = delete;
    virtual ~MessageBoxes() = default;

    // An information icon and an OK button.
    virtual void information(const std::string& text) = 0;

    // A question icon and the buttons Yes and No, of which No is the default; true for Yes.
    virtual bool yesNoDefaultNo(const std::string& text) = 0;
};

}  // namespace kv
