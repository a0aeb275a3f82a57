// Small operations on single-byte text. A blank is the space character and nothing else: tabs and
// line ends are ordinary characters.
#pragma once

#include <algorithm>
#include <bitset>
#include <optional>
#include <string>
#include <string_view>

namespace kv {

inline constexpr std::string_view kLineEnd = "\r\n";

// The text without blanks at either end.
inline std::string_view trim(std::string_view text) noexcept {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

// The parts around the one occurrence of the separator; nothing when it occurs never or more than
// once.
struct TextHalves {
    std::string_view before;
    std::string_view after;
};
inline std::optional<TextHalves> splitInTwo(std::string_view text, char separator) noexcept {
    // It mostly stands near the front, where a plain search is the quickest.
    const auto found = std::ranges::find(text, separator);
    if (found == text.end()) return std::nullopt;
    const std::string_view after(found + 1, text.end());
    if (after.find(separator) != std::string_view::npos) return std::nullopt;
    return TextHalves{{text.begin(), found}, after};
}

// Takes the next part off the front of the text, up to the separator, which is dropped. After the
// last part the text is no longer there: nothing is returned. A text without the separator is one
// part, an empty one too.
inline std::optional<std::string_view> takePart(std::optional<std::string_view>& text,
                                                std::string_view separator) noexcept {
    if (!text) return std::nullopt;
    const std::string_view whole = *text;
    const auto position = whole.find(separator);
    if (position == std::string_view::npos) {
        text.reset();
        return whole;
    }
    text = whole.substr(position + separator.size());
    return whole.substr(0, position);
}

// The bytes that begin a character of two bytes; code pages for East Asia have such. The second
// byte may be that of a "\".
using LeadBytes = std::bitset<256>;

// A path cut at its last "\". Throws InvalidProcedureCall for a text that holds none: such a text
// is not a full path.
struct PathHalves {
    std::string_view parent;
    std::string_view name;
};
PathHalves splitPath(std::string_view path, const LeadBytes& leadBytes = {});

bool endsWithBackslash(std::string_view path, const LeadBytes& leadBytes);

// The parts joined by a single "\".
template <class First, class... Rest>
std::string joinPath(const First& first, const Rest&... rest) {
    std::string path(first);
    ((path += '\\', path += rest), ...);
    return path;
}

}  // namespace kv
