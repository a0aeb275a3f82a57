#include "common/Text.h"

#include "common/RunTimeError.h"

namespace kv {

std::string_view trim(std::string_view text) noexcept {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::optional<TextHalves> splitInTwo(std::string_view text, char separator) noexcept {
    const auto position = text.find(separator);
    if (position == std::string_view::npos) return std::nullopt;
    const TextHalves halves{text.substr(0, position), text.substr(position + 1)};
    if (halves.after.find(separator) != std::string_view::npos) return std::nullopt;
    return halves;
}

std::optional<std::string_view> takePart(std::optional<std::string_view>& text,
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

PathHalves splitPath(std::string_view path) {
    const auto position = path.rfind('\\');
    if (position == std::string_view::npos) throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    return {path.substr(0, position), path.substr(position + 1)};
}

}  // namespace kv
