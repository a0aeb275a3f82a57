#include "common/FailureHandler.h"

#include <array>
#include <new>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/ServicesTest.h"

namespace kv {
namespace {

constexpr std::array kSerious{ErrorNumber::FileNotFound, ErrorNumber::PathNotFound};

class FailureHandlerTest : public ServicesTest {
protected:
    static auto failing(ErrorNumber number) {
        return [number] { throw RunTimeError(number); };
    }

    FailureHandler handler_{log_, "ioRoutine", kSerious};
};

TEST_F(FailureHandlerTest, ASuccessIsZeroAndNotLogged) {
    int runs = 0;

    EXPECT_EQ(handler_([&] { ++runs; }), 0);

    EXPECT_EQ(runs, 1);
    EXPECT_EQ(logged(), Lines{});
}

TEST_F(FailureHandlerTest, AFailureIsItsNumberAndOneWarning) {
    EXPECT_EQ(handler_(failing(ErrorNumber::DiskFull)), 61);

    EXPECT_EQ(logged(), Lines{"WARN  61, Disk full, ioRoutine"});
}

TEST_F(FailureHandlerTest, EveryNumberOfTheListIsSerious) {
    EXPECT_EQ(handler_(failing(ErrorNumber::FileNotFound)), 53);
    EXPECT_EQ(handler_(failing(ErrorNumber::PathNotFound)), 76);

    EXPECT_EQ(logged(), (Lines{"SERV  53, File not found, ioRoutine",
                               "SERV  76, Path not found, ioRoutine"}));
}

TEST_F(FailureHandlerTest, WithoutAListNothingIsSerious) {
    const FailureHandler handler(log_, "other");

    EXPECT_EQ(handler(failing(ErrorNumber::FileNotFound)), 53);

    EXPECT_EQ(logged(), Lines{"WARN  53, File not found, other"});
}

TEST_F(FailureHandlerTest, AFailureEndsItsStepButNotTheNext) {
    int reached = 0;

    handler_([&] {
        failing(ErrorNumber::DiskFull)();
        ++reached;
    });
    handler_([&] { reached += 10; });

    EXPECT_EQ(reached, 10);
}

TEST_F(FailureHandlerTest, WantOfMemoryIsNumber7) {
    EXPECT_EQ(handler_([] { throw std::bad_alloc(); }), 7);

    EXPECT_EQ(logged(), Lines{"WARN  7, Out of memory, ioRoutine"});
}

TEST_F(FailureHandlerTest, WhateverElseIsThrownIsAnInternalError) {
    EXPECT_EQ(handler_([] { throw std::runtime_error("anything"); }), 51);
    EXPECT_EQ(handler_([] { throw 5; }), 51);

    EXPECT_EQ(logged(), (Lines{"WARN  51, Internal error, ioRoutine",
                               "WARN  51, Internal error, ioRoutine"}));
}

}  // namespace
}  // namespace kv
