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
};

Resources resourcesOf(HANDLE process);

std::string describe(const Resources& resources);

}  // namespace kv::endtoend
