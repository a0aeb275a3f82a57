#pragma once

#include "common/Clock.h"

namespace kv {

// The computer's clock, in its time zone.
class Win32Clock : public Clock {
public:
    LocalTime now() const override;
};

}  // namespace kv
