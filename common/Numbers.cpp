#include "common/Numbers.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

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

    void takeSign() noexcept {
        if (!take('-')) take('+');
    }

    // Returns how many digits there were.
    int takeDigits() noexcept {
        int count = 0;
        for (; !rest_.empty() && rest_.front() >= '0' && rest_.front() <= '9'; ++count)
            rest_.remove_prefix(1);
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

bool isNumeric(std::string_view text) noexcept {
    Scanner scanner(trim(text));
    scanner.takeSign();
    int digits = scanner.takeDigits();
    if (scanner.take('.')) digits += scanner.takeDigits();
    if (digits == 0) return false;
    if (scanner.take('e') || scanner.take('E')) {
        scanner.takeSign();
        if (scanner.takeDigits() == 0) return false;
    }
    return scanner.atEnd();
}

double toDouble(std::string_view text) {
    if (!isNumeric(text)) throw RunTimeError(ErrorNumber::TypeMismatch);
    const double value = std::strtod(std::string(text).c_str(), nullptr);
    if (!std::isfinite(value)) throw RunTimeError(ErrorNumber::Overflow);
    return value;
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
