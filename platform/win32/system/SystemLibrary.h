// A library of the system, loaded when it is first needed: what a start does not use it does not
// pay for, and functions that older systems lack can be asked for.
#pragma once

#include <bit>
#include <memory>
#include <type_traits>

#include <windows.h>

namespace kv {

// From now on the process looks for libraries in the system folder only, whoever asks for them and
// wherever the program lies; it cannot be undone. To be called before anything else.
void useSystemLibrariesOnly() noexcept;

class SystemLibrary {
public:
    // Looks in the system folder only, so that no other folder can slip in a library.
    explicit SystemLibrary(const wchar_t* fileName)
        : module_(LoadLibraryExW(fileName, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)) {}

    // The function's address, or null when the library or the function is missing.
    template <class Function>
    Function* function(const char* name) const {
        if (!module_) return nullptr;
        return std::bit_cast<Function*>(GetProcAddress(module_.get(), name));
    }

private:
    struct Closer {
        using pointer = HMODULE;
        void operator()(pointer module) const noexcept { FreeLibrary(module); }
    };
    std::unique_ptr<std::remove_pointer_t<HMODULE>, Closer> module_;
};

}  // namespace kv
