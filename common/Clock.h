// The local date and time, and waiting.
#pragma once

#include <chrono>

namespace kv {

struct LocalTime {
    int year;    // four digits
    int month;   // 1 to 12
    int day;     // 1 to 31
    int hour;    // 0 to 23
    int minute;  // 0 to 59
    int second;  // 0 to 59

    bool operator==(const LocalTime&) const = default;
};

class Clock {
public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    virtual LocalTime now() const = 0;

    // The time since some moment before the program's start; no change of the date affects it.
    virtual std::chrono::milliseconds sinceStart() const = 0;

    // Does nothing for about as long.
    virtual void pause(std::chrono::milliseconds duration) const = 0;
};

}  // namespace kv
