#include "platform/win32/system/Text.h"

#include <limits>
#include <utility>

#include <windows.h>

#include "platform/win32/system/Errors.h"

namespace kv {
namespace {

template <class Text>
int length(const Text& text) {
    if (text.size() > std::size_t{std::numeric_limits<int>::max()})
        throw RunTimeError(ErrorNumber::OutOfMemory);
    return static_cast<int>(text.size());
}

// Nothing when the conversion fails, which without flags no text does.
std::optional<std::wstring> widen(std::string_view text, unsigned codePage, DWORD flags) {
    if (text.empty()) return std::wstring();
    const int bytes = length(text);
    const int size = MultiByteToWideChar(codePage, flags, text.data(), bytes, nullptr, 0);
    if (size == 0) return std::nullopt;
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(codePage, flags, text.data(), bytes, wide.data(), size);
    return wide;
}

}  // namespace

std::wstring toWide(std::string_view text, unsigned codePage) {
    auto wide = widen(text, codePage, 0);
    if (!wide) throwLastError();
    return *std::move(wide);
}

std::optional<std::wstring> toWideExactly(std::string_view text, unsigned codePage) {
    return widen(text, codePage, MB_ERR_INVALID_CHARS);
}

LeadBytes leadBytes(unsigned codePage) {
    LeadBytes bytes;
    for (unsigned byte = 0; byte < bytes.size(); ++byte)
        bytes[byte] = IsDBCSLeadByteEx(codePage, static_cast<BYTE>(byte)) != FALSE;
    return bytes;
}

std::string fromWide(std::wstring_view text, unsigned codePage) {
    if (text.empty()) return {};
    // UTF-8 holds every character, and Windows refuses both the flag and the substitute for it.
    const bool utf8 = (codePage == CP_ACP ? GetACP() : codePage) == CP_UTF8;
    const DWORD flags = utf8 ? 0 : WC_NO_BEST_FIT_CHARS;
    const char* const substitute = utf8 ? nullptr : "?";

    const int characters = length(text);
    const int size = WideCharToMultiByte(codePage, flags, text.data(), characters, nullptr, 0,
                                         substitute, nullptr);
    if (size == 0) throwLastError();
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(codePage, flags, text.data(), characters, bytes.data(), size, substitute,
                        nullptr);
    return bytes;
}

}  // namespace kv
