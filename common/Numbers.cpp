#include "common/Numbers.h"

#include <charconv>
#include <limits>
#include <optional>
#include <utility>

#include "common/RunTimeError.h"
#include "common/Text.h"

namespace kv {
namespace {

bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

// A number as it is written: the digits, and how many of them stand before the decimal point once
// the exponent has moved it.
struct Decimal {
    bool negative = false;
    std::string_view digits;  // with at most one "." among them, which counts for nothing
    std::int64_t wholeDigits = 0;
};

// Reads a text from its front.
class Scanner {
public:
    explicit Scanner(std::string_view text) noexcept : rest_(text) {}

    bool atEnd() const noexcept { return rest_.empty(); }
    std::string_view rest() const noexcept { return rest_; }

    bool take(char wanted) noexcept {
        if (rest_.empty() || rest_.front() != wanted) return false;
        rest_.remove_prefix(1);
        return true;
    }

    // Whether the sign is a minus.
    bool takeSign() noexcept {
        if (take('-')) return true;
        take('+');
        return false;
    }

    std::string_view takeDigits() noexcept {
        const std::string_view all = rest_;
        while (!rest_.empty() && isDigit(rest_.front())) rest_.remove_prefix(1);
        return all.substr(0, all.size() - rest_.size());
    }

private:
    std::string_view rest_;
};

// Beyond some digits every exponent is as good as any other: the number is 0 or too large.
std::int64_t exponentOf(std::string_view digits, bool negative) noexcept {
    constexpr std::int64_t kLimit = 1'000'000'000'000;
    std::int64_t exponent = 0;
    for (const char digit : digits)
        if (exponent < kLimit) exponent = exponent * 10 + (digit - '0');
    return negative ? -exponent : exponent;
}

std::optional<Decimal> parse(std::string_view text) noexcept {
    Scanner scanner(trim(text));
    Decimal number;
    number.negative = scanner.takeSign();
    const std::string_view from = scanner.rest();
    const std::size_t whole = scanner.takeDigits().size();
    const std::size_t fraction = scanner.take('.') ? scanner.takeDigits().size() : 0;
    if (whole + fraction == 0) return std::nullopt;
    number.digits = from.substr(0, from.size() - scanner.rest().size());
    number.wholeDigits = static_cast<std::int64_t>(whole);
    if (scanner.take('e') || scanner.take('E')) {
        const bool negative = scanner.takeSign();
        const std::string_view digits = scanner.takeDigits();
        if (digits.empty()) return std::nullopt;
        number.wholeDigits += exponentOf(digits, negative);
    }
    if (!scanner.atEnd()) return std::nullopt;
    return number;
}

Decimal numberIn(std::string_view text) {
    if (const auto number = parse(text)) return *number;
    throw RunTimeError(ErrorNumber::TypeMismatch);
}

bool isZero(const Decimal& number) noexcept {
    return number.digits.find_first_not_of("0.") == std::string_view::npos;
}

// The number rounded to a whole one, without its sign; a half goes to the even neighbour. Throws
// Overflow above the limit.
std::int64_t rounded(const Decimal& number, std::int64_t limit) {
    if (isZero(number)) return 0;
    std::int64_t whole = 0;
    const auto append = [&](int digit) {
        whole = whole * 10 + digit;
        if (whole > limit) throw RunTimeError(ErrorNumber::Overflow);
    };

    std::int64_t position = 0;  // of a digit, from the first one
    int firstOfFraction = 0;
    bool moreFollow = false;
    for (const char c : number.digits) {
        if (!isDigit(c)) continue;
        if (position < number.wholeDigits)
            append(c - '0');
        else if (position == number.wholeDigits)
            firstOfFraction = c - '0';
        else
            moreFollow = moreFollow || c != '0';
        ++position;
    }
    if (whole > 0)
        for (; position < number.wholeDigits; ++position) append(0);

    const bool half = firstOfFraction == 5 && !moreFollow;
    if (half ? whole % 2 != 0 : firstOfFraction >= 5) ++whole;
    return whole;
}

// The value of a text that is digits and nothing else, as nearly every number in a file is.
template <class Integer>
std::optional<Integer> plainValue(std::string_view text) noexcept {
    Integer value = 0;
    const char* const textEnd = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), textEnd, value);
    if (error != std::errc{} || end != textEnd) return std::nullopt;
    return value;
}

template <class Integer>
Integer convert(std::string_view text) {
    if (const auto plain = plainValue<Integer>(text)) return *plain;

    constexpr std::int64_t kSmallest = std::numeric_limits<Integer>::min();
    const Decimal number = numberIn(text);
    const std::int64_t size = rounded(number, -kSmallest);
    const std::int64_t value = number.negative ? -size : size;
    if (!std::in_range<Integer>(value)) throw RunTimeError(ErrorNumber::Overflow);
    return static_cast<Integer>(value);
}

}  // namespace

bool isNumeric(std::string_view text) noexcept { return parse(text).has_value(); }

bool isPositive(std::string_view text) {
    const Decimal number = numberIn(text);
    return !number.negative && !isZero(number);
}

std::int16_t checkedInt16(std::int64_t value) {
    if (!std::in_range<std::int16_t>(value)) throw RunTimeError(ErrorNumber::Overflow);
    return static_cast<std::int16_t>(value);
}

std::int16_t toInt16(std::string_view text) { return convert<std::int16_t>(text); }

std::int32_t toInt32(std::string_view text) { return convert<std::int32_t>(text); }

}  // namespace kv
