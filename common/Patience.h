// Trying again for a short while what fails only because somebody else is using the file: a server
// that is reading a page, a scanner that looks at what has just been written.
#pragma once

#include <algorithm>
#include <chrono>

#include "common/Clock.h"
#include "common/RunTimeError.h"

namespace kv {

// All waiting together takes at most a second, until patience is renewed.
class Patience {
public:
    explicit Patience(const Clock& clock) noexcept : clock_(clock) {}
    Patience(const Patience&) = delete;
    Patience& operator=(const Patience&) = delete;

    void renew() noexcept { left_ = kInAll; }

    // Runs the step until it succeeds, fails for good or patience is at an end. Throws what the
    // last try has thrown.
    template <class Step>
    void tryAgain(Step&& step) {
        for (;;) {
            try {
                return step();
            } catch (const RunTimeError& failure) {
                if (!failure.mayPass() || left_ <= std::chrono::milliseconds::zero()) throw;
            }
            wait();
        }
    }

private:
    static constexpr std::chrono::milliseconds kInAll{1000};
    static constexpr std::chrono::milliseconds kPause{20};

    void wait() {
        const auto begun = clock_.sinceStart();
        clock_.pause(std::min(kPause, left_));
        left_ -= std::max(clock_.sinceStart() - begun, std::chrono::milliseconds{1});
    }

    const Clock& clock_;
    std::chrono::milliseconds left_ = kInAll;
};

}  // namespace kv
