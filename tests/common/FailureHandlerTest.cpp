#include "common/FailureHandler.h"
#include "common/Patience.h"

#include <array>
#include <new>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/FakeClock.h"
#include "tests/support/disks/TestDisk.h"

namespace kv {
namespace {

constexpr std::array kSerious{ErrorNumber::FileNotFound, ErrorNumber::PathNotFound};

class FailureHandlerTest : public testing::Test {
protected:
    FailureHandlerTest() {
        disk_.makeFolder("C:\\log");
        log_.cmnLogSetFolder("C:\\log");
    }

    std::string logged() {
        log_.cmnLogFlush();
        return disk_.exists("C:\\log\\kvwcfg00.log") ? disk_.read("C:\\log\\kvwcfg00.log") : "";
    }

    static auto failing(ErrorNumber number) {
        return [number] { throw RunTimeError(number); };
    }

    TestDisk disk_;
    FakeClock clock_;
    Patience patience_{clock_};
    modCmnLog log_{disk_.fileSystem(), clock_, patience_, "kvwcfg"};
    FailureHandler handler_{log_, "ioRoutine", kSerious};
};

TEST_F(FailureHandlerTest, ASuccessIsZeroAndNotLogged) {
    int runs = 0;

    EXPECT_EQ(handler_([&] { ++runs; }), 0);

    EXPECT_EQ(runs, 1);
    EXPECT_EQ(logged(), "");
}

TEST_F(FailureHandlerTest, AFailureIsItsNumberAndOneWarning) {
    EXPECT_EQ(handler_(failing(ErrorNumber::DiskFull)), 61);

    EXPECT_EQ(logged(), "[2007/01/16 09:05:03]  WARN  61, Disk full, ioRoutine\r\n");
}

TEST_F(FailureHandlerTest, EveryNumberOfTheListIsSerious) {
    EXPECT_EQ(handler_(failing(ErrorNumber::FileNotFound)), 53);
    EXPECT_EQ(handler_(failing(ErrorNumber::PathNotFound)), 76);

    EXPECT_EQ(logged(),
              "[2007/01/16 09:05:03]  SERV  53, File not found, ioRoutine\r\n"
              "[2007/01/16 09:05:03]  SERV  76, Path not found, ioRoutine\r\n");
}

TEST_F(FailureHandlerTest, WithoutAListNothingIsSerious) {
    const FailureHandler handler(log_, "other");

    EXPECT_EQ(handler(failing(ErrorNumber::FileNotFound)), 53);

    EXPECT_EQ(logged(), "[2007/01/16 09:05:03]  WARN  53, File not found, other\r\n");
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

    EXPECT_EQ(logged(), "[2007/01/16 09:05:03]  WARN  7, Out of memory, ioRoutine\r\n");
}

TEST_F(FailureHandlerTest, WhateverElseIsThrownIsAnInternalError) {
    EXPECT_EQ(handler_([] { throw std::runtime_error("anything"); }), 51);
    EXPECT_EQ(handler_([] { throw 5; }), 51);

    EXPECT_EQ(logged(),
              "[2007/01/16 09:05:03]  WARN  51, Internal error, ioRoutine\r\n"
              "[2007/01/16 09:05:03]  WARN  51, Internal error, ioRoutine\r\n");
}

}  // namespace
}  // namespace kv
