// Decimal numbers in text, as the configuration files and the wizard's fields hold them: an
// optional sign, digits with at most one ".", an optional exponent.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "common/RunTimeError.h"

namespace kv {

// The value of a text that is a few digits and nothing else, as nearly every number in a file is.
inline std::optional<std::int32_t> plainValue(std::string_view text) noexcept {
    constexpr std::size_t kFewDigits = 9;
    if (text.empty() || text.size() > kFewDigits) return std::nullopt;
    std::int32_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') return std::nullopt;
        value = value * 10 + (c - '0');
    }
    return value;
}

// The functions below for a text that is not plain.
namespace general {
bool isNumeric(std::string_view text) noexcept;
std::int16_t toInt16(std::string_view text);
std::int32_t toInt32(std::string_view text);
}  // namespace general

// Whether the text is a number, blanks around it aside. The size does not matter.
inline bool isNumeric(std::string_view text) noexcept {
    return plainValue(text) || general::isNumeric(text);
}

// Whether the number is above 0. Throws TypeMismatch for a text that is not numeric.
bool isPositive(std::string_view text);

// A result brought into a 16-bit field; throws Overflow when it does not fit.
inline std::int16_t checkedInt16(std::int64_t value) {
    if (!std::in_range<std::int16_t>(value)) throw RunTimeError(ErrorNumber::Overflow);
    return static_cast<std::int16_t>(value);
}

// Conversions to a field's width. A fraction rounds to the nearest whole number, a half to the even
// one. They throw TypeMismatch for a text that is not numeric, Overflow for a value that the width
// does not hold.
inline std::int16_t toInt16(std::string_view text) {
    const auto plain = plainValue(text);
    return plain ? checkedInt16(*plain) : general::toInt16(text);
}
inline std::int32_t toInt32(std::string_view text) {
    const auto plain = plainValue(text);
    return plain ? *plain : general::toInt32(text);
}

}  // namespace kv
