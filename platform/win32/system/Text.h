// Text between the program, which holds bytes of the system's code page, and Windows' wide calls.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "common/Text.h"

namespace kv {

inline constexpr unsigned kSystemCodePage = 0;  // CP_ACP

// Bytes that are no character of the code page become a substitute character.
std::wstring toWide(std::string_view text, unsigned codePage = kSystemCodePage);

// Nothing when some bytes are no character of the code page.
std::optional<std::wstring> toWideExactly(std::string_view text,
                                          unsigned codePage = kSystemCodePage);

LeadBytes leadBytes(unsigned codePage = kSystemCodePage);

// Characters that the code page does not hold become "?", which no file name can hold; never a
// look-alike, which could name another file.
std::string fromWide(std::wstring_view text, unsigned codePage = kSystemCodePage);

}  // namespace kv
