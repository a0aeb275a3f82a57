// GoogleTest looks here for what a compiler lacks. With Windows threads GCC has std::mutex only
// since version 13, and GoogleTest makes its notifications of it. No test waits for one.
#pragma once

#include <atomic>

#define GTEST_HAS_NOTIFICATION_ 1

namespace testing::internal {

class Notification {
public:
    void Notify() { notified_ = true; }
    void WaitForNotification() const {
        while (!notified_) {
        }
    }

private:
    std::atomic<bool> notified_{false};
};

}  // namespace testing::internal
