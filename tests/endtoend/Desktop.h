// Makes the desktop that the wizard is shown on fit for being watched and worked by a program.
#pragma once

#include <optional>
#include <string>

namespace kv::endtoend {

// On an X server without a window manager, Wine waits two seconds for one whenever a window goes,
// and draws no captions. As long as an object of this class lives, the programs started do without
// a window manager. Elsewhere it does nothing.
class UnmanagedWindows {
public:
    UnmanagedWindows();
    ~UnmanagedWindows();
    UnmanagedWindows(const UnmanagedWindows&) = delete;
    UnmanagedWindows& operator=(const UnmanagedWindows&) = delete;

private:
    bool active_ = false;
    std::optional<std::string> previous_;
};

}  // namespace kv::endtoend
