// What a process has taken of the system and not given back.
#pragma once

#include <cstdint>
#include <string>

#include <windows.h>

namespace kv::endtoend {

struct Resources {
    unsigned handles = 0;
    unsigned gdiObjects = 0;
    unsigned windows = 0;      // at any depth, messages' own included
    unsigned userObjects = 0;  // windows, menus, icons and the like; where the system counts them
    std::size_t privateBytes = 0;

    friend bool operator==(const Resources&, const Resources&) = default;
};

Resources resourcesOf(HANDLE process);

// Once the process has drawn what it still had to draw, and holds nothing for it any more.
Resources settledResourcesOf(HANDLE process);

std::string describe(const Resources& resources);

}  // namespace kv::endtoend
