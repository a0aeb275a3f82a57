#pragma once

#include <string>

namespace kv {

// Where the running program's file lies.
struct ProgramFile {
    std::string folder;    // without a trailing backslash, but for the root of a drive
    std::string baseName;  // without the extension
};

// Throws BadFileNameOrNumber when the system's code page cannot hold the path: the program would
// work on another folder than its own.
ProgramFile runningProgram();

}  // namespace kv
