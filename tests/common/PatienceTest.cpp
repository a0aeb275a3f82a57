#include "common/Patience.h"

#include <gtest/gtest.h>

#include "tests/support/FakeClock.h"
#include "tests/support/disks/TestDisk.h"

namespace kv {
namespace {

class PatienceTest : public testing::Test {
protected:
    // A step that fails as told until it has been tried that often.
    int tries(int failures, const RunTimeError& failure) {
        int tried = 0;
        failed_ = failureOf([&] {
            patience_.tryAgain([&] {
                if (tried++ < failures) throw failure;
            });
        });
        return tried;
    }

    const RunTimeError inUse_ = RunTimeError::whileInUse(ErrorNumber::FileAlreadyOpen);
    FakeClock clock_;
    Patience patience_{clock_};
    int failed_ = 0;  // the number of the failure of the last step
};

TEST_F(PatienceTest, WhatSucceedsIsTriedOnceWithoutWaiting) {
    EXPECT_EQ(tries(0, inUse_), 1);
    EXPECT_EQ(failed_, 0);
    EXPECT_EQ(clock_.paused.count(), 0);
}

TEST_F(PatienceTest, WhatFailsForGoodIsTriedOnceWithoutWaiting) {
    EXPECT_EQ(tries(1, RunTimeError(ErrorNumber::FileAlreadyOpen)), 1);
    EXPECT_EQ(failed_, 55);
    EXPECT_EQ(clock_.paused.count(), 0);
}

TEST_F(PatienceTest, WhatIsInUseIsTriedAgainAfterAPause) {
    EXPECT_EQ(tries(3, inUse_), 4);
    EXPECT_EQ(failed_, 0);
    EXPECT_EQ(clock_.paused.count(), 60);
}

TEST_F(PatienceTest, AfterASecondTheFailureCounts) {
    EXPECT_EQ(tries(1000, RunTimeError::whileInUse(ErrorNumber::PathFileAccessError)), 51);
    EXPECT_EQ(failed_, 75);
    EXPECT_EQ(clock_.paused.count(), 1000);
}

TEST_F(PatienceTest, AFailureForGoodEndsTheWaiting) {
    int tried = 0;
    const int failed = failureOf([&] {
        patience_.tryAgain([&] {
            if (++tried < 3) throw RunTimeError(inUse_);
            throw RunTimeError(ErrorNumber::DiskFull);
        });
    });

    EXPECT_EQ(failed, 61);
    EXPECT_EQ(tried, 3);
}

TEST_F(PatienceTest, AllStepsShareTheSecond) {
    tries(30, inUse_);
    EXPECT_EQ(clock_.paused.count(), 600);

    EXPECT_EQ(tries(1000, inUse_), 21);
    EXPECT_EQ(clock_.paused.count(), 1000);
    EXPECT_EQ(tries(1, inUse_), 1);
    EXPECT_EQ(clock_.paused.count(), 1000);
}

TEST_F(PatienceTest, RenewedItLastsASecondAgain) {
    tries(1000, inUse_);

    patience_.renew();

    EXPECT_EQ(tries(1000, inUse_), 51);
    EXPECT_EQ(clock_.paused.count(), 2000);
}

// Windows may count time in steps of 15 milliseconds or more, so that a pause seems to take none.
class CoarseClock final : public FakeClock {
public:
    std::chrono::milliseconds sinceStart() const override { return {}; }
};

TEST_F(PatienceTest, AClockThatStandsStillDoesNotLastForEver) {
    CoarseClock clock;
    Patience patience(clock);

    EXPECT_EQ(failureOf([&] { patience.tryAgain([&] { throw RunTimeError(inUse_); }); }), 55);
}

}  // namespace
}  // namespace kv
