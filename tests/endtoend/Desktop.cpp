#include "Desktop.h"

#include <array>

#include <windows.h>

namespace kv::endtoend {

namespace {

constexpr const char* kKey = "Software\\Wine\\X11 Driver";
constexpr const char* kValue = "Managed";

bool isWine() {
    return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}

void setManaged(const std::string& value) {
    RegSetKeyValueA(HKEY_CURRENT_USER, kKey, kValue, REG_SZ, value.c_str(),
                    static_cast<DWORD>(value.size() + 1));
}

}  // namespace

UnmanagedWindows::UnmanagedWindows() : active_(isWine()) {
    if (!active_) {
        return;
    }
    std::array<char, 16> value{};
    auto size = static_cast<DWORD>(value.size());
    if (RegGetValueA(HKEY_CURRENT_USER, kKey, kValue, RRF_RT_REG_SZ, nullptr, value.data(),
                     &size) == ERROR_SUCCESS) {
        previous_ = value.data();
    }
    setManaged("N");
}

UnmanagedWindows::~UnmanagedWindows() {
    if (!active_) {
        return;
    }
    if (previous_) {
        setManaged(*previous_);
    } else {
        RegDeleteKeyValueA(HKEY_CURRENT_USER, kKey, kValue);
    }
}

}  // namespace kv::endtoend
