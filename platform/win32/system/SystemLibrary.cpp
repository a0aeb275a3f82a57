#include "platform/win32/system/SystemLibrary.h"

namespace kv {

void useSystemLibrariesOnly() noexcept {
    // Systems older than Windows 8 may lack the function; there it is at least not the folder that
    // the user happens to work in.
    SetDllDirectoryW(L"");
    const HMODULE kernel32 = GetModuleHandleW(L"kernel32.dll");
    const auto setDirectories = reinterpret_cast<decltype(SetDefaultDllDirectories)*>(
        reinterpret_cast<void*>(GetProcAddress(kernel32, "SetDefaultDllDirectories")));
    if (setDirectories != nullptr) setDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
}

}  // namespace kv
