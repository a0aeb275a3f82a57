#include "platform/win32/system/Win32Clock.h"

#include <gtest/gtest.h>

#include <ctime>

namespace kv {
namespace {

// By the C library's own way from seconds to a date.
bool isNow(const LocalTime& time) {
    std::tm parts{};
    parts.tm_year = time.year - 1900;
    parts.tm_mon = time.month - 1;
    parts.tm_mday = time.day;
    parts.tm_hour = time.hour;
    parts.tm_min = time.minute;
    parts.tm_sec = time.second;
    parts.tm_isdst = -1;
    const double apart = std::difftime(std::time(nullptr), std::mktime(&parts));
    return apart >= -1 && apart <= 1;
}

// Days on which a swap of two members would show are all but twelve of a year.
TEST(Win32Clock, TellsTheLocalTime) {
    const LocalTime time = Win32Clock().now();

    EXPECT_TRUE(isNow(time)) << time.year << '/' << time.month << '/' << time.day << ' '
                             << time.hour << ':' << time.minute << ':' << time.second;
}

TEST(Win32Clock, PausesAsLongAsItSays) {
    const Win32Clock clock;
    const auto begin = clock.sinceStart();

    clock.pause(std::chrono::milliseconds(60));

    EXPECT_GE((clock.sinceStart() - begin).count(), 40);
}

}  // namespace
}  // namespace kv
