// What a failed test leaves behind.
#pragma once

#include <string>

namespace kv::endtoend {

// Puts a picture of the screen and the product's log into the folder "failed" of the scratch
// folder, named after the workplace in use (NAME.png, NAME.log). Returns a line that says where,
// empty when there is no workplace. Never throws.
std::string keepEvidence() noexcept;

}  // namespace kv::endtoend
