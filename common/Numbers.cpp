#include "common/Numbers.h"

#include <cmath>
#include <limits>

#include "common/RunTimeError.h"
#include "common/Text.h"

namespace kv {
namespace {

// Reads a text from its front.
class Scanner {
public:
    explicit Scanner(std::string_view text) noexcept : rest_(text) {}

    bool atEnd() const noexcept { return rest_.empty(); }

    bool take(char wanted) noexcept {
        if (rest_.empty() || rest_.front() != wanted) return false;
        rest_.remove_prefix(1);
        return true;
    }

    // Consumes an optional sign; true for a minus.
    bool takeMinus() noexcept {
        if (take('-')) return true;
        take('+');
        return false;
    }

    // Appends the digits to the value; returns how many there were.
    int takeDigits(double& value) noexcept {
        int count = 0;
        for (; !rest_.empty() && rest_.front() >= '0' && rest_.front() <= '9'; ++count) {
            value = value * 10 + (rest_.front() - '0');
            rest_.remove_prefix(1);
        }
        return count;
    }

private:
    std::string_view rest_;
};

template <class Integer>
Integer narrow(double value) {
    const double whole = std::nearbyint(value);
    if (!(whole >= std::numeric_limits<Integer>::min() &&
          whole <= std::numeric_limits<Integer>::max()))
        throw RunTimeError(ErrorNumber::Overflow);
    return static_cast<Integer>(whole);
}

}  // namespace

std::optional<double> parseNumber(std::string_view text) noexcept {
    Scanner scanner(trim(text));
    const bool negative = scanner.takeMinus();
    double value = 0;
    int digits = scanner.takeDigits(value);
    int decimals = 0;
    if (scanner.take('.')) decimals = scanner.takeDigits(value);
    digits += decimals;
    if (digits == 0) return std::nullopt;

    double exponent = 0;
    if (scanner.take('e') || scanner.take('E')) {
        const bool negativeExponent = scanner.takeMinus();
        if (scanner.takeDigits(exponent) == 0) return std::nullopt;
        if (negativeExponent) exponent = -exponent;
    }
    if (!scanner.atEnd()) return std::nullopt;

    value *= std::pow(10.0, exponent - decimals);
    if (!std::isfinite(value)) return std::nullopt;  // no number type of the platform holds it
    return negative ? -value : value;
}

bool isNumeric(std::string_view text) noexcept { return parseNumber(text).has_value(); }

double toDouble(std::string_view text) {
    const auto value = parseNumber(text);
    if (!value) throw RunTimeError(ErrorNumber::TypeMismatch);
    return *value;
}

std::int16_t toInt16(std::string_view text) { return narrow<std::int16_t>(toDouble(text)); }

std::int32_t toInt32(std::string_view text) { return narrow<std::int32_t>(toDouble(text)); }

std::int16_t checkedInt16(std::int64_t value) {
    if (value < std::numeric_limits<std::int16_t>::min() ||
        value > std::numeric_limits<std::int16_t>::max())
        throw RunTimeError(ErrorNumber::Overflow);
    return static_cast<std::int16_t>(value);
}

}  // namespace kv
