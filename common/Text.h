// Small operations on single-byte text. A blank is the space character and nothing else: tabs and
// line ends are ordinary characters.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kv {

inline constexpr std::string_view kLineEnd = "\r\n";

// The text without blanks at either end.
std::string_view trim(std::string_view text) noexcept;

// The parts around the one occurrence of the separator; nothing when it occurs never or more than
// once.
struct TextHalves {
    std::string_view before;
    std::string_view after;
};
std::optional<TextHalves> splitInTwo(std::string_view text, char separator) noexcept;

// Takes the next part off the front of the text, up to the separator, which is dropped. After the
// last part the text is no longer there: nothing is returned. A text without the separator is one
// part, an empty one too.
std::optional<std::string_view> takePart(std::optional<std::string_view>& text,
                                         std::string_view separator) noexcept;

// A path cut at its last "\". Throws InvalidProcedureCall for a text that holds none: such a text
// is not a full path.
struct PathHalves {
    std::string_view parent;
    std::string_view name;
};
PathHalves splitPath(std::string_view path);

}  // namespace kv
