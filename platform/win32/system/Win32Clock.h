#pragma once

#include "common/Clock.h"

namespace kv {

// The computer's clock, in its time zone.
class Win32Clock : public Clock {
public:
    LocalTime now() const override;
    std::chrono::milliseconds sinceStart() const override;
    void pause(std::chrono::milliseconds duration) const override;
};

}  // namespace kv
