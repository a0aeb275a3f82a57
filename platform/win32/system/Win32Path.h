// The program's paths as Windows' wide calls take them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kv {

bool isSeparator(wchar_t c) noexcept;

// The wide form; nothing for bytes that no file name holds.
std::optional<std::wstring> widePath(std::string_view path);

// A long path in the form that has no length limit; others stay as they are.
std::wstring withoutLengthLimit(std::wstring path);

// Both in one. Throws BadFileNameOrNumber for bytes that no file name holds.
std::wstring nativePath(std::string_view path);

// A name that Windows keeps for a device in every folder, such as CON or NUL. A listing would find
// it wherever it is looked for.
bool isDevice(const std::wstring& path);

// The part of the path up to its last separator, which is included.
std::wstring_view folderOf(std::wstring_view path) noexcept;

// Whether the path's last part holds "*" or "?".
bool hasWildcards(std::wstring_view path) noexcept;

}  // namespace kv
