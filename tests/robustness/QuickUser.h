// A user without hands: works the wizard by the messages that clicks and keys end in. Many times
// quicker than the mouse, for tests that go the same way hundreds of times.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tests/endtoend/driver/WizardDriver.h"
#include "tests/endtoend/steps/Roads.h"

namespace kv::endtoend {

// Returns when the wizard has handled the click to its end.
void press(const WizardDriver& wizard, std::string_view caption);

// Returns at once.
void pressAndLeave(const WizardDriver& wizard, std::string_view caption);

// On a folder panel: into the text box.
void put(const WizardDriver& wizard, std::size_t index, const std::string& text);

// A picture button of the action panel, from its label.
void pressBeside(const WizardDriver& wizard, std::string_view label);

}  // namespace kv::endtoend
