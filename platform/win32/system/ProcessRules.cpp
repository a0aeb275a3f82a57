#include "platform/win32/system/ProcessRules.h"

#include <windows.h>

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

void askForNoDisk() noexcept {
    SetErrorMode(GetErrorMode() | SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}

void refusePlantedLinks() noexcept {
    SystemLibrary kernel32(L"kernel32.dll");
    const auto setPolicy =
        kernel32.function<decltype(SetProcessMitigationPolicy)>("SetProcessMitigationPolicy");
    if (setPolicy == nullptr) return;
    PROCESS_MITIGATION_REDIRECTION_TRUST_POLICY policy{};
    policy.EnforceRedirectionTrust = 1;
    setPolicy(ProcessRedirectionTrustPolicy, &policy, sizeof policy);  // older systems refuse it
}

}  // namespace kv
