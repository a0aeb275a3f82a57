// Decimal numbers in text, as the configuration files and the wizard's fields hold them: an
// optional sign, digits with at most one ".", an optional exponent, blanks around; the same on
// every computer, whatever its locale.
#pragma once

#include <cstdint>
#include <string_view>

namespace kv {

// Whether the text is a number. The size does not matter.
bool isNumeric(std::string_view text) noexcept;

// Whether the number is above 0. Throws TypeMismatch for a text that is not numeric.
bool isPositive(std::string_view text);

// A result brought into a 16-bit field; throws Overflow when it does not fit.
std::int16_t checkedInt16(std::int64_t value);

// Conversions to a field's width. A fraction rounds to the nearest whole number, a half to the even
// one. They throw TypeMismatch for a text that is not numeric, Overflow for a value that the width
// does not hold.
std::int16_t toInt16(std::string_view text);
std::int32_t toInt32(std::string_view text);

}  // namespace kv
