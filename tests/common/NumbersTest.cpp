#include "common/Numbers.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <limits>
#include <ostream>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/support/disks/TestDisk.h"

namespace kv {
namespace {

using namespace std::string_view_literals;

struct Numeric {
    std::string_view text;
    bool positive;
};
void PrintTo(const Numeric& numeric, std::ostream* out) { *out << numeric.text; }

class NumericText : public testing::TestWithParam<Numeric> {};

TEST_P(NumericText, IsANumberWithASign) {
    EXPECT_TRUE(isNumeric(GetParam().text));
    EXPECT_EQ(isPositive(GetParam().text), GetParam().positive);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, NumericText,
    testing::Values(Numeric{"0", false}, Numeric{"00", false}, Numeric{"-0", false},
                    Numeric{"0.00", false}, Numeric{"0e9", false}, Numeric{".0", false},
                    Numeric{"007", true}, Numeric{"1008", true}, Numeric{"-3", false},
                    Numeric{"+3", true}, Numeric{"  42  ", true}, Numeric{"1.5", true},
                    Numeric{".5", true}, Numeric{"5.", true}, Numeric{"-.25", false},
                    Numeric{"1e3", true}, Numeric{"1E3", true}, Numeric{"1e+3", true},
                    Numeric{"25e-2", true}, Numeric{"4294967296", true}, Numeric{"1.50000", true},
                    Numeric{"-1e999", false}, Numeric{"1e-999", true}));

class TextThatIsNoNumber : public testing::TestWithParam<std::string_view> {};

TEST_P(TextThatIsNoNumber, IsATypeMismatch) {
    EXPECT_FALSE(isNumeric(GetParam()));
    EXPECT_EQ(failureOf([] { isPositive(GetParam()); }), 13);
    EXPECT_EQ(failureOf([] { toInt16(GetParam()); }), 13);
    EXPECT_EQ(failureOf([] { toInt32(GetParam()); }), 13);
}

INSTANTIATE_TEST_SUITE_P(Numbers, TextThatIsNoNumber,
                         testing::Values("", " ", "x", "xx", "1x", "x1", ".", "-", "+", "+-1",
                                         "--1", "1-", "1.2.3", "1 2", "e3", "1e", "1e+", "1e3.5",
                                         "1,5", "0x10", "inf", "INF", "nan", "infinity", "\t1",
                                         "1\r", "1\n", "1\0"sv, "\0"sv, "\0001"sv));

template <class Width>
struct Rounding {
    std::string_view text;
    Width value;
};

template <class Width>
void PrintTo(const Rounding<Width>& rounding, std::ostream* out) {
    *out << rounding.text;
}

class RoundedTo16Bits : public testing::TestWithParam<Rounding<std::int16_t>> {};

TEST_P(RoundedTo16Bits, GoesToTheNearestWholeNumberAndAHalfToTheEvenOne) {
    EXPECT_EQ(toInt16(GetParam().text), GetParam().value);
    EXPECT_EQ(toInt32(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Numbers, RoundedTo16Bits,
                         testing::ValuesIn(std::initializer_list<Rounding<std::int16_t>>{
                             {"0", 0},
                             {"12", 12},
                             {"-12", -12},
                             {"0.4", 0},
                             {"0.5", 0},
                             {"0.6", 1},
                             {"1.5", 2},
                             {"2.5", 2},
                             {"3.5", 4},
                             {"-0.5", 0},
                             {"-1.5", -2},
                             {"-2.5", -2},
                             {" 1e2 ", 100},
                             {"5e-1", 0},
                             {"15e-1", 2},
                             {"99e-3", 0},
                             {"0.0051e2", 1},
                             {"0.0050e2", 0},
                             {"2.50000000000000000000000000001", 3},
                             {"2.49999999999999999999999999999", 2},
                             {"327.67e2", 32767},
                             {"0e999", 0},
                             {"1e-99999999999999999999", 0},
                             {"000000000000000000000032767", 32767},
                             {"32767", 32767},
                             {"32767.4", 32767},
                             {"-32768", -32768},
                             {"-32768.5", -32768},
                             {"6.50000", 6},
                             {"2.50000000", 2}}));

class RoundedTo32Bits : public testing::TestWithParam<Rounding<std::int32_t>> {};

TEST_P(RoundedTo32Bits, ReachesTheEndsOfTheWidth) {
    EXPECT_EQ(toInt32(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Numbers, RoundedTo32Bits,
                         testing::ValuesIn(std::initializer_list<Rounding<std::int32_t>>{
                             {"32768", 32768},
                             {"65536.5", 65536},
                             {"2147483647", std::numeric_limits<std::int32_t>::max()},
                             {"2147483647.4", std::numeric_limits<std::int32_t>::max()},
                             {"-2147483648", std::numeric_limits<std::int32_t>::min()},
                             {"-2147483648.5", std::numeric_limits<std::int32_t>::min()}}));

struct TooLarge {
    std::string_view text;
    std::function<void(std::string_view)> convert;
};
void PrintTo(const TooLarge& number, std::ostream* out) { *out << number.text; }

class NumberBeyondItsWidth : public testing::TestWithParam<TooLarge> {};

TEST_P(NumberBeyondItsWidth, IsAnOverflow) {
    EXPECT_EQ(failureOf([] { GetParam().convert(GetParam().text); }), 6);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, NumberBeyondItsWidth,
    testing::Values(TooLarge{"32768", toInt16}, TooLarge{"32767.5", toInt16},
                    TooLarge{"-32769", toInt16}, TooLarge{"-32768.6", toInt16},
                    TooLarge{"65536", toInt16}, TooLarge{"2147483647", toInt16},
                    TooLarge{"1e300", toInt16}, TooLarge{"2147483648", toInt32},
                    TooLarge{"2147483647.5", toInt32}, TooLarge{"-2147483649", toInt32},
                    TooLarge{"4294967296", toInt32}, TooLarge{"-1e300", toInt32},
                    TooLarge{"1e999", toInt16}, TooLarge{"-1e999", toInt32},
                    TooLarge{"0.1e6", toInt16}, TooLarge{"1e99999999999999999999", toInt32},
                    TooLarge{"00000000000032768", toInt16}));

TEST(CheckedInt16, KeepsWhatFits) {
    EXPECT_EQ(checkedInt16(0), 0);
    EXPECT_EQ(checkedInt16(32767), 32767);
    EXPECT_EQ(checkedInt16(-32768), -32768);
}

TEST(CheckedInt16, RefusesWhatDoesNotFit) {
    EXPECT_EQ(failureOf([] { checkedInt16(32768); }), 6);
    EXPECT_EQ(failureOf([] { checkedInt16(-32769); }), 6);
    EXPECT_EQ(failureOf([] { checkedInt16(65536); }), 6);
    EXPECT_EQ(failureOf([] { checkedInt16(std::numeric_limits<std::int64_t>::min()); }), 6);
}

}  // namespace
}  // namespace kv
