#include "platform/win32/system/Win32Path.h"

#include <utility>

#include <windows.h>

#include "common/RunTimeError.h"
#include "platform/win32/system/Text.h"

namespace kv {
namespace {

constexpr std::wstring_view kSeparators = L"\\/";
constexpr std::wstring_view kWildcards = L"*?";

// From this length on a plain path fails: a folder's limit is 260 less room for a short file name.
constexpr std::size_t kLongPathLength = 248;

// "X:\..."
bool isDrivePath(std::wstring_view path) noexcept {
    return path.size() > 2 && path[1] == L':' && isSeparator(path[2]);
}

// "\\server\..."; the forms "\\?\" and "\\.\" are none.
bool isNetworkPath(std::wstring_view path) noexcept {
    return path.size() > 2 && isSeparator(path[0]) && isSeparator(path[1]) && path[2] != L'?' &&
           path[2] != L'.';
}

// The path without ".", ".." and doubled separators, as Windows itself takes it. A path that cannot
// be taken so stays as it is, and is refused by the call that it goes to.
std::wstring normalised(std::wstring path) {
    const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring full(size, L'\0');
    const DWORD length = GetFullPathNameW(path.c_str(), size, full.data(), nullptr);
    if (length == 0 || length >= size) return path;
    full.resize(length);
    return full;
}

}  // namespace

bool isSeparator(wchar_t c) noexcept { return kSeparators.find(c) != std::wstring_view::npos; }

std::optional<std::wstring> widePath(std::string_view path) {
    if (path.find('\0') != std::string_view::npos) return std::nullopt;
    return toWideExactly(path);
}

// Windows takes the form without a limit literally, so the path is normalised first.
std::wstring withoutLengthLimit(std::wstring path) {
    if (path.size() < kLongPathLength) return path;
    if (isDrivePath(path)) return L"\\\\?\\" + normalised(std::move(path));
    if (isNetworkPath(path)) return L"\\\\?\\UNC\\" + normalised(std::move(path)).substr(2);
    return path;
}

std::wstring nativePath(std::string_view path) {
    auto wide = widePath(path);
    if (!wide) throw RunTimeError(ErrorNumber::BadFileNameOrNumber);
    return withoutLengthLimit(*std::move(wide));
}

bool isDevice(const std::wstring& path) {
    constexpr std::wstring_view kDevices = L"\\\\.\\";
    return !path.starts_with(kDevices) && normalised(path).starts_with(kDevices);
}

std::wstring_view folderOf(std::wstring_view path) noexcept {
    return path.substr(0, path.find_last_of(kSeparators) + 1);
}

bool hasWildcards(std::wstring_view path) noexcept {
    return path.substr(folderOf(path).size()).find_first_of(kWildcards) != std::wstring_view::npos;
}

}  // namespace kv
