// A library of the system, loaded when it is first needed: what a start does not use it does not
// pay for, and functions that older systems lack can be asked for.
#pragma once

#include <bit>

#include <windows.h>

namespace kv {

class SystemLibrary {
public:
    explicit SystemLibrary(const wchar_t* fileName) noexcept : fileName_(fileName) {}

    // The function's address, or null when the library or the function is missing. The first call
    // loads the library, from the system folder only, so that no other folder can slip one in. It
    // stays to the end of the process: it may work on in the background.
    template <class Function>
    Function* function(const char* name) noexcept {
        if (module_ == nullptr)
            module_ = LoadLibraryExW(fileName_, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
        if (module_ == nullptr) return nullptr;
        return std::bit_cast<Function*>(GetProcAddress(module_, name));
    }

private:
    const wchar_t* fileName_;
    HMODULE module_ = nullptr;
};

}  // namespace kv
