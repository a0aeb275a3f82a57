// A clock that shows what a test has set, and whose pauses take no time.
#pragma once

#include "common/Clock.h"

namespace kv {

class FakeClock : public Clock {
public:
    LocalTime now() const override { return time; }
    std::chrono::milliseconds sinceStart() const override { return paused; }
    void pause(std::chrono::milliseconds duration) const override { paused += duration; }

    LocalTime time{2007, 1, 16, 9, 5, 3};
    mutable std::chrono::milliseconds paused{0};  // so far, in all
};

}  // namespace kv
