#include "platform/win32/system/KeptNames.h"

#include <algorithm>

#include <windows.h>

namespace kv {
namespace {

// Windows refuses even a look at what is going, which is not the same as finding nothing.
bool isThere(const std::wstring& path) noexcept {
    if (GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES) return true;
    const DWORD error = GetLastError();
    return error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND;
}

bool isSamePath(const std::wstring& one, const std::wstring& other) noexcept {
    return CompareStringOrdinal(one.c_str(), -1, other.c_str(), -1, TRUE) == CSTR_EQUAL;
}

}  // namespace

void KeptNames::noteDeleted(const std::wstring& path) {
    if (isThere(path) && !contain(path)) paths_.push_back(path);
}

bool KeptNames::contain(const std::wstring& path) {
    const auto found = std::ranges::find_if(
        paths_, [&](const std::wstring& kept) { return isSamePath(kept, path); });
    if (found == paths_.end()) return false;
    if (isThere(path)) return true;
    paths_.erase(found);
    return false;
}

}  // namespace kv
