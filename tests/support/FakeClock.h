// A clock that shows what a test has set.
#pragma once

#include "common/Clock.h"

namespace kv {

class FakeClock : public Clock {
public:
    LocalTime now() const override { return time; }

    LocalTime time{2007, 1, 16, 9, 5, 3};
};

}  // namespace kv
